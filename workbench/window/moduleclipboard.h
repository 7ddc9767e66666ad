// Modules on the desktop's clipboard, as their saved states.
#pragma once

#include <QByteArrayList>

void copyToClipboard(const QByteArrayList &states);
/// The states on the clipboard; none when it holds something else.
QByteArrayList clipboardModules();
