// Short messages at an editor that do not interrupt the user.
#pragma once

class QString;
class QWidget;

/// Shows @p text as a tool tip below @p editor. For some seconds it is also the accessible description of the editor,
/// because assistive technology reports a changed description but not every tool tip. No-op if @p editor is hidden.
void explain(QWidget *editor, const QString &text);
