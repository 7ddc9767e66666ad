#include "blockheader.h"

#include "imagerange.h"
#include "metreader.h"

namespace {

// Fields that stand in the same order in both directions are walked by one function: Cursor is BlockWriter or
// ByteReader, Par a constant record or one to fill.

template <class Cursor, class Par>
void walkPlacement(Cursor &cursor, Par &par)
{
    cursor.lowByteSigned(par.rackId);
    cursor.lowByteSigned(par.slotId);
}

template <class Cursor, class Par>
void walkCatalogFields(Cursor &cursor, Par &par)
{
    cursor.u32(par.moduleInfo);
    cursor.u8(par.fwVersion);
    cursor.raw(par.buffCnfg);
    cursor.raw(par.syncCnfg);
}

void writeText(BlockWriter &writer, const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    const auto length = static_cast<quint8>(bytes.size());
    writer.u8(length);
    writer.raw(bytes.left(length));
}

// A length that reads as negative takes no bytes, one beyond the header what is left of it.
void readText(ByteReader &reader, QString &text, int length)
{
    QByteArray bytes;
    reader.raw(bytes, qBound(0, length, reader.remaining()));
    if (!reader.failed())
        text = QString::fromLocal8Bit(bytes.constData(), bytes.size());
}

// Intended: the name's length byte has a sign, the comment's has none, so names end at 127 bytes, comments at 255.
void readName(ByteReader &reader, QString &name)
{
    int length = 0;
    reader.lowByteSigned(length);
    readText(reader, name, length);
}

void readComment(ByteReader &reader, QString &comment)
{
    int length = 0;
    reader.lowByte(length);
    readText(reader, comment, length);
}

void writeCoordinate(BlockWriter &writer, int value)
{
    writer.u32(static_cast<quint32>(value));
}

// Intended: the bytes are joined with their signs, so coordinates with a byte of 128 and above come back changed.
void readCoordinate(ByteReader &reader, int &value)
{
    auto bits = static_cast<quint32>(value);
    reader.u32FromSignedBytes(bits);
    value = static_cast<int>(bits);
}

void writeRange(BlockWriter &writer, const IoMap &range)
{
    writer.u8(range.area);
    writer.u16(range.start);
    writer.lowByte(rangeLength(range));
}

void readRange(ByteReader &reader, const SimpleExtendPar &par, IoMap &range,
               qint32 (*channelCount)(const IoMap &, quint32))
{
    reader.u8(range.area);
    if (reader.failed())
        return;
    range.count = static_cast<quint8>(channelCount(range, par.moduleInfo));
    quint8 length = 0;
    reader.u16(range.start);
    reader.u8(length);
    if (!reader.failed())
        retakeRange(par.memoryOwner, range, length);
}

bool isIn(const IoMap &range, VarArea area)
{
    return range.area == static_cast<quint8>(area);
}

qint32 inputCount(const IoMap &range, quint32 moduleInfo)
{
    const bool analog = isIn(range, VarArea::AnalogInput) || isIn(range, VarArea::Variable);
    return analog ? getModuleAINum(moduleInfo) : getModuleDINum(moduleInfo);
}

// Intended: outputs in the variable area are counted as digital ones, unlike inputs.
qint32 outputCount(const IoMap &range, quint32 moduleInfo)
{
    return isIn(range, VarArea::AnalogOutput) ? getModuleAQNum(moduleInfo) : getModuleDQNum(moduleInfo);
}

constexpr int writtenRangeSize = 4;

void readRanges(ByteReader &reader, SimpleExtendPar &par)
{
    if (par.moduleInfo == 0) {
        reader.skip(2 * writtenRangeSize);
        return;
    }
    readRange(reader, par, par.inMap, inputCount);
    readRange(reader, par, par.outMap, outputCount);
}

void readInterruptTable(ByteReader &reader, SimpleExtendPar &par)
{
    quint8 marker = 0;
    reader.u8(marker);
    if (reader.failed())
        return;
    if (marker == 0)
        par.intEnableTbl.fill(0);
    else
        reader.raw(par.intEnableTbl);
}

bool copyFromCatalog(SimpleExtendPar &par)
{
    ModuleMetInfo info;
    if (lookUpMetInfo(par.objId, info) < 0)
        return false;
    info.memoryOwner = par.memoryOwner;
    static_cast<ModuleMetInfo &>(par) = info;
    return true;
}

} // namespace

void writeHeader(BlockWriter &writer, const SimpleExtendPar &par, BlockFormat format)
{
    const int mark = writer.beginLength();
    writer.raw(QByteArrayLiteral("\x00\x02\x00\x00")); // intended: the one little-endian number, 512
    writer.u32(par.objId);
    walkPlacement(writer, par);
    writeText(writer, par.objName);
    if (format == BlockFormat::SavedState) {
        writeText(writer, par.comment);
        writeCoordinate(writer, par.position.x());
        writeCoordinate(writer, par.position.y());
    }
    walkCatalogFields(writer, par);
    writeRange(writer, par.inMap);
    writeRange(writer, par.outMap);
    writer.u8(1); // the interrupt table follows
    writer.raw(par.intEnableTbl);
    writer.raw(par.reservBytes);
    writer.endLength(mark);
}

HeaderResult readHeader(ByteReader header, SimpleExtendPar &par, BlockFormat format)
{
    header.u32FromSignedBytes(par.objId);
    if (header.failed())
        return HeaderRead;
    if (!copyFromCatalog(par))
        return UnknownTypeCode;
    walkPlacement(header, par);
    readName(header, par.objName);
    if (format == BlockFormat::SavedState) {
        readComment(header, par.comment);
        readCoordinate(header, par.position.rx());
        readCoordinate(header, par.position.ry());
    }
    walkCatalogFields(header, par);
    readRanges(header, par);
    readInterruptTable(header, par);
    return HeaderRead; // the reserved bytes behind stay the catalog's
}
