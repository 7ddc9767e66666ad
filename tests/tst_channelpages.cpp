// What the pages with channels read from the record, offer to edit and write back.
#include "boxrecorder.h"
#include "channelkinds.h"
#include "pagefixture.h"
#include "rows.h"

#include <QDoubleSpinBox>

#include <cstring>

using namespace channelkinds;

class TestChannelPages : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_dialog = std::make_unique<QWidget>();
        m_dialog->setWindowTitle("X");
    }

    void saves_data()
    {
        // edits: see pagefixture.h; saved: the record afterwards and the disabled controls of channels 0 and 1;
        // refusal: the field and the message box of a refusal
        const Rows<const Kind *, QString, QString, QString, QString, QString> rows("kind", "before", "edits", "saved",
                                                                                   "defaults", "refusal");
        const auto row = [&rows](const char *name, const Kind &kind, const char *before, const char *edits,
                                 const char *saved, const char *defaults = nullptr, const char *refusal = "") {
            rows(name, &kind, before, edits, saved, defaults == nullptr ? before : defaults, refusal);
        };
        const char *const frozen = "1:00, without output_0 output_1 selectAllButton clearAllButton";
        row("two rows share a byte", diFilter, "8 55", "filter_0=1 filter_1=6", "61");
        row("an odd last row leaves the high half 0", diFilter, "9 5555", "", "5505");
        row("a code without a choice stays until one is chosen", diFilter, "16 9797", "filter_1=0", "0797");
        row("rows beyond a short filter have the factory delay", diFilter, "16 66", "", "6655");
        row("rows beyond a short default filter stay", diFilter, "24 112233", "filter_4=6 defaultsButton", "443336",
            "24 4433");
        row("a filter without inputs stays", diFilter, "0 77", "", "77");
        row("default filter delays", diFilter, "8 00", "defaultsButton", "55", "8 55");

        row("the first output is the highest bit", dqTable, "8 00", "output_0=1 output_2=1", "2:a0");
        row("a frozen table is saved empty", dqTable, "8 ff 1", "", frozen);
        row("freezing empties the table", dqTable, "8 ff", "freezeCheck=1 freezeCheck=0", "2:00");
        row("frozen outputs cannot be changed", dqTable, "8 00 1", "output_0=1 selectAllButton freezeCheck=0", "2:00");
        row("outputs beyond the count are saved as 0", dqTable, "12 ffff", "", "2:fff0");
        row("Select All checks the outputs of the module", dqTable, "12 0000", "selectAllButton output_1=0", "2:bff0");
        row("Clear All unchecks all outputs", dqTable, "12 ffff", "clearAllButton output_9=1", "2:0040");
        row("outputs beyond a short table are off", dqTable, "16 ff", "", "2:ff00");
        row("outputs beyond a short default table stay", dqTable, "16 00ff", "output_8=0 defaultsButton", "2:aa7f",
            "16 aa");
        row("the table of an unknown mode is not shown", dqTable, "8 ff 7", "", "2:00");
        row("a table without outputs stays", dqTable, "0 aa 1", "", "1:aa, without selectAllButton clearAllButton");
        row("default states of frozen outputs", dqTable, "8 00 1", "defaultsButton", "2:81", "8 81");
        row("frozen default outputs", dqTable, "8 81", "defaultsButton", frozen, "8 00 1");
        row("frozen default outputs keep the checked states", dqTable, "8 81", "defaultsButton freezeCheck=0", "2:81",
            "8 00 1");

        row("missing filters are 0", aiFilter, "- -", "samples_1=7 deadband_0=4080", "0/0/4080 0/7/0");
        row("Select All changes only the switch", aiFilter, "0/5/320 1/9/16", "selectAllButton", "1/5/320 1/9/16");
        row("Clear All changes only the switch", aiFilter, "1/5/320", "clearAllButton", "0/5/320");
        row("only the value 1 means filtered", aiFilter, "7/5/320", "", "0/5/320");
        row("default filters, a missing one is 0", aiFilter, "- 1/7/16", "defaultsButton", "1/5/320 0/0/0", "1/5/320");
        row("a deadband above the limit", aiFilter, "1/5/5000", "", "1/5/4080");
        row("a deadband that is not a multiple of 16", aiFilter, "1/1/16 1/1/16 1/1/16",
            "samples_0=2 deadband_0=32 samples_1=3 filterOn_1=0 deadband_1=20 samples_2=4", "1/2/32 0/3/16 1/1/16", "",
            "deadband_1, warning, X: The value of deadband must be multiples of sixteen.");

        row("only 4~20mA detects an open wire", aiRange<13395>, "1/2/2/1/1 1/2/3/0/1", "",
            "1/2/2/2/1/0/0/0 1/2/3/0/1/0/0/0, without openWire_0 direction_0");
        row("choosing 4~20mA detects an open wire", aiRange<13395>, "1/2/0/2/1", "inputRange_0=3 direction_0=0",
            "1/2/3/1/0/0/0/0");
        row("leaving 4~20mA keeps the direction", aiRange<13395>, "1/2/0/2/0 1/2/3/0/1", "inputRange_1=1",
            "1/2/0/2/0/0/0/0 1/2/1/2/1/0/0/0, without openWire_0 direction_0 openWire_1 direction_1");
        row("bytes of the other families stay", aiRange<13395>, "0/0/3/1/0/7/8/9", "filterTime_0=4", "0/4/3/1/0/7/8/9");
        row("a foreign range keeps open wire and direction", aiRange<13395>, "1/2/9/0/1 1/2/9/1/0", "",
            "1/2/9/0/1/0/0/0 1/2/9/1/0/0/0/0");
        row("an unedited foreign range by default", aiRange<13395>, "1/2/9/2/1", "defaultsButton", "0/2/9/0/0/0/0/0",
            "0/2/9/0/0");
        row("a default range with its own open wire", aiRange<13395>, "1/2/0/2/1 1/2/3/1/1 1/2/3/1/0", "defaultsButton",
            "1/2/3/0/0/0/0/0 1/2/0/2/0/0/0/0 1/2/3/0/1/0/0/0, without openWire_1 direction_1",
            "1/2/3/0/0 1/2/0/1/0 1/2/3/0/1");
        row("default values of columns that the table does not have", aiRange<13395>,
            "1:1/2/4/1/0/1/1 2:1/2/4/1/0/1/0/1", "defaultsButton",
            "0/0/0/0/0/0/0/0 0/0/5/1/0/1/0/0, without openWire_1", "1:0/0/0/0/0/0/0 2:0/0/5/0/0/1/9/0");
        row("columns that the table does not have stay", aiRange<13395>, "1:1/2/4/1/0/1/1", "enable_0=0",
            "0/2/4/1/0/1/1/0");
        row("a thermocouple has a cold junction", aiRange<13396>, "1:1/2/4/1/0/0/1/9",
            "coldJunction_0=0 temperatureScale_0=1 inputRange_0=8", "1/2/8/1/0/1/0/9");
        row("a byte without a choice stays", aiRange<13396>, "1:7/8/9/4/5/6/7/8", "direction_0=1", "7/8/9/4/1/6/7/8");
        row("a resistance detects an open wire", aiRange<13397>, "2:1/2/0/0/0/0/9/0",
            "wiringScheme_0=1 inputRange_0=19", "1/2/19/1/0/0/9/1, without openWire_0");
        row("a channel of an unknown family stays", aiRange<13398>, "3:- 0:-", "",
            "- 0/0/0/2/0/0/0/0, without openWire_1 direction_1");
        row("default ranges", aiRange<13396>, "1:-", "defaultsButton", "1/2/4/1/0/0/1/0", "1/2/4/1/0/0/1/0");

        row("a frozen output keeps its stop value", aqTable, "1/-7 0/5 2/6", "freeze_1=1",
            "1/-7 1/5 0/6, without stopValue_0 stopValue_1");
        row("a stop value", aqTable, "- -", "stopValue_0=-32000 stopValue_1=32000", "0/-32000 0/32000");
        row("an invalid text is saved as 0", aqTable, "0/9 0/9", "stopValue_0= stopValue_1=-", "0/0 0/0");
        row("32768 cannot be typed", aqTable, "- -", "stopValue_0=32768 stopValue_1=+32768", "0/3276 0/3276");
        row("stop values beyond the limits stay", aqTable, "0/-32768 0/32767", "", "0/-32768 0/32767");
        row("a stop value beyond the limit is typed", aqTable, "-", "stopValue_0=32767", "0/32767");
        row("default stop values", aqTable, "0/7", "defaultsButton", "1/0, without stopValue_0", "1/0");
        row("outputs beyond the default record stay", aqTable, "0/1 0/2", "defaultsButton",
            "1/9 0/2, without stopValue_0", "1/9");
        row("an output range is chosen", aqType, "1/1 - -", "range_2=3 enable_1=1", "1/1 1/0 0/3");
        row("an output type without a choice is saved as 255", aqType, "2/4", "", "255/255");
        row("default output types, a missing one is 0", aqType, "9/0 1/2", "defaultsButton", "1/1 0/0", "1/1");

        row("every weighing column by default", weighing, "0/3/5/3/1/1/1/2/3 -", "defaultsButton subMax_1=14",
            "1/2/4/15/0/0/0/1/0 1/2/4/15/14/0/0/1/0");
        row("every weighing column edited", weighing, "-",
            "enable_0=0 sensitivity_0=31.5 limitFreq_0=13 filterDepth_0=2000 subMax_0=1000 subMin_0=999 "
            "filterMode_0=1 sampleFreq_0=5 bootClear_0=-99",
            "0/31.5/14/2000/1000/999/1/6/-99");
        row("an unedited sensitivity stays", weighing, "1/1.23456 1/nan 1/-3 1/40", "bootClear_0=1",
            "1/1.23456/4/15/0/0/0/1/1 1/nan/4/15/0/0/0/1/0 1/-3/4/15/0/0/0/1/0 1/40/4/15/0/0/0/1/0");
        row("an edited sensitivity is stored as it is shown", weighing, "1/1.23456 1/nan",
            "sensitivity_0=1.2346 sensitivity_1=0", "1/1.2346/4/15/0/0/0/1/0 1/0/4/15/0/0/0/1/0");
        row("a default sensitivity", weighing, "1/1.23456", "defaultsButton", "1/2/4/15/0/0/0/1/0");
        row("weighing codes without a choice", weighing, "2/2/0/15/0/0/2/7", "", "255/2/0/15/0/0/0/0/0");
        row("weighing numbers beyond the limits", weighing, "1/2/4/5000/0/0/0/1/-200", "", "1/2/4/2000/0/0/0/1/-99");
        row("a filter depth up to 1 has no rule", weighing, "1/2/4/1/2000/2000 1/2/4/0/1/1", "",
            "1/2/4/1/2000/2000/0/1/0 1/2/4/0/1/1/0/1/0");
        row("a filter depth that equals the sum", weighing, "1/2/4/15/7/7 1/2/4/2/1/1 1/2/4/2/3/0",
            "bootClear_0=5 bootClear_1=6", "1/2/4/15/7/7/0/1/5 1/2/4/2/1/1/0/1/0 1/2/4/2/3/0/0/1/0", "",
            "filterDepth_1, information, X: When filtering is enabled,\n"
            "Filter Depth must be greater then the sum of Sub Max and Sub Min.");
    }
    void saves()
    {
        QFETCH(const Kind *, kind);
        QFETCH(QString, before);
        QFETCH(QString, refusal);
        Par par = kind->record(before);
        Par defaultPar = kind->record(fetched<QString>("defaults"));
        const PagePtr page = kind->make(par, &defaultPar, m_dialog.get());
        edit(*page, fetched<QString>("edits"));
        QCOMPARE(kind->text(par), kind->text(kind->record(before))); // only saveData() writes

        QStringList disabled;
        for (const auto *widget : page->findChildren<QWidget *>(QRegularExpression("_[01]$|AllButton"))) {
            if (!widget->isEnabledTo(page.get())) {
                disabled.append((disabled.isEmpty() ? ", without " : "") + widget->objectName());
            }
        }
        BoxRecorder boxes;
        connect(page.get(), &ParamPage::signal_refused, page.get(),
                [&](QWidget *field) { boxes.texts << field->objectName(); });
        QCOMPARE(page->saveData(), refusal.isEmpty());
        QCOMPARE(boxes.texts.join(", "), refusal);
        QTEST(QString(kind->text(par) + disabled.join(' ')), "saved");

        const QString stored = kind->text(par);
        const PagePtr again = kind->make(par, &defaultPar, m_dialog.get());
        QVERIFY(again->saveData() || !refusal.isEmpty());
        QCOMPARE(kind->text(par), stored); // what is saved is shown again
    }

    // The same text is the same number in every locale, and numbers are shown as in the tool tip "0~32.0000".
    void readsNumbersInEveryLocale()
    {
        const auto reset = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
        for (const QString locale : {"en_US", "de_DE", "de_CH", "fr_FR", "ar_EG"}) {
            QLocale::setDefault(QLocale(locale));
            Par scale = weighing.record("- - - 1/1.23456 1/nan");
            const PagePtr page = weighing.make(scale, nullptr, nullptr);
            edit(*page, "sensitivity_0=31.5 sensitivity_1=31,5 sensitivity_2=1,0,0");
            for (const int channel : {3, 4}) {
                auto *sensitivity = child<QDoubleSpinBox>(*page, QString("sensitivity_%1").arg(channel));
                sensitivity->stepUp();
                sensitivity->stepDown();
            }
            QVERIFY(page->saveData());
            QCOMPARE(QString(locale + weighing.text(scale).replace("/4/15/0/0/0/1/0", "")),
                     QString(locale + "1/31.5 1/31.5 1/1 1/1.2346 1/0"));
            QTest::keyClick(child(*page, "sensitivity_1"), Qt::Key_Return);
            QCOMPARE(child<QDoubleSpinBox>(*page, "sensitivity_1")->text(), QString("31.5000"));
            Par table = aqTable.record("- -");
            const PagePtr stops = aqTable.make(table, nullptr, nullptr);
            edit(*stops, "stopValue_0=1,000 stopValue_1=-1.00");
            QVERIFY(stops->saveData());
            QCOMPARE(QString(locale + aqTable.text(table)), QString(locale + "0/1000 0/-100"));
        }
    }

    void keepsBits()
    {
        Par scale = weighing.record("-");
        quint32 bits = 0x7F812345; // a signaling NaN, which a conversion to double changes
        std::memcpy(&scale.weighPar[0].sensitivity, &bits, sizeof bits);
        const PagePtr page = weighing.make(scale, nullptr, nullptr);
        edit(*page, "bootClear_0=1");
        QVERIFY(page->saveData());
        std::memcpy(&bits, &scale.weighPar[0].sensitivity, sizeof bits);
        QCOMPARE(bits, 0x7F812345U);
        child<QDoubleSpinBox>(*page, "sensitivity_0")->setValue(4);
        QVERIFY(page->saveData());
        QCOMPARE(scale.weighPar[0].sensitivity, 4.0F);
    }

private:
    std::unique_ptr<QWidget> m_dialog;
};

QTEST_MAIN(TestChannelPages)
#include "tst_channelpages.moc"
