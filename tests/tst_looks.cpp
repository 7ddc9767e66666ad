// What the properties dialog looks like: whole texts, in every language, with small and large fonts.
#include "samplemodules.h"
#include "simpleextendcfgdlg.h"
#include "simulatedbase.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTranslator>
#include <QTreeWidget>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

constexpr QSize largeWindow(1400, 900);

/// A text that a widget shows, the size that it needs and the one that it has.
struct Shown {
    QString text;
    QSize needed;
    QSize given;
};

/// Of the ink, since a Chinese line is higher than the font that it falls back from says.
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
    constexpr int margins = 4; // what a line edit keeps free beside its text, and its cursor
    return {edit.text(), inkSize(edit.fontMetrics(), edit.text()) + QSize(margins, 0), edit.size()};
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

template <class Widget>
void append(const QWidget &page, QVector<Shown> &shown)
{
    for (const auto *widget : page.findChildren<Widget *>()) {
        if (widget->isVisible()) {
            shown.append(shownOf(*widget));
        }
    }
}

void appendTable(const QTableWidget &table, QVector<Shown> &shown)
{
    for (int column = 0; column < table.columnCount(); ++column) {
        shown.append({table.horizontalHeaderItem(column)->text(),
                      {table.horizontalHeader()->sectionSizeHint(column), 0},
                      {table.columnWidth(column), 0}});
    }
}

/// Widgets that stick out of what is around them, which does not scroll.
QString cutWidgets(const QWidget &dialog)
{
    QStringList cut;
    for (const auto *widget : dialog.findChildren<QWidget *>()) {
        const QWidget *const parent = widget->parentWidget();
        const bool scrolls = qobject_cast<const QAbstractScrollArea *>(parent->parentWidget()) != nullptr;
        if (widget->isVisible() && !widget->isWindow() && !scrolls && !parent->rect().contains(widget->geometry())) {
            cut.append(widget->metaObject()->className() + (' ' + widget->objectName()));
        }
    }
    return cut.join(", ");
}

/// Widgets that cover another one beside them, and labels that do not stand in front of what they lead to.
QString misplacedWidgets(const QWidget &dialog)
{
    QStringList misplaced;
    for (const auto *widget : dialog.findChildren<QWidget *>()) {
        const auto *const label = qobject_cast<const QLabel *>(widget);
        if (!widget->isVisible() || widget->isWindow() || (label != nullptr && label->text().isEmpty())) {
            continue;
        }
        for (const auto *other :
             widget->parentWidget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (other > widget && other->isVisible() && other->geometry().intersects(widget->geometry())) {
                misplaced.append(widget->objectName() + " over " + other->objectName());
            }
        }
        if (label != nullptr && label->buddy() != nullptr) {
            const QRect place = label->geometry();
            const QRect led = label->buddy()->geometry();
            if (led.left() <= place.right() || place.center().y() < led.top() || place.center().y() > led.bottom()) {
                misplaced.append(label->text());
            }
        }
    }
    return misplaced.join(", ");
}

/// Areas that scroll though the window has room for them.
QString crampedAreas(const QWidget &dialog)
{
    QStringList cramped;
    for (const auto *area : dialog.findChildren<QAbstractScrollArea *>()) {
        const bool scrolls = area->isVisible() && area->verticalScrollBar()->maximum() > 0;
        if (scrolls && dialog.height() >= largeWindow.height() && area->height() < dialog.height() / 2) {
            cramped.append(area->metaObject()->className() + (' ' + area->objectName()));
        }
    }
    return cramped.join(", ");
}

QVector<Shown> shownTexts(const QWidget &dialog)
{
    QVector<Shown> shown;
    append<QLabel>(dialog, shown);
    append<QAbstractButton>(dialog, shown);
    append<QGroupBox>(dialog, shown);
    append<QComboBox>(dialog, shown);
    append<QLineEdit>(dialog, shown);
    append<QTabBar>(dialog, shown);
    append<QTreeWidget>(dialog, shown);
    for (const auto *table : dialog.findChildren<QTableWidget *>()) {
        appendTable(*table, shown);
    }
    return shown;
}

QString cutTexts(const QWidget &dialog)
{
    QString cut;
    for (const Shown &shown : shownTexts(dialog)) {
        if (shown.needed.width() > shown.given.width() || shown.needed.height() > shown.given.height()) {
            cut += QStringLiteral("\"%1\" needs %2 x %3, has %4 x %5; ")
                       .arg(shown.text)
                       .arg(shown.needed.width())
                       .arg(shown.needed.height())
                       .arg(shown.given.width())
                       .arg(shown.given.height());
        }
    }
    return cut;
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

    void showsWholeTexts_data()
    {
        QTest::addColumn<bool>("chinese");
        QTest::addColumn<double>("fontFactor");
        QTest::addColumn<bool>("whileOpen");
        for (const bool chinese : {false, true}) {
            const auto row = [chinese](const char *name, double fontFactor, bool whileOpen) {
                QTest::newRow(qPrintable((chinese ? "Chinese, " : "English, ") + QString(name)))
                    << chinese << fontFactor << whileOpen;
            };
            row("the font of the tests", 1, false);
            row("a small font", 0.7, false);
            row("a font half as large again", 1.5, false);
            row("a font that grows while the dialog is open", 1.5, true);
        }
    }
    void showsWholeTexts()
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
                    const QString cut =
                        cutTexts(dialog) + cutWidgets(dialog) + misplacedWidgets(dialog) + crampedAreas(dialog);
                    QVERIFY2(cut.isEmpty(), qPrintable(QStringLiteral("%1, %2, %3 pixels wide: %4")
                                                           .arg(sample.name, tree->currentItem()->text(0))
                                                           .arg(dialog.width())
                                                           .arg(cut)));
                }
            }
        }
    }

    // Every text that is known to the translation is shown in Chinese when it is there, whatever its context is.
    void showsNothingInEnglish()
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
