#include "stationblocks.h"

#include "blockdecoder.h"
#include "simulatedbase.h"

#include <QCoreApplication>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(StationBlocks)
};

/// A block whose end is unknown keeps all the bytes behind it, as far as the plug-in is able to read them.
QByteArray bytesOf(const QByteArray &bytes, const blockdecoder::DecodedBlock &block)
{
    return bytes.mid(block.offset, block.complete ? block.size : -1);
}

} // namespace

std::unique_ptr<Station> decompiled(const PluginLibrary &plugin, const QString &memoryOwner, const QByteArray &bytes,
                                    std::vector<BlockResult> &results, const Progress &progress)
{
    auto station = std::make_unique<Station>(plugin, memoryOwner);
    QString ignored;
    station->setPlcType(simulatedhost::plcTypes().last().id, ignored);
    const QVector<blockdecoder::DecodedBlock> blocks = blockdecoder::decodeConfiguration(bytes);
    int number = 0;
    for (const blockdecoder::DecodedBlock &block : blocks) {
        BlockResult result;
        result.number = ++number;
        result.offset = block.offset;
        const bool added = station->addBlock(bytesOf(bytes, block), &result.code, result.error);
        if (!block.complete) {
            result.unread = Texts::tr("It is damaged, so that its end and the blocks behind it are unknown.");
        }
        if (!added || !result.unread.isEmpty()) {
            results.push_back(result);
        }
        if (progress && !progress(number, blocks.size())) {
            return nullptr;
        }
    }
    station->fitPlcType();
    return station;
}
