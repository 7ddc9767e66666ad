// Dialogs that several parts of the window share: file names, progress and failures.
#pragma once

#include "result.h"

#include <QProgressDialog>

#include <memory>

/// Name filters of the file dialogs.
QString stationFilter();
QString blockFilter();

/// Returns the path of a file beside @p project with its name and another suffix; an empty string for a new project.
QString fileBeside(const QString &project, const QString &suffix);
/// Asks for the path of a file to write. Appends @p suffix to a name without one. An empty string if the user cancels.
QString askForNewFile(QWidget *parent, const QString &title, const QString &present, const QString &filter,
                      const QString &suffix);
/// A dialog that appears when an operation takes long.
std::unique_ptr<QProgressDialog> newProgressDialog(QWidget *parent, const QString &label);

/// Returns work(progress), with a Progress. A long operation shows its progress and can be cancelled.
template <typename Work>
auto withProgress(QWidget *parent, const QString &label, Work work)
{
    const std::unique_ptr<QProgressDialog> dialog = newProgressDialog(parent, label);
    return work([&dialog](int done, int total) {
        dialog->setMaximum(total);
        dialog->setValue(done);
        return !dialog->wasCanceled();
    });
}

/// Shows what could not be done and the reason, until the user closes the box. Does nothing for a success, or for a
/// failure without a reason, which the user caused by cancelling.
void showFailure(QWidget *parent, const QString &text, const Result<> &result);
