// The project file: a SQLite database with the PLC type and the modules of a station.
#pragma once

#include "station.h"

#include <QCoreApplication>

/// One project file. If the program or the power fails while it is written, the file contains the old project or the
/// new one. A file that is not a complete project of this format version is neither read nor overwritten. Needs an
/// application object, because Qt's database drivers do.
class ProjectFile {
    Q_DECLARE_TR_FUNCTIONS(ProjectFile)
public:
    static constexpr int formatVersion = 1;

    explicit ProjectFile(const QString &path);

    Result<Project> read() const;
    /// Creates the file, or replaces the project that it contains. Fails when the file cannot be written or is not a
    /// project; it is then unchanged. Also removes temporary files that a killed program left beside the file.
    Result<> write(const Project &project) const;

private:
    Result<> recognise() const;
    Result<> createWith(const Project &project) const;

    QString m_path;
};

/// The station of a project file. Fails, with no memory left claimed, when the file is rejected or @p progress cancels;
/// the reason is empty in the latter case.
Result<std::unique_ptr<Station>> openStation(const PluginLibrary &plugin, const QString &memoryOwner,
                                             const QString &path, const Progress &progress = {});
