#include "filecommands.h"

#include "blockresultsdialog.h"
#include "blockview.h"
#include "filequestions.h"
#include "projectrecovery.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace {

constexpr int shownProblems = 8;

bool isBlockFile(const QString &path)
{
    return path.endsWith(QLatin1String(".blk"), Qt::CaseInsensitive);
}

QString shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

FileCommands::FileCommands(StationDocument &document, QWidget &window)
    : QObject(&window), m_document(document), m_window(window)
{
    connect(&document, &StationDocument::stationReplaced, this, &FileCommands::markBlocksOutdated);
    connect(&document.undoStack(), &QUndoStack::indexChanged, this, &FileCommands::markBlocksOutdated);
}

void FileCommands::create()
{
    if (mayDiscard()) {
        m_document.create();
    }
}

void FileCommands::open()
{
    if (!mayDiscard()) {
        return;
    }
    const QString path =
        QFileDialog::getOpenFileName(&m_window, tr("Open Project"), m_document.fileName(), stationFilter());
    if (!path.isEmpty()) {
        openFile(path);
    }
}

void FileCommands::openRecent(const QString &path)
{
    if (mayDiscard() && !openFile(path) && !QFileInfo::exists(path)) {
        emit fileMissing(path);
    }
}

bool FileCommands::canOpen(const QString &path)
{
    const bool isProject = path.endsWith(QLatin1String(".station"), Qt::CaseInsensitive);
    return (isProject || isBlockFile(path)) && QFileInfo(path).isFile();
}

void FileCommands::openDropped(const QString &path)
{
    if (!mayDiscard()) {
        return;
    }
    if (isBlockFile(path)) {
        decompileFile(path);
    } else {
        openFile(path);
    }
}

bool FileCommands::openFile(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const Result<> opened = withProgress(&m_window, tr("Opening %1...").arg(name),
                                         [&](const Progress &progress) { return m_document.open(path, progress); });
    if (!opened) {
        return offerRecover(path, opened);
    }
    emit fileUsed(path);
    emit message(tr("Opened %1").arg(name));
    showUnavailable();
    return true;
}

/// Shows why a file is rejected. Returns true if the user recovered modules of it.
bool FileCommands::offerRecover(const QString &path, const Result<> &rejected)
{
    const QString text = tr("%1 cannot be opened.").arg(shown(path));
    if (rejected.reason().isEmpty() || !recoverProject(path)) {
        showFailure(&m_window, text, rejected);
        return false;
    }
    const QString backup = ProjectFile(path).backupPath();
    QStringList lines{rejected.reason(), tr("Recover opens the modules that can still be read as a new station. The "
                                            "file stays as it is.")};
    if (QFileInfo::exists(backup)) {
        lines += tr("%1 contains the project before the latest save.").arg(shown(backup));
    }
    QMessageBox box(QMessageBox::Warning, tr("Module Workbench"), text, QMessageBox::NoButton, &m_window);
    box.setObjectName(QStringLiteral("recoverBox"));
    box.setInformativeText(lines.join(QLatin1Char('\n')));
    const QAbstractButton *const recoverButton = box.addButton(tr("&Recover"), QMessageBox::AcceptRole);
    box.setEscapeButton(box.addButton(tr("Cancel"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == recoverButton && recover(path);
}

bool FileCommands::recover(const QString &path)
{
    const auto losses = withProgress(&m_window, tr("Recovering..."),
                                     [&](const Progress &progress) { return m_document.recover(path, progress); });
    if (!losses) {
        showFailure(&m_window, tr("%1 cannot be recovered.").arg(shown(path)), losses);
        return false;
    }
    const QString text = tr("Recovered %n module(s) as a new station.", nullptr, m_document.station().count());
    emit message(text);
    if (!losses->isEmpty()) {
        QStringList lines = losses->mid(0, shownProblems);
        QMessageBox box(QMessageBox::Warning, tr("Module Workbench"), text, QMessageBox::NoButton, &m_window);
        box.setObjectName(QStringLiteral("lossesBox"));
        if (losses->size() > shownProblems) {
            lines += QStringLiteral("...");
            box.setDetailedText(losses->join(QLatin1Char('\n')));
        }
        box.setInformativeText(lines.join(QLatin1Char('\n')));
        box.addButton(tr("OK"), QMessageBox::AcceptRole);
        box.exec();
    }
    return true;
}

/// Shows which modules are unavailable, and why.
void FileCommands::showUnavailable()
{
    const Station &station = m_document.station();
    QStringList lines;
    for (int i = 0; i < station.count() && lines.size() <= shownProblems; ++i) {
        const ModuleSummary module = station.module(i);
        if (!module.unavailable.isEmpty()) {
            lines +=
                lines.size() == shownProblems
                    ? QStringLiteral("...")
                    : tr("Rack %1, slot %2: %3").arg(module.place.rack).arg(module.place.slot).arg(module.unavailable);
        }
    }
    if (!lines.isEmpty()) {
        showFailure(&m_window,
                    tr("%n module(s) cannot be restored. They stay in the project as they were stored.", nullptr,
                       station.unavailableCount()),
                    Failure{lines.join(QLatin1Char('\n'))});
    }
}

bool FileCommands::save()
{
    return m_document.fileName().isEmpty() ? saveAs() : saveTo(m_document.fileName());
}

bool FileCommands::saveAs()
{
    const QString path =
        askForNewFile(&m_window, tr("Save Project"), m_document.fileName(), stationFilter(), QStringLiteral("station"));
    return !path.isEmpty() && saveTo(path);
}

bool FileCommands::saveTo(const QString &path, StationDocument::Overwrite overwrite)
{
    const Result<ProjectFile::Written> saved = m_document.save(path, overwrite);
    if (!saved) {
        showFailure(&m_window, tr("%1 cannot be saved.").arg(shown(path)),
                    Failure{saved.reason() + QLatin1Char('\n') + tr("Save As writes to another file.")});
        return false;
    }
    if (*saved == ProjectFile::Written::ChangedOnDisk) {
        return saveChanged(path);
    }
    emit fileUsed(path);
    reportSaved(path);
    return true;
}

/// Asks what to do with a file that contains another project than this program read or wrote.
bool FileCommands::saveChanged(const QString &path)
{
    QMessageBox box(QMessageBox::Warning, tr("File Changed"),
                    tr("%1 was changed by another program since it was opened or saved here.").arg(shown(path)),
                    QMessageBox::NoButton, &m_window);
    box.setObjectName(QStringLiteral("changedBox"));
    box.setInformativeText(tr("Overwrite replaces those changes and keeps them in %1. Save As writes to another file.")
                               .arg(shown(ProjectFile(path).backupPath())));
    const QAbstractButton *const overwrite = box.addButton(tr("&Overwrite"), QMessageBox::DestructiveRole);
    const QAbstractButton *const saveAs = box.addButton(tr("Save &As..."), QMessageBox::AcceptRole);
    QPushButton *const cancel = box.addButton(tr("Cancel"), QMessageBox::RejectRole);
    box.setEscapeButton(cancel);
    box.setDefaultButton(cancel);
    box.exec();
    if (box.clickedButton() == overwrite) {
        return saveTo(path, StationDocument::Overwrite::Always);
    }
    return box.clickedButton() == saveAs && this->saveAs();
}

void FileCommands::compile(std::optional<Place> shown)
{
    const Station &station = m_document.station();
    const std::optional<QByteArray> blocks = withProgress(
        &m_window, tr("Compiling..."), [&station](const Progress &progress) { return station.compiled(progress); });
    if (!blocks) {
        return;
    }
    const QString suggestion = fileBeside(m_document.fileName(), QStringLiteral(".blk"));
    if (m_blocks.isNull()) {
        m_blocks = new BlockView(&m_window);
        connect(m_blocks, &BlockView::compileRequested, this, [this] { compile(); });
        connect(m_blocks, &BlockView::saved, this, &FileCommands::reportSaved);
    }
    m_blocks->setBlocks(*blocks, station.unavailableModules(), suggestion);
    if (shown) {
        m_blocks->showBlockOf(*shown);
    }
    m_blocks->show();
    m_blocks->raise();
    m_blocks->activateWindow();
}

void FileCommands::reportSaved(const QString &path)
{
    emit message(tr("Saved %1").arg(QFileInfo(path).fileName()));
}

void FileCommands::markBlocksOutdated()
{
    if (!m_blocks.isNull()) {
        m_blocks->setOutdated(true);
    }
}

void FileCommands::decompile()
{
    if (!mayDiscard()) {
        return;
    }
    const QString path =
        QFileDialog::getOpenFileName(&m_window, tr("Decompile Configuration Blocks"), {}, blockFilter());
    if (!path.isEmpty()) {
        decompileFile(path);
    }
}

void FileCommands::decompileFile(const QString &path)
{
    const auto rebuilt = withProgress(&m_window, tr("Decompiling..."),
                                      [&](const Progress &progress) { return m_document.readBlocks(path, progress); });
    if (!rebuilt) {
        showFailure(&m_window, tr("%1 cannot be read.").arg(shown(path)), rebuilt);
        return;
    }
    if (rebuilt->moduleCount == 0) {
        showFailure(&m_window, tr("No module can be rebuilt from %1.").arg(shown(path)),
                    Failure{tr("Probably it is not a file of configuration blocks. The present station stays open.")});
        return;
    }
    emit message(tr("%n module(s) rebuilt from %1", nullptr, rebuilt->moduleCount).arg(QFileInfo(path).fileName()));
    if (!rebuilt->problems.empty()) {
        BlockResultsDialog(rebuilt->moduleCount, rebuilt->problems, &m_window).exec();
    }
}

QString FileCommands::fileTitle() const
{
    const QString name = QFileInfo(m_document.fileName()).fileName();
    return name.isEmpty() ? tr("New station") : name;
}

bool FileCommands::mayDiscard()
{
    if (!m_document.isModified()) {
        return true;
    }
    QMessageBox box(QMessageBox::Warning, tr("Unsaved Changes"), tr("Save the changes to \"%1\"?").arg(fileTitle()),
                    QMessageBox::NoButton, &m_window);
    box.setObjectName(QStringLiteral("unsavedBox"));
    const QAbstractButton *const save = box.addButton(tr("&Save"), QMessageBox::AcceptRole);
    const QAbstractButton *const discard = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(tr("Cancel"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == discard || (box.clickedButton() == save && this->save());
}
