// The dialogs of the Help menu.
#pragma once

class QMenuBar;
class QString;
class QWidget;

/// Lists the shortcuts of all actions of @p menus, then those of the racks and of the properties dialog.
void showShortcuts(const QMenuBar &menus, QWidget *parent);

/// Shows the versions of the program and of its libraries. @p plugin is the file of the plug-in.
void showAbout(const QString &plugin, QWidget *parent);
