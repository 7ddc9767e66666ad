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
    setMinimumHeight(0); // heightForWidth() is never below the minimum height
    setMinimumHeight(heightForWidth(width()));
}
