// A module's image ranges and the host's memory service: claim, confirm, take and free.
//
// None of these calls the host when the owner is empty, but for freeRange.
#pragma once

#include "baseservices.h"
#include "iomap.h"

/// getMemory's only good answer; every other one is an error code.
constexpr qint32 memoryHeld = 1;

/// Bytes that @p channels occupy: @p unit bytes each, or one bit each if @p unit is 0. 64 bits wide because the host's
/// channel count is any 32-bit number.
constexpr qint64 bytesOfChannels(quint8 unit, qint64 channels)
{
    return unit == 0 ? (channels + 7) / 8 : channels * unit;
}

/// Bytes that the channels of a range occupy.
quint16 rangeLength(const IoMap &range);

/// Claims @p length bytes (0 = nothing to claim) anywhere in the range's area and stores the start.
/// False when the host has no room; the start then reads 65535.
bool claimRange(const QString &owner, IoMap &range, qint32 length);

/// Makes sure that the host holds the range: where it is, else wherever there is room.
/// @p wordArea is the area of the direction whose channels are words; all others count bits, whatever the unit.
/// False when there is no room; the start then reads 65535.
bool confirmRange(const QString &owner, IoMap &range, VarArea wordArea);

/// Takes the stored range again; a refusal of the host is ignored.
void retakeRange(const QString &owner, const IoMap &range, quint8 length);

/// Gives the range back, whatever the owner.
void freeRange(const QString &owner, const IoMap &range);
