// The file in which a station is kept: a SQLite database with the station, its PLC type and its modules.
#pragma once

#include "station.h"

#include <QCoreApplication>

#include <optional>

/// Replaces the file as a whole, or writes to the device that has this name. False, and why in @p error, when that
/// fails; an existing file is then unchanged.
bool writeFile(const QString &path, const QByteArray &bytes, QString &error);

/// One project file. Whatever ends the program or the power while it is written, the file is the old project or the
/// new one. What is not a whole project of this format version is neither read nor overwritten. Needs an application
/// object, as Qt's database drivers do.
class ProjectFile {
    Q_DECLARE_TR_FUNCTIONS(ProjectFile)
public:
    static constexpr int formatVersion = 1;

    explicit ProjectFile(const QString &path);

    /// The project; nothing, and why in errorString(), when there is none.
    std::optional<Project> read();
    /// Writes the project to a new file or in place of the one that the file holds. False, and why in errorString(),
    /// when that fails or the file is not a project; it is then unchanged. Removes what a program that was killed in
    /// its first writing has left beside the file.
    bool write(const Project &project);

    const QString &errorString() const { return m_errorString; }

private:
    bool recognise();
    bool createWith(const Project &project);
    bool fail(const QString &error);

    QString m_path;
    QString m_errorString;
};

/// The station of a project file. Null, with no memory left claimed, when the file is refused (@p error says why) or
/// @p progress ended the work (@p error is empty).
std::unique_ptr<Station> openStation(const PluginLibrary &plugin, const QString &memoryOwner, const QString &path,
                                     QString &error, const Progress &progress = {});
