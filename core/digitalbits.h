// The order of the channels in the tables of a digital module.
#pragma once

#include "iomap.h"

#include <QByteArray>

#include <optional>

/// Returns the bytes of a table with one bit per channel or a 4-bit code per four channels.
constexpr int bitTableSize(qint64 channels)
{
    return static_cast<int>(bytesOfChannels(0, channels));
}

/// Inputs that share one filter code; such a group is a row of the filter table.
constexpr int inputsPerFilterRow = 4;
constexpr int outputsPerByte = 8;

/// Position of the lowest bit of a row's 4-bit code in byte @c row / 2: an even row is the low half. @p row is 0 or
/// more.
constexpr int filterShift(int row)
{
    return row % 2 * 4;
}

/// Bit of an output in byte @c output / 8: the first output of a byte is its highest bit. @p output is 0 or more.
constexpr int outputMask(int output)
{
    return 0x80 >> output % outputsPerByte;
}

/// Returns the filter code of @p row (0 to 15); std::nullopt beyond the end of @p filter.
inline std::optional<int> filterCode(const QByteArray &filter, int row)
{
    if (row / 2 >= filter.size()) {
        return std::nullopt;
    }
    return static_cast<quint8>(filter.at(row / 2)) >> filterShift(row) & 0x0F;
}

/// Returns true if the bit of @p output is set; std::nullopt beyond the end of @p table.
inline std::optional<bool> outputState(const QByteArray &table, int output)
{
    if (output / outputsPerByte >= table.size()) {
        return std::nullopt;
    }
    return (table.at(output / outputsPerByte) & outputMask(output)) != 0;
}
