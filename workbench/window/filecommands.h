// The commands of the File menu, with their questions, their progress and their failures.
#pragma once

#include "stationdocument.h"

#include <QPointer>

class BlockView;

class FileCommands : public QObject {
    Q_OBJECT
public:
    /// Dialogs appear over @p window, which owns this object. @p document must outlive both.
    FileCommands(StationDocument &document, QWidget &window);

    void create();
    void open();
    /// Opens a project file, or what can be recovered of it if the user wants that. Returns false, after informing the
    /// user, and keeps the present station when the file is rejected.
    bool openFile(const QString &path);
    void openRecent(const QString &path);
    /// True for an existing file with the name of a project or of configuration blocks.
    static bool canOpen(const QString &path);
    /// Opens or decompiles a file that canOpen(), after the question about unsaved changes.
    void openDropped(const QString &path);
    bool save();
    bool saveAs();
    /// Shows the block of the module at @p shown, or of the same slot as before.
    void compile(std::optional<Place> shown = {});
    void decompile();
    /// Offers to save unsaved changes. Returns false if the user cancels or saving fails.
    bool mayDiscard();
    /// Name of the project file for titles and questions.
    QString fileTitle() const;

signals:
    /// A short text for the status bar.
    void message(const QString &text);
    /// A project file was opened or saved.
    void fileUsed(const QString &path);
    /// A recently used file does not exist any more.
    void fileMissing(const QString &path);

private:
    bool saveTo(const QString &path, StationDocument::Overwrite overwrite = StationDocument::Overwrite::IfUnchanged);
    bool saveChanged(const QString &path);
    bool offerRecover(const QString &path, const Result<> &rejected);
    bool recover(const QString &path);
    void showUnavailable();
    void decompileFile(const QString &path);
    void reportSaved(const QString &path);
    void markBlocksOutdated();

    StationDocument &m_document;
    QWidget &m_window;
    QPointer<BlockView> m_blocks; ///< the compiled blocks, while they are shown
};
