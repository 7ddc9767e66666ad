// A module's image ranges and the host's memory service: claim, confirm, retake and free.
//
// With an empty owner none of these functions calls the host. Exception: freeRange() always does.
#pragma once

#include "baseservices.h"
#include "iomap.h"

/// The only success code of the host's getMemory(); all others are error codes.
constexpr qint32 memoryHeld = 1;
/// What the host's autoMallocMemory() returns instead of a start address if it finds no room.
constexpr qint32 noRoom = -1;

/// Returns the number of bytes that the channels of @p range occupy.
quint16 rangeLength(const IoMap &range);

/// Claims @p length bytes anywhere in the range's area and stores the start; no-op if @p length is 0.
/// Returns false if the host has no room; the start is then 65535.
bool claimRange(const QString &owner, IoMap &range, qint32 length);

/// Claims the range at its start, or anywhere in its area if that fails.
/// The length is that of words if the range is in @p wordArea, else that of bits; the unit is ignored.
/// Returns false if the host has no room; the start is then 65535.
bool confirmRange(const QString &owner, IoMap &range, VarArea wordArea);

/// Claims @p length bytes at the stored start. An error of the host is ignored.
void retakeRange(const QString &owner, const IoMap &range, quint8 length);

/// Releases the range, also under an empty owner.
void freeRange(const QString &owner, const IoMap &range);
