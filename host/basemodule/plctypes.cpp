#include "plctypes.h"

#include <algorithm>

namespace {

constexpr std::array<AreaDescription, 5> areaDescriptions{{
    {VarArea::AnalogInput, "AIEx", "analog inputs", 2, &PlcDescription::analogBytes},
    {VarArea::AnalogOutput, "AQEx", "analog outputs", 2, &PlcDescription::analogBytes},
    {VarArea::DigitalInput, "IEx", "digital inputs", 1, &PlcDescription::digitalBytes},
    {VarArea::DigitalOutput, "QEx", "digital outputs", 1, &PlcDescription::digitalBytes},
    {VarArea::Variable, "V", "variables", 2, &PlcDescription::variableBytes},
}};

template <typename Table, typename Predicate>
auto findIn(const Table &table, Predicate matches) -> decltype(&table[0])
{
    const auto found = std::find_if(table.begin(), table.end(), matches);
    return found == table.end() ? nullptr : &*found;
}

} // namespace

const AreaDescription *findArea(VarArea area)
{
    return findIn(areaDescriptions, [area](const AreaDescription &candidate) { return candidate.area == area; });
}

const PlcDescription *findPlc(quint32 id)
{
    return findIn(plcDescriptions, [id](const PlcDescription &candidate) { return candidate.id == id; });
}

quint32 getPlcAddrRange(quint32 plcType, quint32 /*plcVersion*/, const QString &rangeName)
{
    const PlcDescription *plc = findPlc(plcType);
    const AreaDescription *area = findIn(areaDescriptions, [&rangeName](const AreaDescription &candidate) {
        return rangeName == QLatin1String(candidate.rangeName);
    });
    return plc == nullptr || area == nullptr ? 0 : static_cast<quint32>(plc->*area->bytes);
}
