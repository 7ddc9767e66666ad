// The buttons of the dialog and its pages that are not the dialog's default button.
#pragma once

#include <QKeyEvent>
#include <QPushButton>

/// Return presses the button only while it has the keyboard focus, which a click does not give it. So it never becomes
/// the default button, and Return presses OK after a click on it.
class SideButton : public QPushButton {
public:
    explicit SideButton(const QString &text) : QPushButton(text)
    {
        setAutoDefault(false);
        setFocusPolicy(Qt::TabFocus);
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
            return;
        }
        QPushButton::keyPressEvent(event);
    }
};
