// Reads a block field by field and records each field, and the first one that is missing.
#pragma once

#include "blockdecoder.h"
#include "fieldmeaning.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>

/// A bounded cursor over bytes, for the walks of blocklayout.h. Numbers are big-endian.
///
/// A read beyond the end fails: it takes no bytes, leaves its target unchanged and reports damage. All later reads
/// fail.
class FieldCursor {
public:
    /// Reads @p bytes from the offset @p begin to their end and adds the fields to the last part of @p block, which the
    /// caller owns. @p cutEffect is the effect of a missing field on the module.
    FieldCursor(const QByteArray &bytes, int begin, blockdecoder::DecodedBlock &block, QString cutEffect);

    /// Sets place and name prefix of the fields that follow.
    void enter(FieldPlace place, const QString &prefix);
    /// Sets the signal family of the analog input whose fields follow.
    void setFamily(quint8 family) { m_family = family; }
    void setCutEffect(const QString &effect) { m_cutEffect = effect; }

    int remaining() const { return m_end - m_at; }
    int offset() const { return m_at; }
    bool failed() const { return m_failed; }

    /// Returns the number @p ahead bytes from here without taking it; std::nullopt beyond the end.
    template <typename Number>
    std::optional<Number> peek(int ahead = 0) const
    {
        if (remaining() < ahead + static_cast<int>(sizeof(Number))) {
            return std::nullopt;
        }
        return qFromBigEndian<Number>(m_bytes.constData() + m_at + ahead);
    }

    /// Returns a cursor over the next @p count bytes, of which that many must remain, and steps over them. It reports
    /// its own first damage.
    FieldCursor sub(int count);
    /// Returns a copy of the next @p count bytes and steps over them without a field; std::nullopt if the read fails.
    std::optional<QByteArray> take(const char *name, int count);
    /// Records all remaining bytes as one field that is not stored; no-op if none remain.
    void takeRest(const QString &name, const QString &meaning);
    /// Records a field that the bytes imply.
    void imply(const char *name, const QVariant &value, const QString &meaning);
    /// Adds to the meaning of the latest field.
    void explain(const QString &meaning);
    /// Reports damage at @p offset. Only the first report has an effect, because later ones are its consequences.
    void report(int offset, const char *name, const QString &expected, const QString &found, const QString &effect);

    void u8(const char *name, quint8 &value) { number<quint8>(name, value); }
    void u16(const char *name, quint16 &value) { number<quint16>(name, value); }
    void i16(const char *name, qint16 &value) { number<qint16>(name, value); }
    void u32(const char *name, quint32 &value) { number<quint32>(name, value); }
    void f32(const char *name, float &value) { number<float>(name, value); }
    template <typename Integer>
    void lowByteSigned(const char *name, Integer &value)
    {
        number<qint8>(name, value);
    }
    template <typename Integer>
    void lowByte(const char *name, Integer &value)
    {
        number<quint8>(name, value);
    }
    /// Joins four bytes, each with its sign.
    void u32FromSignedBytes(const char *name, quint32 &value);
    template <std::size_t Size>
    void raw(const char *name, std::array<quint8, Size> &value)
    {
        if (const std::optional<QByteArray> bytes = take(name, static_cast<int>(Size))) {
            std::copy_n(bytes->cbegin(), Size, value.begin());
            add(*bytes, name, *bytes);
        }
    }
    /// A text in the local 8-bit encoding after its length byte, which is signed: a negative length takes no bytes. A
    /// length beyond the end takes all bytes.
    void textSigned(const char *name, QString &value) { takeText(name, peek<qint8>().value_or(0), value); }
    /// The same with an unsigned length byte.
    void text(const char *name, QString &value) { takeText(name, peek<quint8>().value_or(0), value); }

private:
    template <typename Stored, typename Value>
    void number(const char *name, Value &value)
    {
        if (const std::optional<QByteArray> bytes = take(name, static_cast<int>(sizeof(Stored)))) {
            value = static_cast<Value>(qFromBigEndian<Stored>(bytes->constData()));
            add(*bytes, name, toVariant(value));
        }
    }
    template <typename Integer>
    static QVariant toVariant(Integer value)
    {
        return static_cast<qlonglong>(value);
    }
    static QVariant toVariant(float value) { return static_cast<double>(value); }

    void takeText(const char *name, int length, QString &value);
    /// Records the field whose last byte was taken last.
    void add(const QByteArray &bytes, const char *name, const QVariant &value);
    QVector<blockdecoder::Field> &fields() { return m_block->parts.last().fields; }

    QByteArray m_bytes;
    int m_at;
    int m_end;
    bool m_failed = false;
    blockdecoder::DecodedBlock *m_block;
    QString m_cutEffect;
    FieldPlace m_place = FieldPlace::Frame;
    QString m_prefix;
    quint8 m_family = 0;
    bool m_damaged = false;
};
