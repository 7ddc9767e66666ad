#include "stationmemory.h"

#include "imagerangetext.h"
#include "simulatedbase.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr qint32 noRoom = -1; // result of autoMallocMemory

VarArea areaOf(const IoMap &range)
{
    return static_cast<VarArea>(range.area);
}

qint32 claim(const QString &owner, const MemoryRange &range)
{
    const auto &[area, start, length] = range;
    return getMemory(owner, area, start, length);
}

bool unclaim(const QString &owner, const MemoryRange &range)
{
    const auto &[area, start, length] = range;
    return freeMemory(owner, area, start, length);
}

void unclaimAll(const QString &owner, const std::vector<MemoryRange> &ranges)
{
    std::for_each(ranges.begin(), ranges.end(), [&](const MemoryRange &range) { unclaim(owner, range); });
}

/// The elements of @p a that @p b lacks. Both are in ascending order.
std::vector<MemoryRange> difference(const std::vector<MemoryRange> &a, const std::vector<MemoryRange> &b)
{
    std::vector<MemoryRange> result;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
    return result;
}

} // namespace

std::vector<MemoryRange> memoryRanges(const IoMap &in, const IoMap &out)
{
    std::vector<MemoryRange> ranges;
    for (const IoMap &range : {in, out}) {
        if (rangeBytes(range) != 0) {
            ranges.emplace_back(areaOf(range), range.start, rangeBytes(range));
        }
    }
    return ranges;
}

quint32 StationMemory::plcType() const
{
    return getPrjPlcTypeVersion(m_owner).type;
}

Result<> StationMemory::setPlcType(quint32 type)
{
    const quint32 before = plcType();
    if (!simulatedhost::setPlcType(m_owner, type)) {
        return Failure{tr("The host has no PLC type %1.").arg(type)};
    }
    for (const auto &[area, start, length] : claimed()) {
        const qint32 size = simulatedhost::areaSize(m_owner, area);
        if (start + length > size) {
            simulatedhost::setPlcType(m_owner, before);
            return Failure{tr("The area %1 of this controller has %2 bytes, but a module uses the address %3.")
                               .arg(areaName(static_cast<quint8>(area)))
                               .arg(size)
                               .arg(start + length - 1)};
        }
    }
    return {};
}

void StationMemory::hold(const std::vector<MemoryRange> &ranges, Place holder)
{
    for (const MemoryRange &range : ranges) {
        m_holders[range] = holder;
    }
}

void StationMemory::release(const std::vector<MemoryRange> &ranges)
{
    for (const MemoryRange &range : ranges) {
        m_holders.erase(range);
    }
}

std::optional<Place> StationMemory::holder(const MemoryRange &range) const
{
    const auto found = m_holders.find(range);
    return found == m_holders.end() ? std::nullopt : std::optional<Place>(found->second);
}

Result<> StationMemory::findRoom(IoMap &in, IoMap &out) const
{
    std::vector<MemoryRange> taken;
    Result<> result;
    for (IoMap *range : {&in, &out}) {
        const int length = rangeBytes(*range);
        if (length == 0) {
            continue;
        }
        const qint32 start = autoMallocMemory(m_owner, areaOf(*range), length);
        if (start == noRoom) {
            result = Failure{tr("The area %1 has no room for %n more byte(s). Remove modules or choose a larger "
                                "controller.",
                                nullptr, length)
                                 .arg(areaName(range->area))};
            break;
        }
        range->start = static_cast<quint16>(start);
        taken.emplace_back(areaOf(*range), start, length);
    }
    unclaimAll(m_owner, taken);
    return result;
}

Result<> StationMemory::checkFree(const std::vector<MemoryRange> &ranges) const
{
    std::vector<MemoryRange> taken;
    Result<> result;
    for (const MemoryRange &range : ranges) {
        const qint32 code = claim(m_owner, range);
        if (code != simulatedhost::Held) {
            result = Failure{getMemoryErrStrByErrCode(code)};
            break;
        }
        taken.push_back(range);
    }
    unclaimAll(m_owner, taken);
    return result;
}

/// The host frees a range only with the length with which it was claimed, so it is freed and claimed again.
bool StationMemory::areClaimed(const std::vector<MemoryRange> &ranges) const
{
    return std::all_of(ranges.begin(), ranges.end(), [this](const MemoryRange &range) {
        return unclaim(m_owner, range) && claim(m_owner, range) == simulatedhost::Held;
    });
}

/// In ascending order, as claimed().
std::vector<MemoryRange> StationMemory::recorded() const
{
    std::vector<MemoryRange> ranges;
    ranges.reserve(m_holders.size());
    for (const auto &[range, holder] : m_holders) {
        ranges.push_back(range);
    }
    return ranges;
}

std::vector<MemoryRange> StationMemory::claimed() const
{
    std::vector<MemoryRange> ranges;
    for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(m_owner)) {
        ranges.emplace_back(range.area, range.start, range.length);
    }
    return ranges;
}

bool StationMemory::isComplete() const
{
    return difference(recorded(), claimed()).empty();
}

void StationMemory::settle() const
{
    const std::vector<MemoryRange> present = claimed();
    const std::vector<MemoryRange> wanted = recorded();
    unclaimAll(m_owner, difference(present, wanted));
    for (const MemoryRange &lost : difference(wanted, present)) {
        claim(m_owner, lost);
    }
}
