// The claimed bytes of one memory area.
#pragma once

#include <QtGlobal>

#include <map>
#include <optional>

/// Disjoint byte ranges, start -> length. A caller passes ranges that lie inside the area only: a start of at
/// least 0, a length of at least 1, an end of at most the area's size.
class ByteMap {
public:
    using Ranges = std::map<qint32, qint32>;

    /// The held range that shares a byte with this one; the end when there is none.
    [[nodiscard]] Ranges::const_iterator overlapping(qint32 start, qint32 length) const;
    [[nodiscard]] const Ranges &ranges() const { return m_ranges; }

    /// Adds a range that overlaps none.
    void add(qint32 start, qint32 length) { m_ranges.emplace(start, length); }
    /// False, and nothing changes, unless exactly this range is held.
    bool remove(qint32 start, qint32 length);
    /// The lowest aligned start in an area of @p size bytes that has room.
    [[nodiscard]] std::optional<qint32> firstFit(qint32 size, qint32 alignment, qint32 length) const;

private:
    Ranges m_ranges;
};
