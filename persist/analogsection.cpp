#include "analogsection.h"

#include "diagnostics.h"

namespace {

using namespace blocklayout;

/// @p fieldsSize counts what follows the head; the length in front of the head does not count itself.
void writeRecordHead(BlockWriter &writer, int fieldsSize, quint8 family, quint8 channel)
{
    writer.u16("recordLength", static_cast<quint16>(analogRecordHeadSize + fieldsSize));
    writer.u8("family", family);
    writer.u8("channel", channel);
}

void writeInput(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel, quint8 family)
{
    const AiFilter filter = par.aiFilter.value(channel);
    const AiRange range = par.aiRange.value(channel);
    writeRecordHead(writer, analogInputSize(family), family, channel);
    walkAnalogInput(writer, family, filter, range);
}

void writeOutput(BlockWriter &writer, const SimpleExtendPar &par, quint8 channel, quint8 family)
{
    const AqOutTbl stop = par.aqOutTbl.value(channel);
    const AqOutType type = par.aqOutType.value(channel);
    const int mark = writer.mark();
    writeRecordHead(writer, analogOutputSize, family, channel);
    walkAnalogOutput(writer, stop, type);
    writeDiagnostic(DiagnosticLine::AnalogOutputRecord, writer.writtenSince(mark));
}

using WriteChannel = void (*)(BlockWriter &, const SimpleExtendPar &, quint8 channel, quint8 family);

/// False when fewer channels are known than counted.
bool writeChannels(BlockWriter &writer, const SimpleExtendPar &par, SectionType type, quint8 count,
                   const QHash<quint8, quint8> &kinds, WriteChannel writeChannel)
{
    if (kinds.size() < count) {
        return false;
    }
    const int mark = beginSection(writer, type);
    writer.u8("count", count);
    visitChannels(kinds, [&](quint8 channel, quint8 family) { writeChannel(writer, par, channel, family); });
    endSection(writer, mark);
    return true;
}

void readInput(ByteReader &body, SimpleExtendPar &par, quint8 family, quint8 channel)
{
    AiFilter filter;
    AiRange range{};
    walkAnalogInput(body, family, filter, range);
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
    walkAnalogOutput(body, stop, type);
    if (body.failed()) {
        return;
    }
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
        body.u16("recordLength", size);
        if (body.failed() || size > body.remaining()) {
            return;
        }
        quint8 family = 0;
        quint8 channel = 0;
        body.u8("family", family);
        body.u8("channel", channel);
        readChannel(body, par, family, channel);
    }
}

/// Empties the hashes and makes room for what the block counts, at most 255 channels whatever it says.
template <class... Hashes>
void makeRoom(quint8 count, Hashes &...hashes)
{
    (hashes.clear(), ...);
    (hashes.reserve(count), ...);
}

void readInputs(ByteReader &body, SimpleExtendPar &par)
{
    body.u8("count", par.aiCount);
    makeRoom(par.aiCount, par.aiKind, par.aiFilter, par.aiRange);
    readChannels(body, par, par.aiCount, readInput);
}

void readOutputs(ByteReader &body, SimpleExtendPar &par)
{
    body.u8("count", par.aqCount);
    makeRoom(par.aqCount, par.aqKind, par.aqOutTbl, par.aqOutType);
    readChannels(body, par, par.aqCount, readOutput);
}

} // namespace

void writeAnalogSections(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount)
{
    const int start = writer.mark();
    if (par.aiCount != 0) {
        ++sectionCount;
        if (!writeChannels(writer, par, SectionType::AnalogInput, par.aiCount, par.aiKind, writeInput)) {
            return;
        }
    }
    if (par.aqCount != 0) {
        ++sectionCount;
        // Intended: the finished input section goes too, while the count stays raised; readers expect both.
        if (!writeChannels(writer, par, SectionType::AnalogOutput, par.aqCount, par.aqKind, writeOutput)) {
            writer.truncate(start);
        }
    }
}

void readAnalogSection(Section section, SimpleExtendPar &par)
{
    writeDiagnostic(DiagnosticLine::AnalogSection, section.fromHere);
    if (section.type == SectionType::AnalogInput) {
        readInputs(section.body, par);
    } else if (section.type == SectionType::AnalogOutput) {
        readOutputs(section.body, par);
    }
}
