// What the mouse wheel and the keyboard focus do to the editors of a page that may scroll.
#pragma once

#include <QObject>

class QWidget;

/// Ignores the wheel over a combo box and over a spin box without focus, so that scrolling a page does not change
/// values. Scrolls an editor into view that gets the focus from the keyboard or from a refusal.
class EditorGuard : public QObject {
public:
    /// Guards all present children of @p page that take the focus by the Tab key. @p page owns the guard.
    explicit EditorGuard(QWidget *page);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
