#include "blockreport.h"

#include "blockmatch.h"

#include <QHash>
#include <QJsonArray>

#include <algorithm>
#include <cmath>

namespace blockdecoder {

namespace {

constexpr int bytesPerLine = 8;
constexpr int bytesWidth = 10 + 3 * bytesPerLine;
/// No text of a block is longer, and longer runs of undecoded bytes are of no use byte by byte.
constexpr int shownBytes = 256;
constexpr int valueWidth = 10;

QString hexOffset(int offset)
{
    return QStringLiteral("%1").arg(offset, 4, 16, QLatin1Char('0')).toUpper();
}

QString hexBytes(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

QString bytesLine(int offset, const QByteArray &bytes)
{
    return QStringLiteral("  %1  %2").arg(hexOffset(offset), hexBytes(bytes));
}

QString printable(const QString &text)
{
    QString shown;
    for (const QChar character : text) {
        if (character.isPrint() || character.isSurrogate()) {
            shown += character;
        } else {
            shown += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        }
    }
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

QString meaningText(const Field &field)
{
    const QString value = valueText(field);
    return field.meaning.isEmpty() ? value : value.leftJustified(valueWidth - 1) + QLatin1Char(' ') + field.meaning;
}

void appendLine(QString &text, QString line)
{
    while (line.endsWith(QLatin1Char(' '))) { // the last column may be empty
        line.chop(1);
    }
    text += line + QLatin1Char('\n');
}

/// Bytes that do not fit on the line of @p label, a name or an empty string, follow on separate lines.
QString fieldText(const Field &field, const QString &label)
{
    QString text;
    const QString bytes = bytesLine(field.offset, field.raw.left(bytesPerLine));
    appendLine(text, bytes.leftJustified(bytesWidth) + label + meaningText(field));
    const int shown = qMin(shownBytes, field.raw.size());
    for (int at = bytesPerLine; at < shown; at += bytesPerLine) {
        appendLine(text, bytesLine(field.offset + at, field.raw.mid(at, bytesPerLine)));
    }
    if (shown < field.raw.size()) {
        appendLine(text, QStringLiteral("        and %1 more bytes").arg(field.raw.size() - shown));
    }
    return text;
}

int longestName(const DecodedBlock &block)
{
    int longest = 0;
    for (const Part &part : block.parts) {
        for (const Field &field : part.fields) {
            longest = qMax(longest, field.name.size());
        }
    }
    return longest;
}

QString blockText(const DecodedBlock &block, int number)
{
    QString text;
    const QString kind = block.kind.isEmpty() ? QStringLiteral("module of unknown kind") : block.kind;
    appendLine(text, QStringLiteral("Block %1 at offset %2, %3 bytes: %4")
                         .arg(number)
                         .arg(hexOffset(block.offset))
                         .arg(block.size)
                         .arg(kind));
    const int nameWidth = longestName(block);
    for (const Part &part : block.parts) {
        appendLine(text, QLatin1Char('\n') + part.title);
        for (const Field &field : part.fields) {
            text += fieldText(field, field.name.leftJustified(nameWidth + 2));
        }
    }
    return text;
}

QJsonObject toJson(const Field &field)
{
    return {{QStringLiteral("offset"), field.offset},   {QStringLiteral("raw"), QString::fromLatin1(field.raw.toHex())},
            {QStringLiteral("name"), field.name},       {QStringLiteral("value"), jsonValue(field.value)},
            {QStringLiteral("meaning"), field.meaning}, {QStringLiteral("stored"), field.stored}};
}

QJsonObject toJson(const Damage &damage)
{
    return {{QStringLiteral("offset"), damage.offset},
            {QStringLiteral("name"), damage.name},
            {QStringLiteral("expected"), damage.expected},
            {QStringLiteral("found"), damage.found},
            {QStringLiteral("effect"), damage.effect}};
}

QJsonObject toJson(const Part &part);
QJsonObject toJson(const DecodedBlock &block);
QJsonObject toJson(const Difference &difference);

template <typename Item>
QJsonArray toArray(const QVector<Item> &items)
{
    QJsonArray array;
    for (const Item &item : items) {
        array += toJson(item);
    }
    return array;
}

QJsonObject toJson(const Part &part)
{
    return {{QStringLiteral("title"), part.title}, {QStringLiteral("fields"), toArray(part.fields)}};
}

QJsonObject toJson(const DecodedBlock &block)
{
    return {{QStringLiteral("offset"), block.offset},
            {QStringLiteral("size"), block.size},
            {QStringLiteral("kind"), block.kind},
            {QStringLiteral("refused"), block.refused},
            {QStringLiteral("complete"), block.complete},
            {QStringLiteral("parts"), toArray(block.parts)},
            {QStringLiteral("damages"), toArray(block.damages)}};
}

/// Returns the fields of a block in its order, with numbers that make repeated names unique.
QVector<Field> numberedFields(const DecodedBlock &block)
{
    QVector<Field> fields;
    QHash<QString, int> seen;
    for (const Part &part : block.parts) {
        for (Field field : part.fields) {
            const int before = seen[field.name]++;
            if (before > 0) {
                field.name += QStringLiteral(" (%1)").arg(before + 1);
            }
            fields += field;
        }
    }
    return fields;
}

QHash<QString, int> indexByName(const QVector<Field> &fields)
{
    QHash<QString, int> index;
    for (int i = 0; i < fields.size(); ++i) {
        index.insert(fields.at(i).name, i);
    }
    return index;
}

/// Compares numbers by value, because the halves of a byte share its raw bytes, and everything else by its bytes.
bool isSame(const Field &left, const Field &right)
{
    return left.value.type() == QVariant::LongLong ? left.value == right.value : left.raw == right.raw;
}

void compare(const MatchedModules &blocks, const DecodedBlock &left, const DecodedBlock &right,
             QVector<Difference> &differences)
{
    const QVector<Field> leftFields = numberedFields(left);
    const QVector<Field> rightFields = numberedFields(right);
    const QHash<QString, int> leftIndex = indexByName(leftFields);
    const QHash<QString, int> rightIndex = indexByName(rightFields);
    for (const Field &field : leftFields) {
        const int at = rightIndex.value(field.name, -1);
        if (at < 0) {
            differences += {blocks.left, blocks.right, field.name, {field}, {}};
        } else if (!isSame(field, rightFields.at(at))) {
            differences += {blocks.left, blocks.right, field.name, {field}, {rightFields.at(at)}};
        }
    }
    for (const Field &field : rightFields) {
        if (!leftIndex.contains(field.name)) {
            differences += {blocks.left, blocks.right, field.name, {}, {field}};
        }
    }
}

QString sideText(const char *sign, const QVector<Field> &side)
{
    const QString text = side.isEmpty() ? QStringLiteral("  missing\n") : fieldText(side.first(), QString());
    return QLatin1String(sign) + text;
}

QJsonValue sideJson(const QVector<Field> &side)
{
    return side.isEmpty() ? QJsonValue() : QJsonValue(toJson(side.first()));
}

QJsonValue numberJson(std::optional<int> block)
{
    return block ? QJsonValue(*block + 1) : QJsonValue();
}

QJsonObject toJson(const Difference &difference)
{
    return {{QStringLiteral("leftBlock"), numberJson(difference.leftBlock)},
            {QStringLiteral("rightBlock"), numberJson(difference.rightBlock)},
            {QStringLiteral("name"), difference.name},
            {QStringLiteral("left"), sideJson(difference.left)},
            {QStringLiteral("right"), sideJson(difference.right)}};
}

QString blocksText(const Difference &difference)
{
    if (!difference.rightBlock) {
        return QStringLiteral("Block %1 on the left only").arg(*difference.leftBlock + 1);
    }
    if (!difference.leftBlock) {
        return QStringLiteral("Block %1 on the right only").arg(*difference.rightBlock + 1);
    }
    return difference.leftBlock == difference.rightBlock
               ? QStringLiteral("Block %1").arg(*difference.leftBlock + 1)
               : QStringLiteral("Blocks %1 and %2").arg(*difference.leftBlock + 1).arg(*difference.rightBlock + 1);
}

/// Fields that a damaged block lacks are -1.
QVector<ModuleKey> keysOf(const QVector<DecodedBlock> &blocks)
{
    QVector<ModuleKey> keys;
    for (const DecodedBlock &block : blocks) {
        const auto number = [&block](const char *name) {
            const Field *field = block.find(QLatin1String(name));
            return field == nullptr ? -1 : field->value.toLongLong();
        };
        const Field *name = block.find(QStringLiteral("header.objName"));
        keys += {number("header.rackId"), number("header.slotId"), number("header.objId"),
                 name == nullptr ? QString() : name->value.toString()};
    }
    return keys;
}

} // namespace

QString valueText(const Field &field)
{
    switch (field.value.type()) {
    case QVariant::String:
        return printable(field.value.toString());
    case QVariant::Double:
        return QString::number(field.value.toDouble(), 'g', 7);
    case QVariant::ByteArray:
        return {};
    default:
        return field.value.toString();
    }
}

QJsonValue jsonValue(const QVariant &value)
{
    if (value.type() == QVariant::ByteArray) {
        return QString::fromLatin1(value.toByteArray().toHex());
    }
    if (value.type() == QVariant::Double && !std::isfinite(value.toDouble())) { // JSON has no such numbers
        return value.toString();
    }
    return QJsonValue::fromVariant(value);
}

QVector<Difference> difference(const QVector<DecodedBlock> &left, const QVector<DecodedBlock> &right)
{
    const bool isSinglePair = left.size() == 1 && right.size() == 1;
    const QVector<MatchedModules> pairs =
        isSinglePair ? QVector<MatchedModules>{{0, 0}} : matchedModules(keysOf(left), keysOf(right));
    QVector<Difference> differences;
    for (const MatchedModules &pair : pairs) {
        compare(pair, left.value(pair.left.value_or(-1)), right.value(pair.right.value_or(-1)), differences);
    }
    return differences;
}

QString toText(const QVector<DecodedBlock> &blocks)
{
    QString text;
    for (int i = 0; i < blocks.size(); ++i) {
        text += (i == 0 ? "" : "\n") + blockText(blocks.at(i), i + 1);
    }
    const QString damages = damageText(blocks);
    return damages.isEmpty() ? text : text + QLatin1Char('\n') + damages;
}

QString damageText(const QVector<DecodedBlock> &blocks)
{
    QString text;
    for (const DecodedBlock &block : blocks) {
        for (const Damage &damage : block.damages) {
            appendLine(text,
                       QStringLiteral("Damaged at %1, %2: expected %3, found %4; %5")
                           .arg(hexOffset(damage.offset), damage.name, damage.expected, damage.found, damage.effect));
        }
    }
    return text;
}

QString toText(const QVector<Difference> &differences)
{
    QString text;
    for (const Difference &difference : differences) {
        appendLine(text, blocksText(difference) + QStringLiteral(", ") + difference.name);
        text += sideText("-", difference.left) + sideText("+", difference.right);
    }
    return text.isEmpty() ? QStringLiteral("No field differs\n") : text;
}

QJsonObject toJson(const QVector<DecodedBlock> &blocks)
{
    return {{QStringLiteral("blocks"), toArray(blocks)}};
}

QJsonObject toJson(const QVector<Difference> &differences)
{
    return {{QStringLiteral("differences"), toArray(differences)}};
}

} // namespace blockdecoder
