// The editors of the pages with channels: their choices, titles, places, accessible names and focus.
#include "channelkinds.h"
#include "pagefixture.h"
#include "rows.h"

using namespace channelkinds;

class TestChannelEditors : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        QFont font;
        font.setPixelSize(6); // the columns have their minimum widths
        m_dialog = std::make_unique<QWidget>();
        m_dialog->setFont(font);
    }
    void cleanup() { m_page.reset(); }

    void showsTitlesAndChoices_data()
    {
        // titles: of a table's columns, else the texts of the labels with the names of their buddies
        // choices: of each combo box of channel 0
        const Rows<const Kind *, QString, QString, QStringList> row("kind", "record", "titles", "choices");
        const QString onOff = "Disable|Enable";
        const QString slow = "100ms|200ms|500ms|1s|5s";
        const QString ways = "Upscale|Downscale";
        const QString degrees = "Degrees Celsius|Degrees Fahrenheit";
        const QString elements =
            "Pt-100Ω(α=3850ppm)|Pt-100Ω(α=3920ppm)|Pt-100Ω(α=3850.55ppm)|Pt-100Ω(α=3916ppm)|Pt-100Ω(α=3902ppm)|"
            "Pt-500Ω(α=3850ppm)|Pt-500Ω(α=3920ppm)|Pt-500Ω(α=3850.55ppm)|Pt-500Ω(α=3916ppm)|Pt-500Ω(α=3902ppm)|"
            "Pt-1000Ω(α=3850ppm)|Pt-1000Ω(α=3920ppm)|Pt-1000Ω(α=3850.55ppm)|Pt-1000Ω(α=3916ppm)|"
            "Pt-1000Ω(α=3902ppm)|Cu100|NTC5K(B=3435)|NTC5K(B=3950)|NTC10K(B=3435)|NTC10K(B=3950)";
        const QStringList volts{onOff, "1ms|10ms|20ms|50ms|100ms", "0~10V|+/-10V|0~20mA|4~20mA", onOff + "|Invalid",
                                ways};
        const QStringList couple{onOff, slow, "B|E|N|J|K|R|S|T|+/-80mV", onOff, ways, onOff, degrees};
        const QStringList resistance{onOff, slow, elements, onOff, ways, "2-wire|3-wire", degrees};
        const QString common = "Channel|Enable|Filter Time|Input Range|Open Wire Detect|Direction";
        const QString cold = common + "|Cold Junction|Temperature Scale";
        const QString wires = common + "|Wiring Scheme|Temperature Scale";
        row("voltage and current", &aiRange<13395>, "0:-", common, volts);
        row("a thermocouple among them", &aiRange<13395>, "1:-", common, couple);
        row("thermocouple without channels", &aiRange<13396>, "", cold, {});
        row("voltage among resistances", &aiRange<13397>, "0:-", wires, volts);
        row("another code, no channel", &aiRange<13570>, "", common, {});
        row("another code, first channel thermocouple", &aiRange<13398>, "1:- 2:-", cold, couple);
        row("another code, first channel resistance", &aiRange<13399>, "2:-", wires, resistance);
        row("another code, family unknown", &aiRange<13399>, "9:-", common, {});
        row("weighing", &weighing, "-",
            "Channel|Enable|Sensitivity|Limit Freq|Filter Depth|Sub Max|Sub Min|Filter Mode|Sample Freq|Boot Clear",
            {"0=Disable|1=Enable",
             "1=1Hz|2=2Hz|3=5Hz|4=10Hz|5=15Hz|6=25Hz|7=30Hz|8=50Hz|9=60Hz|10=100Hz|11=500Hz|12=1000Hz|13=2000Hz|"
             "14=3000Hz",
             "0=Default|1=Disable", "1=50Hz|2=60Hz|3=100Hz|4=400Hz|5=1200Hz|6=2400Hz"});
        row("input filter delays", &diFilter, "16 0000",
            "I0.0 - I0.3filter_0|I0.4 - I0.7filter_1|I1.0 - I1.3filter_2|I1.4 - I1.7filter_3",
            {"0.20ms|0.40ms|0.80ms|1.60ms|3.20ms|6.40ms|12.8ms"});
        row("digital outputs", &dqTable, "16 0000", "Q0.xoutput_0|Q1.xoutput_8", {});
        row("samples", &aiFilter, "- -", "AIW0|AIW2", {"2|4|8|16|32|64|128|256"});
        row("stop values", &aqTable, "- - -", "AQW0:stopValue_0|AQW2:stopValue_1|AQW4:stopValue_2", {});
        row("output types", &aqType, "- -", "Channel 0:enable_0|Channel 1:enable_1",
            {onOff, "0~10V|+/-10v|0~20mA|4~20mA"});
    }
    void showsTitlesAndChoices()
    {
        const QWidget &page = open();
        QStringList choices;
        for (const auto *combo : page.findChildren<QComboBox *>(QRegularExpression("_0$"))) {
            QStringList shown;
            for (int i = 0; i < combo->count(); ++i) {
                const QString code = combo->itemData(i).toString();
                shown.append(code + (code.isEmpty() ? "" : "=") + combo->itemText(i));
            }
            choices.append(shown.join('|'));
        }
        QTEST(choices, "choices");

        QStringList titles;
        for (const auto *label : page.findChildren<QLabel *>()) {
            if (label->buddy() != nullptr) {
                titles.append(label->text() + label->buddy()->objectName());
            }
        }
        for (const auto *box : page.findChildren<QCheckBox *>(QRegularExpression("filterOn_"))) {
            titles.append(box->text());
        }
        for (const auto *table : page.findChildren<QTableWidget *>()) {
            for (int column = 0; column < table->columnCount(); ++column) {
                titles.append(table->horizontalHeaderItem(column)->text());
            }
        }
        QTEST(titles.join('|'), "titles");
    }

    void tablesFitTheirContents_data()
    {
        // widths: the minimum width of each column, in pixels
        const Rows<const Kind *, QString, int, QVector<int>> row("kind", "record", "channels", "widths");
        const QVector<int> widths{60, 80, 80, 150, 130, 80, 130, 130};
        row("voltage and current", &aiRange<13395>, "0:-", 1, widths);
        row("a thermocouple has more editors than the table", &aiRange<13395>, "1:-", 1, widths);
        row("thermocouples", &aiRange<13396>, "1:- 1:-", 2, widths);
        row("resistances", &aiRange<13397>, "2:-", 1, widths);
        row("no channels", &aiRange<13396>, "", 0, widths);
        row("weighing", &weighing, "- -", 2, {});
    }
    void tablesFitTheirContents()
    {
        QFETCH(QVector<int>, widths);
        const QWidget &page = open();
        const auto *table = page.findChild<QTableWidget *>();
        QSet<const QWidget *> placed;
        for (int column = 0; column < table->columnCount(); ++column) {
            int width = qMax(widths.value(column), table->horizontalHeader()->sectionSizeHint(column));
            if (const auto *editor = table->cellWidget(0, column)) {
                const int gridLine = 1;
                width = qMax(width, qMax(editor->sizeHint().width(), editor->minimumWidth()) + gridLine);
                placed += editor;
            }
            QCOMPARE(table->columnWidth(column), width);
        }
        for (const auto *editor : page.findChildren<QWidget *>(QRegularExpression("_0$"))) {
            QCOMPARE(placed.remove(editor), !editor->isHidden()); // every visible editor is in its cell
        }
        QVERIFY(placed.isEmpty());
        const bool isWeighing = widths.isEmpty();
        QCOMPARE(table->verticalHeader()->isHidden(), isWeighing);
        QCOMPARE(table->selectionBehavior() == QAbstractItemView::SelectRows, isWeighing);
        QCOMPARE(table->editTriggers() == QAbstractItemView::NoEditTriggers, isWeighing);
        QTEST(table->rowCount(), "channels");
        for (int channel = 0; channel < table->rowCount(); ++channel) {
            const QTableWidgetItem *const number = table->item(channel, 0);
            QVERIFY(number != nullptr && (number->flags() & Qt::ItemIsEditable) == 0);
            QCOMPARE(number->text() + table->verticalHeaderItem(channel)->text(), QString("%1%1").arg(channel));
        }
    }

    void rowHeadersFitTheLastNumber()
    {
        QVector<int> widths;
        for (const int channels : {1, 10, 11}) {
            const QWidget &page = open(aiRange<13395>, QString("0:- ").repeated(channels));
            widths.append(page.findChild<QTableWidget *>()->verticalHeader()->sizeHint().width());
        }
        QVERIFY(widths[0] == widths[1] && widths[1] < widths[2]);
    }

    void rangeChangeWithoutSenderUpdatesTheFirstChannel()
    {
        QWidget &page = open(aiRange<13395>, "0:0/0/3/1 0:0/0/3/1");
        edit(page, "openWire_0=0 openWire_1=0");
        QVERIFY(QMetaObject::invokeMethod(&page, "slot_inputRangeChange"));
        QCOMPARE(child<QComboBox>(page, "openWire_0")->currentText(), QString("Enable"));
        QCOMPARE(child<QComboBox>(page, "openWire_1")->currentText(), QString("Disable"));
    }

    void outputsAreBelowTheirHeaders()
    {
        QWidget &page = open(dqTable, "16 0000");
        page.grab(); // activates the layouts
        QStringList headers;
        for (const auto *label : page.findChildren<QLabel *>()) {
            const auto *const box = page.findChild<QCheckBox *>("output_" + label->text());
            if (box != nullptr && label->geometry().center().x() == box->geometry().center().x()) {
                headers.append(label->text());
            }
        }
        QCOMPARE(headers.join(""), QString("01234567"));
    }

    // Accessible name and description of the editors of channel 1, the description only if it differs from the name.
    // The name of a combo box is its current text. "#" is the beginning "Channel 1, ".
    void isHeard_data()
    {
        const Rows<const Kind *, QString, QString> row("kind", "record", "heard");
        row("voltage", &aiRange<13395>, "0:0/0/3/1 0:0/0/3/1",
            "direction: Upscale (#Direction)|enable: Disable (#Enable)|filterTime: 1ms (#Filter Time)|"
            "inputRange: 4~20mA (#Input Range)|openWire: Enable (#Open Wire Detect)");
        row("resistance under thermocouple titles", &aiRange<13396>, "1:- 2:0/1/15/1/0/1/0/1",
            "direction: Upscale (#Direction)|enable: Disable (#Enable)|filterTime: 200ms (#Filter Time)|"
            "inputRange: Cu100 (#Input Range)|openWire: Enable (#Open Wire Detect)|"
            "temperatureScale: Degrees Fahrenheit (#Temperature Scale)|wiringScheme: 3-wire (#Wiring Scheme)");
        row("scales", &weighing, "- -",
            "bootClear: #Boot Clear (#Boot Clear, -99~99)|enable: Enable (#Enable)|"
            "filterDepth: #Filter Depth (#Filter Depth, 0~2000)|filterMode: Default (#Filter Mode)|"
            "limitFreq: 10Hz (#Limit Freq)|sampleFreq: 50Hz (#Sample Freq)|"
            "sensitivity: #Sensitivity (#Sensitivity, 0~32.0000)|subMax: #Sub Max (#Sub Max, 0~2000)|"
            "subMin: #Sub Min (#Sub Min, 0~2000)");
        row("filters", &aiFilter, "- -",
            "deadband: #Deadband(16 - 4080, 0 = forbid)|filterOn: #Whether to Filter|samples: 2 (#Number of Samples)");
        row("stop values", &aqTable, "- -",
            "freeze: #Freeze outputs in last state|stopValue: #Values on transition from RUN to STOP (#Values on "
            "transition from RUN to STOP, -32000~32000)");
        row("output types", &aqType, "- -", "enable: Disable (#Channel Enable)|range: 0~10V (#Range)");
        row("filter delays", &diFilter, "8 11", "filter: 0.40ms (I0.4 - I0.7, Input Filter Delays)");
        row("digital outputs", &dqTable, "8 11", "output: Q0.1 ()");
    }
    void isHeard()
    {
        QStringList heard;
        for (auto *editor : open().findChildren<QWidget *>(QRegularExpression("^(?!filterLabel)[a-zA-Z]*_1$"))) {
            const auto [name, description] = heardOf(editor);
            heard << editor->objectName().section('_', 0, 0) + ": " + name +
                         (description == name ? QString() : " (" + description + ')');
        }
        heard.sort();
        QTEST(heard.join('|').replace("Channel 1, ", "#"), "heard");
    }

    void cellsAreHeardAsTheirEditors()
    {
        auto *table = open(weighing, "- -").findChild<QTableWidget *>();
        for (int column = 0; column < table->columnCount(); ++column) {
            const auto *const editor = table->cellWidget(1, column);
            auto *const cell = QAccessible::queryAccessibleInterface(table)->tableInterface()->cellAt(1, column);
            QCOMPARE(cell->text(QAccessible::Name), column == 0 ? "Channel 1" : editor->accessibleName());
        }
    }

    void keyboardFocusScrolls_data()
    {
        const Rows<const Kind *, QString, QStringList> row("kind", "record", "editors");
        const QString all = QString("- ").repeated(255);
        row("a table", &weighing, all, {"filterMode_200", "sampleFreq_200", "bootClear_200", "enable_201"});
        row("rows that scroll", &aiFilter, all, {"deadband_99", "filterOn_100", "samples_100", "deadband_100"});
    }
    void keyboardFocusScrolls()
    {
        QFETCH(QStringList, editors);
        m_dialog.reset();
        QWidget *const page = &open();
        page->resize(400, 200);
        page->show();
        QVERIFY(QTest::qWaitForWindowActive(page));
        // A click and the activation of the window do not scroll.
        for (const auto reason : {Qt::MouseFocusReason, Qt::ActiveWindowFocusReason, Qt::ShortcutFocusReason}) {
            page->setFocus();
            auto *const first = child(*page, editors[0]);
            first->setFocus(reason);
            QCOMPARE(first->visibleRegion().isEmpty(), reason != Qt::ShortcutFocusReason);
        }
        child(*page, editors[1])->setFocus();
        child(*page, editors[0])->setFocus();
        for (int i = 0; i < editors.size() + 40; ++i) {
            auto *editor = QApplication::focusWidget();
            QCOMPARE(editor->objectName(), editors.value(i, editor->objectName()));
            QCOMPARE(editor->visibleRegion().boundingRect(), editor->rect());
            QVERIFY(editor->mask().isEmpty()); // headings cover it otherwise
            QTest::keyClick(editor, i < editors.size() ? Qt::Key_Tab : Qt::Key_Backtab);
        }
    }

    // The wheel belongs to the page, because an open list is a window that takes it itself.
    void wheelDoesNotTurnComboBoxes()
    {
        m_dialog.reset();
        QWidget &page = open(aiFilter, "0/5/320");
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        auto *samples = child<QComboBox>(page, "samples_0");
        samples->setFocus();
        QVERIFY(samples->hasFocus());
        turnWheel(samples);
        QCOMPARE(samples->currentIndex(), 5);
        QTest::keyClick(samples, Qt::Key_Up); // the keys still turn it
        QCOMPARE(samples->currentIndex(), 4);
        auto *deadband = child<QSpinBox>(page, "deadband_0");
        deadband->setFocus();
        QVERIFY(turnWheel(deadband));
        QCOMPARE(deadband->value(), 336);
    }

private:
    /// Opens the page of the row's kind with the row's record.
    QWidget &open() { return open(*fetched<const Kind *>("kind"), fetched<QString>("record")); }
    QWidget &open(const Kind &kind, const QString &record)
    {
        m_page.reset();
        m_par = kind.record(record);
        m_page = kind.make(m_par, nullptr, m_dialog.get());
        return *m_page;
    }

    Par m_par;
    std::unique_ptr<QWidget> m_dialog;
    PagePtr m_page;
};

QTEST_MAIN(TestChannelEditors)
#include "tst_channeleditors.moc"
