// Appends numbers and texts to a block by the host's byte conversions.
#pragma once

#include "baseservices.h"

#include <QByteArray>
#include <QString>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <string_view>

/// Collects the bytes of a block. Numbers are big-endian.
class BlockWriter {
public:
    /// Returns the offset of the next byte.
    int mark() const { return m_bytes.size(); }
    /// Returns a view of the bytes from @p mark on, which the next write invalidates.
    std::string_view since(int mark) const
    {
        return {m_bytes.constData() + mark, static_cast<std::size_t>(m_bytes.size() - mark)};
    }
    void truncate(int mark) { m_bytes.resize(mark); }

    /// Appends @p count bytes without a value, which patch() must fill in. Returns the mark of the first one.
    int reserve(int count)
    {
        const int at = mark();
        m_bytes.resize(at + count);
        return at;
    }
    /// Replaces bytes from @p mark on, which must exist.
    void patch(int mark, const QByteArray &bytes) { std::copy(bytes.cbegin(), bytes.cend(), m_bytes.begin() + mark); }
    void patch(int mark, quint8 value) { m_bytes[mark] = static_cast<char>(value); }

    /// Appends a 32-bit length, which endLength() fills in. Returns its mark.
    int beginLength() { return reserve(4); }
    /// The length includes its own four bytes.
    void endLength(int lengthMark) { patch(lengthMark, intToByteArray(mark() - lengthMark)); }

    void u8(quint8 value) { m_bytes.append(static_cast<char>(value)); }
    void u16(quint16 value) { raw(ushortToByteArray(value)); }
    void i16(qint16 value) { raw(shortToByteArray(value)); }
    void u32(quint32 value) { raw(intToByteArray(static_cast<qint32>(value))); }
    void f32(float value) { raw(floatToByteArray(value)); }
    // Signs matter to readers only. The writer stores the same bytes for both.
    void u32FromSignedBytes(quint32 value) { u32(value); }
    template <typename Integer>
    void lowByte(Integer value)
    {
        u8(static_cast<quint8>(value));
    }
    template <typename Integer>
    void lowByteSigned(Integer value)
    {
        u8(static_cast<quint8>(value));
    }
    /// The text in the local 8-bit encoding after its length byte. The text is truncated to its length modulo 256.
    void text(const QString &value)
    {
        const QByteArray bytes = value.toLocal8Bit();
        const auto length = static_cast<quint8>(bytes.size());
        u8(length);
        m_bytes.append(bytes.constData(), length);
    }
    void textSigned(const QString &value) { text(value); }
    void raw(const QByteArray &value) { m_bytes.append(value.constData(), value.size()); }
    template <std::size_t Size>
    void raw(const std::array<quint8, Size> &value)
    {
        m_bytes.append(reinterpret_cast<const char *>(value.data()), static_cast<int>(Size));
    }

private:
    QVarLengthArray<char, 1024> m_bytes; ///< on the stack for most modules
};
