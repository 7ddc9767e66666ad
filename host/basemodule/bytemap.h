// The claimed bytes of one memory area.
#pragma once

#include <QtGlobal>

#include <map>
#include <optional>

/// Disjoint byte ranges, start -> length. All ranges that a caller passes must be inside the area: start >= 0,
/// length >= 1, start + length <= the size of the area.
class ByteMap {
public:
    using Ranges = std::map<qint32, qint32>;

    /// Returns the claimed range that shares a byte with this one; ranges().end() if there is none.
    [[nodiscard]] Ranges::const_iterator overlapping(qint32 start, qint32 length) const;
    [[nodiscard]] const Ranges &ranges() const { return m_ranges; }

    /// Adds a range that overlaps no other.
    void add(qint32 start, qint32 length) { m_ranges.emplace(start, length); }
    /// Removes a range. Returns false and changes nothing unless exactly this range is claimed.
    bool remove(qint32 start, qint32 length);
    /// Returns the lowest aligned start with room in an area of @p size bytes; std::nullopt if there is no room.
    [[nodiscard]] std::optional<qint32> firstFit(qint32 size, qint32 alignment, qint32 length) const;

private:
    Ranges m_ranges;
};
