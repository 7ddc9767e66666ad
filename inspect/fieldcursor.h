// Reads like ByteReader, and notes down every field and the first one that is not there.
#pragma once

#include "blockdecoder.h"
#include "bytereader.h"
#include "fieldmeaning.h"

/// A cursor for the walks of blocklayout.h. Reading is ByteReader's alone, so that both see the same values.
class FieldCursor {
public:
    /// Reads @p reader, whose last byte lies in front of offset @p end, into the last part of @p block. Neither the
    /// bytes nor the block are owned. @p cutEffect says what it means when a field is missing.
    FieldCursor(ByteReader reader, int end, blockdecoder::DecodedBlock &block, QString cutEffect);

    /// From here on fields stand at @p place and their names begin with @p prefix.
    void enter(FieldPlace place, const QString &prefix);
    /// Signal family of the analog input whose fields follow.
    void setFamily(quint8 family) { m_family = family; }

    const ByteReader &reader() const { return m_reader; }
    int remaining() const { return m_reader.remaining(); }
    int offset() const { return m_end - m_reader.remaining(); }
    bool failed() const { return m_reader.failed(); }
    void setCutEffect(const QString &effect) { m_cutEffect = effect; }

    /// A cursor of its own over the next @p count bytes, of which that many must remain; this one steps over them.
    FieldCursor sub(int count);
    /// Takes all that remains as one field that nothing reads; does nothing where nothing remains.
    void takeRest(const QString &name, const QString &meaning);
    /// Notes a field that the bytes imply.
    void imply(const char *name, const QVariant &value, const QString &meaning);
    /// Says of the latest field what its name and value alone do not tell.
    void explain(const QString &meaning);
    /// Reports damage at @p offset; the first one counts, those behind it follow from it.
    void report(int offset, const char *name, const QString &expected, const QString &found, const QString &effect);

    void u8(const char *name, quint8 &value)
    {
        take(name, 1, value, [&] { m_reader.u8(name, value); });
    }
    void u16(const char *name, quint16 &value)
    {
        take(name, 2, value, [&] { m_reader.u16(name, value); });
    }
    void i16(const char *name, qint16 &value)
    {
        take(name, 2, value, [&] { m_reader.i16(name, value); });
    }
    void u32(const char *name, quint32 &value)
    {
        take(name, 4, value, [&] { m_reader.u32(name, value); });
    }
    void f32(const char *name, float &value)
    {
        take(name, 4, value, [&] { m_reader.f32(name, value); });
    }
    void u32FromSignedBytes(const char *name, quint32 &value);
    template <class Integer>
    void lowByteSigned(const char *name, Integer &value)
    {
        take(name, 1, value, [&] { m_reader.lowByteSigned(name, value); });
    }
    template <class Integer>
    void lowByte(const char *name, Integer &value)
    {
        take(name, 1, value, [&] { m_reader.lowByte(name, value); });
    }
    template <std::size_t Size>
    void raw(const char *name, std::array<quint8, Size> &value)
    {
        take(name, static_cast<int>(Size), value, [&] { m_reader.raw(name, value); });
    }
    void raw(const char *name, QByteArray &value, int count)
    {
        take(name, count, value, [&] { m_reader.raw(name, value, count); });
    }
    void textSigned(const char *name, QString &value);
    void text(const char *name, QString &value);

private:
    template <class Integer>
    static QVariant toVariant(const Integer &value)
    {
        return static_cast<qlonglong>(value);
    }
    static QVariant toVariant(float value) { return static_cast<double>(value); }
    static QVariant toVariant(const QByteArray &value) { return value; }
    static QVariant toVariant(const QString &value) { return value; }
    template <std::size_t Size>
    static QVariant toVariant(const std::array<quint8, Size> &value)
    {
        return QByteArray(reinterpret_cast<const char *>(value.data()), static_cast<int>(Size));
    }

    template <class Value, class Read>
    void take(const char *name, int size, Value &value, Read read)
    {
        const int at = offset();
        const QByteArray bytes = ahead(size);
        read();
        if (failed()) {
            reportCut(name, size);
        } else {
            add(at, bytes, name, toVariant(value));
        }
    }
    /// A copy of the next bytes; of fewer where fewer remain.
    QByteArray ahead(int count) const;
    void textBehind(const char *name, int length, QString &value, void (ByteReader::*read)(const char *, QString &));
    void reportCut(const char *name, int size);
    void add(int at, const QByteArray &bytes, const char *name, const QVariant &value);
    QVector<blockdecoder::Field> &fields() { return m_block->parts.last().fields; }

    ByteReader m_reader;
    int m_end;
    blockdecoder::DecodedBlock *m_block;
    QString m_cutEffect;
    FieldPlace m_place = FieldPlace::Frame;
    QString m_prefix;
    quint8 m_family = 0;
    bool m_damaged = false;
};
