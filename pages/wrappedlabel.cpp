#include "wrappedlabel.h"

#include <QEvent>

WrappedLabel::WrappedLabel(const QString &text, QWidget *parent) : QLabel(text, parent)
{
    setWordWrap(true);
}

void WrappedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    fitHeight();
}

void WrappedLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fitHeight();
    }
}

void WrappedLabel::fitHeight()
{
    setMinimumHeight(0); // the height for a width is never less than the least height of before
    setMinimumHeight(heightForWidth(width()));
}
