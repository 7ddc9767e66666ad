// A plain model of the memory map that the simulated host has for a station.
#pragma once

#include "iomap.h"
#include "simulatedbase.h"

#include <algorithm>
#include <map>
#include <utility>

namespace fuzz {

/// The claimed ranges of a station: length in bytes by area and start. Does not record who has claimed a range.
class MemoryModel {
public:
    bool claim(const QString &owner, int area, int start, int length)
    {
        if (owner.isEmpty() || length <= 0 || start + length > simulatedhost::areaSize(owner, VarArea(area))) {
            return false;
        }
        for (const auto &[place, claimed] : m_ranges) {
            if (place.first == area && start < place.second + claimed && place.second < start + length) {
                return false;
            }
        }
        m_ranges[{area, start}] = length;
        return true;
    }
    void free(const QString &owner, const IoMap &range)
    {
        const auto found = m_ranges.find({range.area, range.start});
        if (!owner.isEmpty() && found != m_ranges.end() && found->second == lengthOf(range)) {
            m_ranges.erase(found);
        }
    }
    static int lengthOf(const IoMap &range) { return int(bytesOfChannels(range.unit, range.count)); }

    /// The ranges that the simulated host has.
    static MemoryModel ofHost()
    {
        MemoryModel model;
        for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(station)) {
            model.m_ranges[{int(range.area), range.start}] = range.length;
        }
        return model;
    }
    bool operator==(const MemoryModel &other) const { return m_ranges == other.m_ranges; }
    bool contains(const MemoryModel &other) const
    {
        return std::includes(m_ranges.begin(), m_ranges.end(), other.m_ranges.begin(), other.m_ranges.end());
    }
    std::size_t size() const { return m_ranges.size(); }

    static inline const QString station = QStringLiteral("station");

private:
    std::map<std::pair<int, int>, int> m_ranges;
};

} // namespace fuzz
