// Control interface of the simulated host library basemodule, for tests and the workbench. A real host library does
// not have it, so the plug-in must not use it. Call all functions on the user-interface thread.
#pragma once

#include "baseservices.h"

#include <QVector>

#include <functional>

namespace simulatedhost {

/// Return values of getMemory.
enum MemoryResult : qint32 {
    Held = 1,        ///< the range is claimed
    NoOwner = 2,     ///< the owner is empty
    UnknownArea = 3, ///< the area is not one of the five
    EmptyRange = 4,  ///< the length is below 1
    OutOfRange = 5,  ///< the range is not completely inside the area
    Overlap = 6      ///< a byte of the range is already claimed
};

struct PlcType {
    quint32 id;
    quint32 version;
    QString name;
};

/// A claimed range; start and length in bytes.
struct ClaimedRange {
    VarArea area;
    qint32 start;
    qint32 length;
};

/// Calls that setFaults can make fail, in this order: getMemory, autoMallocMemory, getHwcnfgComponentPath for each
/// folder, getPrjPlcTypeVersion.
enum class HostCall { TakeMemory, ClaimMemory, FindDescriptions, FindComponents, FindController };

/// Calls @p fails at each such call. If it returns true, the call behaves as if the addresses were in use, the area
/// had no room, or the folder or the controller did not exist. An empty function, or resetBase(), ends this.
BASEMODULE_EXPORT void setFaults(const std::function<bool(HostCall call)> &fails);

/// Discards the state of every owner (claimed ranges, snapshots, controllers) and the text of the latest refusal.
BASEMODULE_EXPORT void resetBase();

/// Returns the controllers that a station can have, the smallest first.
BASEMODULE_EXPORT QVector<PlcType> plcTypes();
/// Sets the controller of the owner's station. Returns false and changes nothing if plcTypes() does not have @p id.
/// Claimed ranges stay claimed, even outside smaller new areas.
BASEMODULE_EXPORT bool setPlcType(const QString &owner, quint32 id);

/// Returns the size of the area in the owner's station in bytes; 0 for an unknown area.
BASEMODULE_EXPORT qint32 areaSize(const QString &owner, VarArea area);
/// Returns the ranges that the owner has claimed, ordered by area and then by start.
BASEMODULE_EXPORT QVector<ClaimedRange> claimedRanges(const QString &owner);
/// Returns the number of the owner's snapshots that are neither dropped nor restored.
BASEMODULE_EXPORT qint32 openSnapshots(const QString &owner);

} // namespace simulatedhost
