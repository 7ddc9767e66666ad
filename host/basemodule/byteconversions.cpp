#include "baseservices.h"

#include <QtEndian>

#include <cstring>

namespace {

template <typename T>
QByteArray bigEndianBytes(T value)
{
    QByteArray bytes(static_cast<int>(sizeof(T)), Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// Returns 0 if there are fewer than four bytes.
quint32 firstFourBytes(const QByteArray &bytes)
{
    return bytes.size() < static_cast<int>(sizeof(quint32)) ? 0 : qFromBigEndian<quint32>(bytes.constData());
}

} // namespace

static_assert(sizeof(float) == sizeof(quint32), "a float is transferred as four bytes");

QByteArray intToByteArray(qint32 value)
{
    return bigEndianBytes(value);
}

QByteArray shortToByteArray(qint16 value)
{
    return bigEndianBytes(value);
}

QByteArray ushortToByteArray(quint16 value)
{
    return bigEndianBytes(value);
}

QByteArray floatToByteArray(float value)
{
    quint32 image = 0;
    std::memcpy(&image, &value, sizeof image);
    return bigEndianBytes(image);
}

qint32 byteArrayToInt(const QByteArray &bytes)
{
    return static_cast<qint32>(firstFourBytes(bytes));
}

float byteArrayToFloat(const QByteArray &bytes)
{
    const quint32 image = firstFourBytes(bytes);
    float value = 0.0F;
    std::memcpy(&value, &image, sizeof value);
    return value;
}

QString byteArryDataToString(const QByteArray &data, const QString &separator)
{
    QString digits = QString::fromLatin1(data.toHex().toUpper());
    if (separator.isEmpty()) {
        return digits;
    }
    QString text;
    text.reserve(data.size() * (2 + separator.size()));
    for (int i = 0; i < digits.size(); i += 2) {
        if (i > 0) {
            text += separator;
        }
        text += digits.midRef(i, 2);
    }
    return text;
}
