#include "fieldmeaning.h"

#include "choices.h"
#include "modulekind.h"
#include "simpleextendpar.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace {

/// One row for a field whose number stands for a choice; the lists by signal family where they differ.
struct ChoiceRow {
    FieldPlace place;
    const char *name;
    std::array<const ChoiceList *, 3> byFamily;
    const char *unit = "";
};

constexpr std::array<const ChoiceList *, 3> always(const ChoiceList &list)
{
    return {&list, &list, &list};
}

const ChoiceRow choiceRows[] = {
    {FieldPlace::AnalogInput, "samples", always(choices::sampleCounts), " samples"},
    {FieldPlace::AnalogInput, "enable", always(choices::enable)},
    {FieldPlace::AnalogInput,
     "filterTime",
     {&choices::filterTimes, &choices::temperatureFilterTimes, &choices::temperatureFilterTimes}},
    {FieldPlace::AnalogInput,
     "inputRange",
     {&choices::inputRanges, &choices::thermocoupleRanges, &choices::resistanceRanges}},
    {FieldPlace::AnalogInput, "openWire", {&choices::openWire, &choices::enable, &choices::enable}},
    {FieldPlace::AnalogInput, "direction", always(choices::directions)},
    {FieldPlace::AnalogInput, "temperatureScale", always(choices::temperatureScales)},
    {FieldPlace::AnalogInput, "coldJunction", always(choices::enable)},
    {FieldPlace::AnalogInput, "wiringScheme", always(choices::wiringSchemes)},
    {FieldPlace::AnalogOutput, "enable", always(choices::enable)},
    {FieldPlace::AnalogOutput, "range", always(choices::outputRanges)},
    {FieldPlace::Weighing, "enable", always(choices::enable)},
    {FieldPlace::Weighing, "limitFreq", always(choices::limitFrequencies)},
    {FieldPlace::Weighing, "filterMode", always(choices::filterModes)},
    {FieldPlace::Weighing, "sampleFreq", always(choices::sampleFrequencies)},
};

QString choiceText(const ChoiceRow &row, quint8 family, int code)
{
    const QString text = row.byFamily[family < row.byFamily.size() ? family : 0]->text(code);
    return text.isEmpty() ? QStringLiteral("no such choice") : text + QLatin1String(row.unit);
}

QString areaText(double area)
{
    switch (static_cast<VarArea>(static_cast<quint8>(area))) {
    case VarArea::None:
        return QStringLiteral("no range");
    case VarArea::AnalogInput:
        return QStringLiteral("analog inputs");
    case VarArea::AnalogOutput:
        return QStringLiteral("analog outputs");
    case VarArea::DigitalInput:
        return QStringLiteral("digital inputs");
    case VarArea::DigitalOutput:
        return QStringLiteral("digital outputs");
    case VarArea::Variable:
        return QStringLiteral("variable area");
    }
    return QStringLiteral("no area that a module uses");
}

QString signalFamilyText(double family)
{
    switch (static_cast<int>(family)) {
    case VoltageCurrent:
        return QStringLiteral("voltage/current");
    case Thermocouple:
        return QStringLiteral("thermocouple");
    case ResistanceThermometer:
        return QStringLiteral("resistance thermometer");
    default:
        return QStringLiteral("unknown family, without range bytes");
    }
}

QString placementText(double number)
{
    return number == -1 ? QStringLiteral("not placed") : QString();
}

QString moduleInfoText(double info)
{
    return info == 0 ? QStringLiteral("the ranges are not read")
                     : QStringLiteral("0x%1").arg(static_cast<quint32>(info), 8, 16, QLatin1Char('0'));
}

QString deadbandText(double deadband)
{
    if (deadband == 0) {
        return QStringLiteral("no deadband");
    }
    const bool offered = deadband <= 4080 && std::fmod(deadband, 16) == 0;
    return offered ? QString() : QStringLiteral("not a multiple of 16 up to 4080");
}

QString dqModeText(double mode)
{
    switch (static_cast<int>(mode)) {
    case DqFreezeLast:
        return QStringLiteral("freeze outputs in last state");
    case DqUseTable:
        return QStringLiteral("outputs take the states of the table");
    default:
        return QStringLiteral("no such choice");
    }
}

template <int Minimum, int Maximum>
QString limitText(double value)
{
    const bool inside = value >= Minimum && value <= Maximum; // false for what is no number
    return inside ? QString() : QStringLiteral("outside %1 to %2").arg(Minimum).arg(Maximum);
}

struct NumberRow {
    FieldPlace place;
    const char *name;
    QString (*text)(double value);
};

constexpr NumberRow numberRows[] = {
    {FieldPlace::Header, "objId", [](double objId) { return moduleKindText(static_cast<quint32>(objId)); }},
    {FieldPlace::Header, "rackId", placementText},
    {FieldPlace::Header, "slotId", placementText},
    {FieldPlace::Header, "moduleInfo", moduleInfoText},
    {FieldPlace::Header, "marker",
     [](double marker) {
         return marker == 0 ? QStringLiteral("no interrupt table") : QStringLiteral("the interrupt table follows");
     }},
    {FieldPlace::Range, "area", areaText},
    {FieldPlace::Range, "length", [](double /*length*/) { return QStringLiteral("bytes"); }},
    {FieldPlace::DigitalOutput, "dqMode", dqModeText},
    {FieldPlace::AnalogInput, "family", signalFamilyText},
    {FieldPlace::AnalogInput, "filterOn",
     [](double on) { return on == 1 ? QStringLiteral("filtered") : QStringLiteral("not filtered"); }},
    {FieldPlace::AnalogInput, "deadband", deadbandText},
    {FieldPlace::AnalogOutput, "freezeLast",
     [](double freeze) {
         return freeze == 1 ? QStringLiteral("freeze output in last state")
                            : QStringLiteral("output takes the stop value");
     }},
    {FieldPlace::AnalogOutput, "stopValue", limitText<-32000, 32000>},
    {FieldPlace::Weighing, "sensitivity", limitText<0, 32>},
    {FieldPlace::Weighing, "filterDepth", limitText<0, 2000>},
    {FieldPlace::Weighing, "subMax", limitText<0, 2000>},
    {FieldPlace::Weighing, "subMin", limitText<0, 2000>},
    {FieldPlace::Weighing, "bootClear", limitText<-99, 99>},
};

template <class Row, std::size_t Size>
const Row *findRow(const Row (&rows)[Size], FieldPlace place, const char *name)
{
    const Row *found = std::find_if(std::begin(rows), std::end(rows), [place, name](const Row &row) {
        return row.place == place && qstrcmp(row.name, name) == 0;
    });
    return found == std::end(rows) ? nullptr : found;
}

QString outputName(int output)
{
    return QStringLiteral("Q%1.%2").arg(output / 8).arg(output % 8);
}

} // namespace

QString fieldMeaning(FieldPlace place, quint8 family, const char *name, double value)
{
    if (place == FieldPlace::Frame) {
        return {};
    }
    if (const ChoiceRow *row = findRow(choiceRows, place, name)) {
        return choiceText(*row, family, static_cast<int>(value));
    }
    const NumberRow *row = findRow(numberRows, place, name);
    return row == nullptr ? QString() : row->text(value);
}

QString moduleKindText(quint32 objId)
{
    switch (moduleKind(objId).family) {
    case ModuleFamily::Analog:
        return QStringLiteral("analog module");
    case ModuleFamily::Digital:
        return QStringLiteral("digital module");
    case ModuleFamily::WeighDword:
        return QStringLiteral("weighing module with double-word channels");
    case ModuleFamily::WeighWord:
        return QStringLiteral("weighing module with word channels");
    case ModuleFamily::Plain:
        break;
    }
    return QStringLiteral("plain module, without channels");
}

QString filterGroupText(int group, int inputCount, int code)
{
    if (group * 4 >= inputCount) {
        return QStringLiteral("beyond the last input");
    }
    const int byte = group / 2;
    const int bit = group % 2 * 4;
    const QString delay = choices::digitalFilterDelays.text(code);
    return QStringLiteral("I%1.%2 - I%1.%3: %4")
        .arg(byte)
        .arg(bit)
        .arg(bit + 3)
        .arg(delay.isEmpty() ? QStringLiteral("no such choice") : delay);
}

QString outputStatesText(int index, int outputCount, quint8 states)
{
    const int first = index * 8;
    const int last = qMin(first + 8, outputCount) - 1;
    QStringList on;
    for (int output = first; output <= last; ++output) {
        if ((states & (0x80U >> static_cast<unsigned>(output - first))) != 0) {
            on += outputName(output);
        }
    }
    const QString outputs = outputName(first) + QStringLiteral(" - ") + outputName(last) + QStringLiteral(": ");
    if (on.size() == last - first + 1) {
        return outputs + QStringLiteral("all ON");
    }
    return outputs + (on.isEmpty() ? QStringLiteral("all OFF") : on.join(QLatin1Char(' ')) + QStringLiteral(" ON"));
}
