// Decodes any bytes with the inspector and reports them. The first byte of an input selects the format: one input in
// both formats takes twice as long, and its bytes are sections in one of them only.
#include "blockreport.h"
#include "target.h"

#include <QJsonDocument>

#include <algorithm>

using namespace blockdecoder;

namespace {

void checkFields(const QVector<DecodedBlock> &blocks, const QByteArray &bytes)
{
    for (const DecodedBlock &block : blocks) {
        fuzz::require(block.offset >= 0 && block.size >= 0 && block.offset + block.size <= bytes.size(),
                      "a block is outside the data");
        for (const Part &part : block.parts) {
            for (const Field &field : part.fields) {
                fuzz::require(field.offset >= block.offset && field.offset + field.raw.size() <= bytes.size() &&
                                  std::equal(field.raw.begin(), field.raw.end(), bytes.begin() + field.offset),
                              "the bytes of a field differ from those at its offset");
            }
        }
        for (const Damage &damage : block.damages) {
            fuzz::require(damage.offset >= block.offset && damage.offset <= bytes.size(), "damage is outside the data");
        }
    }
}

void checkReports(const QVector<DecodedBlock> &blocks)
{
    fuzz::require(toText(blocks).endsWith(QLatin1Char('\n')), "the text does not end in a line feed");
    const QByteArray json = QJsonDocument(toJson(blocks)).toJson(QJsonDocument::Compact);
    fuzz::require(!QJsonDocument::fromJson(json).isNull(), "the JSON is invalid");
    fuzz::require(difference(blocks, blocks).isEmpty(), "a block differs from itself");
}

void checkDifferences(const QVector<DecodedBlock> &left, const QVector<DecodedBlock> &right)
{
    const QVector<Difference> differences = difference(left, right);
    fuzz::require(toText(differences).endsWith(QLatin1Char('\n')), "the differences do not end in a line feed");
    fuzz::require(toJson(differences).value(QStringLiteral("differences")).isArray(), "the differences are not a list");
}

} // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::prepare();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const QByteArray bytes = fuzz::bytesOf(data + 1, size - 1);
    const bool isSaved = data[0] % 2 == 0;
    const QVector<DecodedBlock> blocks =
        isSaved ? QVector<DecodedBlock>{decodeSavedState(bytes)} : decodeConfiguration(bytes);
    checkFields(blocks, bytes);
    // The reports take fifty times as long as the decoder.
    if (fuzz::isForCostlyChecks(bytes, 16)) {
        checkReports(blocks);
        checkDifferences(blocks, isSaved ? decodeConfiguration(bytes) : QVector<DecodedBlock>{decodeSavedState(bytes)});
    }
    return 0;
}
