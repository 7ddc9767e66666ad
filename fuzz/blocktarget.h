// The targets of the two block formats: reads the bytes as the host does and checks the properties of any block.
//
// A program that includes this header (in one source file) replaces these host functions of basemodule. The ones below
// build no texts and no paths, so the time of an execution is the plug-in's.
#pragma once

#include "blockagreement.h"
#include "blockcheck.h"
#include "blockheader.h"
#include "catalogtypes.h"
#include "metreader.h"
#include "target.h"

#include <QVarLengthArray>

#include <algorithm>

namespace fuzz {

struct TakenRange {
    VarArea area;
    qint32 start;
    qint32 length;
};

inline QVarLengthArray<TakenRange, 8> &takenRanges()
{
    static QVarLengthArray<TakenRange, 8> ranges;
    return ranges;
}

} // namespace fuzz

qint32 getMemory(const QString & /*owner*/, VarArea area, qint32 start, qint32 length)
{
    fuzz::takenRanges().append({area, start, length});
    return 1;
}

QString getHwcnfgComponentPath(HwcnfgComponent component)
{
    static const QString descriptions = QStringLiteral(FUZZ_CATALOG "/6/");
    static const QString components = QStringLiteral(FUZZ_CATALOG "/9/");
    return component == HwcnfgComponent::ModuleDescription ? descriptions : components;
}

namespace fuzz {

/// Requires at most the two ranges of the header, in their order and at the places of the module.
inline void checkTakenRanges(const SimpleExtendPar *par)
{
    const auto &ranges = takenRanges();
    require(ranges.size() <= 2, "more than two ranges are taken");
    for (int i = 0; par != nullptr && i < ranges.size(); ++i) {
        const IoMap &map = i == 0 ? par->inMap : par->outMap;
        require(map.area == static_cast<quint8>(ranges[i].area) && map.start == ranges[i].start &&
                    ranges[i].length >= 0 && ranges[i].length <= 255,
                "a range is taken that the module does not have");
    }
}

inline void checkAgreement(const QByteArray &block, const SimpleExtendPar *par, qint32 result, BlockFormat format)
{
    using namespace blockdecoder;
    static const std::vector<quint32> types = catalogTypes();
    const DecodedBlock decoded = decodeFirst(block, format);
    const Field *type = decoded.find(QStringLiteral("header.objId"));
    if (type != nullptr &&
        !std::binary_search(types.begin(), types.end(), static_cast<quint32>(type->value.toLongLong()))) {
        // Only the catalog has the known type codes.
        require(par == nullptr && (format == BlockFormat::SavedState || result == UnknownTypeCode),
                "an unknown type code is accepted");
        return;
    }
    require(decoded.refused == (par == nullptr), "only the decoder or only the plug-in rejects the block");
    if (par != nullptr) {
        require(disagreement(decoded, *par, format));
    }
}

inline void checkBlock(const QByteArray &block, BlockFormat format)
{
    static const QString owner = QStringLiteral("station");
    constexpr qint32 untouched = -1;

    takenRanges().clear();
    qint32 result = untouched;
    const auto par = blockcheck::read(block, owner, format, &result);
    checkTakenRanges(par.get());
    if (isForCostlyChecks(block)) { // the decoder takes several times as long as the reader
        checkAgreement(block, par.get(), result, format);
    }
    if (par) {
        takenRanges().clear();
        require(blockcheck::roundTripFault(*par, format));
        require(takenRanges().isEmpty(), "a range is taken without an owner");
    }
}

} // namespace fuzz

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::prepare();
    return 0;
}
