// The appearance of the properties dialog: no truncated text and no misplaced widget in any language and font size.
#include "looks.h"
#include "rows.h"
#include "samplemodules.h"
#include "simpleextendcfgdlg.h"
#include "simulatedbase.h"

#include <QFontDatabase>

using namespace looks;

namespace {

QTreeWidgetItem &pagesOf(const QWidget &dialog)
{
    return *dialog.findChild<QTreeWidget *>("tree")->topLevelItem(0);
}

/// Shows the page with the given position in the tree. Returns its name.
QString showPage(const QWidget &dialog, int page)
{
    QTreeWidgetItem *item = pagesOf(dialog).child(page);
    item->treeWidget()->setCurrentItem(item);
    QCoreApplication::processEvents();
    return item->text(0);
}

QFont enlarged(QFont font, double factor)
{
    font.setPointSizeF(font.pointSizeF() * factor);
    return font;
}

QPalette grayPalette(int shade)
{
    return QColor(shade, shade, shade);
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
        m_dialog.reset();
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
        QFETCH(bool, whileOpen);
        const QFont font = enlarged(m_font, fetched<double>("fontFactor"));
        if (fetched<bool>("chinese")) {
            if (QFontDatabase().families(QFontDatabase::SimplifiedChinese).isEmpty()) {
                QSKIP("no font has Chinese characters"); // boxes have other widths
            }
            QCoreApplication::installTranslator(&m_chinese);
        }
        auto samples = samplemodules::factoryModules(true);
        auto wide = samplemodules::wideModules(16);
        std::move(wide.begin(), wide.end(), std::back_inserter(samples));
        for (auto &sample : samples) {
            QApplication::setFont(whileOpen ? m_font : font);
            auto &dialog = show(std::move(sample.par));
            QApplication::setFont(font);
            for (const QSize &size : {dialog.size(), QSize(0, 0), largeWindow}) {
                dialog.resize(size);
                for (int i = 0; i < pagesOf(dialog).childCount(); ++i) {
                    const QString page = showPage(dialog, i);
                    const QString cut = cutTexts(dialog) + misplacedWidgets(dialog);
                    const QString where =
                        QString("%1, %2, %3 pixels wide: ").arg(sample.name, page).arg(dialog.width());
                    QVERIFY2(cut.isEmpty(), qPrintable(where + cut));
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
        auto &dialog = show(samplemodules::withChannels(0x3459, 4));
        auto *note = dialog.findChild<QLabel *>("noteLabel");
        const QString text = "Configuration must be downloaded before taking effect.";
        QCOMPARE(note->text(), "<font color=\"#0000FF\">" + text + "</font>");
        const auto shownBackground = [&dialog, note] { return dialog.grab().toImage().pixelColor(note->pos()); };
        const QPalette before = dialog.palette();
        dialog.setPalette(grayPalette(fetched<int>("window")));
        QCOMPARE(shownBackground(), grayPalette(fetched<int>("background")).color(QPalette::Window));
        dialog.setPalette(before);
        QCOMPARE(shownBackground(), before.color(QPalette::Window));

        dialog.resize(largeWindow); // the remaining width is between the note and the buttons
        const auto *ok = dialog.findChild<QAbstractButton *>("okButton");
        QCOMPARE(note->width(), note->sizeHint().width());
        QVERIFY(ok->x() - note->geometry().right() > largeWindow.width() / 4);
    }

    void rowsShareABaseLine()
    {
        for (const double fontFactor : {1.0, 2.0}) {
            QApplication::setFont(enlarged(m_font, fontFactor));
            auto par = samplemodules::withChannels(0x3459, 4);
            par->inMap = {6, 2, 4, 1, 2};
            par->comment = "Comment";
            auto &dialog = show(std::move(par));
            const auto ink = [&dialog](const QWidget *widget) { return inkOf(dialog.grab().toImage(), *widget); };
            const auto labelOf = [&dialog](const QWidget *field) {
                const auto labels = dialog.findChildren<QLabel *>();
                return *std::find_if(labels.begin(), labels.end(),
                                     [=](auto *label) { return label->buddy() == field; });
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
    }

    void readOnlyFieldsAndCheckBoxesAreTold()
    {
        for (const int window : {0xEF, 0x35, 0x18}) { // shades of gray: light, dark, almost black
            auto &dialog = show(samplemodules::withChannels(0x3558, 8));
            dialog.setPalette(grayPalette(window));
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
                contrast =
                    qMax(contrast, qAbs(gray(outputs, box, {x, box->height() / 2}) - gray(outputs, box, {-1, 0})));
            }
            QVERIFY2(contrast > 60, qPrintable(QString::number(contrast)));
        }
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
        QFETCH(QString, heading);
        QApplication::setFont(enlarged(m_font, 2));
        auto &dialog = show(samplemodules::withChannels(fetched<quint32>("typeCode"), 255));
        showPage(dialog, fetched<int>("page"));
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
            int found = 0;
            for (const auto *label : dialog.findChildren<QLabel *>()) {
                if (!heading.isEmpty() && label->text() == heading && label->isVisible()) {
                    QCOMPARE(label->visibleRegion().boundingRect(), label->rect());
                    const int bottom = label->mapTo(&dialog, label->rect().bottomLeft()).y();
                    QVERIFY(bottom < *std::min_element(rows.begin(), rows.end()));
                    ++found;
                }
            }
            QVERIFY(heading.isEmpty() || found > 0);
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
        bool hasFilterModes = false;
        for (auto &sample : samplemodules::factoryModules()) {
            auto &dialog = show(std::move(sample.par));
            QStringList texts{dialog.windowTitle().replace(m_par->objName, "%1")};
            for (const auto *tab : dialog.findChildren<QTabWidget *>()) {
                texts += tab->tabText(0);
            }
            for (int i = 0; i < pagesOf(dialog).childCount(); ++i) {
                showPage(dialog, i);
                for (const Shown &shown : shownTexts(dialog)) {
                    const bool isFilterMode = shown.text == "Default|Disable"; // stays English
                    hasFilterModes = hasFilterModes || isFilterMode;
                    texts += isFilterMode ? QStringList() : shown.text.split('|');
                }
            }
            for (const auto *widget : dialog.findChildren<QWidget *>()) {
                texts += widget->accessibleName().split(QRegularExpression(QStringLiteral("[,，] ?")));
            }
            texts.replaceInStrings(QRegularExpression("^Channel \\d+"), "Channel %1");
            untranslated += QSet<QString>(texts.cbegin(), texts.cend()) & english;
        }
        QCOMPARE(untranslated.values().join('|'), QString());
        QVERIFY(hasFilterModes);
    }

private:
    SimpleExtendcfgdlg &show(std::unique_ptr<SimpleExtendPar> par)
    {
        m_dialog.reset();
        m_par = std::move(par);
        m_dialog = std::make_unique<SimpleExtendcfgdlg>(m_par.get(), m_par->memoryOwner, nullptr, false);
        m_dialog->show();
        return *m_dialog;
    }

    std::unique_ptr<SimpleExtendPar> m_par;
    std::unique_ptr<SimpleExtendcfgdlg> m_dialog;
    QTranslator m_chinese;
    const QFont m_font = QApplication::font();
};

QTEST_MAIN(TestLooks)
#include "tst_looks.moc"
