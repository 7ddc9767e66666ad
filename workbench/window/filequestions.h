// Dialogs that several parts of the window share: file names and failures.
#pragma once

#include "result.h"

class QWidget;

/// Name filters of the file dialogs.
QString stationFilter();
QString blockFilter();

/// Asks for the path of a file to write. Appends @p suffix to a name without one. An empty string if the user cancels.
QString askForNewFile(QWidget *parent, const QString &title, const QString &present, const QString &filter,
                      const QString &suffix);
/// Shows what could not be done and the reason, until the user closes the box. Does nothing for a success, or for a
/// failure without a reason, which the user caused by cancelling.
void showFailure(QWidget *parent, const QString &text, const Result<> &result);
