// Texts of actions outside menus.
#pragma once

#include <QAction>

/// The text of an action without dots and without the mark of its mnemonic.
QString plainText(const QAction &action);
/// Its shortcuts as the user's system writes them, with commas; empty if it has none.
QString shortcutsText(const QAction &action);
