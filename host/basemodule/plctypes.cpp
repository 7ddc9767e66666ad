#include "plctypes.h"

#include <algorithm>

namespace {

template <typename Table, typename Predicate>
auto findIn(const Table &table, Predicate matches) -> decltype(&table[0])
{
    const auto found = std::find_if(table.begin(), table.end(), matches);
    return found == table.end() ? nullptr : &*found;
}

} // namespace

const AreaDescription *findArea(VarArea area)
{
    return findIn(kAreas, [area](const AreaDescription &candidate) { return candidate.area == area; });
}

const PlcDescription *findPlc(quint32 id)
{
    return findIn(kPlcTypes, [id](const PlcDescription &candidate) { return candidate.id == id; });
}

qint32 sizeOf(const PlcDescription &plc, const AreaDescription &area)
{
    return plc.sizes.at(static_cast<std::size_t>(&area - kAreas.data()));
}

quint32 getPlcAddrRange(quint32 plcType, quint32 /*plcVersion*/, const QString &rangeName)
{
    const PlcDescription *plc = findPlc(plcType);
    const AreaDescription *area = findIn(kAreas, [&rangeName](const AreaDescription &candidate) {
        return rangeName == QLatin1String(candidate.rangeName);
    });
    return plc == nullptr || area == nullptr ? 0 : static_cast<quint32>(sizeOf(*plc, *area));
}
