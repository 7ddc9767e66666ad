// Builds blocks field by field, with wrong counts and lengths where a test needs them.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QtEndian>

namespace blockbuilder {

/// Returns the bytes of a hexadecimal text, which may contain spaces.
inline QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

inline QByteArray be32(quint32 value)
{
    QByteArray bytes(4, 0);
    qToBigEndian(value, bytes.data());
    return bytes;
}

constexpr qint64 correct = -1; ///< in place of a count or length: the correct one

inline quint32 lengthOf(const QByteArray &body, qint64 declared)
{
    return declared == correct ? static_cast<quint32>(body.size() + 8) : static_cast<quint32>(declared);
}

inline QByteArray header(const QByteArray &fields, qint64 length = correct)
{
    return be32(lengthOf(fields, length)) + hex("00020000") + fields;
}

inline QByteArray section(char type, const QByteArray &body, qint64 length = correct)
{
    return be32(lengthOf(body, length)) + (type == 18 ? '\1' : '\0') + type + QByteArray(2, 0) + body;
}

inline QByteArray block(const QByteArray &header, const QByteArrayList &sections = {}, int count = correct)
{
    QByteArray bytes;
    bytes += static_cast<char>(count == correct ? sections.size() + 1 : count);
    bytes += header;
    bytes += sections.join();
    return bytes;
}

} // namespace blockbuilder
