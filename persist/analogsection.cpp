#include "analogsection.h"

#include "diagnostics.h"

namespace {

using namespace blocklayout;

using WriteFields = void (*)(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel, quint8 family);

void writeInput(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel, quint8 family)
{
    walkAnalogInput(FieldArchive(writer), family, par.aiFilter.value(channel), par.aiRange.value(channel));
}

void writeOutput(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel, quint8 /*family*/)
{
    walkAnalogOutput(FieldArchive(writer), par.aqOutTbl.value(channel), par.aqOutType.value(channel));
}

/// Returns the mark of the record.
int writeRecord(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel, quint8 family, WriteFields writeFields)
{
    const int lengthMark = writer.reserve(2);
    const int recordMark = writer.mark(); // the length does not include itself
    writer.u8(family);
    writer.u8(channel);
    writeFields(writer, par, channel, family);
    writer.patch(lengthMark, ushortToByteArray(static_cast<quint16>(writer.mark() - recordMark)));
    return lengthMark;
}

/// Returns false and writes nothing if fewer channels are stored than counted.
bool writeChannels(BlockWriter &writer, const SimpleExtendPar &par, SectionType type, quint8 count,
                   const QHash<quint8, quint8> &kinds, WriteFields writeFields)
{
    if (kinds.size() < count) {
        return false;
    }
    const int mark = beginSection(writer, type);
    writer.u8(count);
    visitChannels(kinds, [&](quint8 channel, quint8 family) {
        const int recordMark = writeRecord(writer, par, channel, family, writeFields);
        if (type == SectionType::AnalogOutput) {
            writeDiagnostic(DiagnosticLine::AnalogOutputRecord, writer.since(recordMark));
        }
    });
    writer.endLength(mark);
    return true;
}

void readInput(ByteReader &body, SimpleExtendPar &par, quint8 family, quint8 channel)
{
    AiFilter filter;
    AiRange range{};
    walkAnalogInput(FieldArchive(body), family, filter, range);
    if (body.failed()) {
        return;
    }
    par.aiKind[channel] = family;
    par.aiFilter[channel] = filter;
    par.aiRange[channel] = range;
}

void readOutput(ByteReader &body, SimpleExtendPar &par, quint8 family, quint8 channel)
{
    AqOutTbl stop;
    AqOutType type;
    walkAnalogOutput(FieldArchive(body), stop, type);
    if (body.failed()) {
        return;
    }
    par.aqKind[channel] = family;
    par.aqOutTbl[channel] = stop;
    par.aqOutType[channel] = type;
}

using ReadFields = void (*)(ByteReader &body, SimpleExtendPar &par, quint8 family, quint8 channel);

/// Intended: the record length is compared with the remaining bytes, but only the family determines the bytes to read.
void readChannels(ByteReader &body, SimpleExtendPar &par, quint8 count, ReadFields readFields)
{
    for (; count > 0 && !body.failed(); --count) {
        quint16 size = 0;
        body.u16(size);
        if (body.failed() || size > body.remaining()) {
            return;
        }
        quint8 family = 0;
        quint8 channel = 0;
        body.u8(family);
        body.u8(channel);
        readFields(body, par, family, channel);
    }
}

/// Empties the hashes and reserves room for @p count channels, of which a block has at most 255.
template <typename... Hashes>
void makeRoom(quint8 count, Hashes &...hashes)
{
    (hashes.clear(), ...);
    (hashes.reserve(count), ...);
}

void readInputs(ByteReader &body, SimpleExtendPar &par)
{
    body.u8(par.aiCount);
    makeRoom(par.aiCount, par.aiKind, par.aiFilter, par.aiRange);
    readChannels(body, par, par.aiCount, readInput);
}

void readOutputs(ByteReader &body, SimpleExtendPar &par)
{
    body.u8(par.aqCount);
    makeRoom(par.aqCount, par.aqKind, par.aqOutTbl, par.aqOutType);
    readChannels(body, par, par.aqCount, readOutput);
}

} // namespace

int writeAnalogSections(BlockWriter &writer, const SimpleExtendPar &par)
{
    int sectionCount = 0;
    const int start = writer.mark();
    if (par.aiCount != 0) {
        ++sectionCount;
        if (!writeChannels(writer, par, SectionType::AnalogInput, par.aiCount, par.aiKind, writeInput)) {
            return sectionCount;
        }
    }
    if (par.aqCount != 0) {
        ++sectionCount;
        // Intended: a failure also removes the input section, but sectionCount includes both, because readers expect
        // it.
        if (!writeChannels(writer, par, SectionType::AnalogOutput, par.aqCount, par.aqKind, writeOutput)) {
            writer.truncate(start);
        }
    }
    return sectionCount;
}

void readAnalogSection(SectionType type, ByteReader &body, SimpleExtendPar &par)
{
    if (type == SectionType::AnalogInput) {
        readInputs(body, par);
    } else if (type == SectionType::AnalogOutput) {
        readOutputs(body, par);
    }
}
