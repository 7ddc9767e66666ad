// Space between the columns of a list.
#pragma once

#include <QStyledItemDelegate>

/// Makes columns that fit their texts wider than these, because adjacent texts would touch.
class ColumnGap : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        constexpr int characters = 2;
        return QStyledItemDelegate::sizeHint(option, index) +
               QSize(characters * option.fontMetrics.averageCharWidth(), 0);
    }
};
