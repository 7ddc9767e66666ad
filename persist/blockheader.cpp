#include "blockheader.h"

#include "fieldarchive.h"
#include "imagerange.h"
#include "metreader.h"

namespace {

using namespace blocklayout;

bool isIn(const IoMap &range, VarArea area)
{
    return range.area == static_cast<quint8>(area);
}

qint32 inputCount(const IoMap &range, quint32 moduleInfo)
{
    const bool analog = isIn(range, VarArea::AnalogInput) || isIn(range, VarArea::Variable);
    return analog ? getModuleAINum(moduleInfo) : getModuleDINum(moduleInfo);
}

// Intended: outputs in the variable area are counted as digital ones, unlike inputs there.
qint32 outputCount(const IoMap &range, quint32 moduleInfo)
{
    return isIn(range, VarArea::AnalogOutput) ? getModuleAQNum(moduleInfo) : getModuleDQNum(moduleInfo);
}

void writeRange(BlockWriter &writer, const IoMap &range)
{
    const auto length = static_cast<quint8>(rangeLength(range));
    walkRange(FieldArchive(writer), range, length);
}

void readRange(ByteReader &reader, const SimpleExtendPar &par, IoMap &range,
               qint32 (*channelCount)(const IoMap &range, quint32 moduleInfo))
{
    if (reader.failed() || reader.remaining() == 0) {
        return;
    }
    quint8 length = 0;
    walkRange(FieldArchive(reader), range, length);
    range.count = static_cast<quint8>(channelCount(range, par.moduleInfo));
    if (!reader.failed()) {
        retakeRange(par.memoryOwner, range, length);
    }
}

void readRanges(ByteReader &reader, SimpleExtendPar &par)
{
    if (par.moduleInfo == 0) {
        reader.skip(2 * rangeSize);
        return;
    }
    readRange(reader, par, par.inMap, inputCount);
    readRange(reader, par, par.outMap, outputCount);
}

void readInterruptTable(ByteReader &reader, SimpleExtendPar &par)
{
    quint8 marker = 0;
    reader.u8(marker);
    if (reader.failed()) {
        return;
    }
    if (marker == 0) {
        par.intEnableTbl.fill(0);
    } else {
        reader.raw(par.intEnableTbl);
    }
}

bool copyFromCatalog(SimpleExtendPar &par)
{
    ModuleMetInfo info;
    if (lookUpMetInfo(par.objId, info) < 0) {
        return false;
    }
    info.memoryOwner = par.memoryOwner;
    static_cast<ModuleMetInfo &>(par) = std::move(info);
    return true;
}

} // namespace

void writeHeader(BlockWriter &writer, const SimpleExtendPar &par, BlockFormat format)
{
    const int mark = writer.beginLength();
    writer.raw(headerConstant);
    writer.u32FromSignedBytes(par.objId);
    walkHeader(FieldArchive(writer), par, format);
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
    if (header.failed()) {
        return HeaderRead;
    }
    if (!copyFromCatalog(par)) {
        return UnknownTypeCode;
    }
    walkHeader(FieldArchive(header), par, format);
    readRanges(header, par);
    readInterruptTable(header, par);
    return HeaderRead; // intended: the reserved bytes are not read, so those of the catalog stay
}
