// The addresses that the modules of one station hold in the host's memory map.
#pragma once

#include "baseservices.h"
#include "project.h"
#include "result.h"
#include "simpleextendexportfunc.h"

#include <QCoreApplication>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

/// Area, start and length in bytes.
using MemoryRange = std::tuple<VarArea, qint32, qint32>;

/// Those of the two ranges that are not empty.
std::vector<MemoryRange> memoryRanges(const IoMap &in, const IoMap &out);

QString rangeText(const MemoryRange &range);

/// A range of an unavailable module that is not reserved for it.
struct UnreservedRange {
    Place place;
    MemoryRange range;
    std::optional<Place> occupant; ///< a module with an overlapping range; none if the range is outside its area
};

/// Records which module holds which range, and compares the record with the host's map. The plug-in claims and frees
/// the ranges itself; hold() and release() only record it. The ranges of unavailable modules are reserved in the host's
/// map, as far as they do not overlap the ranges of other modules; available modules have priority.
class StationMemory {
    Q_DECLARE_TR_FUNCTIONS(StationMemory)
public:
    /// @p owner is the station's key in the host.
    /// @p describe returns a module's name with its place, for messages.
    StationMemory(QString owner, std::function<QString(Place)> describe)
        : m_owner(std::move(owner)), m_describe(std::move(describe))
    {
    }
    ~StationMemory() { unreserveAll(); }
    Q_DISABLE_COPY_MOVE(StationMemory)

    const QString &owner() const { return m_owner; }
    /// The PLC type defines the sizes of the areas.
    quint32 plcType() const;
    /// Fails, and changes nothing, when the host lacks that type or a module uses an address outside its areas.
    Result<> setPlcType(quint32 type);

    void hold(const std::vector<MemoryRange> &ranges, Place holder);
    void release(const std::vector<MemoryRange> &ranges);
    void releaseAll();
    /// Records the ranges of an unavailable module, and removes them from the record. updateReserved() takes effect of
    /// it.
    void want(const std::vector<MemoryRange> &ranges, Place owner);
    void unwant(Place owner);
    bool hasReserved() const { return !m_reserved.empty(); }
    /// Frees reserved ranges that overlap @p ranges, for a module that is about to claim these.
    void yieldTo(const std::vector<MemoryRange> &ranges);
    /// Reserves the recorded ranges of unavailable modules, in the order of places. Call after each change of the
    /// modules. The result depends only on the record, not on its history.
    void updateReserved();
    std::vector<UnreservedRange> unreserved() const;
    /// Place of the module that holds exactly this range, or for which it is reserved; std::nullopt if none does.
    std::optional<Place> holder(const MemoryRange &range) const;

    /// Sets the starts of two ranges to addresses that the host has free. Claims nothing. Fails when an area is full.
    Result<> findRoom(IoMap &in, IoMap &out) const;
    /// Fails when the ranges cannot all be claimed. Claims nothing.
    Result<> checkFree(const std::vector<MemoryRange> &ranges) const;
    /// True if the host has claimed exactly these ranges for the owner.
    bool areClaimed(const std::vector<MemoryRange> &ranges) const;
    /// Recorded ranges that the host's map lacks.
    std::vector<MemoryRange> lost() const;
    /// Ranges of the host's map that are not recorded.
    std::vector<MemoryRange> stray() const;
    /// Makes the host's map equal to the record: frees ranges that no module holds, and claims lost ones again. A
    /// rejected module can leave ranges claimed, and its release frees ranges that it shares with another module.
    void settle() const;

private:
    std::vector<MemoryRange> recorded() const;
    std::vector<MemoryRange> claimed() const;
    std::optional<Place> occupant(const MemoryRange &range) const;
    Failure whyNotFree(const MemoryRange &range, qint32 code) const;
    void unreserve(const MemoryRange &range);
    void unreserveAll();

    QString m_owner;
    std::function<QString(Place)> m_describe;
    std::map<MemoryRange, Place> m_holders; ///< including reserved ranges
    std::set<MemoryRange> m_reserved;
    std::set<std::pair<int, MemoryRange>> m_wanted; ///< place index and range of unavailable modules
};
