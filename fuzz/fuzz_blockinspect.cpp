// Decodes any bytes with the inspector and reports them.
#include "blockreport.h"
#include "target.h"

#include <QJsonDocument>

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
                                  bytes.mid(field.offset, field.raw.size()) == field.raw,
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

} // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::prepare();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = fuzz::bytesOf(data, size);
    const QVector<DecodedBlock> saved{decodeSavedState(bytes)};
    const QVector<DecodedBlock> configuration = decodeConfiguration(bytes);
    checkFields(saved, bytes);
    checkFields(configuration, bytes);
    if (!fuzz::isForCostlyChecks(bytes)) {
        return 0;
    }
    checkReports(saved);
    checkReports(configuration);
    const QVector<Difference> differences = difference(saved, configuration);
    fuzz::require(toText(differences).endsWith(QLatin1Char('\n')), "the differences do not end in a line feed");
    fuzz::require(toJson(differences).value(QStringLiteral("differences")).isArray(), "the differences are not a list");
    return 0;
}
