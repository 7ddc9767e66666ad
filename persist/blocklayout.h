// The order of the fields in a block, once for everything that writes, reads or shows one.
//
// A walk goes over a part of the block: Cursor is a BlockWriter, a ByteReader or a cursor of a tool with the same
// functions; the values are constant for a writer and filled by the others.
#pragma once

#include "simpleextendpar.h"

#include <array>

/// The two blocks differ in their header alone: only the saved state carries comment and position.
enum class BlockFormat { SavedState, Configuration };

enum class SectionType : quint8 {
    DigitalOutputTable = 5,
    DigitalInputFilter = 18,
    AnalogInput = 37,
    AnalogOutput = 38,
    Weighing = 41
};

namespace blocklayout {

/// Bytes before the header's own fields: its length and a constant, the one little-endian number of the block.
constexpr int headerFrameSize = 8;
constexpr std::array<quint8, 4> headerConstant{0, 2, 0, 0};

constexpr int rangeSize = 4;
constexpr int sectionFrameSize = 8;

/// Bytes of a table with one bit per channel (or a 4-bit code per four channels).
constexpr int bitTableSize(int channels)
{
    return (channels + 7) / 8;
}

// Intended: the bytes of a coordinate are joined with their signs, so one with a byte of 128 and above comes back
// changed.
template <class Cursor>
void walkPosition(Cursor &cursor, QPoint &position)
{
    auto x = static_cast<quint32>(position.x());
    auto y = static_cast<quint32>(position.y());
    cursor.u32FromSignedBytes("positionX", x);
    cursor.u32FromSignedBytes("positionY", y);
    position = {static_cast<int>(x), static_cast<int>(y)};
}

template <class Cursor>
void walkPosition(Cursor &cursor, const QPoint &position)
{
    QPoint copy = position;
    walkPosition(cursor, copy);
}

/// The header between type code and ranges.
/// Intended: the name's length byte has a sign, the comment's has none, so names end at 127 bytes, comments at 255.
template <class Cursor, class Par>
void walkHeader(Cursor &cursor, Par &par, BlockFormat format)
{
    cursor.lowByteSigned("rackId", par.rackId);
    cursor.lowByteSigned("slotId", par.slotId);
    cursor.textSigned("objName", par.objName);
    if (format == BlockFormat::SavedState) {
        cursor.text("comment", par.comment);
        walkPosition(cursor, par.position);
    }
    cursor.u32("moduleInfo", par.moduleInfo);
    cursor.u8("fwVersion", par.fwVersion);
    cursor.raw("buffCnfg", par.buffCnfg);
    cursor.raw("syncCnfg", par.syncCnfg);
}

/// @p length is the range's length in bytes, its low 8 bits.
template <class Cursor, class Range, class Length>
void walkRange(Cursor &cursor, Range &range, Length &length)
{
    cursor.u8("area", range.area);
    cursor.u16("start", range.start);
    cursor.u8("length", length);
}

/// Range bytes that a signal family carries, in the order of the block; none for an unknown family.
/// Intended: voltage/current has open wire before direction, the temperature families direction before open wire.
struct RangeOrder {
    std::array<AiRangeByte, 7> bytes{};
    std::size_t count = 0;
};

inline RangeOrder rangeOrder(quint8 family)
{
    switch (family) {
    case VoltageCurrent:
        return {{AiEnable, AiFilterTime, AiInputRange, AiOpenWire, AiDirection}, 5};
    case Thermocouple:
        return {{AiEnable, AiFilterTime, AiInputRange, AiColdJunction, AiDirection, AiOpenWire, AiTemperatureScale}, 7};
    case ResistanceThermometer:
        return {{AiEnable, AiFilterTime, AiInputRange, AiWiringScheme, AiDirection, AiOpenWire, AiTemperatureScale}, 7};
    default:
        return {};
    }
}

constexpr std::array<const char *, AiRangeByteCount> rangeByteNames{
    "enable", "filterTime", "inputRange", "openWire", "direction", "temperatureScale", "coldJunction", "wiringScheme"};

/// Bytes of an analog record's family and channel number, which every record begins with.
constexpr int analogRecordHeadSize = 2;

/// An analog input record behind its head.
template <class Cursor, class Filter, class Range>
void walkAnalogInput(Cursor &cursor, quint8 family, Filter &filter, Range &range)
{
    cursor.u8("filterOn", filter.filterOn);
    cursor.u8("samples", filter.samples);
    cursor.u16("deadband", filter.deadband);
    const RangeOrder order = rangeOrder(family);
    for (std::size_t i = 0; i < order.count; ++i) {
        cursor.u8(rangeByteNames[order.bytes[i]], range[order.bytes[i]]);
    }
}

inline int analogInputSize(quint8 family)
{
    return 4 + static_cast<int>(rangeOrder(family).count);
}

/// An analog output record behind its head.
template <class Cursor, class Stop, class Type>
void walkAnalogOutput(Cursor &cursor, Stop &stop, Type &type)
{
    cursor.u8("freezeLast", stop.freezeLast);
    cursor.i16("stopValue", stop.stopValue);
    cursor.u8("enable", type.enable);
    cursor.u8("range", type.range);
}

constexpr int analogOutputSize = 5;

/// A weighing record behind its channel number.
template <class Cursor, class Par>
void walkWeighing(Cursor &cursor, Par &par)
{
    cursor.u8("enable", par.enable);
    cursor.f32("sensitivity", par.sensitivity);
    cursor.lowByte("limitFreq", par.limitFreq);
    cursor.u16("filterDepth", par.filterDepth);
    cursor.u16("subMax", par.subMax);
    cursor.u16("subMin", par.subMin);
    cursor.u8("filterMode", par.filterMode);
    cursor.u8("sampleFreq", par.sampleFreq);
    cursor.lowByteSigned("bootClear", par.bootClear);
}

} // namespace blocklayout
