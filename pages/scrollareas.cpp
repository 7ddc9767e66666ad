#include "scrollareas.h"

#include <QEvent>
#include <QGridLayout>
#include <QScrollBar>

namespace {

/// Hides the part of @p widget above @p y, in pixels of its parent. A mask does it, because the headings are as
/// transparent as the page.
void clipAbove(QWidget *widget, int y)
{
    if (y <= widget->y()) {
        if (!widget->mask().isEmpty()) {
            widget->clearMask();
        }
        return;
    }
    const QRect shown = widget->rect() & QRect(0, y - widget->y(), widget->width(), widget->height());
    widget->setMask(shown.isEmpty() ? QRect(-1, -1, 1, 1) : shown); // an empty mask would hide nothing
}

} // namespace

PageArea::PageArea(QWidget *page)
{
    auto *content = new QWidget;
    m_contentLayout = new QVBoxLayout(content);
    m_contentLayout->setContentsMargins({}); // the page has margins already
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // EditorGuard scrolls it
    setWidgetResizable(true);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(this);
}

void PageArea::keepHeadings(QGridLayout *rows)
{
    m_rows = rows;
    for (int i = 0; i < rows->count(); ++i) {
        if (QWidget *const widget = rows->itemAt(i)->widget()) {
            int row = 0;
            int column = 0;
            int rowSpan = 0;
            int columnSpan = 0;
            rows->getItemPosition(i, &row, &column, &rowSpan, &columnSpan);
            (row == 0 ? m_headings : m_cells).append(widget);
        }
    }
    rows->parentWidget()->installEventFilter(this);
}

QSize PageArea::minimumSizeHint() const
{
    const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    return {width, QScrollArea::minimumSizeHint().height()};
}

void PageArea::showEditor(QWidget *editor)
{
    ensureWidgetVisible(editor);
    if (m_cells.contains(editor) && headingOffset() > 0) {
        const int covered = headingRow().bottom() + 1 + headingOffset() - editor->y();
        verticalScrollBar()->setValue(verticalScrollBar()->value() - qMax(0, covered));
    }
}

bool PageArea::eventFilter(QObject *watched, QEvent *event)
{
    const bool isLaidOut =
        event->type() == QEvent::Resize || event->type() == QEvent::Move || event->type() == QEvent::LayoutRequest;
    if (m_rows != nullptr && watched == m_rows->parentWidget() && isLaidOut) {
        placeHeadings();
    }
    return QScrollArea::eventFilter(watched, event);
}

void PageArea::scrollContentsBy(int dx, int dy)
{
    QScrollArea::scrollContentsBy(dx, dy);
    if (m_rows != nullptr) {
        placeHeadings();
    }
}

/// Computed without QGridLayout::cellRect(), which is invalid between a change of the font and the next layout.
QRect PageArea::headingRow() const
{
    int height = 0;
    for (const QWidget *heading : m_headings) {
        height = qMax(height, heading->height());
    }
    const QRect rows = m_rows->contentsRect();
    return {rows.x(), rows.y(), rows.width(), height};
}

int PageArea::headingOffset() const
{
    const int top = m_rows->parentWidget()->mapTo(viewport(), headingRow().topLeft()).y();
    return qBound(0, -top, qMax(0, m_rows->contentsRect().bottom() - headingRow().bottom()));
}

void PageArea::placeHeadings()
{
    const QRect row = headingRow().translated(0, headingOffset());
    for (QWidget *heading : qAsConst(m_headings)) {
        heading->move(heading->x(), row.y() + (row.height() - heading->height()) / 2);
    }
    const bool isMoved = row != headingRow();
    for (QWidget *cell : qAsConst(m_cells)) {
        clipAbove(cell, isMoved ? row.bottom() + 1 : 0);
    }
}
