#include "stationblocks.h"

#include "blockdecoder.h"

#include <QCoreApplication>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(StationBlocks)
};

/// A block whose end is unknown gets all remaining bytes, because the plug-in may be able to read it.
QByteArray bytesOf(const QByteArray &bytes, const blockdecoder::DecodedBlock &block)
{
    return bytes.mid(block.offset, block.complete ? block.size : -1);
}

} // namespace

DecompiledStation decompiled(const PluginLibrary &plugin, const QString &memoryOwner, const QByteArray &bytes,
                             const Progress &progress)
{
    DecompiledStation result;
    auto station = std::make_unique<Station>(plugin, memoryOwner);
    station->setLargestPlcType();
    const QVector<blockdecoder::DecodedBlock> blocks = blockdecoder::decodeConfiguration(bytes);
    int number = 0;
    for (const blockdecoder::DecodedBlock &block : blocks) {
        BlockResult problem;
        problem.number = ++number;
        problem.offset = block.offset;
        const Result<> added = station->addBlock(bytesOf(bytes, block), problem.code);
        problem.error = added.reason();
        if (!block.complete) {
            problem.unread = Texts::tr("The end of this block is unknown, so the bytes after it were not read.");
        }
        if (!added || !problem.unread.isEmpty()) {
            result.problems.push_back(problem);
        }
        if (progress && !progress(number, blocks.size())) {
            return result;
        }
    }
    station->fitPlcType();
    result.station = std::move(station);
    return result;
}
