// The project file: a SQLite database with the PLC type and the modules of a station.
#pragma once

#include "station.h"

#include <QCoreApplication>

/// One project file. If the program or the power fails while it is written, the file contains the old project or the
/// new one. A file that is not a complete project of a format version up to this one is neither read nor overwritten.
/// Needs an application object, because Qt's database drivers do.
class ProjectFile {
    Q_DECLARE_TR_FUNCTIONS(ProjectFile)
public:
    /// Written by write(). read() also accepts versionWithoutProperties, which write() replaces.
    static constexpr int formatVersion = 2;
    static constexpr int versionWithoutProperties = 1;
    static constexpr quint32 applicationId = 0x53585354;      // "SXST"
    static constexpr qint64 maximumSize = 64LL * 1024 * 1024; ///< bytes, many times the size of a full station

    enum class Written {
        Yes,
        ChangedOnDisk ///< no: the file contains another project than expected
    };

    explicit ProjectFile(const QString &path);

    /// Also true for a file of another format version and for a damaged file with an intact header.
    bool isProject() const;
    Result<Project> read() const;
    /// Creates the file, or replaces the project that it contains and keeps that one as backupPath(). Fails when the
    /// file cannot be written, is not a project or has a name that leaves no room for the suffixes of temporary files;
    /// it is then unchanged. If @p expected is not empty, it is the
    /// projectChecksum() of the only project that may be replaced; no other process can change the file between this
    /// comparison and the replacement. Also removes temporary files that a killed program left beside the file.
    Result<Written> write(const Project &project, const QString &expected = {}) const;
    /// The file of the project that the latest save replaced.
    QString backupPath() const { return m_path + QStringLiteral(".bak"); }

private:
    Result<> recognise() const;
    Result<> createWith(const Project &project) const;
    Result<> keepBackup(const Project &project) const;

    QString m_path;
};

/// Identifies the content of a project. Includes the length of every state, which detects bytes that moved from one
/// module to the next. The checksum of a file has the @p version of the file's format.
QString projectChecksum(const Project &project, int version = ProjectFile::formatVersion);

/// The station of a project file. Fails, with no memory left claimed, when the file is rejected or @p progress cancels;
/// the reason is empty in the latter case.
Result<std::unique_ptr<Station>> openStation(const PluginLibrary &plugin, const QString &memoryOwner,
                                             const QString &path, const Progress &progress = {});
