// The Enter key in the lists of a dialog.
#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>

/// Installed on a dialog: Enter in a list activates the list's item only. Without it a dialog also clicks its default
/// button, which is the first button unless another one is made the default.
class EnterKey : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event)->key() : 0;
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        const bool isInList = qobject_cast<QAbstractItemView *>(QApplication::focusWidget()) != nullptr;
        return (isEnter && isInList) || QObject::eventFilter(watched, event);
    }
};
