// One image range of a module, in the form in which it crosses the plug-in's boundary.
#pragma once

#include <QtGlobal>

/// A plain value without owned data. The field order and the compiler's padding are part of the binary interface.
struct IoMap {
    quint8 area = 0;   ///< VarArea code of the host; 0 = the module has no such range
    quint16 start = 0; ///< address of the first byte in the area; 65535 after a claim that found no room
    quint8 count = 0;  ///< channels, for a digital module points; 0 to 255
    quint8 flag = 1;   ///< not used by the plug-in
    quint8 unit = 1;   ///< bytes per channel: 1, 2 or 4; 0 = one bit per channel
};

/// Returns the number of bytes that @p channels occupy: @p unit bytes each, or one bit each if @p unit is 0. The result
/// has 64 bits because a host's channel count may be any 32-bit number.
constexpr qint64 bytesOfChannels(quint8 unit, qint64 channels)
{
    return unit == 0 ? (channels + 7) / 8 : channels * unit;
}
