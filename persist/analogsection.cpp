#include "analogsection.h"

#include "diagnostics.h"

#include <QList>

#include <algorithm>

namespace {

/// Range bytes that a signal family carries, in the order of the block.
/// Intended: voltage/current has open wire before direction, the temperature families direction before open wire.
struct RangeOrder {
    std::array<AiRangeByte, 7> bytes{};
    std::size_t count = 0;
};

RangeOrder rangeOrder(quint8 family)
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

// A record's fields in their order, walked by the writer over constant values and by the reader over ones to fill.

template <class Cursor, class Filter, class Range>
void walkInput(Cursor &cursor, quint8 family, Filter &filter, Range &range)
{
    cursor.u8(filter.filterOn);
    cursor.u8(filter.samples);
    cursor.u16(filter.deadband);
    const RangeOrder order = rangeOrder(family);
    for (std::size_t i = 0; i < order.count; ++i)
        cursor.u8(range[order.bytes[i]]);
}

template <class Cursor, class Stop, class Type>
void walkOutput(Cursor &cursor, Stop &stop, Type &type)
{
    cursor.u8(stop.freezeLast);
    cursor.i16(stop.stopValue);
    cursor.u8(type.enable);
    cursor.u8(type.range);
}

constexpr quint16 recordHeadSize = 2; // family and channel number
constexpr quint16 outputRecordSize = recordHeadSize + 5;

quint16 inputRecordSize(quint8 family)
{
    return static_cast<quint16>(recordHeadSize + 4 + rangeOrder(family).count);
}

void writeRecordHead(BlockWriter &writer, quint16 size, quint8 family, quint8 channel)
{
    writer.u16(size);
    writer.u8(family);
    writer.u8(channel);
}

void writeInput(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel)
{
    const quint8 family = par.aiKind.value(channel);
    const AiFilter filter = par.aiFilter.value(channel);
    const AiRange range = par.aiRange.value(channel);
    writeRecordHead(writer, inputRecordSize(family), family, channel);
    walkInput(writer, family, filter, range);
}

void writeOutput(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel)
{
    const AqOutTbl stop = par.aqOutTbl.value(channel);
    const AqOutType type = par.aqOutType.value(channel);
    const int mark = writer.mark();
    writeRecordHead(writer, outputRecordSize, par.aqKind.value(channel), channel);
    walkOutput(writer, stop, type);
    writeDiagnostic(DiagnosticLine::AnalogOutputRecord, ByteReader(writer.writtenSince(mark)));
}

using WriteChannel = void (*)(BlockWriter &, const SimpleExtendPar &, quint8 channel);

/// False when fewer channels are known than counted.
bool writeChannels(BlockWriter &writer, const SimpleExtendPar &par, SectionType type, quint8 count,
                   const QHash<quint8, quint8> &kinds, WriteChannel writeChannel)
{
    if (kinds.size() < count)
        return false;
    const int mark = beginSection(writer, type);
    writer.u8(count);
    QList<quint8> channels = kinds.keys();
    std::sort(channels.begin(), channels.end());
    for (const quint8 channel : qAsConst(channels))
        writeChannel(writer, par, channel);
    endSection(writer, mark);
    return true;
}

void readInput(ByteReader &body, SimpleExtendPar &par, quint8 family, quint8 channel)
{
    AiFilter filter;
    AiRange range{};
    walkInput(body, family, filter, range);
    if (body.failed())
        return;
    par.aiKind[channel] = family;
    par.aiFilter[channel] = filter;
    par.aiRange[channel] = range;
}

void readOutput(ByteReader &body, SimpleExtendPar &par, quint8 family, quint8 channel)
{
    AqOutTbl stop;
    AqOutType type;
    walkOutput(body, stop, type);
    if (body.failed())
        return;
    par.aqKind[channel] = family;
    par.aqOutTbl[channel] = stop;
    par.aqOutType[channel] = type;
}

using ReadChannel = void (*)(ByteReader &, SimpleExtendPar &, quint8 family, quint8 channel);

// Intended: the record length is checked against what remains, but the family alone decides how much is read.
void readChannels(ByteReader &body, SimpleExtendPar &par, quint8 count, ReadChannel readChannel)
{
    for (; count > 0 && !body.failed(); --count) {
        quint16 size = 0;
        body.u16(size);
        if (body.failed() || size > body.remaining())
            return;
        quint8 family = 0;
        quint8 channel = 0;
        body.u8(family);
        body.u8(channel);
        readChannel(body, par, family, channel);
    }
}

void readInputs(ByteReader &body, SimpleExtendPar &par)
{
    par.aiKind.clear();
    par.aiFilter.clear();
    par.aiRange.clear();
    body.u8(par.aiCount);
    readChannels(body, par, par.aiCount, readInput);
}

void readOutputs(ByteReader &body, SimpleExtendPar &par)
{
    par.aqKind.clear();
    par.aqOutTbl.clear();
    par.aqOutType.clear();
    body.u8(par.aqCount);
    readChannels(body, par, par.aqCount, readOutput);
}

} // namespace

void writeAnalogSections(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount)
{
    const int start = writer.mark();
    if (par.aiCount != 0) {
        ++sectionCount;
        if (!writeChannels(writer, par, SectionType::AnalogInput, par.aiCount, par.aiKind, writeInput))
            return;
    }
    if (par.aqCount != 0) {
        ++sectionCount;
        // Intended: the finished input section goes too, while the count stays raised; readers expect both.
        if (!writeChannels(writer, par, SectionType::AnalogOutput, par.aqCount, par.aqKind, writeOutput))
            writer.truncate(start);
    }
}

void readAnalogSection(Section section, SimpleExtendPar &par)
{
    writeDiagnostic(DiagnosticLine::AnalogSection, section.fromHere);
    if (section.type == SectionType::AnalogInput)
        readInputs(section.body, par);
    else if (section.type == SectionType::AnalogOutput)
        readOutputs(section.body, par);
}
