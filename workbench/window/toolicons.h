// The icons of the commands, drawn in the colours of the desktop at any size.
#pragma once

#include <QIcon>

enum class ToolIcon { New, Open, Save, Undo, Redo, Copy, Paste, Find, Properties, Remove, Compile, Report };

/// Follows later changes of the palette.
QIcon toolIcon(ToolIcon icon);
