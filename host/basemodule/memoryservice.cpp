#include "bytemap.h"
#include "faults.h"
#include "plctypes.h"
#include "simulatedbase.h"

#include <map>
#include <vector>

using namespace simulatedhost;

namespace {

using MemoryMap = std::map<VarArea, ByteMap>;

struct Station {
    const PlcDescription *plc = findPlc(kDefaultPlcType);
    MemoryMap memory;
    std::vector<MemoryMap> snapshots;
};

/// getMemoryErrStrByErrCode receives a bare code, so the latest refusal is kept for its text.
struct Refusal {
    MemoryResult code = Held;
    QString text;
};

struct HostState {
    std::map<QString, Station> stations;
    Refusal latest;
    std::function<bool(HostCall)> faults;
};

HostState &state()
{
    static HostState theState;
    return theState;
}

Station &stationOf(const QString &owner)
{
    return state().stations[owner];
}

qint32 refuse(MemoryResult code, const QString &text)
{
    state().latest = {code, text};
    return code;
}

QString titleOf(VarArea area)
{
    const AreaDescription *known = findArea(area);
    return known == nullptr
               ? QStringLiteral("the unknown memory area %1").arg(static_cast<int>(area))
               : QStringLiteral("the %1 (%2)").arg(QLatin1String(known->title), QLatin1String(known->rangeName));
}

QString addresses(qint32 start, qint32 length)
{
    return QStringLiteral("%1 to %2").arg(start).arg(qint64{start} + length - 1);
}

QString generalText(qint32 code)
{
    switch (code) {
    case Held:
        return QStringLiteral("The addresses are held.");
    case NoOwner:
        return QStringLiteral("No station is named.");
    case UnknownArea:
        return QStringLiteral("The memory area is unknown.");
    case EmptyRange:
        return QStringLiteral("The range holds no address.");
    case OutOfRange:
        return QStringLiteral("The addresses lie outside the memory area.");
    case Overlap:
        return QStringLiteral("The addresses are already in use.");
    default:
        return QStringLiteral("Unknown memory error (code %1).").arg(code);
    }
}

} // namespace

qint32 getMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    if (callFails(HostCall::TakeMemory)) {
        return refuse(Overlap, QStringLiteral("The addresses from %1 are refused on demand.").arg(start));
    }
    if (length <= 0) {
        return refuse(EmptyRange, QStringLiteral("A range of %1 bytes at address %2 of %3 holds no address.")
                                      .arg(length)
                                      .arg(start)
                                      .arg(titleOf(area)));
    }
    const QString wanted = QStringLiteral("Addresses %1 of %2").arg(addresses(start, length), titleOf(area));
    if (owner.isEmpty()) {
        return refuse(NoOwner, wanted + QStringLiteral(" cannot be taken: no station is named."));
    }
    const qint32 size = areaSize(owner, area);
    if (size == 0) {
        return refuse(UnknownArea, wanted + QStringLiteral(" cannot be taken: no controller has this area."));
    }
    if (start < 0 || length > size - start) {
        return refuse(OutOfRange,
                      wanted + QStringLiteral(" lie outside it; it reaches from %1.").arg(addresses(0, size)));
    }
    ByteMap &held = stationOf(owner).memory[area];
    const auto other = held.overlapping(start, length);
    if (other != held.ranges().end()) {
        return refuse(
            Overlap,
            wanted +
                QStringLiteral(" overlap %1, which are already in use.").arg(addresses(other->first, other->second)));
    }
    held.add(start, length);
    return Held;
}

qint32 autoMallocMemory(const QString &owner, VarArea area, qint32 length)
{
    constexpr qint32 noRoom = -1;
    const AreaDescription *known = findArea(area);
    if (callFails(HostCall::ClaimMemory) || owner.isEmpty() || known == nullptr || length <= 0) {
        return noRoom;
    }
    ByteMap &held = stationOf(owner).memory[area];
    const auto start = held.firstFit(areaSize(owner, area), known->alignment, length);
    if (!start) {
        return noRoom;
    }
    held.add(*start, length);
    return *start;
}

bool freeMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    return stationOf(owner).memory[area].remove(start, length);
}

void backupUsedMemory(const QString &owner)
{
    Station &station = stationOf(owner);
    station.snapshots.push_back(station.memory);
}

void popBackupMemory(const QString &owner)
{
    Station &station = stationOf(owner);
    if (!station.snapshots.empty()) {
        station.snapshots.pop_back();
    }
}

void restoreUsedMemory(const QString &owner)
{
    Station &station = stationOf(owner);
    if (!station.snapshots.empty()) {
        station.memory = std::move(station.snapshots.back());
        station.snapshots.pop_back();
    }
}

QString getMemoryErrStrByErrCode(qint32 code)
{
    const Refusal &latest = state().latest;
    return code != Held && code == latest.code ? latest.text : generalText(code);
}

PlcTypeVersion getPrjPlcTypeVersion(const QString &owner)
{
    if (callFails(HostCall::FindController)) {
        return {};
    }
    const PlcDescription *plc = stationOf(owner).plc;
    return {plc->id, plc->version};
}

bool callFails(HostCall call)
{
    return state().faults && state().faults(call);
}

namespace simulatedhost {

void setFaults(const std::function<bool(HostCall call)> &fails)
{
    state().faults = fails;
}

void resetBase()
{
    state() = {};
}

QVector<PlcType> plcTypes()
{
    QVector<PlcType> types;
    for (const PlcDescription &plc : kPlcTypes) {
        types.append({plc.id, plc.version, QString::fromLatin1(plc.name)});
    }
    return types;
}

bool setPlcType(const QString &owner, quint32 id)
{
    const PlcDescription *plc = findPlc(id);
    if (plc == nullptr) {
        return false;
    }
    stationOf(owner).plc = plc;
    return true;
}

qint32 areaSize(const QString &owner, VarArea area)
{
    const AreaDescription *known = findArea(area);
    return known == nullptr ? 0 : sizeOf(*stationOf(owner).plc, *known);
}

QVector<ClaimedRange> claimedRanges(const QString &owner)
{
    QVector<ClaimedRange> claimed;
    for (const auto &[area, held] : stationOf(owner).memory) {
        for (const auto &[start, length] : held.ranges()) {
            claimed.append({area, start, length});
        }
    }
    return claimed;
}

qint32 openSnapshots(const QString &owner)
{
    return static_cast<qint32>(stationOf(owner).snapshots.size());
}

} // namespace simulatedhost
