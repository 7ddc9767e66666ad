// The pages with a row per channel, driven through their widgets.
#include "boxrecorder.h"
#include "pagefixture.h"
#include "rows.h"
#include "saifilterwgt.h"
#include "sairangewgt.h"
#include "saqouttblwgt.h"
#include "saqouttypewgt.h"
#include "sdifilterwgt.h"
#include "sdqouttblwgt.h"
#include "simpleextendpar.h"
#include "sweightparcfgwgt.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

#include <cstring>
#include <memory>
#include <numeric>

namespace {

using Par = SimpleExtendPar;
using PagePtr = std::unique_ptr<ParamPage>;

/// The fields of an entry, in the order of its text.
struct Fields {
    static auto of(AiFilter &e) { return std::tie(e.filterOn, e.samples, e.deadband); }
    static auto of(AiRange &e) { return std::tie(e[0], e[1], e[2], e[3], e[4], e[5], e[6], e[7]); }
    static auto of(AqOutTbl &e) { return std::tie(e.freezeLast, e.stopValue); }
    static auto of(AqOutType &e) { return std::tie(e.enable, e.range); }
    static auto of(WeighChannelPar &e)
    {
        return std::tie(e.enable, e.sensitivity, e.limitFreq, e.filterDepth, e.subMax, e.subMin, e.filterMode,
                        e.sampleFreq, e.bootClear);
    }
};

/// Fields at the end may be missing.
template <class Entry>
void parse(const QString &text, Entry &entry)
{
    QStringList numbers = text.split('/');
    const auto next = [&](auto &field) {
        field = numbers.isEmpty() ? field : std::decay_t<decltype(field)>(numbers.takeFirst().toDouble());
    };
    std::apply([&](auto &...fields) { (next(fields), ...); }, Fields::of(entry));
}

/// From an entry per channel, "-" for a missing one; the family of a channel may precede it ("1:-").
template <auto Hash, auto Count, quint32 ObjId>
Par channels(const QString &text)
{
    Par par;
    par.objId = ObjId;
    for (const QString &word : text.split(' ', Qt::SkipEmptyParts)) {
        const quint8 channel = (par.*Count)++;
        par.aiKind[channel] = quint8(word.section(':', 0, -2).toInt());
        if (!word.endsWith('-')) {
            parse(word.section(':', -1), (par.*Hash)[channel]);
        }
    }
    return par;
}

template <auto Hash, auto Count>
QString entries(const Par &par)
{
    const auto join = [](auto &...fields) { return QStringList{QString::number(double(fields))...}.join('/'); };
    QStringList texts;
    const QList<quint8> stored = (par.*Hash).keys(); // which may be more than are counted
    const int last = std::accumulate(stored.begin(), stored.end(), par.*Count - 1, qMax<int>);
    for (int i = 0; i <= last; ++i) {
        const auto channel = quint8(i);
        auto entry = (par.*Hash).value(channel);
        texts.append((par.*Hash).contains(channel) ? std::apply(join, Fields::of(entry)) : "-");
    }
    return texts.join(' ');
}

/// From the number of points, the bytes and perhaps the mode of the outputs.
Par digital(const QString &text)
{
    const QStringList words = text.split(' ');
    Par par;
    par.diCount = par.dqCount = quint8(words[0].toInt());
    par.diFilter = par.dqOutTbl = QByteArray::fromHex(words[1].toLatin1());
    par.dqMode = quint8(words.value(2, "2").toInt());
    return par;
}

/// A page with the records that it shows and what it writes, both as text.
struct Kind {
    PagePtr (*make)(Par &par, Par *defaults, QWidget *parent);
    Par (*record)(const QString &text);
    QString (*text)(const Par &par);
};

template <class Page>
PagePtr make(Par &par, Par *defaults, QWidget *parent)
{
    return std::make_unique<Page>(&par, defaults, parent);
}

template <class Page, auto Hash, auto Count, quint32 ObjId = 0>
const Kind analog{make<Page>, channels<Hash, Count, ObjId>, entries<Hash, Count>};
template <quint32 ObjId>
const Kind &aiRange = analog<SAIRangeWgt, &Par::aiRange, &Par::aiCount, ObjId>;
const Kind &aiFilter = analog<SAIFilterWgt, &Par::aiFilter, &Par::aiCount>;
const Kind &aqTable = analog<SAQOutTblWgt, &Par::aqOutTbl, &Par::aqCount>;
const Kind &aqType = analog<SAQOutTypeWgt, &Par::aqOutType, &Par::aqCount>;
const Kind &weighing = analog<SWeightParCfgWgt, &Par::weighPar, &Par::weighCount>;
const Kind diFilter{make<SDIFilterWgt>, digital, [](const Par &par) { return QString(par.diFilter.toHex()); }};
const Kind dqTable{make<SDQOutTblWgt>, digital,
                   [](const Par &par) { return QString("%1:%2").arg(par.dqMode).arg(QString(par.dqOutTbl.toHex())); }};

} // namespace

Q_DECLARE_METATYPE(const Kind *)

class TestChannelPages : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_dialog = std::make_unique<QWidget>();
        m_dialog->setWindowTitle("X");
        QFont font;
        font.setPixelSize(6); // columns have their least widths
        m_dialog->setFont(font);
    }

    void saves_data()
    {
        // saved: and the controls that are disabled, of channels 0 and 1; told: by a refusal, the field, then the box
        const Rows<const Kind *, QString, QString, QString, QString, QString> rows("kind", "before", "edits", "saved",
                                                                                   "defaults", "told");
        const auto row = [&rows](const char *name, const Kind &kind, const char *before, const char *edits,
                                 const char *saved, const char *defaults = nullptr, const char *told = "") {
            rows(name, &kind, before, edits, saved, defaults == nullptr ? before : defaults, told);
        };
        const char *const frozen = "1:00, without output_0 output_1 selectAllButton clearAllButton";
        row("two rows share a byte", diFilter, "8 55", "filter_0=1 filter_1=6", "61");
        row("an odd last row leaves the high half 0", diFilter, "9 5555", "", "5505");
        row("a code without a choice stays until one is chosen", diFilter, "16 9797", "filter_1=0", "0797");
        row("beyond a short filter the delays are the factory's", diFilter, "16 66", "", "6655");
        row("beyond a short default filter the delays stay", diFilter, "24 112233", "filter_4=6 defaultsButton",
            "443336", "24 4433");
        row("without inputs the filter stays", diFilter, "0 77", "", "77");
        row("default filter delays", diFilter, "8 00", "defaultsButton", "55", "8 55");

        row("the first output is the highest bit", dqTable, "8 00", "output_0=1 output_2=1", "2:a0");
        row("a frozen table is saved empty", dqTable, "8 ff 1", "", frozen);
        row("freezing empties the table", dqTable, "8 ff", "freezeCheck=1 freezeCheck=0", "2:00");
        row("frozen outputs stay", dqTable, "8 00 1", "output_0=1 selectAllButton freezeCheck=0", "2:00");
        row("outputs beyond the count are saved as 0", dqTable, "12 ffff", "", "2:fff0");
        row("all outputs are those of the module", dqTable, "12 0000", "selectAllButton output_1=0", "2:bff0");
        row("clear all", dqTable, "12 ffff", "clearAllButton output_9=1", "2:0040");
        row("beyond a short table the outputs are off", dqTable, "16 ff", "", "2:ff00");
        row("beyond a short default table the outputs stay", dqTable, "16 00ff", "output_8=0 defaultsButton", "2:aa7f",
            "16 aa");
        row("an unknown mode shows nothing", dqTable, "8 ff 7", "", "2:00");
        row("without outputs the table stays", dqTable, "0 aa 1", "", "1:aa, without selectAllButton clearAllButton");
        row("default states of frozen outputs", dqTable, "8 00 1", "defaultsButton", "2:81", "8 81");
        row("frozen by default", dqTable, "8 81", "defaultsButton", frozen, "8 00 1");
        row("states outlast that", dqTable, "8 81", "defaultsButton freezeCheck=0", "2:81", "8 00 1");

        row("missing filters are 0", aiFilter, "- -", "samples_1=7 deadband_0=4080", "0/0/4080 0/7/0");
        row("select all spares the rest", aiFilter, "0/5/320 1/9/16", "selectAllButton", "1/5/320 1/9/16");
        row("clear all spares the rest", aiFilter, "1/5/320", "clearAllButton", "0/5/320");
        row("only 1 filters", aiFilter, "7/5/320", "", "0/5/320");
        row("default filters", aiFilter, "-", "defaultsButton", "1/5/320", "1/5/320");
        row("a deadband that is no multiple of 16", aiFilter, "1/1/16 1/1/16 1/1/16",
            "samples_0=2 deadband_0=32 samples_1=3 filterOn_1=0 deadband_1=20 samples_2=4", "1/2/32 0/3/16 1/1/16", "",
            "deadband_1, warning, X: The value of deadband must be multiples of sixteen.");

        row("only 4~20mA knows an open wire", aiRange<13395>, "1/2/2/1/1 1/2/3/0/1", "",
            "1/2/2/2/1/0/0/0 1/2/3/0/1/0/0/0, without openWire_0 direction_0");
        row("choosing 4~20mA detects an open wire", aiRange<13395>, "1/2/0/2/1", "inputRange_0=3 direction_0=0",
            "1/2/3/1/0/0/0/0");
        row("leaving 4~20mA keeps the direction", aiRange<13395>, "1/2/0/2/0 1/2/3/0/1", "inputRange_1=1",
            "1/2/0/2/0/0/0/0 1/2/1/2/1/0/0/0, without openWire_0 direction_0 openWire_1 direction_1");
        row("bytes of other families stay", aiRange<13395>, "0/0/3/1/0/7/8/9", "filterTime_0=4", "0/4/3/1/0/7/8/9");
        row("a foreign range keeps open wire and direction", aiRange<13395>, "1/2/9/0/1 1/2/9/1/0", "",
            "1/2/9/0/1/0/0/0 1/2/9/1/0/0/0/0");
        row("an untouched foreign range by default", aiRange<13395>, "1/2/9/2/1", "defaultsButton", "0/2/9/0/0/0/0/0",
            "0/2/9/0/0");
        row("a default range with its own open wire", aiRange<13395>, "1/2/0/2/1 1/2/3/1/1 1/2/3/1/0", "defaultsButton",
            "1/2/3/0/0/0/0/0 1/2/0/2/0/0/0/0 1/2/3/0/1/0/0/0, without openWire_1 direction_1",
            "1/2/3/0/0 1/2/0/1/0 1/2/3/0/1");
        row("columns that the table lacks, by default", aiRange<13395>, "1:1/2/4/1/0/1/1 2:1/2/4/1/0/1/0/1",
            "defaultsButton", "0/0/0/0/0/0/0/0 0/0/5/1/0/1/0/0, without openWire_1",
            "1:0/0/0/0/0/0/0 2:0/0/5/0/0/1/9/0");
        row("columns that the table lacks stay", aiRange<13395>, "1:1/2/4/1/0/1/1", "enable_0=0", "0/2/4/1/0/1/1/0");
        row("a thermocouple has a cold junction", aiRange<13396>, "1:1/2/4/1/0/0/1/9",
            "coldJunction_0=0 temperatureScale_0=1 inputRange_0=8", "1/2/8/1/0/1/0/9");
        row("a byte without a choice stays", aiRange<13396>, "1:7/8/9/4/5/6/7/8", "direction_0=1", "7/8/9/4/1/6/7/8");
        row("a resistance detects an open wire", aiRange<13397>, "2:1/2/0/0/0/0/9/0",
            "wiringScheme_0=1 inputRange_0=19", "1/2/19/1/0/0/9/1, without openWire_0");
        row("a channel of an unknown family stays", aiRange<13398>, "3:- 0:-", "",
            "- 0/0/0/2/0/0/0/0, without openWire_1 direction_1");
        row("default ranges", aiRange<13396>, "1:-", "defaultsButton", "1/2/4/1/0/0/1/0", "1/2/4/1/0/0/1/0");

        row("an output keeps its number while frozen", aqTable, "1/-7 0/5 2/6", "freeze_1=1",
            "1/-7 1/5 0/6, without stopValue_0 stopValue_1");
        row("a stop value", aqTable, "- -", "stopValue_0=-32000 stopValue_1=32000", "0/-32000 0/32000");
        row("no text is 0", aqTable, "0/9 0/9", "stopValue_0= stopValue_1=-", "0/0 0/0");
        row("32768 cannot be typed", aqTable, "- -", "stopValue_0=32768 stopValue_1=+32768", "0/3276 0/3276");
        row("default stop values", aqTable, "0/7", "defaultsButton", "1/0, without stopValue_0", "1/0");
        row("an output range is chosen", aqType, "1/1 - -", "range_2=3 enable_1=1", "1/1 1/0 0/3");
        row("an output type without a choice is saved as 255", aqType, "2/4", "", "255/255");
        row("default output types", aqType, "9/0", "defaultsButton", "1/1", "1/1");

        row("every column of a scale, by default", weighing, "0/3/5/3/1/1/1/2/3 -", "defaultsButton subMax_1=14",
            "1/2/4/15/0/0/0/1/0 1/2/4/15/14/0/0/1/0");
        row("every column of a scale, edited", weighing, "-",
            "enable_0=0 sensitivity_0=31.5 limitFreq_0=13 filterDepth_0=2000 subMax_0=1000 subMin_0=999 "
            "filterMode_0=1 sampleFreq_0=5 bootClear_0=-99",
            "0/31.5/14/2000/1000/999/1/6/-99");
        row("an untouched sensitivity stays", weighing, "1/1.23456 1/nan 1/-3 1/40", "bootClear_0=1",
            "1/1.23456/4/15/0/0/0/1/1 1/nan/4/15/0/0/0/1/0 1/-3/4/15/0/0/0/1/0 1/40/4/15/0/0/0/1/0");
        row("an edited sensitivity is stored as it is shown", weighing, "1/1.23456 1/nan",
            "sensitivity_0=1.2346 sensitivity_1=0", "1/1.2346/4/15/0/0/0/1/0 1/0/4/15/0/0/0/1/0");
        row("a default sensitivity", weighing, "1/1.23456", "defaultsButton", "1/2/4/15/0/0/0/1/0");
        row("scale codes without a choice", weighing, "2/2/0/15/0/0/2/7", "", "255/2/0/15/0/0/0/0/0");
        row("no filter, no rule", weighing, "1/2/4/1/2000/2000 1/2/4/0/1/1", "",
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
        QFETCH(QString, edits);
        QFETCH(QString, defaults);
        QFETCH(QString, told);
        Par par = kind->record(before);
        Par defaultPar = kind->record(defaults);
        const PagePtr page = kind->make(par, &defaultPar, m_dialog.get());
        edit(*page, edits);
        QCOMPARE(kind->text(par), kind->text(kind->record(before))); // nothing is written or inserted before

        QStringList disabled;
        for (const auto *widget : page->findChildren<QWidget *>(QRegularExpression("_[01]$|AllButton"))) {
            if (!widget->isEnabledTo(page.get())) {
                disabled.append((disabled.isEmpty() ? ", without " : "") + widget->objectName());
            }
        }
        BoxRecorder boxes;
        connect(page.get(), &ParamPage::signal_refused, page.get(),
                [&](QWidget *field) { boxes.told << field->objectName(); });
        QCOMPARE(page->saveData(), told.isEmpty());
        QCOMPARE(boxes.told.join(", "), told);
        QTEST(QString(kind->text(par) + disabled.join(' ')), "saved");
    }

    // What is typed means the same number for every user, and looks as the tool tip "0~32.0000" does.
    void readsNumbersInEveryLocale_data()
    {
        const Rows<QString> row("locale");
        for (const char *locale : {"en_US", "de_DE", "de_CH", "fr_FR", "ar_EG"}) {
            row(locale, locale);
        }
    }
    void readsNumbersInEveryLocale()
    {
        QFETCH(QString, locale);
        const QLocale before;
        const auto reset = qScopeGuard([&before] { QLocale::setDefault(before); });
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
        QCOMPARE(weighing.text(scale).replace("/4/15/0/0/0/1/0", ""), QString("1/31.5 1/31.5 1/1 1/1.2346 1/0"));
        QTest::keyClick(child(*page, "sensitivity_1"), Qt::Key_Return);
        QCOMPARE(child<QDoubleSpinBox>(*page, "sensitivity_1")->text(), QString("31.5000"));
        Par table = aqTable.record("- -");
        const PagePtr stops = aqTable.make(table, nullptr, nullptr);
        edit(*stops, "stopValue_0=1,000 stopValue_1=-1.00");
        QVERIFY(stops->saveData());
        QCOMPARE(aqTable.text(table), QString("0/1000 0/-100"));
    }

    void keepsBits()
    {
        Par scale = weighing.record("-");
        quint32 bits = 0x7F812345; // a signalling NaN, which conversions to double change
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

    void offers_data()
    {
        // Titles of a table's columns, else the labels and where they lead; choices of each combo box of channel 0.
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
    void offers()
    {
        QFETCH(const Kind *, kind);
        QFETCH(QString, record);
        Par par = kind->record(record);
        const PagePtr page = kind->make(par, nullptr, m_dialog.get());
        QStringList choices;
        for (const auto *combo : page->findChildren<QComboBox *>(QRegularExpression("_0$"))) {
            QStringList shown;
            for (int i = 0; i < combo->count(); ++i) {
                const QString code = combo->itemData(i).toString();
                shown.append(code + (code.isEmpty() ? "" : "=") + combo->itemText(i));
            }
            choices.append(shown.join('|'));
        }
        QTEST(choices, "choices");

        QStringList titles;
        for (const auto *label : page->findChildren<QLabel *>()) {
            if (label->buddy() != nullptr) {
                titles.append(label->text() + label->buddy()->objectName());
            }
        }
        for (const auto *box : page->findChildren<QCheckBox *>(QRegularExpression("filterOn_"))) {
            titles.append(box->text());
        }
        if (const auto *table = page->findChild<QTableWidget *>()) {
            const bool ranges = page->inherits("SAIRangeWgt");
            QVERIFY(!ranges || QMetaObject::invokeMethod(page.get(), "slot_inputRangeChange")); // no sender
            const QVector<int> widths = ranges ? QVector<int>{60, 80, 80, 150, 130, 80, 130, 130} : QVector<int>();
            int editors = 0;
            for (int column = 0; column < table->columnCount(); ++column) {
                titles.append(table->horizontalHeaderItem(column)->text());
                int width = qMax(widths.value(column), table->horizontalHeader()->sectionSizeHint(column));
                if (const auto *editor = table->cellWidget(0, column)) {
                    ++editors;
                    width = qMax(width, qMax(editor->sizeHint().width(), editor->minimumWidth()) + 1); // grid line
                    QCOMPARE(editor->accessibleName(), "Channel 0, " + titles.last());
                    if (editor->property("minimum").isValid()) {
                        const QString tip = editor->toolTip(); // tells the limits
                        QCOMPARE(editor->property("minimum").toDouble(), tip.section('~', 0, 0).toDouble());
                        QCOMPARE(editor->property("maximum").toDouble(), tip.section('~', 1).toDouble());
                        QCOMPARE(editor->property("decimals").toInt(), tip.section('.', 1).size());
                    }
                }
                QVERIFY(par.aiKind.size() > 1 || table->columnWidth(column) == width);
            }
            for (const auto *editor : page->findChildren<QWidget *>(QRegularExpression("_0$"))) {
                editors -= editor->isHidden() ? 0 : 1;
            }
            QCOMPARE(editors, 0); // each editor that can be seen has its place
            QCOMPARE(table->rowCount(), record.split(' ', Qt::SkipEmptyParts).size());
            for (int channel = 0; channel < table->rowCount(); ++channel) {
                const QTableWidgetItem *const number = table->item(channel, 0);
                QVERIFY(number != nullptr && (number->flags() & Qt::ItemIsEditable) == 0);
                QCOMPARE(number->text() + table->verticalHeaderItem(channel)->text(), QString("%1%1").arg(channel));
            }
        }
        QTEST(titles.join('|'), "titles");
    }

    void headsColumns()
    {
        Par par = dqTable.record("16 0000");
        const PagePtr page = dqTable.make(par, nullptr, m_dialog.get());
        page->grab(); // which puts everything into its place
        QStringList headed;
        for (const auto *label : page->findChildren<QLabel *>()) {
            const auto *const box = page->findChild<QCheckBox *>("output_" + label->text());
            if (box != nullptr && label->geometry().center().x() == box->geometry().center().x()) {
                headed.append(label->text());
            }
        }
        QCOMPARE(headed.join(""), QString("01234567"));
    }

    // Name and description as assistive technology reads them; a combo box has its current text for a name.
    void isHeard_data()
    {
        const Rows<const Kind *, QString, QStringList> row("kind", "record", "heard");
        const QStringList ranges{"enable: Disable (Channel 1, Enable)", "filterTime: 1ms (Channel 1, Filter Time)",
                                 "inputRange: 4~20mA (Channel 1, Input Range)",
                                 "openWire: Enable (Channel 1, Open Wire Detect)",
                                 "direction: Upscale (Channel 1, Direction)"};
        row("voltage", &aiRange<13395>, "0:0/0/3/1 0:0/0/3/1", ranges);
        row("thermocouple", &aiRange<13396>, "1:- 1:0/1/2/1/0/1/1",
            {"enable: Disable (Channel 1, Enable)", "filterTime: 200ms (Channel 1, Filter Time)",
             "inputRange: N (Channel 1, Input Range)", "openWire: Enable (Channel 1, Open Wire Detect)",
             "direction: Upscale (Channel 1, Direction)", "coldJunction: Enable (Channel 1, Cold Junction)",
             "temperatureScale: Degrees Fahrenheit (Channel 1, Temperature Scale)"});
        row("resistance under thermocouple titles", &aiRange<13396>, "1:- 2:0/1/15/1/0/1/0/1",
            {"enable: Disable (Channel 1, Enable)", "filterTime: 200ms (Channel 1, Filter Time)",
             "inputRange: Cu100 (Channel 1, Input Range)", "openWire: Enable (Channel 1, Open Wire Detect)",
             "direction: Upscale (Channel 1, Direction)", "wiringScheme: 3-wire (Channel 1, Wiring Scheme)",
             "temperatureScale: Degrees Fahrenheit (Channel 1, Temperature Scale)"});
        row("scales", &weighing, "- -",
            {"enable: Enable (Channel 1, Enable)",
             "sensitivity: Channel 1, Sensitivity (Channel 1, Sensitivity, 0~32.0000)",
             "limitFreq: 10Hz (Channel 1, Limit Freq)",
             "filterDepth: Channel 1, Filter Depth (Channel 1, Filter Depth, 0~2000)",
             "subMax: Channel 1, Sub Max (Channel 1, Sub Max, 0~2000)",
             "subMin: Channel 1, Sub Min (Channel 1, Sub Min, 0~2000)", "filterMode: Default (Channel 1, Filter Mode)",
             "sampleFreq: 50Hz (Channel 1, Sample Freq)",
             "bootClear: Channel 1, Boot Clear (Channel 1, Boot Clear, -99~99)"});
        row("filters", &aiFilter, "- -",
            {"filterOn: Channel 1, Whether to Filter (Channel 1, Whether to Filter)",
             "samples: 2 (Channel 1, Number of Samples)",
             "deadband: Channel 1, Deadband(16 - 4080, 0 = forbid) (Channel 1, Deadband(16 - 4080, 0 = forbid))"});
        row("stop values", &aqTable, "- -",
            {"freeze: Channel 1, Freeze outputs in last state (Channel 1, Freeze outputs in last state)",
             "stopValue: Channel 1, Values on transition from RUN to STOP (Channel 1, Values on transition from RUN to "
             "STOP, -32000~32000)"});
        row("output types", &aqType, "- -",
            {"enable: Disable (Channel 1, Channel Enable)", "range: 0~10V (Channel 1, Range)"});
        row("filter delays", &diFilter, "8 11", {"filter: 0.40ms (I0.4 - I0.7, Input Filter Delays)"});
        row("digital outputs", &dqTable, "8 11", {"output: Q0.1 ()"});
    }
    void isHeard()
    {
        QFETCH(const Kind *, kind);
        QFETCH(QString, record);
        QFETCH(QStringList, heard);
        Par par = kind->record(record);
        const PagePtr page = kind->make(par, nullptr, m_dialog.get());
        const auto *table = page->findChild<QTableWidget *>();
        QStringList all;
        for (auto *editor : page->findChildren<QWidget *>(QRegularExpression("^[a-zA-Z]*_1$"))) {
            QAccessibleInterface *const read = QAccessible::queryAccessibleInterface(editor);
            const QString name = editor->objectName().section('_', 0, 0);
            if (name != "filterLabel") {
                all << QString("%1: %2 (%3)")
                           .arg(name, read->text(QAccessible::Name), read->text(QAccessible::Description));
            }
        }
        all.sort();
        heard.sort();
        QCOMPARE(all, heard);
        for (int column = 0; table != nullptr && column < table->columnCount(); ++column) {
            QAccessibleInterface *const read = QAccessible::queryAccessibleInterface(const_cast<QTableWidget *>(table));
            QAccessibleInterface *const cell = read->tableInterface()->cellAt(1, column);
            const QWidget *const editor = table->cellWidget(1, column);
            QCOMPARE(cell->text(QAccessible::Name), editor == nullptr ? "Channel 1" : editor->accessibleName());
        }
    }

    void leadsTheKeyboardToHiddenRows_data()
    {
        const Rows<const Kind *, QString> row("kind", "way");
        row("a table", &weighing, "filterMode_200 sampleFreq_200 bootClear_200 enable_201");
        row("rows that scroll", &aiFilter, "deadband_99 filterOn_100 samples_100 deadband_100");
    }
    void leadsTheKeyboardToHiddenRows()
    {
        QFETCH(const Kind *, kind);
        QFETCH(QString, way);
        Par par = kind->record(QString("- ").repeated(255));
        const PagePtr page = kind->make(par, nullptr, nullptr);
        page->resize(400, 200);
        page->show();
        QVERIFY(QTest::qWaitForWindowActive(page.get()));
        // What the mouse finds is in view already, and a window that comes back stays as it was.
        for (const auto reason : {Qt::MouseFocusReason, Qt::ActiveWindowFocusReason, Qt::ShortcutFocusReason}) {
            page->setFocus();
            auto *const first = child(*page, way.section(' ', 0, 0));
            first->setFocus(reason);
            QCOMPARE(first->visibleRegion().isEmpty(), reason != Qt::ShortcutFocusReason);
        }
        child(*page, way.section(' ', 1, 1))->setFocus();
        child(*page, way.section(' ', 0, 0))->setFocus();
        for (const QString &next : way.split(' ')) {
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
