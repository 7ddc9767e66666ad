// The pages with a row per channel, driven through their widgets.
#include "boxrecorder.h"
#include "saifilterwgt.h"
#include "sairangewgt.h"
#include "saqouttblwgt.h"
#include "saqouttypewgt.h"
#include "sdifilterwgt.h"
#include "sdqouttblwgt.h"
#include "simpleextendpar.h"
#include "sweightparcfgwgt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include <memory>

namespace {

using Par = SimpleExtendPar;
using PagePtr = std::unique_ptr<ParamPage>;
using PageMaker = PagePtr (*)(Par &par, Par *defaults, QWidget *parent);
using ParText = QString (*)(const Par &par);

template <class Page>
PagePtr make(Par &par, Par *defaults, QWidget *parent)
{
    return std::make_unique<Page>(&par, defaults, parent);
}

/// The fields of an entry.
template <class... Fields>
QString text(Fields... fields)
{
    return QStringList{QString::number(static_cast<double>(fields))...}.join('/');
}

QString text(const QByteArray &bytes)
{
    return bytes.toHex();
}

QString text(const AiFilter &filter)
{
    return text(filter.filterOn, filter.samples, filter.deadband);
}

QString text(const AiRange &range)
{
    return text(QByteArray(reinterpret_cast<const char *>(range.data()), AiRangeByteCount));
}

QString text(const AqOutTbl &output)
{
    return text(output.freezeLast, output.stopValue);
}

QString text(const AqOutType &type)
{
    return text(type.enable, type.range);
}

QString text(const WeighChannelPar &entry)
{
    return text(entry.enable, entry.sensitivity, entry.limitFreq, entry.filterDepth, entry.subMax, entry.subMin,
                entry.filterMode, entry.sampleFreq, entry.bootClear);
}

/// The entries of a hash by channel, "-" for a missing one.
template <auto Hash, auto Count>
QString entries(const Par &par)
{
    QStringList texts;
    for (quint8 channel = 0; channel < par.*Count; ++channel) {
        texts.append((par.*Hash).contains(channel) ? text((par.*Hash).value(channel)) : "-");
    }
    return texts.join(' ');
}

QString delays(const Par &par)
{
    return text(par.diFilter);
}

QString states(const Par &par)
{
    return text(par.dqMode) + ':' + text(par.dqOutTbl);
}

/// A page with what it writes.
struct Kind {
    PageMaker make;
    ParText text;
};

const Kind diFilter{make<SDIFilterWgt>, delays};
const Kind dqTable{make<SDQOutTblWgt>, states};
const Kind aiFilter{make<SAIFilterWgt>, entries<&Par::aiFilter, &Par::aiCount>};
const Kind aiRange{make<SAIRangeWgt>, entries<&Par::aiRange, &Par::aiCount>};
const Kind aqTable{make<SAQOutTblWgt>, entries<&Par::aqOutTbl, &Par::aqCount>};
const Kind aqType{make<SAQOutTypeWgt>, entries<&Par::aqOutType, &Par::aqCount>};
const Kind weighing{make<SWeightParCfgWgt>, entries<&Par::weighPar, &Par::weighCount>};

template <class Entry>
QHash<quint8, Entry> byChannel(const QVector<Entry> &entries)
{
    QHash<quint8, Entry> hash;
    for (const Entry &entry : entries) {
        hash.insert(static_cast<quint8>(hash.size()), entry);
    }
    return hash;
}

Par digital(quint8 count, const char *hex, quint8 mode = DqUseTable)
{
    Par par;
    par.diCount = par.dqCount = count;
    par.diFilter = par.dqOutTbl = QByteArray::fromHex(hex);
    par.dqMode = mode;
    return par;
}

Par inputs(quint32 objId, const QVector<quint8> &families, const QVector<AiRange> &ranges = {},
           const QVector<AiFilter> &filters = {})
{
    Par par;
    par.objId = objId;
    par.aiCount = static_cast<quint8>(families.size());
    par.aiKind = byChannel(families);
    par.aiRange = byChannel(ranges);
    par.aiFilter = byChannel(filters);
    return par;
}

Par outputs(quint8 count, const QVector<AqOutTbl> &table, const QVector<AqOutType> &types = {})
{
    Par par;
    par.aqCount = count;
    par.aqOutTbl = byChannel(table);
    par.aqOutType = byChannel(types);
    return par;
}

Par scales(quint8 count, const QVector<WeighChannelPar> &entries = {})
{
    Par par;
    par.weighCount = count;
    par.weighPar = byChannel(entries);
    return par;
}

WeighChannelPar depths(quint16 filterDepth, quint16 subMax, quint16 subMin)
{
    return {1, 2.0F, 4, filterDepth, subMax, subMin, 0, 1, 0};
}

template <class Widget = QWidget>
Widget *child(const QWidget &page, const QString &name)
{
    auto *widget = page.findChild<Widget *>(name);
    if (widget == nullptr) {
        qFatal("no widget %s", qPrintable(name));
    }
    return widget;
}

/// Edits as a user does: "samples_1=7" chooses the eighth entry, types into a field or sets a check box;
/// "selectAllButton" presses.
void edit(const QWidget &page, const QString &edits)
{
    for (const QString &item : edits.split(' ', Qt::SkipEmptyParts)) {
        auto *widget = child(page, item.section('=', 0, 0));
        const QString value = item.section('=', 1);
        if (auto *combo = qobject_cast<QComboBox *>(widget)) {
            QTest::keyClick(combo, Qt::Key_Home);
            for (int i = 0; i < value.toInt(); ++i) {
                QTest::keyClick(combo, Qt::Key_Down);
            }
        } else if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
            if (!button->isCheckable() || button->isChecked() != (value == "1")) {
                QTest::keyClick(button, Qt::Key_Space);
            }
        } else {
            QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(widget, Qt::Key_Backspace);
            QTest::keyClicks(widget, value);
        }
    }
}

struct SaveCase {
    const char *name;
    const Kind &kind;
    Par par;
    const char *edits;
    const char *saved; ///< and the controls that are disabled, of channels 0 and 1
    Par defaults = {};
    const char *told = ""; ///< by a refusal: the field first, then the box
};

const char *const deadbandRefusal =
    "deadband_1, warning, Properties - X: The value of deadband must be multiples of sixteen.";
const char *const depthRefusal = "filterDepth_1, information, Properties - X: When filtering is enabled,\n"
                                 "Filter Depth must be greater then the sum of Sub Max and Sub Min.";

const QVector<quint8> voltage{VoltageCurrent};
const QVector<quint8> thermocouple{Thermocouple};
const QVector<quint8> resistance{ResistanceThermometer};

const std::vector<SaveCase> saveCases = {
    {"two rows share a byte", diFilter, digital(8, "55"), "filter_0=1 filter_1=6", "61"},
    {"an odd last row leaves the high half 0", diFilter, digital(12, "5555"), "", "5505"},
    {"without inputs the filter stays", diFilter, digital(0, "77"), "", "77"},
    {"a filter code without a choice stays", diFilter, digital(8, "97"), "", "97"},
    {"a choice replaces a filter code without one", diFilter, digital(8, "97"), "filter_1=0", "07"},
    {"a short filter reads as 0 beyond its end", diFilter, digital(16, "66"), "", "6600"},
    {"the first output is the highest bit", dqTable, digital(8, "00"), "output_0=1 output_7=1", "2:81"},
    {"the second output is the next bit", dqTable, digital(8, "00"), "output_1=1", "2:40"},
    {"a frozen table is saved empty", dqTable, digital(16, "ffff", 1), "",
     "1:0000, without output_0 output_1 selectAllButton clearAllButton"},
    {"freezing empties the table", dqTable, digital(8, "ff"), "freezeCheck=1 freezeCheck=0", "2:00"},
    {"frozen outputs cannot be edited", dqTable, digital(8, "00", 1), "output_0=1 selectAllButton freezeCheck=0",
     "2:00"},
    {"outputs beyond the count are saved as 0", dqTable, digital(12, "ffff"), "", "2:fff0"},
    {"all outputs are those of the module", dqTable, digital(12, "0000"), "selectAllButton output_1=0", "2:bff0"},
    {"clear all", dqTable, digital(12, "ffff"), "clearAllButton output_9=1", "2:0040"},
    {"a short table reads as 0 beyond its end", dqTable, digital(16, "ff"), "", "2:ff00"},
    {"an unknown mode shows nothing", dqTable, digital(8, "ff", 7), "", "2:00"},
    {"without outputs the table stays", dqTable, digital(0, "aa", 1), "",
     "1:aa, without selectAllButton clearAllButton"},
    {"missing input filters read as 0", aiFilter, inputs(13395, {0, 0}), "samples_1=7 deadband_0=4080",
     "0/0/4080 0/7/0"},
    {"select all changes only the check boxes", aiFilter, inputs(13395, {0, 0}, {}, {{5, 320, 0}, {9, 16, 0}}),
     "selectAllButton", "1/5/320 1/9/16"},
    {"clear all changes only the check boxes", aiFilter, inputs(13395, voltage, {}, {{5, 320, 1}}), "clearAllButton",
     "0/5/320"},
    {"only 1 filters", aiFilter, inputs(13395, voltage, {}, {{5, 320, 7}}), "", "0/5/320"},
    {"only 4~20mA knows an open wire", aiRange, inputs(13395, {0, 0}, {{1, 2, 2, 1, 1}, {1, 2, 3, 0, 1}}), "",
     "0102020201000000 0102030001000000, without openWire_0 direction_0"},
    {"choosing 4~20mA detects an open wire", aiRange, inputs(13395, voltage, {{1, 2, 0, 2, 1}}),
     "inputRange_0=3 direction_0=0", "0102030100000000"},
    {"leaving 4~20mA keeps the direction", aiRange, inputs(13395, {0, 0}, {{1, 2, 0, 2, 0}, {1, 2, 3, 0, 1}}),
     "inputRange_1=1", "0102000200000000 0102010201000000, without openWire_0 direction_0 openWire_1 direction_1"},
    {"columns of other families keep their bytes", aiRange, inputs(13395, voltage, {{0, 0, 3, 1, 0, 7, 8, 9}}),
     "enable_0=1 filterTime_0=4", "0104030100070809"},
    {"a thermocouple has a cold junction", aiRange, inputs(13396, thermocouple, {{1, 2, 4, 1, 0, 0, 1, 9}}),
     "coldJunction_0=0 temperatureScale_0=1 inputRange_0=8", "0102080100010009"},
    {"a resistance always detects an open wire", aiRange, inputs(13397, resistance, {{1, 2, 0, 0, 0, 0, 9, 0}}),
     "wiringScheme_0=1 inputRange_0=19", "0102130100000901, without openWire_0"},
    {"a range byte without a choice stays", aiRange, inputs(13396, thermocouple, {{7, 8, 9, 4, 5, 6, 7, 8}}),
     "direction_0=1", "0708090401060708"},
    {"a channel of an unknown family stays", aiRange, inputs(13398, {3, 0}), "",
     "- 0000000200000000, without openWire_1 direction_1"},
    {"columns that the table lacks keep their bytes", aiRange, inputs(13395, thermocouple, {{1, 2, 4, 1, 0, 1, 1, 0}}),
     "enable_0=0", "0002040100010100"},
    {"an output keeps its number while frozen", aqTable, outputs(3, {{1, -7}, {0, 5}, {2, 6}}), "freeze_1=1",
     "1/-7 1/5 0/6, without stopValue_0 stopValue_1"},
    {"a stop value is typed", aqTable, outputs(2, {}), "stopValue_0=-32000 stopValue_1=32000", "0/-32000 0/32000"},
    {"no text is 0", aqTable, outputs(2, {{0, 9}, {0, 9}}), "stopValue_0= stopValue_1=-", "0/0 0/0"},
    {"32768 cannot be typed", aqTable, outputs(2, {}), "stopValue_0=32768 stopValue_1=+32768", "0/3276 0/3276"},
    {"an output range is chosen", aqType, outputs(3, {}, {{1, 1}}), "range_2=3 enable_1=1", "1/1 1/0 0/3"},
    {"an output type without a choice is saved as 255", aqType, outputs(1, {}, {{2, 4}}), "", "255/255"},
    {"missing scales hold the defaults", weighing, scales(2), "", "1/2/4/15/0/0/0/1/0 1/2/4/15/0/0/0/1/0"},
    {"every column of a scale", weighing, scales(1),
     "enable_0=0 sensitivity_0=31.5 limitFreq_0=13 filterDepth_0=2000 subMax_0=1000 subMin_0=999 filterMode_0=1 "
     "sampleFreq_0=5 bootClear_0=-99",
     "0/31.5/14/2000/1000/999/1/6/-99"},
    {"codes without a choice are saved as 255 and 0", weighing, scales(1, {{2, 2.0F, 0, 15, 0, 0, 2, 7, 0}}), "",
     "255/2/0/15/0/0/0/0/0"},
    {"no filter, no rule", weighing, scales(2, {depths(1, 2000, 2000), depths(0, 1, 1)}), "",
     "1/2/4/1/2000/2000/0/1/0 1/2/4/0/1/1/0/1/0"},
    {"a depth above the sum", weighing, scales(1, {depths(15, 7, 7)}), "", "1/2/4/15/7/7/0/1/0"},

    {"default filter delays", diFilter, digital(8, "00"), "defaultsButton", "55", digital(8, "55")},
    {"default states of frozen outputs", dqTable, digital(8, "00", 1), "defaultsButton", "2:81", digital(8, "81")},
    {"frozen by default", dqTable, digital(8, "81"), "defaultsButton",
     "1:00, without output_0 output_1 selectAllButton clearAllButton", digital(8, "00", 1)},
    {"states outlast a frozen default", dqTable, digital(8, "81"), "defaultsButton freezeCheck=0", "2:81",
     digital(8, "00", 1)},
    {"default filters", aiFilter, inputs(13395, voltage), "defaultsButton", "1/5/320",
     inputs(13395, voltage, {}, {{5, 320, 1}})},
    {"default ranges", aiRange, inputs(13396, thermocouple), "defaultsButton", "0102040100000100",
     inputs(13396, thermocouple, {{1, 2, 4, 1, 0, 0, 1, 0}})},
    {"default stop values", aqTable, outputs(1, {{0, 7}}), "defaultsButton", "1/0, without stopValue_0",
     outputs(1, {{1, 0}})},
    {"default output types", aqType, outputs(1, {}, {{9, 0}}), "defaultsButton", "1/1", outputs(1, {}, {{1, 1}})},
    {"scales know their own defaults", weighing, scales(1, {{0, 3.0F, 5, 3, 1, 1, 1, 2, 3}}), "defaultsButton",
     "1/2/4/15/0/0/0/1/0"},

    {"a deadband that is no multiple of 16", aiFilter,
     inputs(13395, {0, 0, 0}, {}, {{1, 16, 1}, {1, 16, 1}, {1, 16, 1}}),
     "samples_0=2 deadband_0=32 samples_1=3 filterOn_1=0 deadband_1=20 samples_2=4 deadband_2=21",
     "1/2/32 0/3/16 1/1/16", Par(), deadbandRefusal},
    {"a filter depth that equals the sum", weighing, scales(3, {depths(15, 7, 7), depths(15, 7, 8), depths(2, 3, 0)}),
     "bootClear_0=5 bootClear_1=6", "1/2/4/15/7/7/0/1/5 1/2/4/15/7/8/0/1/0 1/2/4/2/3/0/0/1/0", Par(), depthRefusal},
};

} // namespace

Q_DECLARE_METATYPE(const Kind *)
Q_DECLARE_METATYPE(const SaveCase *)
Q_DECLARE_METATYPE(SimpleExtendPar)

class TestChannelPages : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_dialog = std::make_unique<QWidget>();
        m_dialog->setWindowTitle("Properties - X");
    }

    void saves_data()
    {
        QTest::addColumn<const SaveCase *>("test");
        for (const SaveCase &test : saveCases) {
            QTest::newRow(test.name) << &test;
        }
    }
    void saves()
    {
        QFETCH(const SaveCase *, test);
        Par par = test->par;
        Par defaults = test->defaults;
        const PagePtr page = test->kind.make(par, &defaults, m_dialog.get());
        edit(*page, test->edits);
        QCOMPARE(test->kind.text(par), test->kind.text(test->par)); // nothing is written or inserted before

        QStringList disabled;
        for (const auto *widget : page->findChildren<QWidget *>(QRegularExpression("_[01]$|AllButton"))) {
            if (!widget->isEnabledTo(page.get())) {
                disabled.append((disabled.isEmpty() ? ", without " : "") + widget->objectName());
            }
        }

        QString told;
        connect(page.get(), &ParamPage::signal_refused, page.get(),
                [&](QWidget *field) { told += field->objectName(); });
        BoxRecorder recorder;
        recorder.onBox = [&](const QMessageBox &box) {
            told += box.icon() == QMessageBox::Warning ? ", warning, " : ", information, ";
            told += box.windowTitle() + ": " + box.text();
        };
        QCOMPARE(page->saveData(), *test->told == '\0');
        QCOMPARE(told, QString(test->told));
        QCOMPARE(test->kind.text(par) + disabled.join(' '), QString(test->saved));
    }

    void offersChoices_data()
    {
        QTest::addColumn<const Kind *>("kind");
        QTest::addColumn<int>("family");
        QTest::addColumn<QStringList>("choices"); // of each combo box of a channel, from left to right
        const QString onOff = "Disable|Enable";
        const QString slow = "100ms|200ms|500ms|1s|5s";
        const QString ways = "Upscale|Downscale";
        const QString elements =
            "Pt-100Ω(α=3850ppm)|Pt-100Ω(α=3920ppm)|Pt-100Ω(α=3850.55ppm)|Pt-100Ω(α=3916ppm)|Pt-100Ω(α=3902ppm)|"
            "Pt-500Ω(α=3850ppm)|Pt-500Ω(α=3920ppm)|Pt-500Ω(α=3850.55ppm)|Pt-500Ω(α=3916ppm)|Pt-500Ω(α=3902ppm)|"
            "Pt-1000Ω(α=3850ppm)|Pt-1000Ω(α=3920ppm)|Pt-1000Ω(α=3850.55ppm)|Pt-1000Ω(α=3916ppm)|"
            "Pt-1000Ω(α=3902ppm)|Cu100|NTC5K(B=3435)|NTC5K(B=3950)|NTC10K(B=3435)|NTC10K(B=3950)";
        const QString limits =
            "1=1Hz|2=2Hz|3=5Hz|4=10Hz|5=15Hz|6=25Hz|7=30Hz|8=50Hz|9=60Hz|10=100Hz|11=500Hz|12=1000Hz|13=2000Hz|"
            "14=3000Hz";
        const QString degrees = "Degrees Celsius|Degrees Fahrenheit";
        const auto add = [](const char *name, const Kind &kind, int family, const QStringList &choices) {
            QTest::newRow(name) << &kind << family << choices;
        };
        add("input filter delays", diFilter, 0, {"0.20ms|0.40ms|0.80ms|1.60ms|3.20ms|6.40ms|12.8ms"});
        add("samples", aiFilter, 0, {"2|4|8|16|32|64|128|256"});
        add("voltage and current", aiRange, 0,
            {onOff, "1ms|10ms|20ms|50ms|100ms", "0~10V|+/-10V|0~20mA|4~20mA", onOff + "|Invalid", ways});
        add("thermocouple", aiRange, 1, {onOff, slow, "B|E|N|J|K|R|S|T|+/-80mV", onOff, ways, onOff, degrees});
        add("resistance", aiRange, 2, {onOff, slow, elements, onOff, ways, "2-wire|3-wire", degrees});
        add("output types", aqType, 0, {onOff, "0~10V|+/-10v|0~20mA|4~20mA"});
        add("weighing", weighing, 0,
            {onOff, limits, "0=Default|1=Disable", "1=50Hz|2=60Hz|3=100Hz|4=400Hz|5=1200Hz|6=2400Hz"});
    }
    void offersChoices()
    {
        QFETCH(const Kind *, kind);
        QFETCH(int, family);
        QFETCH(QStringList, choices);
        Par par = inputs(13398, {static_cast<quint8>(family)});
        par.diCount = par.aqCount = par.weighCount = 1;
        const PagePtr page = kind->make(par, nullptr, m_dialog.get());
        const auto combos = page->findChildren<QComboBox *>();
        QCOMPARE(combos.size(), choices.size());
        for (int place = 0; place < combos.size(); ++place) {
            const bool coded = choices.at(place).at(1) == '=';
            QStringList shown;
            for (int i = 0; i < combos.at(place)->count(); ++i) {
                const QString code = coded ? combos.at(place)->itemData(i).toString() + '=' : QString();
                shown.append(code + combos.at(place)->itemText(i));
            }
            QCOMPARE(shown.join('|'), choices.at(place));
        }
    }

    void rangeColumnsFollowTheModule_data()
    {
        QTest::addColumn<int>("objId");
        QTest::addColumn<QVector<quint8>>("families");
        QTest::addColumn<QString>("titles");
        const QString common = "Channel|Enable|Filter Time|Input Range|Open Wire Detect|Direction";
        const QString cold = common + "|Cold Junction|Temperature Scale";
        const QString wires = common + "|Wiring Scheme|Temperature Scale";
        QTest::newRow("voltage and current") << 13395 << thermocouple << common;
        QTest::newRow("thermocouple without channels") << 13396 << QVector<quint8>() << cold;
        QTest::newRow("resistance") << 13397 << voltage << wires;
        QTest::newRow("another code, no channel") << 13570 << QVector<quint8>() << common;
        QTest::newRow("another code, first channel thermocouple") << 13398 << QVector<quint8>{1, 2} << cold;
        QTest::newRow("another code, first channel resistance") << 13399 << resistance << wires;
        QTest::newRow("another code, family unknown") << 13399 << QVector<quint8>{9} << common;
    }
    void rangeColumnsFollowTheModule()
    {
        QFETCH(int, objId);
        QFETCH(QVector<quint8>, families);
        QFETCH(QString, titles);
        Par par = inputs(static_cast<quint32>(objId), families);
        SAIRangeWgt page(&par, nullptr, m_dialog.get());
        const auto *table = child<QTableWidget>(page, "rangeTable");
        const int widths[] = {60, 80, 80, 150, 130, 80, 130, 130};
        QStringList shown;
        int editors = 0;
        for (int column = 0; column < table->columnCount(); ++column) {
            shown.append(table->horizontalHeaderItem(column)->text());
            QVERIFY(table->columnWidth(column) >= widths[column]);
            for (int channel = 0; channel < families.size(); ++channel) {
                editors += table->cellWidget(channel, column) != nullptr ? 1 : 0;
            }
        }
        QCOMPARE(page.findChildren<QComboBox *>().size(), editors); // each has its place
        QCOMPARE(shown.join('|'), titles);
        QCOMPARE(table->rowCount(), families.size());
        QVERIFY(QMetaObject::invokeMethod(&page, "slot_inputRangeChange")); // no sender, perhaps no channel
    }

    void namesEditors()
    {
        Par par = digital(16, "0000");
        par.aiCount = par.aqCount = par.weighCount = 3;
        const auto name = [&](const Kind &kind, const char *editor) {
            return child(*kind.make(par, nullptr, m_dialog.get()), editor)->accessibleName();
        };
        QCOMPARE(name(aiRange, "inputRange_2"), QString("Channel 2, Input Range"));
        QCOMPARE(name(weighing, "subMax_1"), QString("Channel 1, Sub Max"));
        QCOMPARE(name(aiFilter, "samples_0"), QString("Channel 0, Number of Samples"));
        QCOMPARE(name(aqType, "range_2"), QString("Channel 2, Range"));
        QCOMPARE(name(dqTable, "output_11"), QString("Q1.3"));
        QCOMPARE(name(diFilter, "filter_3"), QString("I1.4 - I1.7, Input Filter Delays"));

        QStringList labels;
        for (const Kind *kind : {&diFilter, &aqTable, &aqType, &dqTable}) {
            const PagePtr page = kind->make(par, nullptr, m_dialog.get());
            for (const auto *label : page->findChildren<QLabel *>()) {
                if (label->buddy() != nullptr) {
                    labels.append(label->text() + label->buddy()->objectName());
                }
            }
        }
        QCOMPARE(labels.join(' '), QString("I0.0 - I0.3filter_0 I0.4 - I0.7filter_1 I1.0 - I1.3filter_2 "
                                           "I1.4 - I1.7filter_3 AQW0:stopValue_0 AQW2:stopValue_1 AQW4:stopValue_2 "
                                           "Channel 0:enable_0 Channel 1:enable_1 Channel 2:enable_2 "
                                           "Q0.xoutput_0 Q1.xoutput_8"));
    }

    void leadsTheKeyboardToHiddenRows_data()
    {
        QTest::addColumn<const Kind *>("kind");
        QTest::addColumn<QStringList>("way");
        QTest::newRow("a table") << &weighing
                                 << QStringList{"filterMode_200", "sampleFreq_200", "bootClear_200", "enable_201"};
        QTest::newRow("rows that scroll")
            << &aiFilter << QStringList{"deadband_99", "filterOn_100", "samples_100", "deadband_100"};
    }
    void leadsTheKeyboardToHiddenRows()
    {
        QFETCH(const Kind *, kind);
        QFETCH(QStringList, way);
        Par par = scales(255);
        par.aiCount = 255;
        const PagePtr page = kind->make(par, nullptr, nullptr);
        page->resize(400, 200);
        page->show();
        QVERIFY(QTest::qWaitForWindowActive(page.get()));
        child(*page, way.first())->setFocus();
        for (const QString &next : way) {
            const auto *editor = child(*page, next);
            QCOMPARE(QApplication::focusWidget(), editor);
            QCOMPARE(editor->visibleRegion().boundingRect(), editor->rect());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
    }

private:
    std::unique_ptr<QWidget> m_dialog;
};

QTEST_MAIN(TestChannelPages)
#include "tst_channelpages.moc"
