// Which racks and slots of a station are worth showing.
#pragma once

#include "project.h"

#include <array>

/// Counts the modules per rack and per slot, so an edit takes the same time in any station.
class RackExtent {
public:
    /// Shown also in an empty station, so a module has a place to be dropped on.
    static constexpr int minimumSlots = 4;

    void clear() { *this = RackExtent(); }
    void add(Place place) { count(place, 1); }
    void remove(Place place) { count(place, -1); }
    /// Shows a place without a module, until clear().
    void require(Place place);

    /// The used racks and one more.
    int racks() const;
    /// The used slots of all racks and one more.
    int slotCount() const;

private:
    void count(Place place, int change);

    std::array<int, Place::rackCount> m_inRack{};
    std::array<int, Place::slotCount> m_inSlot{};
    Place m_required;
};
