// The station that is being edited, with its undo stack and its project file.
#pragma once

#include "projectfile.h"
#include "recoverycopy.h"
#include "stationblocks.h"
#include "stationcommands.h"

#include <QUndoStack>

class StationDocument : public QObject {
    Q_OBJECT
public:
    /// What readBlocks() rebuilt.
    struct Rebuilt {
        int moduleCount = 0;
        std::vector<BlockResult> problems;
    };
    enum class Overwrite {
        IfUnchanged, ///< replace only what was read from or written to the document's file
        Always
    };

    /// Starts with @p station as a new project that was never saved. @p plugin must outlive the document.
    StationDocument(const PluginLibrary &plugin, std::unique_ptr<Station> station);

    Station &station() { return *m_station; }
    const Station &station() const { return *m_station; }
    StationEdits edits() { return {*m_station, m_undoStack}; }
    QUndoStack &undoStack() { return m_undoStack; }
    /// The project file; empty for a station that was never saved.
    const QString &fileName() const { return m_fileName; }
    /// True if the station has changes that are not in the project file.
    bool isModified() const { return !m_undoStack.isClean(); }

    /// Replaces the station by an empty one.
    void create();
    /// Replaces the station by the one in a project file. A failure leaves the present station; the reason is empty
    /// when @p progress cancelled.
    Result<> open(const QString &path, const Progress &progress = {});
    /// Writes the station to a project file, which becomes the document's file. Another file is always replaced.
    Result<ProjectFile::Written> save(const QString &path, Overwrite overwrite = Overwrite::IfUnchanged);
    /// Replaces the station by a modified one, never saved, with what can be read of a damaged project file. Returns
    /// what is lost or may be wrong. A failure leaves the present station.
    Result<QStringList> recover(const QString &path, const Progress &progress = {});
    /// Replaces the station by a recovery copy. It is modified, and has the project file of the copy.
    Result<> restore(const UnsavedStation &unsaved);
    /// What restore() needs.
    UnsavedStation unsaved() const;
    /// Replaces the station by a modified one that is rebuilt from a file of configuration blocks. Keeps the present
    /// station if no block can be rebuilt, and on a failure. The reason is empty when @p progress cancelled.
    Result<Rebuilt> readBlocks(const QString &path, const Progress &progress = {});

signals:
    /// station() returns another object. The former one still exists while the signal is emitted.
    void stationReplaced();
    void fileNameChanged();

private:
    void replace(std::unique_ptr<Station> station, const QString &fileName, const QString &savedChecksum,
                 bool isModified);
    QString nextMemoryOwner();

    const PluginLibrary &m_plugin;
    std::unique_ptr<Station> m_station;
    QUndoStack m_undoStack;
    QString m_fileName;
    QString m_savedChecksum; ///< of the project file's content, as far as the document knows it
    int m_stationNumber = 0;
};
