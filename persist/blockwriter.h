// Appends fields to a block through the host's byte conversions; the counterpart of ByteReader.
#pragma once

#include "baseservices.h"
#include "bytereader.h"

#include <QByteArray>
#include <QString>
#include <QVarLengthArray>

#include <algorithm>
#include <array>

/// Collects the bytes of a block; numbers are big-endian. The names of the fields are those that the readers know.
class BlockWriter {
public:
    const char *bytes() const { return m_bytes.constData(); }
    int size() const { return m_bytes.size(); }

    /// Where the next byte goes: a mark for truncate, patch, endLength and writtenSince.
    int mark() const { return size(); }
    void truncate(int mark) { m_bytes.resize(mark); }
    /// Replaces a byte that is there already.
    void patch(int mark, quint8 value) { m_bytes[mark] = static_cast<char>(value); }
    /// The bytes from @p mark on; shares them, so it must not outlive the next write.
    ByteReader writtenSince(int mark) const { return {bytes() + mark, size() - mark}; }

    /// Leaves room for a 32-bit length that endLength fills in.
    int beginLength()
    {
        const int lengthMark = mark();
        m_bytes.resize(lengthMark + 4);
        return lengthMark;
    }
    /// The length counts its own four bytes.
    void endLength(int lengthMark)
    {
        const QByteArray length = intToByteArray(mark() - lengthMark);
        std::copy_n(length.constData(), 4, m_bytes.begin() + lengthMark);
    }

    void u8(const char * /*name*/, quint8 value) { m_bytes.append(static_cast<char>(value)); }
    void u16(const char * /*name*/, quint16 value) { append(ushortToByteArray(value)); }
    void i16(const char * /*name*/, qint16 value) { append(shortToByteArray(value)); }
    void u32(const char * /*name*/, quint32 value) { append(intToByteArray(static_cast<qint32>(value))); }
    void f32(const char * /*name*/, float value) { append(floatToByteArray(value)); }
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
    void raw(const char * /*name*/, const QByteArray &value) { append(value); }
    template <std::size_t Size>
    void raw(const char * /*name*/, const std::array<quint8, Size> &value)
    {
        m_bytes.append(reinterpret_cast<const char *>(value.data()), static_cast<int>(Size));
    }

private:
    void append(const QByteArray &value) { m_bytes.append(value.constData(), value.size()); }

    QVarLengthArray<char, 1024> m_bytes; ///< what most modules need, on the stack
};
