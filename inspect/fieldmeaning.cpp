#include "fieldmeaning.h"

#include "choices.h"
#include "digitalbits.h"
#include "fieldlimits.h"
#include "modulekind.h"
#include "simpleextendpar.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/// A field whose number is the index or code of a choice, with one list for each signal family.
struct ChoiceRow {
    FieldPlace place;
    const char *name;
    std::array<const ChoiceList *, 3> byFamily;
    const char *unit = "";
};

constexpr std::array<const ChoiceList *, 3> forAllFamilies(const ChoiceList &list)
{
    return {&list, &list, &list};
}

const ChoiceRow choiceRows[] = {
    {FieldPlace::AnalogInput, "samples", forAllFamilies(choices::sampleCounts), " samples"},
    {FieldPlace::AnalogInput, "enable", forAllFamilies(choices::enable)},
    {FieldPlace::AnalogInput,
     "filterTime",
     {&choices::filterTimes, &choices::temperatureFilterTimes, &choices::temperatureFilterTimes}},
    {FieldPlace::AnalogInput,
     "inputRange",
     {&choices::inputRanges, &choices::thermocoupleRanges, &choices::resistanceRanges}},
    {FieldPlace::AnalogInput, "openWire", {&choices::openWire, &choices::enable, &choices::enable}},
    {FieldPlace::AnalogInput, "direction", forAllFamilies(choices::directions)},
    {FieldPlace::AnalogInput, "temperatureScale", forAllFamilies(choices::temperatureScales)},
    {FieldPlace::AnalogInput, "coldJunction", forAllFamilies(choices::enable)},
    {FieldPlace::AnalogInput, "wiringScheme", forAllFamilies(choices::wiringSchemes)},
    {FieldPlace::AnalogOutput, "enable", forAllFamilies(choices::enable)},
    {FieldPlace::AnalogOutput, "range", forAllFamilies(choices::outputRanges)},
    {FieldPlace::Weighing, "enable", forAllFamilies(choices::enable)},
    {FieldPlace::Weighing, "limitFreq", forAllFamilies(choices::limitFrequencies)},
    {FieldPlace::Weighing, "filterMode", forAllFamilies(choices::filterModes)},
    {FieldPlace::Weighing, "sampleFreq", forAllFamilies(choices::sampleFrequencies)},
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
    return QStringLiteral("not an area of modules");
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
    constexpr Limits limits = limits::deadband;
    return limits.contains(deadband)
               ? QString()
               : QStringLiteral("not a multiple of %1 up to %2").arg(limits.step).arg(limits.maximum);
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

template <const Limits &Range>
QString limitText(double value)
{
    return Range.contains(value) ? QString() : QStringLiteral("outside %1 to %2").arg(Range.minimum).arg(Range.maximum);
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
    {FieldPlace::AnalogOutput, "stopValue", limitText<limits::stopValue>},
    {FieldPlace::Weighing, "sensitivity", limitText<limits::sensitivity>},
    {FieldPlace::Weighing, "filterDepth", limitText<limits::weighingFilterCount>},
    {FieldPlace::Weighing, "subMax", limitText<limits::weighingFilterCount>},
    {FieldPlace::Weighing, "subMin", limitText<limits::weighingFilterCount>},
    {FieldPlace::Weighing, "bootClear", limitText<limits::bootClear>},
};

template <typename Row, std::size_t Size>
const Row *findRow(const Row (&rows)[Size], FieldPlace place, const char *name)
{
    const Row *found = std::find_if(std::begin(rows), std::end(rows), [place, name](const Row &row) {
        return row.place == place && qstrcmp(row.name, name) == 0;
    });
    return found == std::end(rows) ? nullptr : found;
}

QString outputName(int output)
{
    return QLatin1Char('Q') + QString::number(output / outputsPerByte) + QLatin1Char('.') +
           QString::number(output % outputsPerByte);
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
    if (group * inputsPerFilterRow >= inputCount) {
        return QStringLiteral("beyond the last input");
    }
    const int bit = filterShift(group); // 4 inputs share a code of 4 bits
    const QString byte = QLatin1Char('I') + QString::number(group / 2) + QLatin1Char('.');
    const QString delay = choices::digitalFilterDelays.text(code);
    return byte + QString::number(bit) + QStringLiteral(" - ") + byte + QString::number(bit + inputsPerFilterRow - 1) +
           QStringLiteral(": ") + (delay.isEmpty() ? QStringLiteral("no such choice") : delay);
}

QString outputStatesText(int index, int outputCount, const QByteArray &table)
{
    const int first = index * outputsPerByte;
    const int last = qMin(first + outputsPerByte, outputCount) - 1;
    QStringList on;
    for (int output = first; output <= last; ++output) {
        if (outputState(table, output).value_or(false)) {
            on += outputName(output);
        }
    }
    const QString outputs = outputName(first) + QStringLiteral(" - ") + outputName(last) + QStringLiteral(": ");
    if (on.size() == last - first + 1) {
        return outputs + QStringLiteral("all ON");
    }
    return outputs + (on.isEmpty() ? QStringLiteral("all OFF") : on.join(QLatin1Char(' ')) + QStringLiteral(" ON"));
}
