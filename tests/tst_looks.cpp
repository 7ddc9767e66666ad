// The appearance of the properties dialog: no truncated text and no misplaced widget in any language and font size.
#include "rows.h"
#include "samplemodules.h"
#include "simpleextendcfgdlg.h"
#include "simulatedbase.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>

namespace {

constexpr QSize largeWindow(1400, 900);

/// A text of a widget, the size that it needs and the size that it has.
struct Shown {
    QString text;
    QSize needed;
    QSize given;
};

/// Returns the size of the painted text, because the height of QFontMetrics does not include the Chinese fallback font.
QSize inkSize(const QFontMetrics &metrics, const QString &text)
{
    return {metrics.horizontalAdvance(text), metrics.tightBoundingRect(text).height()};
}

Shown shownOf(const QLabel &label)
{
    const int width = label.wordWrap() ? 0 : label.sizeHint().width();
    return {label.text(),
            {width, label.wordWrap() ? label.heightForWidth(label.width()) : label.sizeHint().height()},
            label.size()};
}

Shown shownOf(const QComboBox &box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    QSize needed;
    QStringList texts;
    for (int i = 0; i < box.count(); ++i) {
        needed = needed.expandedTo(inkSize(box.fontMetrics(), box.itemText(i)));
        texts.append(box.itemText(i));
    }
    return {texts.join('|'), needed, field.size()};
}

Shown shownOf(const QLineEdit &edit)
{
    constexpr int margins = 5; // of QLineEdit, and its cursor
    QStyleOptionFrame option;
    option.initFrom(&edit);
    option.lineWidth = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit);
    return {edit.text(), inkSize(edit.fontMetrics(), edit.text()) + QSize(margins, 0),
            edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit).size()};
}

Shown shownOf(const QAbstractButton &button)
{
    return {button.text(), button.minimumSizeHint(), button.size()};
}

Shown shownOf(const QGroupBox &group)
{
    return {group.title(), {group.minimumSizeHint().width(), 0}, group.size()};
}

Shown shownOf(const QTabBar &bar)
{
    return {bar.tabText(0), bar.sizeHint(), bar.size()};
}

Shown shownOf(const QTreeWidget &tree)
{
    QStringList texts{tree.topLevelItem(0)->text(0)};
    for (int i = 0; i < tree.topLevelItem(0)->childCount(); ++i) {
        texts.append(tree.topLevelItem(0)->child(i)->text(0));
    }
    const QAbstractItemView &items = tree;
    return {texts.join('|'), {items.sizeHintForColumn(0), 0}, tree.viewport()->size()};
}

template <typename Widget>
void append(const QWidget &widget, QVector<Shown> &shown)
{
    if (const auto *const known = qobject_cast<const Widget *>(&widget); known != nullptr && known->isVisible()) {
        shown.append(shownOf(*known));
    }
}

/// Returns the texts of all visible widgets of these classes, and the titles of tables.
template <typename... Widgets>
QVector<Shown> textsOf(const QWidget &dialog)
{
    QVector<Shown> shown;
    for (const auto *widget : dialog.findChildren<QWidget *>()) {
        (append<Widgets>(*widget, shown), ...);
    }
    for (const auto *table : dialog.findChildren<QTableWidget *>()) {
        for (int column = 0; column < table->columnCount(); ++column) {
            shown.append({table->horizontalHeaderItem(column)->text(),
                          {table->horizontalHeader()->sectionSizeHint(column), 0},
                          {table->columnWidth(column), 0}});
        }
    }
    return shown;
}

/// Returns the buddy of the label if it is not at the right of it in the same row, else null.
const QWidget *missedBuddy(const QLabel *label)
{
    const QWidget *const buddy = label != nullptr ? label->buddy() : nullptr;
    if (buddy == nullptr) {
        return nullptr;
    }
    const QRect led = buddy->geometry();
    const QRect place = label->geometry();
    const int middle = place.center().y();
    return led.left() <= place.right() || middle < led.top() || middle > led.bottom() ? buddy : nullptr;
}

/// Returns the misplaced widgets: outside a parent that does not scroll, or over a sibling; labels that are not in
/// front of their buddies; areas that scroll although the window has room for them.
QString misplacedWidgets(const QWidget &dialog)
{
    QString misplaced;
    const bool hasRoom = dialog.height() >= largeWindow.height();
    for (const auto *widget : dialog.findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->isWindow()) {
            continue;
        }
        const auto note = [&](bool isWrong, const char *what, const QWidget *other) {
            if (isWrong) {
                QDebug(&misplaced) << widget << what << other << ';';
            }
        };
        const QWidget *const parent = widget->parentWidget();
        const bool scrolls = qobject_cast<const QAbstractScrollArea *>(parent->parentWidget()) != nullptr;
        note(!scrolls && !parent->rect().contains(widget->geometry()), "is not inside of", parent);
        const auto *const area = qobject_cast<const QAbstractScrollArea *>(widget);
        const bool canScroll = area != nullptr && area->verticalScrollBar()->maximum() > 0;
        note(hasRoom && canScroll && area->height() < dialog.height() / 2, "scrolls in the large", &dialog);
        const auto *const label = qobject_cast<const QLabel *>(widget);
        const auto *const missed = missedBuddy(label);
        note(missed != nullptr, "is not in front of", missed);
        for (const QObject *child : parent->children()) {
            const auto *const other = qobject_cast<const QWidget *>(child);
            const bool counts = other > widget && other->isVisible() && (label == nullptr || !label->text().isEmpty());
            note(counts && other->geometry().intersects(widget->geometry()), "covers", other);
        }
    }
    return misplaced;
}

QVector<Shown> shownTexts(const QWidget &dialog)
{
    return textsOf<QLabel, QAbstractButton, QGroupBox, QComboBox, QLineEdit, QTabBar, QTreeWidget>(dialog);
}

QString cutTexts(const QWidget &dialog)
{
    QString cut;
    for (const Shown &shown : shownTexts(dialog)) {
        if (shown.needed.width() > shown.given.width() || shown.needed.height() > shown.given.height()) {
            QDebug(&cut) << shown.text << "needs" << shown.needed << "has" << shown.given << ';';
        }
    }
    return cut;
}

/// Returns the place of the painted text inside of @p widget, in pixels of @p image.
QRect inkOf(const QImage &image, const QWidget &widget)
{
    constexpr int frame = 4; // of fields
    const QRect inside =
        QRect(widget.mapTo(widget.window(), QPoint()), widget.size()).adjusted(0, frame, -frame, -frame);
    const int background = qGray(image.pixel(inside.bottomRight()));
    QRect ink;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left() + frame; x <= inside.right(); ++x) {
            if (qAbs(qGray(image.pixel(x, y)) - background) > 100) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

/// Shows the page with the given position in the tree.
void showPage(const QWidget &dialog, int page)
{
    auto *tree = dialog.findChild<QTreeWidget *>("tree");
    tree->setCurrentItem(tree->topLevelItem(0)->child(page));
    QCoreApplication::processEvents();
}

} // namespace

class TestLooks : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QLoggingCategory::setFilterRules("default.debug=false");
        QVERIFY(m_chinese.load(SIMPLEEXTEND_TRANSLATION_PATH));
    }
    void cleanup()
    {
        QCoreApplication::removeTranslator(&m_chinese);
        QApplication::setFont(m_font);
        simulatedhost::resetBase();
    }

    void truncatesNoText_data()
    {
        const Rows<bool, double, bool> row("chinese", "fontFactor", "whileOpen");
        for (const bool chinese : {false, true}) {
            const QByteArray language = chinese ? "Chinese, " : "English, ";
            row(language + "default font", chinese, 1, false);
            row(language + "small font", chinese, 0.7, false);
            row(language + "large font", chinese, 1.5, false);
            row(language + "large font set while the dialog is open", chinese, 1.5, true);
        }
    }
    void truncatesNoText()
    {
        QFETCH(bool, chinese);
        QFETCH(double, fontFactor);
        QFETCH(bool, whileOpen);
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * fontFactor);
        if (chinese) {
            QCoreApplication::installTranslator(&m_chinese);
        }
        auto samples = samplemodules::factoryModules(true);
        for (auto &sample : samplemodules::wideModules(16)) {
            samples.push_back(std::move(sample));
        }
        for (const auto &sample : samples) {
            QApplication::setFont(whileOpen ? m_font : font);
            SimpleExtendcfgdlg dialog(sample.par.get(), sample.par->memoryOwner, nullptr, false);
            dialog.show();
            QApplication::setFont(font);
            auto *tree = dialog.findChild<QTreeWidget *>("tree");
            for (const QSize &size : {dialog.size(), QSize(0, 0), largeWindow}) {
                dialog.resize(size);
                for (int i = 0; i < tree->topLevelItem(0)->childCount(); ++i) {
                    tree->setCurrentItem(tree->topLevelItem(0)->child(i));
                    QCoreApplication::processEvents();
                    const QString cut = cutTexts(dialog) + misplacedWidgets(dialog);
                    QVERIFY2(cut.isEmpty(), qPrintable(QStringLiteral("%1, %2, %3 pixels wide: %4")
                                                           .arg(sample.name, tree->currentItem()->text(0))
                                                           .arg(dialog.width())
                                                           .arg(cut)));
                }
            }
        }
    }

    void noteIsReadable_data()
    {
        const Rows<int, int> row("window", "background"); // shades of gray
        row("light window", 0xEF, 0xEF);
        row("dark window", 0x35, 0xFF);
        row("darkest window without a background", 188, 188);
        row("lightest window with a background", 187, 0xFF);
    }
    void noteIsReadable()
    {
        QFETCH(int, window);
        QFETCH(int, background);
        const auto par = samplemodules::withChannels(0x3459, 4);
        SimpleExtendcfgdlg dialog(par.get(), QString(), nullptr, false);
        dialog.show();
        auto *note = dialog.findChild<QLabel *>("noteLabel");
        QCOMPARE(
            note->text(),
            QStringLiteral("<font color=\"#0000FF\">Configuration must be downloaded before taking effect.</font>"));
        const auto shownBackground = [&dialog, note] { return dialog.grab().toImage().pixelColor(note->pos()); };
        const QPalette before = dialog.palette();
        dialog.setPalette(QPalette(QColor(window, window, window)));
        QCOMPARE(shownBackground(), QColor(background, background, background));
        dialog.setPalette(before);
        QCOMPARE(shownBackground(), before.color(QPalette::Window));

        dialog.resize(largeWindow); // the remaining width is between the note and the buttons
        const auto *ok = dialog.findChild<QAbstractButton *>("okButton");
        QCOMPARE(note->width(), note->sizeHint().width());
        QVERIFY(ok->x() - note->geometry().right() > largeWindow.width() / 4);
    }

    void rowsShareABaseLine_data()
    {
        const Rows<double> row("fontFactor");
        row("default font", 1);
        row("large font", 2);
    }
    void rowsShareABaseLine()
    {
        QFETCH(double, fontFactor);
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * fontFactor);
        QApplication::setFont(font);
        const auto par = samplemodules::withChannels(0x3459, 4);
        par->inMap = {6, 2, 4, 1, 2};
        par->comment = "Comment";
        SimpleExtendcfgdlg dialog(par.get(), QString(), nullptr, false);
        dialog.show();
        const auto ink = [&dialog](const QWidget *widget) { return inkOf(dialog.grab().toImage(), *widget); };
        const auto labelOf = [&dialog](const QWidget *field) {
            const auto labels = dialog.findChildren<QLabel *>();
            return *std::find_if(labels.begin(), labels.end(), [=](auto *label) { return label->buddy() == field; });
        };
        const auto *comment = dialog.findChild<QWidget *>("commentEdit");
        QCOMPARE(ink(comment).top(), ink(labelOf(comment)).top()); // a mnemonic may be underlined
        showPage(dialog, 1);
        const auto *start = dialog.findChild<QWidget *>("inputStart");
        const auto *end = dialog.findChild<QWidget *>("inputEnd");
        const int baseLine = ink(start->findChild<QLineEdit *>()).bottom();
        for (const QWidget *widget : std::initializer_list<const QWidget *>{labelOf(start), labelOf(end), end}) {
            QCOMPARE(ink(widget).bottom(), baseLine);
        }
    }

    void readOnlyFieldsAndCheckBoxesAreTold_data()
    {
        const Rows<int> row("window"); // shade of gray
        row("light", 0xEF);
        row("dark", 0x35);
        row("almost black", 0x18);
    }
    void readOnlyFieldsAndCheckBoxesAreTold()
    {
        QFETCH(int, window);
        const auto par = samplemodules::withChannels(0x3558, 8);
        SimpleExtendcfgdlg dialog(par.get(), QString(), nullptr, false);
        dialog.setPalette(QPalette(QColor(window, window, window)));
        dialog.show();
        showPage(dialog, 1);
        const auto gray = [&dialog](const QImage &image, const QWidget *widget, QPoint place) {
            return qGray(image.pixel(widget->mapTo(&dialog, place)));
        };
        const QImage addresses = dialog.grab().toImage();
        const auto *end = dialog.findChild<QWidget *>("inputEnd");
        const auto *start = dialog.findChild<QWidget *>("inputStart")->findChild<QLineEdit *>();
        const int page = gray(addresses, end, {-2, end->height() / 2});
        QCOMPARE(gray(addresses, end, end->rect().center()), page);
        QVERIFY(gray(addresses, start, start->rect().center()) != page);

        showPage(dialog, 3);
        const QImage outputs = dialog.grab().toImage();
        const auto *box = dialog.findChild<QWidget *>("output_0");
        int contrast = 0;
        for (int x = 0; x < box->width(); ++x) {
            contrast = qMax(contrast, qAbs(gray(outputs, box, {x, box->height() / 2}) - gray(outputs, box, {-1, 0})));
        }
        QVERIFY2(contrast > 60, qPrintable(QString::number(contrast)));
    }

    // A page scrolls in one area, in which several rows are visible in a large font, and below their headings.
    void scrollsRowsBelowHeadings_data()
    {
        const Rows<quint32, int, QString> row("typeCode", "page", "heading");
        row("analog input filter", 0x3459, 2, "Number of Samples");
        row("analog output table", 0x3459, 4, "");
        row("analog output type", 0x3459, 5, "Range");
        row("digital input filter", 0x3558, 2, "");
        row("digital output table", 0x3558, 3, "7");
    }
    void scrollsRowsBelowHeadings()
    {
        QFETCH(quint32, typeCode);
        QFETCH(int, page);
        QFETCH(QString, heading);
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * 2);
        QApplication::setFont(font);
        const auto par = samplemodules::withChannels(typeCode, 255);
        SimpleExtendcfgdlg dialog(par.get(), QString(), nullptr, false);
        dialog.show();
        showPage(dialog, page);
        QVector<QScrollBar *> bars;
        for (const auto *area : dialog.findChildren<QAbstractScrollArea *>()) {
            if (area->isVisible() && area->verticalScrollBar()->maximum() > 0) {
                bars.append(area->verticalScrollBar());
            }
        }
        QCOMPARE(bars.size(), 1);
        for (const int value : {bars[0]->maximum() / 2, bars[0]->maximum()}) {
            bars[0]->setValue(value);
            QCoreApplication::processEvents();
            QSet<int> rows;
            for (const auto *editor : dialog.findChildren<QWidget *>(QRegularExpression("_\\d+$"))) {
                if (editor->visibleRegion().boundingRect() == editor->rect() && editor->mask().isEmpty()) {
                    rows.insert(editor->mapTo(&dialog, editor->rect().center()).y());
                }
            }
            QVERIFY2(rows.size() >= 3, qPrintable(QString::number(rows.size())));
            for (const auto *label : dialog.findChildren<QLabel *>()) {
                if (!heading.isEmpty() && label->text() == heading && label->isVisible()) {
                    QCOMPARE(label->visibleRegion().boundingRect(), label->rect());
                    QVERIFY(label->mapTo(&dialog, label->rect().bottomLeft()).y() <
                            *std::min_element(rows.begin(), rows.end()));
                    heading.append(" found");
                }
            }
            QVERIFY(heading.isEmpty() || heading.endsWith(" found"));
            heading.remove(" found");
        }
    }

    // No shown text is an English source text of the translation, in any context.
    void translatesEveryText()
    {
        QSet<QString> english;
        QFile file(SIMPLEEXTEND_TRANSLATION_SOURCE);
        QVERIFY(file.open(QIODevice::ReadOnly));
        for (QXmlStreamReader reader(&file); !reader.atEnd(); reader.readNext()) {
            if (reader.isStartElement() && reader.name() == QLatin1String("source")) {
                english.insert(reader.readElementText());
            }
        }
        QVERIFY(english.size() > 70);
        QCoreApplication::installTranslator(&m_chinese);
        QSet<QString> untranslated;
        for (const auto &sample : samplemodules::factoryModules()) {
            SimpleExtendcfgdlg dialog(sample.par.get(), sample.par->memoryOwner, nullptr, false);
            QStringList texts{dialog.windowTitle().replace(sample.par->objName, "%1")};
            for (const auto *tab : dialog.findChildren<QTabWidget *>()) {
                texts += tab->tabText(0);
            }
            dialog.show();
            auto *tree = dialog.findChild<QTreeWidget *>("tree");
            for (int i = 0; i < tree->topLevelItem(0)->childCount(); ++i) {
                tree->setCurrentItem(tree->topLevelItem(0)->child(i));
                for (const Shown &shown : shownTexts(dialog)) {
                    texts += shown.text == "Default|Disable" ? QStringList() : shown.text.split('|');
                }
            }
            for (const auto *widget : dialog.findChildren<QWidget *>()) {
                texts += widget->accessibleName().split(QRegularExpression(QStringLiteral("[,，] ?")));
            }
            texts.replaceInStrings(QRegularExpression("^Channel \\d+"), "Channel %1");
            untranslated += QSet<QString>(texts.cbegin(), texts.cend()) & english;
        }
        QCOMPARE(untranslated.values().join('|'), QString());
    }

private:
    QTranslator m_chinese;
    const QFont m_font = QApplication::font();
};

QTEST_MAIN(TestLooks)
#include "tst_looks.moc"
