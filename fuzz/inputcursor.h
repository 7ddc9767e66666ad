// Takes values from an input, for targets whose inputs describe steps instead of a file.
#pragma once

#include <QByteArray>
#include <QtEndian>

#include <utility>

namespace fuzz {

/// After the end of the input all numbers are 0 and all byte arrays are empty.
class InputCursor {
public:
    explicit InputCursor(QByteArray input) : m_rest(std::move(input)) {}

    bool atEnd() const { return m_rest.isEmpty(); }

    /// Takes a big-endian number.
    template <typename Number>
    Number number()
    {
        const QByteArray bytes = taken(static_cast<int>(sizeof(Number))).leftJustified(sizeof(Number), '\0');
        return qFromBigEndian<Number>(bytes.constData());
    }
    quint8 byte() { return number<quint8>(); }
    /// Takes a byte as a number from 0 to @p limit - 1.
    int below(int limit) { return byte() % limit; }
    /// Takes a length byte and that many bytes, or all that remain. Never null.
    QByteArray bytes() { return taken(byte()) + ""; }

private:
    QByteArray taken(int count)
    {
        QByteArray bytes = m_rest.left(count);
        m_rest = m_rest.mid(count);
        return bytes;
    }

    QByteArray m_rest;
};

} // namespace fuzz
