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

bool overlaps(const MemoryRange &a, const MemoryRange &b)
{
    const auto &[areaA, startA, lengthA] = a;
    const auto &[areaB, startB, lengthB] = b;
    return areaA == areaB && startA < startB + lengthB && startB < startA + lengthA;
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

QString rangeText(const MemoryRange &range)
{
    const auto &[area, start, length] = range;
    return rangeText(static_cast<quint8>(area), start, length);
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
    for (const auto &[range, holder] : m_holders) {
        const auto &[area, start, length] = range;
        const qint32 size = simulatedhost::areaSize(m_owner, area);
        if (start + length > size && m_reserved.count(range) == 0) {
            simulatedhost::setPlcType(m_owner, before);
            return Failure{tr("%1 uses %2, but the area %3 of this controller ends at %4. Change the address or remove "
                              "the module first.")
                               .arg(m_describe(holder), rangeText(range), areaName(static_cast<quint8>(area)),
                                    QString::number(size - 1))};
        }
    }
    unreserveAll(); // the areas have other sizes
    updateReserved();
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

void StationMemory::releaseAll()
{
    unreserveAll();
    m_holders.clear();
    m_wanted.clear();
}

void StationMemory::want(const std::vector<MemoryRange> &ranges, Place owner)
{
    for (const MemoryRange &range : ranges) {
        m_wanted.emplace(owner.index(), range);
    }
}

void StationMemory::unwant(Place owner)
{
    const auto first = m_wanted.lower_bound({owner.index(), MemoryRange()});
    auto last = first;
    for (; last != m_wanted.end() && last->first == owner.index(); ++last) {
        if (m_reserved.count(last->second) != 0 && holder(last->second) == owner) {
            unreserve(last->second);
        }
    }
    m_wanted.erase(first, last);
}

void StationMemory::unreserve(const MemoryRange &range)
{
    unclaim(m_owner, range);
    m_holders.erase(range);
    m_reserved.erase(MemoryRange(range)); // the argument may be the element
}

void StationMemory::unreserveAll()
{
    while (!m_reserved.empty()) {
        unreserve(*m_reserved.begin());
    }
}

void StationMemory::yieldTo(const std::vector<MemoryRange> &ranges)
{
    for (auto next = m_reserved.begin(); next != m_reserved.end();) {
        const MemoryRange reserved = *next++;
        if (std::any_of(ranges.begin(), ranges.end(),
                        [&](const MemoryRange &range) { return overlaps(range, reserved); })) {
            unreserve(reserved);
        }
    }
}

void StationMemory::updateReserved()
{
    if (m_reserved.size() == m_wanted.size()) {
        return;
    }
    unreserveAll();
    for (const auto &[index, range] : m_wanted) {
        if (claim(m_owner, range) == simulatedhost::Held) {
            m_reserved.insert(range);
            m_holders[range] = Place::at(index);
        }
    }
}

std::vector<UnreservedRange> StationMemory::unreserved() const
{
    std::vector<UnreservedRange> result;
    for (const auto &[index, range] : m_wanted) {
        if (m_reserved.count(range) == 0 || holder(range) != Place::at(index)) {
            result.push_back({Place::at(index), range, occupant(range)});
        }
    }
    return result;
}

/// The recorded ranges do not overlap each other, so only the last one before @p range can reach into it.
std::optional<Place> StationMemory::occupant(const MemoryRange &range) const
{
    auto next = m_holders.upper_bound(range);
    if (next != m_holders.begin() && overlaps(std::prev(next)->first, range)) {
        --next;
    }
    return next != m_holders.end() && overlaps(next->first, range) ? std::optional<Place>(next->second) : std::nullopt;
}

Failure StationMemory::whyNotFree(const MemoryRange &range, qint32 code) const
{
    const std::optional<Place> other = occupant(range);
    if (code == simulatedhost::Overlap && other) {
        return {tr("%1 overlaps the addresses of %2. Change one of the two addresses.")
                    .arg(rangeText(range), m_describe(*other))};
    }
    if (code == simulatedhost::OutOfRange) {
        const VarArea area = std::get<VarArea>(range);
        return {tr("%1 lies outside the area %2, which ends at %3. Change the address or choose a larger controller.")
                    .arg(rangeText(range), areaName(static_cast<quint8>(area)),
                         QString::number(simulatedhost::areaSize(m_owner, area) - 1))};
    }
    return {getMemoryErrStrByErrCode(code)};
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
            result = whyNotFree(range, code);
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

std::vector<MemoryRange> StationMemory::lost() const
{
    return difference(recorded(), claimed());
}

std::vector<MemoryRange> StationMemory::stray() const
{
    return difference(claimed(), recorded());
}

void StationMemory::settle() const
{
    unclaimAll(m_owner, stray());
    for (const MemoryRange &range : lost()) {
        claim(m_owner, range);
    }
}
