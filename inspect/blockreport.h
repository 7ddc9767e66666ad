// Reports decoded blocks and their differences: text for people, JSON for programs.
#pragma once

#include "blockdecoder.h"

#include <QJsonObject>

namespace blockdecoder {

/// A field whose bytes or value differ in two blocks, or that one of them lacks.
struct Difference {
    int block = 0; ///< position in both lists
    QString name;
    QVector<Field> left; ///< one field, or none
    QVector<Field> right;
};

/// Compares block by block and field by field, independent of the offsets of the fields.
QVector<Difference> difference(const QVector<DecodedBlock> &left, const QVector<DecodedBlock> &right);

/// Returns aligned columns with a heading for each part, then the damage; ends with a line feed. Characters of texts
/// that are not printable are escaped.
QString toText(const QVector<DecodedBlock> &blocks);
QString toText(const QVector<Difference> &differences);
/// Returns the damage alone, one line each; an empty string without damage.
QString damageText(const QVector<DecodedBlock> &blocks);

QJsonObject toJson(const QVector<DecodedBlock> &blocks);
QJsonObject toJson(const QVector<Difference> &differences);

} // namespace blockdecoder
