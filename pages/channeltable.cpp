#include "channeltable.h"

#include <QHeaderView>

ChannelTable::ChannelTable(int channels, const QStringList &titles, QWidget *parent)
    : QTableWidget(channels, titles.size(), parent)
{
    setHorizontalHeaderLabels(titles);
    setAutoScroll(false);
    // The Tab key goes from editor to editor, which the table's own navigation between cells would prevent.
    setTabKeyNavigation(false);
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (int channel = 0; channel < channels; ++channel) {
        auto *number = new QTableWidgetItem(QString::number(channel));
        number->setTextAlignment(Qt::AlignCenter);
        number->setFlags(number->flags() & ~Qt::ItemIsEditable);
        setItem(channel, 0, number);
    }
}

void ChannelTable::setEditor(int channel, int column, QWidget *editor)
{
    // An editor that has a size is not asked for its size hint, a third of what placing it would cost.
    editor->resize(columnWidth(column), rowHeight(channel));
    setCellWidget(channel, column, editor);
}

void ChannelTable::fitToContents(const QVector<int> &samples, const QVector<int> &leastWidths)
{
    const int gridLine = showGrid() ? 1 : 0;
    int height = verticalHeader()->minimumSectionSize();
    for (int column = 0; column < columnCount(); ++column) {
        int width = qMax(leastWidths.value(column), horizontalHeader()->sectionSizeHint(column));
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
