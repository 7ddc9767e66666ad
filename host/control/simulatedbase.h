// Control interface of the simulated host library basemodule, for tests and the workbench. A real host library
// has nothing of the kind, so the plug-in must not use it. User-interface thread only.
#pragma once

#include "baseservices.h"

#include <QVector>

#include <functional>

namespace simulatedhost {

/// What getMemory answers.
enum MemoryResult : qint32 {
    Held = 1,
    NoOwner = 2,     ///< the owner is empty
    UnknownArea = 3, ///< the area is not one of the five
    EmptyRange = 4,  ///< the length is 0 or negative
    OutOfRange = 5,  ///< the range reaches outside the area
    Overlap = 6      ///< a byte of the range is held already
};

struct PlcType {
    quint32 id;
    quint32 version;
    QString name;
};

/// A held range; start and length in bytes.
struct ClaimedRange {
    VarArea area;
    qint32 start;
    qint32 length;
};

/// Calls that can be made to fail: getMemory, autoMallocMemory, getHwcnfgComponentPath for either folder and
/// getPrjPlcTypeVersion.
enum class HostCall { TakeMemory, ClaimMemory, FindDescriptions, FindComponents, FindController };

/// @p fails is asked at each such call. Where it says so the addresses are in use, the area has no room, the folder or
/// the controller is one that does not exist. An empty function ends that, as resetBase does.
BASEMODULE_EXPORT void setFaults(const std::function<bool(HostCall call)> &fails);

/// Forgets every owner: held ranges, snapshots, PLC types and the details of the latest refusal.
BASEMODULE_EXPORT void resetBase();

/// The controllers that a station can have, the smallest first.
BASEMODULE_EXPORT QVector<PlcType> plcTypes();
/// Gives the owner's station another controller. False, and nothing changes, for an id outside plcTypes(). Held
/// ranges stay as they are even where the new areas are smaller.
BASEMODULE_EXPORT bool setPlcType(const QString &owner, quint32 id);

/// Bytes of the area in the owner's station; 0 for an unknown area.
BASEMODULE_EXPORT qint32 areaSize(const QString &owner, VarArea area);
/// What the owner holds, by area, then by start.
BASEMODULE_EXPORT QVector<ClaimedRange> claimedRanges(const QString &owner);
/// Snapshots of the owner that are neither dropped nor restored.
BASEMODULE_EXPORT qint32 openSnapshots(const QString &owner);

} // namespace simulatedhost
