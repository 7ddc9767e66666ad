// What must hold for every module that was rebuilt from a block, whatever the bytes; for the fuzz targets and the
// tests.
#pragma once

#include "baseservices.h"
#include "blocklayout.h"
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

/// Text as its length byte of 8 bits and the local decoder leave it.
inline void carryText(QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    const bool beginsWithMark = text.startsWith(QChar::ByteOrderMark); // which every decoder takes for its own
    if (bytes.size() > 255 || beginsWithMark) {
        text = QString::fromLocal8Bit(bytes.constData(), static_cast<quint8>(bytes.size()));
    }
}

/// The number that the bytes of @p value, each with its sign, make.
inline quint32 joinedWithSigns(quint32 value)
{
    // A byte of 128 and above counts 256 less, which is 1 less in the byte before it.
    return value - ((value & 0x00808080U) << 1U);
}

/// A table whose size is not its count's, left behind when a later section brings a count but not the bytes for it:
/// the reader takes what is counted, or nothing where there is less.
inline void carryTable(int channels, QByteArray &table)
{
    const int size = blocklayout::bitTableSize(channels);
    if (channels != 0) {
        table = table.size() < size ? QByteArray() : table.left(size);
    }
}

/// The host counts the channels of a range that the first block ended in front of when the second, which has it, is
/// read.
inline void carryRange(quint32 moduleInfo, IoMap &range, qint32 (*channelCount)(quint32 moduleInfo))
{
    if (moduleInfo != 0 && range.area == 0) {
        range.count = static_cast<quint8>(channelCount(moduleInfo));
    }
}

/// Fewer channels than counted: the writer gives up on both directions.
inline void carryAnalog(SimpleExtendPar &par)
{
    if (par.aiKind.size() < par.aiCount || par.aqKind.size() < par.aqCount) {
        par.aiCount = par.aqCount = 0;
    }
}

/// More channels than counted, gathered over several sections: all are written, the counted ones read.
inline void carryWeighing(SimpleExtendPar &par)
{
    QList<quint8> channels = par.weighPar.keys();
    std::sort(channels.begin(), channels.end());
    for (int i = par.weighCount; i < channels.size(); ++i) {
        par.weighPar.remove(channels.at(i));
    }
}

/// The module that a block of @p par brings back, where that differs from @p par in what the format is known not to
/// carry; nothing where the block's fields shift, so that anything may come back. The range length of double-word
/// weighing modules, which the two formats count differently, is the same in two blocks of one format.
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

/// Saves @p par, which was rebuilt from a block, rebuilds that and saves it again: empty, or what is wrong.
inline QString roundTripFault(const SimpleExtendPar &par, BlockFormat format)
{
    const QByteArray first = write(par, format);
    const auto again = read(first, QString(), format);
    if (!again) {
        return QStringLiteral("its own block is refused: %1").arg(first.toHex().constData());
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
