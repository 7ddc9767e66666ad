#include "scrollareas.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

/// Asks for the full width of its rows and for the height of at most six lines.
class RowArea : public QScrollArea {
public:
    QSize minimumSizeHint() const override
    {
        constexpr int visibleLines = 6;
        return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(),
                qMin(widget()->sizeHint().height(), visibleLines * fontMetrics().lineSpacing())};
    }
    QSize sizeHint() const override { return minimumSizeHint(); }
};

QScrollArea *seamless(QScrollArea *area, QWidget *content)
{
    content->layout()->setContentsMargins({}); // the area has margins already
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // EditorGuard scrolls it
    area->setWidgetResizable(true);
    area->setWidget(content);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return area;
}

} // namespace

QVBoxLayout *newPageLayout(QWidget *page)
{
    auto *content = new QWidget;
    auto *contentLayout = new QVBoxLayout(content);
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(seamless(new QScrollArea, content));
    return contentLayout;
}

QWidget *newRowArea(QWidget *rows)
{
    rows->layout()->setAlignment(Qt::AlignTop);
    return seamless(new RowArea, rows);
}
