#include "bytemap.h"

#include <iterator>

ByteMap::Ranges::const_iterator ByteMap::overlapping(qint32 start, qint32 length) const
{
    const auto next = m_ranges.lower_bound(start);
    if (next != m_ranges.begin()) {
        const auto previous = std::prev(next);
        if (start - previous->first < previous->second) {
            return previous;
        }
    }
    return next != m_ranges.end() && next->first - start < length ? next : m_ranges.end();
}

bool ByteMap::remove(qint32 start, qint32 length)
{
    const auto claimed = m_ranges.find(start);
    if (claimed == m_ranges.end() || claimed->second != length) {
        return false;
    }
    m_ranges.erase(claimed);
    return true;
}

std::optional<qint32> ByteMap::firstFit(qint32 size, qint32 alignment, qint32 length) const
{
    qint32 candidate = 0;
    for (const auto &[start, claimed] : m_ranges) {
        if (start - candidate >= length) {
            break;
        }
        candidate = (start + claimed + alignment - 1) / alignment * alignment;
    }
    if (length > size - candidate) {
        return std::nullopt;
    }
    return candidate;
}
