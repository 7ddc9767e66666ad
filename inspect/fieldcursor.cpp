#include "fieldcursor.h"

#include <algorithm>
#include <iterator>

using blockdecoder::Field;

namespace {

/// What serves the block alone and reaches no module.
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

FieldCursor::FieldCursor(ByteReader reader, int end, blockdecoder::DecodedBlock &block, QString cutEffect)
    : m_reader(reader), m_end(end), m_block(&block), m_cutEffect(std::move(cutEffect))
{
}

void FieldCursor::enter(FieldPlace place, const QString &prefix)
{
    m_place = place;
    m_prefix = prefix;
}

FieldCursor FieldCursor::sub(int count)
{
    const int end = offset() + count;
    return {m_reader.sub(count), end, *m_block, m_cutEffect};
}

void FieldCursor::takeRest(const QString &name, const QString &meaning)
{
    if (remaining() == 0) {
        return;
    }
    const QByteArray bytes = ahead(remaining());
    fields() += Field{offset(), bytes, name, bytes, meaning, false};
    m_reader = ByteReader(nullptr, 0);
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
    quint32 plain = 0;
    ByteReader(m_reader).u32(name, plain);
    take(name, 4, value, [&] { m_reader.u32FromSignedBytes(name, value); });
    if (!failed() && value != plain) {
        explain(QStringLiteral("reads back changed: the bytes count with their signs"));
    }
}

void FieldCursor::textSigned(const char *name, QString &value)
{
    qint8 length = 0;
    ByteReader(m_reader).lowByteSigned(name, length);
    textBehind(name, length, value, &ByteReader::textSigned);
}

void FieldCursor::text(const char *name, QString &value)
{
    quint8 length = 0;
    ByteReader(m_reader).u8(name, length);
    textBehind(name, length, value, &ByteReader::text);
}

void FieldCursor::textBehind(const char *name, int length, QString &value,
                             void (ByteReader::*read)(const char *, QString &))
{
    const int at = offset();
    const int left = remaining() - 1;
    const QByteArray bytes = ahead(1 + qMax(0, length));
    (m_reader.*read)(name, value);
    if (failed()) {
        return reportCut(name, 1);
    }
    fields() += Field{at,
                      bytes.left(1),
                      m_prefix + QLatin1String(name) + QStringLiteral(".length"),
                      static_cast<qlonglong>(length),
                      QString(),
                      false};
    add(at + 1, bytes.mid(1), name, value);
    if (length < 0) {
        report(at, name, QStringLiteral("at most 127 bytes of text"), QStringLiteral("%1").arg(length + 256),
               QStringLiteral("the length reads as %1: no text is taken, and its bytes pass for the fields behind it")
                   .arg(length));
    } else if (length > left) {
        report(at, name, byteCount(length) + QStringLiteral(" of text"), byteCount(left),
               QStringLiteral("the text is cut, and the fields behind it keep the catalog's values"));
    }
}

QByteArray FieldCursor::ahead(int count) const
{
    return {m_reader.rest().constData(), qMin(count, remaining())};
}

void FieldCursor::reportCut(const char *name, int size)
{
    report(offset(), name, byteCount(size), remaining() == 0 ? QStringLiteral("the end") : byteCount(remaining()),
           m_cutEffect);
}

void FieldCursor::add(int at, const QByteArray &bytes, const char *name, const QVariant &value)
{
    const bool isNumber = value.type() == QVariant::LongLong || value.type() == QVariant::Double;
    fields() += Field{at,
                      bytes,
                      m_prefix + QLatin1String(name),
                      value,
                      isNumber ? fieldMeaning(m_place, m_family, name, value.toDouble()) : QString(),
                      !isFraming(m_place, name)};
}
