// Reports decoded blocks and their differences: text for people, JSON for programs.
#pragma once

#include "blockdecoder.h"

#include <QJsonObject>

#include <optional>

namespace blockdecoder {

/// A field whose bytes or value differ in two blocks, or that one of them lacks.
struct Difference {
    std::optional<int> leftBlock; ///< position in its list; std::nullopt for a block without a counterpart
    std::optional<int> rightBlock;
    QString name;
    QVector<Field> left; ///< one field, or none
    QVector<Field> right;
};

/// Compares field by field the blocks that matchedModules() pairs, independent of the offsets of the fields. Two single
/// blocks are compared in any case.
QVector<Difference> difference(const QVector<DecodedBlock> &left, const QVector<DecodedBlock> &right);

/// Returns a value as text; an empty string for bytes. Texts are in quotation marks, and their characters that are not
/// printable are escaped. Quotation marks and backslashes are not.
QString valueText(const Field &field);
/// Returns a value for JSON, which has no bytes (here hexadecimal digits) and no infinite numbers (here texts).
QJsonValue jsonValue(const QVariant &value);

/// Returns aligned columns with a heading for each part, then the damage; ends with a line feed. Characters of texts
/// that are not printable are escaped.
QString toText(const QVector<DecodedBlock> &blocks);
QString toText(const QVector<Difference> &differences);
/// Returns the damage alone, one line each; an empty string without damage.
QString damageText(const QVector<DecodedBlock> &blocks);

QJsonObject toJson(const QVector<DecodedBlock> &blocks);
QJsonObject toJson(const QVector<Difference> &differences);

} // namespace blockdecoder
