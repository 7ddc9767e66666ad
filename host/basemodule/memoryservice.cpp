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
    const PlcDescription *plc = findPlc(defaultPlcType);
    MemoryMap memory;
    std::vector<MemoryMap> snapshots;
};

/// The latest refusal is stored with its text, because getMemoryErrStrByErrCode receives only a code.
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
        return QStringLiteral("The addresses are claimed.");
    case NoOwner:
        return QStringLiteral("The station has no name.");
    case UnknownArea:
        return QStringLiteral("The memory area is unknown.");
    case EmptyRange:
        return QStringLiteral("The range is empty.");
    case OutOfRange:
        return QStringLiteral("The addresses are outside the memory area.");
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
        return refuse(Overlap,
                      QStringLiteral("The addresses from %1 on are refused: the host simulates a failure.").arg(start));
    }
    if (length <= 0) {
        return refuse(
            EmptyRange,
            QStringLiteral("The length %1 at address %2 of %3 is below 1.").arg(length).arg(start).arg(titleOf(area)));
    }
    const QString requested = QStringLiteral("Addresses %1 of %2").arg(addresses(start, length), titleOf(area));
    if (owner.isEmpty()) {
        return refuse(NoOwner, requested + QStringLiteral(" cannot be claimed: the station has no name."));
    }
    const qint32 size = areaSize(owner, area);
    if (size == 0) {
        return refuse(UnknownArea, requested + QStringLiteral(" cannot be claimed: no controller has this area."));
    }
    if (start < 0 || length > size - start) {
        return refuse(OutOfRange,
                      requested + QStringLiteral(" are outside it; it has the addresses %1.").arg(addresses(0, size)));
    }
    ByteMap &claimed = stationOf(owner).memory[area];
    const auto other = claimed.overlapping(start, length);
    if (other != claimed.ranges().end()) {
        return refuse(
            Overlap,
            requested +
                QStringLiteral(" overlap %1, which are already in use.").arg(addresses(other->first, other->second)));
    }
    claimed.add(start, length);
    return Held;
}

qint32 autoMallocMemory(const QString &owner, VarArea area, qint32 length)
{
    constexpr qint32 noRoom = -1;
    const AreaDescription *known = findArea(area);
    if (callFails(HostCall::ClaimMemory) || owner.isEmpty() || known == nullptr || length <= 0) {
        return noRoom;
    }
    ByteMap &claimed = stationOf(owner).memory[area];
    const auto start = claimed.firstFit(areaSize(owner, area), known->alignment, length);
    if (!start) {
        return noRoom;
    }
    claimed.add(*start, length);
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
    for (const PlcDescription &plc : plcDescriptions) {
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
    return known == nullptr ? 0 : stationOf(owner).plc->*known->bytes;
}

QVector<ClaimedRange> claimedRanges(const QString &owner)
{
    QVector<ClaimedRange> ranges;
    for (const auto &[area, claimed] : stationOf(owner).memory) {
        for (const auto &[start, length] : claimed.ranges()) {
            ranges.append({area, start, length});
        }
    }
    return ranges;
}

qint32 openSnapshots(const QString &owner)
{
    return static_cast<qint32>(stationOf(owner).snapshots.size());
}

} // namespace simulatedhost
