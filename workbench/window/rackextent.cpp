#include "rackextent.h"

#include <algorithm>

namespace {

/// Number of entries up to the last one that is not 0.
template <typename Counts>
int usedOf(const Counts &counts)
{
    const auto last = std::find_if(counts.rbegin(), counts.rend(), [](int count) { return count != 0; });
    return static_cast<int>(counts.rend() - last);
}

} // namespace

void RackExtent::count(Place place, int change)
{
    m_inRack[static_cast<std::size_t>(place.rack)] += change;
    m_inSlot[static_cast<std::size_t>(place.slot)] += change;
}

void RackExtent::require(Place place)
{
    m_required = {std::max(m_required.rack, place.rack), std::max(m_required.slot, place.slot)};
}

int RackExtent::racks() const
{
    return std::min(std::max(usedOf(m_inRack) + 1, m_required.rack + 1), Place::rackCount);
}

int RackExtent::slotCount() const
{
    return std::min(std::max({usedOf(m_inSlot) + 1, m_required.slot + 1, minimumSlots}), Place::slotCount);
}
