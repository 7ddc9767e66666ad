#include "modulestate.h"

#include "analogsection.h"
#include "blockheader.h"
#include "defaultbuilder.h"
#include "diagnostics.h"
#include "digitalsection.h"
#include "modulekind.h"
#include "weighsection.h"

namespace {

quint8 writeSections(BlockWriter &writer, const SimpleExtendPar &par)
{
    quint8 sectionCount = 0;
    switch (moduleKind(par.objId).family) {
    case ModuleFamily::Analog:
        writeAnalogSections(writer, par, sectionCount);
        break;
    case ModuleFamily::Digital:
        writeDigitalSections(writer, par, sectionCount);
        break;
    case ModuleFamily::WeighDword:
        writeWeighSection(writer, par, sectionCount);
        break;
    case ModuleFamily::WeighWord:
    case ModuleFamily::Plain:
        break;
    }
    return sectionCount;
}

void appendBlock(const SimpleExtendPar &par, BlockFormat format, QByteArray &out)
{
    BlockWriter writer;
    const int countMark = writer.mark();
    writer.u8("count", 1);
    writeHeader(writer, par, format);
    const quint8 sectionCount = writeSections(writer, par);
    writer.patch(countMark, static_cast<quint8>(1 + sectionCount));
    out.append(writer.bytes(), writer.size());
}

void readSection(const Section &section, SimpleExtendPar &par)
{
    switch (moduleKind(par.objId).family) {
    case ModuleFamily::Analog:
        readAnalogSection(section, par);
        break;
    case ModuleFamily::Digital:
        readDigitalSection(section, par);
        break;
    case ModuleFamily::WeighDword:
        readWeighSection(section, par);
        break;
    case ModuleFamily::WeighWord:
    case ModuleFamily::Plain:
        break;
    }
}

/// Length of the section that begins here; 0 when not even that is there.
qint32 peekSectionLength(ByteReader reader)
{
    QByteArray length;
    reader.raw("length", length, 4);
    return reader.failed() ? 0 : byteArrayToInt(length);
}

void readSections(ByteReader &reader, SimpleExtendPar &par, quint8 sectionCount)
{
    for (; sectionCount > 0; --sectionCount) {
        const ByteReader fromHere = reader;
        const qint32 length = peekSectionLength(reader);
        if (length <= 0 || length > reader.remaining()) {
            return;
        }
        ByteReader body = reader.sub(length);
        quint8 type = 0;
        body.skip(5); // length and direction
        body.u8("type", type);
        body.skip(2);
        if (!body.failed()) {
            readSection({static_cast<SectionType>(type), body, fromHere}, par);
        }
    }
}

/// Steps over the header record and gives a cursor over its fields; nothing when the block ends before it does.
/// A length that does not even count the frame leaves no fields.
bool takeHeader(ByteReader &reader, ByteReader &header)
{
    ByteReader frame = reader;
    quint32 length = 0;
    frame.u32("length", length);
    if (reader.remaining() < blocklayout::headerFrameSize || length > static_cast<quint32>(reader.remaining())) {
        return false;
    }
    reader.skip(blocklayout::headerFrameSize);
    header = reader.sub(qMax(0, static_cast<int>(length) - blocklayout::headerFrameSize));
    return true;
}

/// Intended: double-word weighing channels come back with 4 bytes from a saved state and 2 from a configuration block.
void setUnits(SimpleExtendPar &par, BlockFormat format)
{
    const ModuleKind &kind = moduleKind(par.objId);
    if (kind.family == ModuleFamily::Plain) {
        return;
    }
    const bool saved = format == BlockFormat::SavedState;
    par.inMap.unit = saved ? kind.input.unit : kind.recompiledUnit;
    par.outMap.unit = saved ? kind.output.unit : kind.recompiledUnit;
}

std::unique_ptr<SimpleExtendPar> readBlock(const QByteArray &block, const QString &memoryOwner, BlockFormat format,
                                           qint32 *result)
{
    auto par = std::make_unique<SimpleExtendPar>();
    par->memoryOwner = memoryOwner;

    ByteReader reader(block);
    quint8 count = 0;
    reader.u8("count", count);
    ByteReader header(nullptr, 0);
    if (!takeHeader(reader, header)) {
        return nullptr;
    }
    const HeaderResult headerResult = readHeader(header, *par, format);
    if (result != nullptr) {
        *result = headerResult;
    }
    if (headerResult != HeaderRead || !hasComponentFile(*par)) {
        return nullptr;
    }
    setUnits(*par, format);
    readSections(reader, *par, static_cast<quint8>(count - 1));
    return par;
}

} // namespace

QByteArray saveModule(const SimpleExtendPar &par)
{
    QByteArray state;
    appendBlock(par, BlockFormat::SavedState, state);
    writeDiagnostic(DiagnosticLine::Save, ByteReader(state));
    return state;
}

std::unique_ptr<SimpleExtendPar> restoreModule(const QByteArray &state, const QString &memoryOwner)
{
    if (state.isEmpty()) {
        return nullptr;
    }
    writeDiagnostic(DiagnosticLine::Restore, ByteReader(state));
    return readBlock(state, memoryOwner, BlockFormat::SavedState, nullptr);
}

void compileModule(const SimpleExtendPar &par, QByteArray &block)
{
    appendBlock(par, BlockFormat::Configuration, block);
    writeDiagnostic(DiagnosticLine::Compile, ByteReader(block));
}

std::unique_ptr<SimpleExtendPar> recompileModule(const QByteArray &block, const QString &memoryOwner, qint32 *result)
{
    if (block.isEmpty()) {
        return nullptr;
    }
    writeDiagnostic(DiagnosticLine::Recompile, ByteReader(block));
    return readBlock(block, memoryOwner, BlockFormat::Configuration, result);
}
