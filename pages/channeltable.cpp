#include "channeltable.h"

#include "basewidgets.h"
#include "choices.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace {

/// Gives the whole cell to its editor. Does not query the minimum size of the editor, because the columns are wide
/// enough.
class CellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex & /*index*/) const override
    {
        editor->setGeometry(option.rect);
    }
};

/// The row headers. Only the last number is measured, because it is the widest.
class NumberHeader : public QHeaderView {
public:
    explicit NumberHeader(QWidget *parent) : QHeaderView(Qt::Vertical, parent)
    {
        setSectionsClickable(true);
        setHighlightSections(true);
    }

    QSize sizeHint() const override
    {
        return count() == 0 ? QHeaderView::sizeHint() : sectionSizeFromContents(count() - 1);
    }
};

/// The accessible name of a cell: that of its editor, or the title and the number in the first column. It is computed
/// on request, because few users need it.
class NamedItem : public QTableWidgetItem {
public:
    using QTableWidgetItem::QTableWidgetItem;

    QVariant data(int role) const override
    {
        if (role != Qt::AccessibleTextRole) {
            return QTableWidgetItem::data(role);
        }
        const QTableWidget *const table = tableWidget();
        if (const QWidget *const editor = table->cellWidget(row(), column())) {
            return editor->accessibleName();
        }
        return column() == 0 ? QStringLiteral("%1 %2").arg(table->horizontalHeaderItem(0)->text(), text()) : QVariant();
    }
};

QStandardItemModel *itemModelOf(QComboBox *editor)
{
    auto *model = qobject_cast<QStandardItemModel *>(editor->model());
    if (model == nullptr) { // the host's combo boxes may have a model of another class
        model = new QStandardItemModel(editor);
        editor->setModel(model);
    }
    return model;
}

} // namespace

ChannelTable::ChannelTable(int channels, const QStringList &titles, QWidget *parent) : QTableWidget(parent)
{
    setItemDelegate(new CellDelegate(this));
    setVerticalHeader(new NumberHeader(this));
    setColumnCount(titles.size());
    setRowCount(channels);
    setHorizontalHeaderLabels(titles);
    setAutoScroll(false);
    // The Tab key goes from editor to editor, which the table's own navigation between cells would prevent.
    setTabKeyNavigation(false);
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    const QSignalBlocker blocker(model()); // no view shows the empty cells yet
    for (int channel = 0; channel < channels; ++channel) {
        const QString text = QString::number(channel);
        setVerticalHeaderItem(channel, new QTableWidgetItem(text));
        auto *number = new NamedItem(text);
        number->setTextAlignment(Qt::AlignCenter);
        number->setFlags(number->flags() & ~Qt::ItemIsEditable);
        setItem(channel, 0, number);
        for (int column = 1; column < titles.size(); ++column) {
            setItem(channel, column, new NamedItem);
        }
    }
}

const QStandardItem &ChannelTable::itemsOf(const ChoiceList &choices, ItemData itemData)
{
    QStandardItem &list = m_items[{&choices, itemData}];
    if (!list.hasChildren()) {
        const QStringList texts = choices.texts();
        for (int i = 0; i < choices.size(); ++i) {
            auto *item = new QStandardItem(texts.at(i));
            if (itemData == Codes) {
                item->setData(choices.at(i).code, Qt::UserRole);
            }
            list.appendRow(item);
        }
    }
    return list;
}

QComboBox *ChannelTable::newComboBox(const ChoiceList &choices, ItemData itemData)
{
    const QStandardItem &list = itemsOf(choices, itemData);
    QList<QStandardItem *> items;
    items.reserve(list.rowCount());
    for (int i = 0; i < list.rowCount(); ++i) {
        items.append(list.child(i)->clone()); // shares the text, which saves a translation
    }
    auto *editor = new MComboBoxEx(viewport());
    QStandardItemModel *model = itemModelOf(editor);
    const QSignalBlocker blocker(model); // else the combo box selects the first text
    model->invisibleRootItem()->appendRows(items);
    return editor;
}

void ChannelTable::setEditor(int channel, int column, QWidget *editor)
{
    // Qt does not query the size hint of an editor that has a size. This saves a third of the time.
    editor->resize(columnWidth(column), rowHeight(channel));
    setCellWidget(channel, column, editor);
}

void ChannelTable::fitToContents(const QVector<int> &samples, const QVector<int> &minimumWidths)
{
    const int gridLine = showGrid() ? 1 : 0;
    int height = verticalHeader()->minimumSectionSize();
    for (int column = 0; column < columnCount(); ++column) {
        int width = qMax(minimumWidths.value(column), horizontalHeader()->sectionSizeHint(column));
        for (const int channel : samples) {
            if (const QWidget *editor = cellWidget(channel, column)) {
                const QSize needed = editor->sizeHint().expandedTo(editor->minimumSize());
                width = qMax(width, needed.width() + gridLine);
                height = qMax(height, needed.height() + gridLine);
            }
        }
        setColumnWidth(column, width);
    }
    verticalHeader()->setDefaultSectionSize(height);
}

QItemSelectionModel::SelectionFlags ChannelTable::selectionCommand(const QModelIndex &index, const QEvent *event) const
{
    const QWidget *const editor = indexWidget(index);
    return editor != nullptr && editor->hasFocus() ? QItemSelectionModel::NoUpdate
                                                   : QTableWidget::selectionCommand(index, event);
}
