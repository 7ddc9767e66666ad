#include "modulekind.h"

#include "simpleextendpar.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr DirectionKind analogInput{VarArea::AnalogInput, 2, getModuleAINum};
constexpr DirectionKind analogOutput{VarArea::AnalogOutput, 2, getModuleAQNum};

constexpr ModuleKind plainKind{};
constexpr ModuleKind analogKind{ModuleFamily::Analog, analogInput, analogOutput, 2};
constexpr ModuleKind digitalKind{
    ModuleFamily::Digital, {VarArea::DigitalInput, 0, getModuleDINum}, {VarArea::DigitalOutput, 0, getModuleDQNum}, 0};
constexpr ModuleKind weighDwordKind{
    ModuleFamily::WeighDword, {VarArea::Variable, 4, getModuleAINum}, {VarArea::Variable, 4, getModuleAQNum}, 2};
constexpr ModuleKind weighWordKind{ModuleFamily::WeighWord, analogInput, analogOutput, 2};

struct CodeRange {
    quint32 first;
    quint32 last; // inclusive
    const ModuleKind &kind;
};

constexpr CodeRange codeRanges[] = {
    {13395, 13570, analogKind},    {13650, 13907, digitalKind},    {14418, 14418, weighDwordKind},
    {14419, 14419, weighWordKind}, {14420, 14420, weighDwordKind}, {14421, 14421, weighWordKind},
};

} // namespace

const ModuleKind &moduleKind(quint32 objId)
{
    const auto *range = std::find_if(std::begin(codeRanges), std::end(codeRanges), [objId](const CodeRange &candidate) {
        return objId >= candidate.first && objId <= candidate.last;
    });
    return range == std::end(codeRanges) ? plainKind : range->kind;
}

std::optional<quint8> fixedSignalFamily(quint32 objId)
{
    switch (objId) {
    case 13395:
        return VoltageCurrent;
    case 13396:
        return Thermocouple;
    case 13397:
        return ResistanceThermometer;
    default:
        return std::nullopt;
    }
}

quint8 factorySignalFamily(quint32 objId)
{
    return fixedSignalFamily(objId).value_or(VoltageCurrent);
}
