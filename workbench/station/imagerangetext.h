// Lengths and texts of image ranges.
#pragma once

#include "simpleextendexportfunc.h"

#include <QString>

/// Bytes that the range takes in its area.
int rangeBytes(const IoMap &range);
/// Short name of a memory area as a programmer writes it ("AI", "Q"), or the code of an unknown one.
QString areaName(quint8 area);
/// "AI 0..7", or empty for a range of no bytes.
QString rangeText(const IoMap &range);
