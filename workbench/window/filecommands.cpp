#include "filecommands.h"

#include "blockresultsdialog.h"
#include "blockview.h"
#include "filequestions.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>

namespace {

constexpr int progressDelay = 400; // ms until a long operation shows its progress
constexpr int shownProblems = 8;

QString shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

FileCommands::FileCommands(StationDocument &document, QWidget &window)
    : QObject(&window), m_document(document), m_window(window)
{
}

template <typename Work>
auto FileCommands::withProgress(const QString &label, Work work)
{
    QProgressDialog dialog(label, tr("Cancel"), 0, 0, &m_window);
    dialog.setObjectName(QStringLiteral("progressDialog"));
    dialog.setWindowTitle(tr("Module Workbench"));
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinimumDuration(progressDelay);
    return work([&dialog](int done, int total) {
        dialog.setMaximum(total);
        dialog.setValue(done);
        return !dialog.wasCanceled();
    });
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

bool FileCommands::openFile(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const Result<> opened = withProgress(tr("Opening %1...").arg(name),
                                         [&](const Progress &progress) { return m_document.open(path, progress); });
    if (!opened) {
        showFailure(&m_window, tr("%1 cannot be opened.").arg(shown(path)), opened);
        return false;
    }
    emit fileUsed(path);
    emit message(tr("Opened %1").arg(name));
    showUnavailable();
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

bool FileCommands::saveTo(const QString &path)
{
    if (const Result<> saved = m_document.save(path); !saved) {
        showFailure(&m_window, tr("%1 cannot be saved.").arg(shown(path)), saved);
        return false;
    }
    emit fileUsed(path);
    emit message(tr("Saved %1").arg(QFileInfo(path).fileName()));
    return true;
}

void FileCommands::compile()
{
    const std::optional<QByteArray> blocks = withProgress(
        tr("Compiling..."), [this](const Progress &progress) { return m_document.station().compiled(progress); });
    if (!blocks) {
        return;
    }
    if (const int unavailable = m_document.station().unavailableCount(); unavailable != 0) {
        emit message(tr("%n unavailable module(s) were left out", nullptr, unavailable));
    }
    const QFileInfo project(m_document.fileName());
    const QString suggestion = project.fileName().isEmpty()
                                   ? QString()
                                   : project.dir().filePath(project.completeBaseName() + QStringLiteral(".blk"));
    (new BlockView(*blocks, suggestion, &m_window))->show();
}

void FileCommands::decompile()
{
    if (!mayDiscard()) {
        return;
    }
    const QString path =
        QFileDialog::getOpenFileName(&m_window, tr("Decompile Configuration Blocks"), {}, blockFilter());
    if (path.isEmpty()) {
        return;
    }
    const auto rebuilt = withProgress(tr("Decompiling..."),
                                      [&](const Progress &progress) { return m_document.readBlocks(path, progress); });
    if (!rebuilt) {
        showFailure(&m_window, tr("%1 cannot be read.").arg(shown(path)), rebuilt);
    } else if (!rebuilt->problems.empty()) {
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
