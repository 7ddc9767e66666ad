// Lengths and texts of image ranges.
#pragma once

#include "baseservices.h"
#include "simpleextendexportfunc.h"

#include <QString>

#include <array>

/// The areas that module ranges can be in, in the order in which they are shown.
inline constexpr std::array memoryAreas{VarArea::AnalogInput, VarArea::AnalogOutput, VarArea::DigitalInput,
                                        VarArea::DigitalOutput, VarArea::Variable};

/// Bytes that the range occupies in its area.
int rangeBytes(const IoMap &range);
/// Short name of a memory area, such as "AI" or "Q"; the number of an unknown area.
QString areaName(quint8 area);
/// The same in words, translated.
QString areaTitle(VarArea area);
/// Such as "AI 0..7"; an empty string for an empty range.
QString rangeText(const IoMap &range);
/// The same for @p length bytes from @p start on.
QString rangeText(quint8 area, int start, int length);
