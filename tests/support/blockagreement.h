// Compares what the decoder and the plug-in read from a block.
#pragma once

#include "blockdecoder.h"
#include "blocklayout.h"
#include "digitalbits.h"

#include <QMap>
#include <QMetaType>

#include <cmath>

Q_DECLARE_METATYPE(BlockFormat)

namespace blockdecoder {

/// Decodes a saved state or the first configuration block.
inline DecodedBlock decodeFirst(const QByteArray &bytes, BlockFormat format)
{
    return format == BlockFormat::SavedState ? decodeSavedState(bytes) : decodeConfiguration(bytes).constFirst();
}

/// The values of a record under the decoder's field names. A cursor for the walks of blocklayout.h, as a writer is.
class RecordFields {
public:
    RecordFields(const SimpleExtendPar &par, BlockFormat format)
    {
        u32("header.objId", par.objId);
        blocklayout::walkHeader(enter("header."), par, format);
        quint8 noLength = 0; // the length of a range is not in the record
        blocklayout::walkRange(enter("header.inMap."), par.inMap, noLength);
        blocklayout::walkRange(enter("header.outMap."), par.outMap, noLength);
        enter("header.").raw("intEnableTbl", par.intEnableTbl);
        enter("");
        u8("digitalInput.count", par.diCount);
        u8("digitalOutput.count", par.dqCount);
        u8("digitalOutput.dqMode", par.dqMode);
        u8("analogInput.count", par.aiCount);
        u8("analogOutput.count", par.aqCount);
        u8("weighing.count", par.weighCount);
        putTables(par);
        putChannels(par);
    }

    const QMap<QString, QVariant> &values() const { return m_values; }

    void u8(const char *name, qlonglong value) { put(name, value); }
    void u16(const char *name, qlonglong value) { put(name, value); }
    void i16(const char *name, qlonglong value) { put(name, value); }
    void u32(const char *name, qlonglong value) { put(name, value); }
    void u32FromSignedBytes(const char *name, quint32 value) { put(name, qlonglong{value}); }
    void f32(const char *name, double value) { put(name, value); }
    void lowByte(const char *name, qlonglong value) { put(name, value); }
    void lowByteSigned(const char *name, qlonglong value) { put(name, value); }
    void text(const char *name, const QString &value) { put(name, value); }
    void textSigned(const char *name, const QString &value) { text(name, value); }
    template <std::size_t Size>
    void raw(const char *name, const std::array<quint8, Size> &value)
    {
        put(name, QByteArray(reinterpret_cast<const char *>(value.data()), static_cast<int>(Size)));
    }

private:
    RecordFields &enter(const QString &prefix)
    {
        m_prefix = prefix;
        return *this;
    }
    RecordFields &enterChannel(const char *list, quint8 channel)
    {
        enter(QStringLiteral("%1[%2].").arg(QLatin1String(list)).arg(channel));
        u8("channel", channel);
        return *this;
    }
    void put(const char *name, const QVariant &value) { m_values[m_prefix + QLatin1String(name)] = value; }
    void putElement(const char *table, int index, qlonglong value)
    {
        m_values[QStringLiteral("%1[%2]").arg(QLatin1String(table)).arg(index)] = value;
    }

    void putTables(const SimpleExtendPar &par)
    {
        for (int row = 0; row < 2 * par.diFilter.size(); ++row) {
            putElement("digitalInput.diFilter", row, *filterCode(par.diFilter, row));
        }
        for (int i = 0; i < par.dqOutTbl.size(); ++i) {
            putElement("digitalOutput.dqOutTbl", i, static_cast<quint8>(par.dqOutTbl.at(i)));
        }
    }

    void putChannels(const SimpleExtendPar &par)
    {
        for (auto kind = par.aiKind.cbegin(); kind != par.aiKind.cend(); ++kind) {
            enterChannel("analogInput", kind.key()).u8("family", kind.value());
            const AiFilter filter = par.aiFilter.value(kind.key());
            const AiRange range = par.aiRange.value(kind.key());
            blocklayout::walkAnalogInput(*this, kind.value(), filter, range);
        }
        for (auto kind = par.aqKind.cbegin(); kind != par.aqKind.cend(); ++kind) {
            enterChannel("analogOutput", kind.key()).u8("family", kind.value());
            const AqOutTbl stop = par.aqOutTbl.value(kind.key());
            const AqOutType type = par.aqOutType.value(kind.key());
            blocklayout::walkAnalogOutput(*this, stop, type);
        }
        for (auto entry = par.weighPar.cbegin(); entry != par.weighPar.cend(); ++entry) {
            blocklayout::walkWeighing(enterChannel("weighing", entry.key()), entry.value());
        }
    }

    QString m_prefix;
    QMap<QString, QVariant> m_values;
};

/// Returns the name of the first stored field whose value differs in @p par, which was rebuilt from the same block, or
/// of the first channel that only @p par has; an empty string if decoder and plug-in agree.
inline QString disagreement(const DecodedBlock &block, const SimpleExtendPar &par, BlockFormat format)
{
    const auto isSame = [](const QVariant &left, const QVariant &right) {
        const bool areDoubles = left.type() == QVariant::Double && right.type() == QVariant::Double;
        return left == right || (areDoubles && std::isnan(left.toDouble()) && std::isnan(right.toDouble()));
    };
    QMap<QString, QVariant> values = RecordFields(par, format).values();
    for (const Part &part : block.parts) {
        for (const Field &field : part.fields) {
            if (field.stored && !isSame(values.take(field.name), field.value)) {
                return field.name;
            }
        }
    }
    // The catalog may have set other values, but channels and table entries come only from the block.
    for (auto left = values.cbegin(); left != values.cend(); ++left) {
        if (left.key().contains(QLatin1Char('['))) {
            return left.key();
        }
    }
    return {};
}

} // namespace blockdecoder
