#include "fieldcursor.h"

#include <algorithm>
#include <iterator>

using blockdecoder::Field;

namespace {

/// Returns true for fields that structure the block and are not part of a module.
bool isFraming(FieldPlace place, const char *name)
{
    constexpr const char *names[] = {"length", "constant", "marker", "reservBytes", "recordLength"};
    return place == FieldPlace::Frame || std::any_of(std::begin(names), std::end(names), [name](const char *framing) {
               return qstrcmp(framing, name) == 0;
           });
}

QString byteCount(int count)
{
    return count == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(count);
}

} // namespace

FieldCursor::FieldCursor(const QByteArray &bytes, int begin, blockdecoder::DecodedBlock &block, QString cutEffect)
    : m_bytes(bytes), m_at(begin), m_end(bytes.size()), m_block(&block), m_cutEffect(std::move(cutEffect))
{
}

void FieldCursor::enter(FieldPlace place, const QString &prefix)
{
    m_place = place;
    m_prefix = prefix;
}

FieldCursor FieldCursor::sub(int count)
{
    FieldCursor part(m_bytes, m_at, *m_block, m_cutEffect);
    m_at += count;
    part.m_end = m_at;
    return part;
}

std::optional<QByteArray> FieldCursor::take(const char *name, int count)
{
    if (m_failed || count > remaining()) {
        m_failed = true;
        report(m_at, name, byteCount(count), remaining() == 0 ? QStringLiteral("the end") : byteCount(remaining()),
               m_cutEffect);
        return std::nullopt;
    }
    m_at += count;
    return QByteArray(m_bytes.constData() + m_at - count, count);
}

void FieldCursor::takeRest(const QString &name, const QString &meaning)
{
    if (remaining() == 0) {
        return;
    }
    const QByteArray bytes(m_bytes.constData() + m_at, remaining());
    fields() += Field{m_at, bytes, name, bytes, meaning, false};
    m_at = m_end;
}

void FieldCursor::imply(const char *name, const QVariant &value, const QString &meaning)
{
    fields() += Field{offset(), QByteArray(), m_prefix + QLatin1String(name), value, meaning, true};
}

void FieldCursor::explain(const QString &meaning)
{
    QString &text = fields().last().meaning;
    text = text.isEmpty() ? meaning : text + QStringLiteral("; ") + meaning;
}

void FieldCursor::report(int offset, const char *name, const QString &expected, const QString &found,
                         const QString &effect)
{
    if (m_damaged) {
        return;
    }
    m_damaged = true;
    m_block->damages += {offset, m_prefix + QLatin1String(name), expected, found, effect};
}

void FieldCursor::u32FromSignedBytes(const char *name, quint32 &value)
{
    const std::optional<QByteArray> bytes = take(name, 4);
    if (!bytes) {
        return;
    }
    value = 0;
    for (const char byte : *bytes) {
        value = (value << 8U) + static_cast<quint32>(static_cast<qint8>(byte));
    }
    add(*bytes, name, toVariant(value));
    if (value != qFromBigEndian<quint32>(bytes->constData())) {
        explain(QStringLiteral("reads back changed: each byte has a sign"));
    }
}

void FieldCursor::takeText(const char *name, int length, QString &value)
{
    const int at = m_at;
    const std::optional<QByteArray> lengthByte = take(name, 1);
    if (!lengthByte) {
        return;
    }
    const QString lengthName = m_prefix + QLatin1String(name) + QStringLiteral(".length");
    fields() += Field{at, *lengthByte, lengthName, static_cast<qlonglong>(length), QString(), false};
    const int left = remaining();
    const QByteArray bytes = take(name, qBound(0, length, left)).value_or(QByteArray());
    value = QString::fromLocal8Bit(bytes.constData(), bytes.size());
    add(bytes, name, value);
    if (length < 0) {
        report(at, name, QStringLiteral("at most 127 bytes of text"), QString::number(length + 256),
               QStringLiteral("the length reads as %1: no text is taken, and its bytes are read as the next fields")
                   .arg(length));
    } else if (length > left) {
        report(at, name, byteCount(length) + QStringLiteral(" of text"), byteCount(left),
               QStringLiteral("the text is truncated, and all later fields keep the catalog's values"));
    }
}

void FieldCursor::add(const QByteArray &bytes, const char *name, const QVariant &value)
{
    const bool isNumber = value.type() == QVariant::LongLong || value.type() == QVariant::Double;
    fields() += Field{m_at - bytes.size(),
                      bytes,
                      m_prefix + QLatin1String(name),
                      value,
                      isNumber ? fieldMeaning(m_place, m_family, name, value.toDouble()) : QString(),
                      !isFraming(m_place, name)};
}
