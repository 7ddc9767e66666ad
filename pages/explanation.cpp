#include "explanation.h"

#include <QTimer>
#include <QToolTip>
#include <QVariant>

#include <chrono>

namespace {

constexpr auto standingDescription = "standingDescription"; ///< property of an editor while an explanation replaces it
constexpr std::chrono::seconds duration(10);
/// The tool tip is shown again after this time, because it disappears if the focus changes, as when a menu closes.
constexpr std::chrono::milliseconds delay(100);

void restoreDescription(QWidget *editor)
{
    const QVariant description = editor->property(standingDescription);
    if (description.isValid()) { // else an earlier timer has restored it
        editor->setAccessibleDescription(description.toString());
        editor->setProperty(standingDescription, QVariant());
    }
}

} // namespace

void explain(QWidget *editor, const QString &text)
{
    if (!editor->isVisible()) {
        return; // the tool tip would appear somewhere on the screen
    }
    const auto show = [editor, text] {
        if (!QToolTip::isVisible() || QToolTip::text() != text) {
            QToolTip::showText(editor->mapToGlobal(editor->rect().bottomLeft()), text, editor);
        }
    };
    show();
    QTimer::singleShot(delay, editor, show);
    if (!editor->property(standingDescription).isValid()) {
        editor->setProperty(standingDescription, editor->accessibleDescription());
    }
    editor->setAccessibleDescription(text);
    QTimer::singleShot(duration, editor, [editor] { restoreDescription(editor); });
}
