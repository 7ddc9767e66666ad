// Modules on the clipboard, as their saved states.
#pragma once

#include <QByteArrayList>

void copyToClipboard(const QByteArrayList &states);
/// True if the clipboard contains data in the format of this program. Does not read the data.
bool clipboardHasModules();
/// The states on the clipboard; empty if it contains something else or malformed data.
QByteArrayList clipboardModules();
