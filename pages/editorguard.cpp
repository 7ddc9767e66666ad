#include "editorguard.h"

#include "scrollareas.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFocusEvent>

namespace {

/// Returns false for a combo box even if it has the focus, because its list is a separate window that takes the wheel
/// while it is open.
bool mayTurn(const QWidget *control)
{
    return control->hasFocus() && qobject_cast<const QComboBox *>(control) == nullptr;
}

bool turnsWithWheel(const QWidget *control)
{
    return qobject_cast<const QAbstractSpinBox *>(control) != nullptr ||
           qobject_cast<const QComboBox *>(control) != nullptr;
}

/// True for keyboard focus and refusals. A click finds only what is in view, and a window that is activated again must
/// not scroll.
bool scrollsIntoView(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
           reason == Qt::OtherFocusReason;
}

/// Scrolls the page and the table that contain @p control.
void scrollIntoView(QWidget *control)
{
    for (QWidget *around = control->parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto *area = qobject_cast<PageArea *>(around)) {
            area->showEditor(control);
        } else if (auto *view = qobject_cast<QAbstractItemView *>(around)) {
            view->scrollTo(view->indexAt(control->geometry().center()));
        }
    }
}

} // namespace

EditorGuard::EditorGuard(QWidget *page) : QObject(page)
{
    const auto controls = page->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        if (turnsWithWheel(control)) {
            control->setFocusPolicy(Qt::StrongFocus); // without Qt::WheelFocus
        }
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->focusProxy() == nullptr) {
            control->installEventFilter(this);
        }
    }
}

bool EditorGuard::eventFilter(QObject *watched, QEvent *event)
{
    auto *control = static_cast<QWidget *>(watched);
    if (event->type() == QEvent::Wheel && turnsWithWheel(control) && !mayTurn(control)) {
        event->ignore(); // the parent of the editor scrolls instead
        return true;
    }
    if (event->type() == QEvent::FocusIn && scrollsIntoView(static_cast<QFocusEvent *>(event)->reason())) {
        scrollIntoView(control);
    }
    return QObject::eventFilter(watched, event);
}
