#include "filequestions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(FileQuestions)
};

constexpr int progressDelay = 400;     // ms until a long operation shows its progress
constexpr int progressCharacters = 40; // of the width, which has room for the title and the buttons beside it

} // namespace

QString stationFilter()
{
    return Texts::tr("Station files (*.station);;All files (*)");
}

QString blockFilter()
{
    return Texts::tr("Configuration blocks (*.blk);;All files (*)");
}

std::unique_ptr<QProgressDialog> newProgressDialog(QWidget *parent, const QString &label)
{
    auto dialog = std::make_unique<QProgressDialog>(label, Texts::tr("Cancel"), 0, 0, parent);
    dialog->setObjectName(QStringLiteral("progressDialog"));
    dialog->setWindowTitle(Texts::tr("Module Workbench"));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setMinimumDuration(progressDelay);
    dialog->setMinimumWidth(dialog->fontMetrics().averageCharWidth() * progressCharacters);
    return dialog;
}

QString fileBeside(const QString &project, const QString &suffix)
{
    const QFileInfo info(project);
    return project.isEmpty() ? QString() : info.absoluteDir().filePath(info.completeBaseName() + suffix);
}

QString askForNewFile(QWidget *parent, const QString &title, const QString &present, const QString &filter,
                      const QString &suffix)
{
    QFileDialog dialog(parent, title, present, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    if (!present.isEmpty()) {
        dialog.selectFile(present);
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void showFailure(QWidget *parent, const QString &text, const Result<> &result)
{
    if (result || result.reason().isEmpty()) {
        return;
    }
    QMessageBox box(QMessageBox::Warning, Texts::tr("Module Workbench"), text, QMessageBox::NoButton, parent);
    box.setObjectName(QStringLiteral("problemBox"));
    box.setInformativeText(result.reason());
    box.addButton(Texts::tr("OK"), QMessageBox::AcceptRole);
    box.exec();
}
