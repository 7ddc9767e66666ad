// The buttons of the dialog and its pages that are not the dialog's default button.
#pragma once

#include <QKeyEvent>
#include <QPushButton>

/// A button that the Return key presses only while it has the focus, which a click does not give it. It never becomes
/// the default button, so after a click on it Return presses OK.
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
