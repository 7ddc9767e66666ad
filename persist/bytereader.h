// Reads the bytes of a block and never reads beyond its end.
#pragma once

#include "baseservices.h"

#include <QByteArray>
#include <QString>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

/// A cursor over bytes that it does not own and that must outlive it. Numbers are big-endian.
///
/// A read beyond the end fails: it takes no bytes and leaves its target unchanged. All later reads fail, too, so a
/// caller can read a whole record and then check failed() once.
class ByteReader {
public:
    ByteReader(const char *bytes, int count) : m_at(bytes), m_left(count) {}
    explicit ByteReader(const QByteArray &bytes) : ByteReader(bytes.constData(), bytes.size()) {}

    int remaining() const { return m_left; }
    bool failed() const { return m_failed; }
    /// Returns a view of the unread bytes.
    std::string_view rest() const { return {m_at, static_cast<std::size_t>(m_left)}; }

    /// Returns a cursor over the next @p count bytes and steps over them.
    ByteReader sub(int count)
    {
        const char *bytes = take(count);
        return bytes == nullptr ? ByteReader(nullptr, 0) : ByteReader(bytes, count);
    }
    void skip(int count) { take(count); }

    void u8(quint8 &value) { number<quint8>(value); }
    void u16(quint16 &value) { number<quint16>(value); }
    void i16(qint16 &value) { number<qint16>(value); }
    void u32(quint32 &value) { number<quint32>(value); }
    /// Four bytes, each with its own sign: a byte of 128 and above borrows from the byte before it.
    void u32FromSignedBytes(quint32 &value)
    {
        if (const char *bytes = take(4)) {
            value = std::accumulate(bytes, bytes + 4, 0U, [](quint32 joined, char byte) {
                return (joined << 8U) + static_cast<quint32>(static_cast<qint8>(byte));
            });
        }
    }
    void f32(float &value)
    {
        if (const char *bytes = take(4)) {
            value = byteArrayToFloat(QByteArray::fromRawData(bytes, 4));
        }
    }
    /// One byte, which has a sign.
    template <typename Integer>
    void lowByteSigned(Integer &value)
    {
        number<qint8>(value);
    }
    /// One byte, which has no sign.
    template <typename Integer>
    void lowByte(Integer &value)
    {
        number<quint8>(value);
    }
    void raw(QByteArray &value, int count)
    {
        if (const char *bytes = take(count)) {
            value = QByteArray(bytes, count);
        }
    }
    template <std::size_t Size>
    void raw(std::array<quint8, Size> &value)
    {
        if (const char *bytes = take(static_cast<int>(Size))) {
            std::copy_n(bytes, Size, value.begin());
        }
    }
    /// A text in the local 8-bit encoding after its length byte, which has a sign: a negative length takes no bytes. A
    /// length beyond the end takes all bytes.
    void textSigned(QString &value) { textAfter<qint8>(value); }
    /// The same with a length byte without sign.
    void text(QString &value) { textAfter<quint8>(value); }

private:
    template <typename Stored, typename Value>
    void number(Value &value)
    {
        if (const char *bytes = take(static_cast<int>(sizeof(Stored)))) {
            value = static_cast<Value>(qFromBigEndian<Stored>(bytes));
        }
    }
    template <typename Length>
    void textAfter(QString &value)
    {
        Length length = 0;
        number<Length>(length);
        const int count = std::clamp<int>(length, 0, m_left);
        if (const char *bytes = take(count)) {
            value = QString::fromLocal8Bit(bytes, count);
        }
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
