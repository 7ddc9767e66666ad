#include "explanation.h"

#include <QTimer>
#include <QToolTip>
#include <QVariant>

#include <chrono>

namespace {

constexpr auto standingDescription = "standingDescription"; ///< property of an editor while an explanation replaces it
constexpr std::chrono::seconds duration(10);

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
    QToolTip::showText(editor->mapToGlobal(editor->rect().bottomLeft()), text, editor);
    if (!editor->property(standingDescription).isValid()) {
        editor->setProperty(standingDescription, editor->accessibleDescription());
    }
    editor->setAccessibleDescription(text);
    QTimer::singleShot(duration, editor, [editor] { restoreDescription(editor); });
}
