// Decoded blocks and their differences as text for people and as JSON for programs.
#pragma once

#include "blockdecoder.h"

#include <QJsonObject>

namespace blockdecoder {

/// A field that two blocks do not have in common: its bytes or its value differ, or one side lacks it.
struct Difference {
    int block = 0; ///< position in both lists
    QString name;
    QVector<Field> left; ///< one field, or none
    QVector<Field> right;
};

/// Compares block by block and field by field; where a field stands does not matter.
QVector<Difference> difference(const QVector<DecodedBlock> &left, const QVector<DecodedBlock> &right);

/// Aligned columns with a heading for every part, the damage behind them; ends with a line feed. Characters of names
/// that are not printable are escaped.
QString toText(const QVector<DecodedBlock> &blocks);
QString toText(const QVector<Difference> &differences);
/// The damage alone, a line each.
QString damageText(const QVector<DecodedBlock> &blocks);

QJsonObject toJson(const QVector<DecodedBlock> &blocks);
QJsonObject toJson(const QVector<Difference> &differences);

} // namespace blockdecoder
