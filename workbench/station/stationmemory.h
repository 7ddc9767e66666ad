// The addresses that the modules of one station hold in the host's memory map.
#pragma once

#include "baseservices.h"
#include "project.h"
#include "result.h"
#include "simpleextendexportfunc.h"

#include <QCoreApplication>

#include <map>
#include <tuple>
#include <vector>

/// Area, start and length in bytes.
using MemoryRange = std::tuple<VarArea, qint32, qint32>;

/// Those of the two ranges that are not empty.
std::vector<MemoryRange> memoryRanges(const IoMap &in, const IoMap &out);

/// Records which module holds which range, and compares the record with the host's map. The plug-in claims and frees
/// the ranges itself; hold() and release() only record it.
class StationMemory {
    Q_DECLARE_TR_FUNCTIONS(StationMemory)
public:
    /// @p owner is the station's key in the host.
    explicit StationMemory(QString owner) : m_owner(std::move(owner)) {}

    const QString &owner() const { return m_owner; }
    /// The PLC type defines the sizes of the areas.
    quint32 plcType() const;
    /// Fails, and changes nothing, when the host lacks that type or a module uses an address outside its areas.
    Result<> setPlcType(quint32 type);

    void hold(const std::vector<MemoryRange> &ranges, Place holder);
    void release(const std::vector<MemoryRange> &ranges);
    void releaseAll() { m_holders.clear(); }
    /// Place of the module that holds exactly this range; std::nullopt if none does.
    std::optional<Place> holder(const MemoryRange &range) const;

    /// Sets the starts of two ranges to addresses that the host has free. Claims nothing. Fails when an area is full.
    Result<> findRoom(IoMap &in, IoMap &out) const;
    /// Fails, with the host's reason, when the ranges cannot all be claimed. Claims nothing.
    Result<> checkFree(const std::vector<MemoryRange> &ranges) const;
    /// True if the host has claimed exactly these ranges for the owner.
    bool areClaimed(const std::vector<MemoryRange> &ranges) const;
    /// True if the host's map contains every recorded range.
    bool isComplete() const;
    /// Makes the host's map equal to the record: frees ranges that no module holds, and claims lost ones again. A
    /// rejected module can leave ranges claimed, and its release frees ranges that it shares with another module.
    void settle() const;

private:
    std::vector<MemoryRange> recorded() const;
    std::vector<MemoryRange> claimed() const;

    QString m_owner;
    std::map<MemoryRange, Place> m_holders;
};
