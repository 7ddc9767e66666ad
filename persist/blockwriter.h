// Appends fields to a block through the host's byte conversions; the counterpart of ByteReader.
#pragma once

#include "baseservices.h"

#include <QByteArray>
#include <QString>

#include <array>

/// Writes behind what @p out already holds; does not own it. Numbers are big-endian. The names of the fields are those
/// that the readers know.
class BlockWriter {
public:
    explicit BlockWriter(QByteArray &out) : m_out(out) {}

    /// Where the next byte goes: a mark for truncate, endLength and writtenSince.
    int mark() const { return m_out.size(); }
    void truncate(int mark) { m_out.truncate(mark); }
    /// The bytes from @p mark on; shares them, so it must not outlive the next write.
    QByteArray writtenSince(int mark) const
    {
        return QByteArray::fromRawData(m_out.constData() + mark, m_out.size() - mark);
    }

    /// Leaves room for a 32-bit length that endLength fills in.
    int beginLength()
    {
        const int lengthMark = mark();
        m_out.append(4, 0);
        return lengthMark;
    }
    /// The length counts its own four bytes.
    void endLength(int lengthMark) { m_out.replace(lengthMark, 4, intToByteArray(mark() - lengthMark)); }

    void u8(const char * /*name*/, quint8 value) { m_out.append(static_cast<char>(value)); }
    void u16(const char * /*name*/, quint16 value) { m_out.append(ushortToByteArray(value)); }
    void i16(const char * /*name*/, qint16 value) { m_out.append(shortToByteArray(value)); }
    void u32(const char * /*name*/, quint32 value) { m_out.append(intToByteArray(static_cast<qint32>(value))); }
    void f32(const char * /*name*/, float value) { m_out.append(floatToByteArray(value)); }
    // The readers join these bytes with their signs; the writer has nothing to decide.
    void u32FromSignedBytes(const char *name, quint32 value) { u32(name, value); }
    /// The low 8 bits; which of the two the walk names decides whether they come back with a sign.
    template <class Integer>
    void lowByte(const char *name, Integer value)
    {
        u8(name, static_cast<quint8>(value));
    }
    template <class Integer>
    void lowByteSigned(const char *name, Integer value)
    {
        u8(name, static_cast<quint8>(value));
    }
    /// The text in the local 8-bit encoding behind its length byte, cut to what that byte tells: the low 8 bits.
    void text(const char *name, const QString &value)
    {
        const QByteArray bytes = value.toLocal8Bit();
        const auto length = static_cast<quint8>(bytes.size());
        u8(name, length);
        raw(name, bytes.left(length));
    }
    void textSigned(const char *name, const QString &value) { text(name, value); }
    void raw(const char * /*name*/, const QByteArray &value) { m_out.append(value); }
    template <std::size_t Size>
    void raw(const char *name, const std::array<quint8, Size> &value)
    {
        for (const quint8 byte : value) {
            u8(name, byte);
        }
    }

private:
    QByteArray &m_out;
};
