// Reads a block field by field and never past its end.
#pragma once

#include "baseservices.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>

/// A cursor over bytes that it does not own; they must outlive it. Multi-byte numbers are big-endian. The names of the
/// fields are for cursors that show what they read; this one has no use for them.
///
/// A read that wants more bytes than remain fails: it takes nothing and leaves its target as it is. Every read after
/// it fails too, so a caller reads a whole record and asks failed() once.
class ByteReader {
public:
    ByteReader(const char *bytes, int count) : m_at(bytes), m_left(count) {}
    explicit ByteReader(const QByteArray &bytes) : ByteReader(bytes.constData(), bytes.size()) {}

    int remaining() const { return m_left; }
    bool failed() const { return m_failed; }
    /// What has not been read yet; shares the bytes, so it must not outlive them.
    QByteArray rest() const { return QByteArray::fromRawData(m_at, m_left); }

    /// A cursor over the next @p count bytes alone, which this one steps over.
    ByteReader sub(int count)
    {
        const char *bytes = take(count);
        return bytes == nullptr ? ByteReader(nullptr, 0) : ByteReader(bytes, count);
    }
    void skip(int count) { take(count); }

    void u8(const char * /*name*/, quint8 &value)
    {
        if (const char *bytes = take(1)) {
            value = static_cast<quint8>(*bytes);
        }
    }
    void u16(const char * /*name*/, quint16 &value)
    {
        if (const char *bytes = take(2)) {
            value = static_cast<quint16>(joinUnsigned(bytes, 2));
        }
    }
    void i16(const char * /*name*/, qint16 &value)
    {
        if (const char *bytes = take(2)) {
            value = static_cast<qint16>(joinUnsigned(bytes, 2));
        }
    }
    void u32(const char * /*name*/, quint32 &value)
    {
        if (const char *bytes = take(4)) {
            value = joinUnsigned(bytes, 4);
        }
    }
    /// Four bytes, each counted with its own sign: a byte of 128 and above borrows from the one before it.
    void u32FromSignedBytes(const char * /*name*/, quint32 &value)
    {
        const char *bytes = take(4);
        if (bytes == nullptr) {
            return;
        }
        quint32 joined = 0;
        for (int i = 0; i < 4; ++i) {
            joined = (joined << 8U) + static_cast<quint32>(static_cast<qint8>(bytes[i]));
        }
        value = joined;
    }
    void f32(const char * /*name*/, float &value)
    {
        if (const char *bytes = take(4)) {
            value = byteArrayToFloat(QByteArray::fromRawData(bytes, 4));
        }
    }
    /// One byte with its sign.
    template <class Integer>
    void lowByteSigned(const char * /*name*/, Integer &value)
    {
        if (const char *bytes = take(1)) {
            value = static_cast<Integer>(static_cast<qint8>(*bytes));
        }
    }
    /// One byte without sign.
    template <class Integer>
    void lowByte(const char * /*name*/, Integer &value)
    {
        if (const char *bytes = take(1)) {
            value = static_cast<Integer>(static_cast<quint8>(*bytes));
        }
    }
    void raw(const char * /*name*/, QByteArray &value, int count)
    {
        if (const char *bytes = take(count)) {
            value = QByteArray(bytes, count);
        }
    }
    template <std::size_t Size>
    void raw(const char * /*name*/, std::array<quint8, Size> &value)
    {
        if (const char *bytes = take(static_cast<int>(Size))) {
            std::copy_n(bytes, Size, value.begin());
        }
    }
    /// A text in the local 8-bit encoding behind its length byte, which has a sign: a negative length takes no bytes.
    /// A length beyond the end takes what is left.
    void textSigned(const char *name, QString &value) { text(static_cast<qint8>(lengthByte(name)), value); }
    /// The same, the length byte without sign.
    void text(const char *name, QString &value) { text(lengthByte(name), value); }

private:
    quint8 lengthByte(const char *name)
    {
        quint8 length = 0;
        u8(name, length);
        return length;
    }
    void text(int length, QString &value)
    {
        const int count = std::clamp(length, 0, m_left);
        if (const char *bytes = take(count)) {
            value = QString::fromLocal8Bit(bytes, count);
        }
    }

    static quint32 joinUnsigned(const char *bytes, int count)
    {
        quint32 joined = 0;
        for (int i = 0; i < count; ++i) {
            joined = (joined << 8U) | static_cast<quint8>(bytes[i]);
        }
        return joined;
    }

    const char *take(int count)
    {
        if (m_failed || count < 0 || count > m_left) {
            m_failed = true;
            return nullptr;
        }
        const char *bytes = m_at;
        m_at += count;
        m_left -= count;
        return bytes;
    }

    const char *m_at;
    int m_left;
    bool m_failed = false;
};
