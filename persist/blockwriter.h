// Appends fields to a block through the host's byte conversions; the counterpart of ByteReader.
#pragma once

#include "baseservices.h"

#include <QByteArray>

#include <array>

/// Writes behind what @p out already holds; does not own it. Numbers are big-endian.
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
        u32(0);
        return lengthMark;
    }
    /// The length counts its own four bytes.
    void endLength(int lengthMark) { m_out.replace(lengthMark, 4, intToByteArray(mark() - lengthMark)); }

    void u8(quint8 value) { m_out.append(static_cast<char>(value)); }
    void u16(quint16 value) { m_out.append(ushortToByteArray(value)); }
    void i16(qint16 value) { m_out.append(shortToByteArray(value)); }
    void u32(quint32 value) { m_out.append(intToByteArray(static_cast<qint32>(value))); }
    void f32(float value) { m_out.append(floatToByteArray(value)); }
    /// The low 8 bits; which of the two the reader takes decides whether they come back with a sign.
    template <class Integer>
    void lowByte(Integer value)
    {
        u8(static_cast<quint8>(value));
    }
    template <class Integer>
    void lowByteSigned(Integer value)
    {
        u8(static_cast<quint8>(value));
    }
    void raw(const QByteArray &value) { m_out.append(value); }
    template <std::size_t Size>
    void raw(const std::array<quint8, Size> &value)
    {
        for (const quint8 byte : value)
            u8(byte);
    }

private:
    QByteArray &m_out;
};
