#include "modulestate.h"

#include "analogsection.h"
#include "blockheader.h"
#include "defaultbuilder.h"
#include "diagnostics.h"
#include "digitalsection.h"
#include "modulekind.h"
#include "weighsection.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace {

/// How the sections of a module family are written and read.
struct SectionCodec {
    ModuleFamily family;
    int (*write)(BlockWriter &writer, const SimpleExtendPar &par); ///< returns the number of sections
    void (*read)(SectionType type, ByteReader &body, SimpleExtendPar &par);
    std::optional<DiagnosticLine> line; ///< written for each section that is read
};

constexpr SectionCodec sectionCodecs[] = {
    {ModuleFamily::Analog, writeAnalogSections, readAnalogSection, DiagnosticLine::AnalogSection},
    {ModuleFamily::Digital, writeDigitalSections, readDigitalSection, DiagnosticLine::DigitalSection},
    {ModuleFamily::WeighDword, writeWeighSection, readWeighSection, std::nullopt},
};

/// Returns null for a type code whose blocks have no sections.
const SectionCodec *codecOf(quint32 objId)
{
    const ModuleFamily family = moduleKind(objId).family;
    const auto *const codec = std::find_if(std::begin(sectionCodecs), std::end(sectionCodecs),
                                           [family](const SectionCodec &one) { return one.family == family; });
    return codec == std::end(sectionCodecs) ? nullptr : codec;
}

void appendBlock(const SimpleExtendPar &par, BlockFormat format, QByteArray &out)
{
    BlockWriter writer;
    const int countMark = writer.reserve(1);
    writeHeader(writer, par, format);
    const SectionCodec *codec = codecOf(par.objId);
    const int sectionCount = codec == nullptr ? 0 : codec->write(writer, par);
    writer.patch(countMark, static_cast<quint8>(1 + sectionCount));
    const std::string_view bytes = writer.since(countMark);
    out.append(bytes.data(), static_cast<int>(bytes.size()));
}

void readSections(ByteReader &reader, SimpleExtendPar &par, quint8 sectionCount)
{
    const SectionCodec *codec = codecOf(par.objId);
    for (; codec != nullptr && sectionCount > 0; --sectionCount) {
        const std::string_view bytes = reader.rest();
        quint32 length = 0;
        ByteReader(reader).u32(length);
        if (length == 0 || length > bytes.size()) {
            return;
        }
        ByteReader body = reader.sub(static_cast<int>(length));
        quint8 type = 0;
        body.skip(5); // length and direction
        body.u8(type);
        body.skip(2);
        if (body.failed()) {
            continue;
        }
        if (codec->line) {
            writeDiagnostic(*codec->line, bytes);
        }
        codec->read(static_cast<SectionType>(type), body, par);
    }
}

/// Steps over the header record and returns a cursor over its fields; std::nullopt if the block ends before the header.
/// A length below the frame size gives an empty field range.
std::optional<ByteReader> takeHeader(ByteReader &reader)
{
    quint32 length = 0;
    ByteReader(reader).u32(length);
    if (reader.remaining() < blocklayout::headerFrameSize || length > static_cast<quint32>(reader.remaining())) {
        return std::nullopt;
    }
    reader.skip(blocklayout::headerFrameSize);
    return reader.sub(qMax(0, static_cast<int>(length) - blocklayout::headerFrameSize));
}

/// Intended: double-word weighing channels have 4 bytes in a saved state and 2 in a configuration block.
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
    reader.u8(count);
    const std::optional<ByteReader> header = takeHeader(reader);
    if (!header) {
        return nullptr;
    }
    const HeaderResult headerResult = readHeader(*header, *par, format);
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
    writeDiagnostic(DiagnosticLine::Save, state);
    return state;
}

std::unique_ptr<SimpleExtendPar> restoreModule(const QByteArray &state, const QString &memoryOwner)
{
    if (state.isEmpty()) {
        return nullptr;
    }
    writeDiagnostic(DiagnosticLine::Restore, state);
    return readBlock(state, memoryOwner, BlockFormat::SavedState, nullptr);
}

void compileModule(const SimpleExtendPar &par, QByteArray &block)
{
    appendBlock(par, BlockFormat::Configuration, block);
    writeDiagnostic(DiagnosticLine::Compile, block);
}

std::unique_ptr<SimpleExtendPar> recompileModule(const QByteArray &block, const QString &memoryOwner, qint32 *result)
{
    if (block.isEmpty()) {
        return nullptr;
    }
    writeDiagnostic(DiagnosticLine::Recompile, block);
    return readBlock(block, memoryOwner, BlockFormat::Configuration, result);
}
