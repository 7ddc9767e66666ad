// Properties of every module that was rebuilt from a block, for fuzz targets and tests.
#pragma once

#include "baseservices.h"
#include "blocklayout.h"
#include "digitalbits.h"
#include "modulekind.h"
#include "modulestate.h"

#include <algorithm>
#include <optional>

namespace blockcheck {

inline QByteArray write(const SimpleExtendPar &par, BlockFormat format)
{
    if (format == BlockFormat::SavedState) {
        return saveModule(par);
    }
    QByteArray block;
    compileModule(par, block);
    return block;
}

inline std::unique_ptr<SimpleExtendPar> read(const QByteArray &block, const QString &owner, BlockFormat format,
                                             qint32 *result = nullptr)
{
    return format == BlockFormat::SavedState ? restoreModule(block, owner) : recompileModule(block, owner, result);
}

/// Changes a text as its 8-bit length and the local decoder do.
inline void carryText(QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    const bool beginsWithMark = text.startsWith(QChar::ByteOrderMark); // every decoder drops it
    if (bytes.size() > 255 || beginsWithMark) {
        text = QString::fromLocal8Bit(bytes.constData(), static_cast<quint8>(bytes.size()));
    }
}

/// Returns the sum of the bytes of @p value as signed bytes, each at its place.
inline quint32 joinedWithSigns(quint32 value)
{
    // A byte of 128 or more counts 256 less, which is 1 less in the byte before it.
    return value - ((value & 0x00808080U) << 1U);
}

/// Changes a table whose size does not match its count, because a later section had the count but not the bytes: the
/// reader takes the counted bytes, or none if there are fewer.
inline void carryTable(int channels, QByteArray &table)
{
    const int size = bitTableSize(channels);
    if (channels != 0) {
        table = table.size() < size ? QByteArray() : table.left(size);
    }
}

/// Sets the channel count of a range that is missing in the first block but not in the second.
inline void carryRange(quint32 moduleInfo, IoMap &range, qint32 (*channelCount)(quint32 moduleInfo))
{
    if (moduleInfo != 0 && range.area == 0) {
        range.count = static_cast<quint8>(channelCount(moduleInfo));
    }
}

/// With fewer channels than counted the writer omits both directions.
inline void carryAnalog(SimpleExtendPar &par)
{
    if (par.aiKind.size() < par.aiCount || par.aqKind.size() < par.aqCount) {
        par.aiCount = par.aqCount = 0;
    }
}

/// With more channels than counted, from several sections, all are written but only the counted ones are read.
inline void carryWeighing(SimpleExtendPar &par)
{
    QList<quint8> channels = par.weighPar.keys();
    std::sort(channels.begin(), channels.end());
    for (int i = par.weighCount; i < channels.size(); ++i) {
        par.weighPar.remove(channels.at(i));
    }
}

/// Returns @p par as a block of it is read back, with the known losses of the format; std::nullopt if the fields of
/// that block shift, so any values may result. The range length of double-word weighing modules depends on the format
/// but not on the number of round trips.
inline std::optional<SimpleExtendPar> carried(SimpleExtendPar par)
{
    const auto nameLength = static_cast<quint8>(par.objName.toLocal8Bit().size());
    if (joinedWithSigns(par.objId) != par.objId || nameLength > 127) {
        return std::nullopt;
    }
    carryText(par.objName);
    carryText(par.comment);
    par.position = {static_cast<int>(joinedWithSigns(static_cast<quint32>(par.position.x()))),
                    static_cast<int>(joinedWithSigns(static_cast<quint32>(par.position.y())))};
    carryRange(par.moduleInfo, par.inMap, getModuleDINum);
    carryRange(par.moduleInfo, par.outMap, getModuleDQNum);
    carryTable(par.diCount, par.diFilter);
    carryTable(par.dqCount, par.dqOutTbl);
    carryAnalog(par);
    carryWeighing(par);
    return par;
}

/// Writes @p par, which was rebuilt from a block, reads it and writes it again. Returns an error text; an empty string
/// if both blocks have the expected bytes.
inline QString roundTripFault(const SimpleExtendPar &par, BlockFormat format)
{
    const QByteArray first = write(par, format);
    const auto again = read(first, QString(), format);
    if (!again) {
        return QStringLiteral("its own block is rejected: %1").arg(first.toHex().constData());
    }
    const QByteArray second = write(*again, format);
    if (second == first) {
        return {};
    }
    const std::optional<SimpleExtendPar> expected = carried(par);
    if (!expected || second == write(*expected, format)) {
        return {};
    }
    return QStringLiteral("blocks differ:\n%1\n%2\nexpected\n%3")
        .arg(first.toHex().constData(), second.toHex().constData(), write(*expected, format).toHex().constData());
}

} // namespace blockcheck
