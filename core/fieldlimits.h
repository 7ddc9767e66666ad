// The limits of the number fields of a module record.
#pragma once

/// The values that a field may hold: @c minimum to @c maximum, both included, in steps of @c step from the minimum.
struct Limits {
    int minimum;
    int maximum;
    int step = 1; ///< with a step of 1, fractions are allowed, too

    /// Returns true for a value within the limits and on a step; false for NaN.
    constexpr bool contains(double value) const
    {
        return value >= minimum && value <= maximum && (static_cast<int>(value) - minimum) % step == 0;
    }
};

namespace limits {

constexpr Limits deadband{0, 4080, 16};        ///< of an analog input, in raw units; 0 = no deadband
constexpr Limits stopValue{-32000, 32000};     ///< of an analog output, in raw units, the same for every output range
constexpr Limits sensitivity{0, 32};           ///< of a weighing channel, in the unit of the module, fractions allowed
constexpr Limits weighingFilterCount{0, 2000}; ///< filterDepth, subMax and subMin of a weighing channel, counts
constexpr Limits bootClear{-99, 99};           ///< of a weighing channel, in the unit of the module

} // namespace limits
