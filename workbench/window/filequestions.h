// Questions about files, and the box that says what went wrong with one.
#pragma once

#include <QString>

class QWidget;

/// Name filters of the file dialogs.
QString stationFilter();
QString blockFilter();

/// The path of a file to be written, with @p suffix where the user gives none; empty when the user cancels.
QString askForNewFile(QWidget *parent, const QString &title, const QString &present, const QString &filter,
                      const QString &suffix);
/// Shows what could not be done and why, until the user closes it.
void showProblem(QWidget *parent, const QString &text, const QString &reason);
