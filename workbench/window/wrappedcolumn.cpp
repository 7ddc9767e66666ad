#include "wrappedcolumn.h"

#include "columngap.h"

#include <QHeaderView>
#include <QTreeView>

namespace {

/// Gives the rows the height of the wrapped texts, because a tree view measures every text as one line.
class WrappedTexts : public ColumnGap {
public:
    explicit WrappedTexts(QTreeView &view) : ColumnGap(&view), m_view(view) {}

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem sized = option;
        if (index.column() == m_view.header()->count() - 1) {
            sized.rect = QRect(0, 0, m_view.columnWidth(index.column()), QWIDGETSIZE_MAX);
        }
        return ColumnGap::sizeHint(sized, index);
    }

private:
    const QTreeView &m_view;
};

} // namespace

void wrapLastColumn(QTreeView &view)
{
    view.setWordWrap(true);
    view.setItemDelegate(new WrappedTexts(view));
    // Queued, because the header is still resizing its columns.
    QObject::connect(view.header(), &QHeaderView::sectionResized, &view, &QTreeView::doItemsLayout,
                     Qt::QueuedConnection);
}
