// The order and the names of the fields in a block, for all code that writes, reads or shows a block.
//
// A walk passes each field of one part of the block to a cursor, as a name and a value. A cursor that writes takes
// constant values; a cursor that reads fills the values. It has one function per type of field: see FieldArchive.
#pragma once

#include "simpleextendpar.h"

#include <array>
#include <type_traits>

/// The two formats differ in the header: only the saved state has comment and position.
enum class BlockFormat { SavedState, Configuration };

enum class SectionType : quint8 {
    DigitalOutputTable = 5,
    DigitalInputFilter = 18,
    AnalogInput = 37,
    AnalogOutput = 38,
    Weighing = 41
};

namespace blocklayout {

/// Bytes before the fields of the header: its length and a constant, the only little-endian number of the block.
constexpr int headerFrameSize = 8;
constexpr std::array<quint8, 4> headerConstant{0, 2, 0, 0};

constexpr int rangeSize = 4;
constexpr int sectionFrameSize = 8;

/// Intended: the bytes of a coordinate are joined with their signs, so a coordinate with a byte of 128 and above
/// changes.
template <typename Cursor, typename Position>
void walkPosition(Cursor &cursor, Position &position)
{
    auto x = static_cast<quint32>(position.x());
    auto y = static_cast<quint32>(position.y());
    cursor.u32FromSignedBytes("positionX", x);
    cursor.u32FromSignedBytes("positionY", y);
    if constexpr (!std::is_const_v<Position>) {
        position = {static_cast<int>(x), static_cast<int>(y)};
    }
}

/// The fields of the header between type code and ranges.
/// Intended: the length byte of the name has a sign, that of the comment has none, so a name has at most 127 bytes and
/// a comment at most 255.
template <typename Cursor, typename Par>
void walkHeader(Cursor &&cursor, Par &par, BlockFormat format)
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

/// @p length is the length of the range in bytes, truncated to 8 bits.
template <typename Cursor, typename Range, typename Length>
void walkRange(Cursor &&cursor, Range &range, Length &length)
{
    cursor.u8("area", range.area);
    cursor.u16("start", range.start);
    cursor.u8("length", length);
}

/// The range bytes of a signal family in the order of the block; none for an unknown family.
/// Intended: voltage/current has open wire before direction, temperature families have direction before open wire.
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

/// The fields of an analog input record after family and channel number.
template <typename Cursor, typename Filter, typename Range>
void walkAnalogInput(Cursor &&cursor, quint8 family, Filter &&filter, Range &&range)
{
    cursor.u8("filterOn", filter.filterOn);
    cursor.u8("samples", filter.samples);
    cursor.u16("deadband", filter.deadband);
    const RangeOrder order = rangeOrder(family);
    for (std::size_t i = 0; i < order.count; ++i) {
        cursor.u8(rangeByteNames[order.bytes[i]], range[order.bytes[i]]);
    }
}

/// The fields of an analog output record after family and channel number.
template <typename Cursor, typename Stop, typename Type>
void walkAnalogOutput(Cursor &&cursor, Stop &&stop, Type &&type)
{
    cursor.u8("freezeLast", stop.freezeLast);
    cursor.i16("stopValue", stop.stopValue);
    cursor.u8("enable", type.enable);
    cursor.u8("range", type.range);
}

/// The fields of a weighing record after its channel number.
template <typename Cursor, typename Par>
void walkWeighing(Cursor &&cursor, Par &par)
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
