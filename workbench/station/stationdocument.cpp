#include "stationdocument.h"

#include "files.h"
#include "projectrecovery.h"

#include <QFileInfo>

#include <utility>

namespace {

/// What the plug-in cannot restore of a recovered project, or restores in another form.
QStringList lossesOf(const Station &station, const Project &project)
{
    QStringList losses;
    for (int i = 0; i < station.count(); ++i) {
        const ModuleSummary module = station.module(i);
        const QString reason = !module.unavailable.isEmpty() ? module.unavailable
                               : station.stored(i).state != project.modules[static_cast<std::size_t>(i)].state
                                   ? StationDocument::tr("Parameters that cannot be read have factory values.")
                                   : QString();
        if (!reason.isEmpty()) {
            losses +=
                StationDocument::tr("Rack %1, slot %2, \"%3\": %4")
                    .arg(QString::number(module.place.rack), QString::number(module.place.slot), module.name, reason);
        }
    }
    return losses;
}

} // namespace

StationDocument::StationDocument(const PluginLibrary &plugin, std::unique_ptr<Station> station)
    : m_plugin(plugin), m_station(std::move(station))
{
}

/// Two stations exist while one replaces the other, so each has a separate key.
QString StationDocument::nextMemoryOwner()
{
    return QStringLiteral("workbench-%1").arg(++m_stationNumber);
}

void StationDocument::replace(std::unique_ptr<Station> station, const QString &fileName, const QString &savedChecksum,
                              bool isModified)
{
    m_undoStack.clear();
    const std::unique_ptr<Station> former = std::exchange(m_station, std::move(station));
    m_fileName = fileName;
    m_savedChecksum = savedChecksum;
    if (isModified) {
        m_undoStack.resetClean();
    } else {
        m_undoStack.setClean(); // clear() does not set it for an empty stack
    }
    emit stationReplaced();
    emit fileNameChanged();
}

void StationDocument::create()
{
    replace(std::make_unique<Station>(m_plugin, nextMemoryOwner()), QString(), QString(), false);
}

Result<> StationDocument::open(const QString &path, const Progress &progress)
{
    const Result<Project> project = ProjectFile(path).read();
    if (!project) {
        return project.failure();
    }
    Result<std::unique_ptr<Station>> opened = Station::opened(m_plugin, nextMemoryOwner(), *project, progress);
    if (!opened) {
        return opened.failure();
    }
    replace(std::move(*opened), path, projectChecksum(*project), false);
    return {};
}

Result<ProjectFile::Written> StationDocument::save(const QString &path, Overwrite overwrite)
{
    const Project project = m_station->project();
    const bool isOwnFile =
        !m_fileName.isEmpty() && QFileInfo(path).absoluteFilePath() == QFileInfo(m_fileName).absoluteFilePath();
    const bool isChecked = isOwnFile && overwrite == Overwrite::IfUnchanged;
    Result<ProjectFile::Written> written = ProjectFile(path).write(project, isChecked ? m_savedChecksum : QString());
    if (written && *written == ProjectFile::Written::Yes) {
        m_fileName = path;
        m_savedChecksum = projectChecksum(project);
        m_undoStack.setClean();
        emit fileNameChanged();
    }
    return written;
}

Result<QStringList> StationDocument::recover(const QString &path, const Progress &progress)
{
    Result<RecoveredProject> recovered = recoverProject(path);
    if (!recovered) {
        return recovered.failure();
    }
    const QString owner = nextMemoryOwner();
    auto opened = Station::opened(m_plugin, owner, recovered->project, progress);
    if (!opened && !opened.reason().isEmpty()) { // the PLC type is damaged
        recovered->project.plcType = Station::largestPlcType();
        opened = Station::opened(m_plugin, owner, recovered->project, progress);
        recovered->losses += tr("The controller type is lost. Check the type that was chosen.");
        if (opened) {
            (*opened)->fitPlcType();
        }
    }
    if (!opened) {
        return opened.failure();
    }
    const QStringList losses = recovered->losses + lossesOf(**opened, recovered->project);
    replace(std::move(*opened), QString(), QString(), true);
    return losses;
}

Result<> StationDocument::restore(const UnsavedStation &unsaved)
{
    Result<std::unique_ptr<Station>> opened = Station::opened(m_plugin, nextMemoryOwner(), unsaved.project);
    if (!opened) {
        return opened.failure();
    }
    replace(std::move(*opened), unsaved.fileName, unsaved.savedChecksum, true);
    return {};
}

UnsavedStation StationDocument::unsaved() const
{
    const QString path = m_fileName.isEmpty() ? QString() : QFileInfo(m_fileName).absoluteFilePath();
    return {m_station->project(), path, m_savedChecksum, QDateTime::currentDateTime()};
}

Result<StationDocument::Rebuilt> StationDocument::readBlocks(const QString &path, const Progress &progress)
{
    const Result<QByteArray> bytes = readBlockFile(path);
    if (!bytes) {
        return bytes.failure();
    }
    DecompiledStation rebuilt = decompiled(m_plugin, nextMemoryOwner(), *bytes, progress);
    if (!rebuilt.station) {
        return Failure();
    }
    const int count = rebuilt.station->count();
    if (count != 0) { // a file of another kind does not discard the present station
        replace(std::move(rebuilt.station), QString(), QString(), true);
    }
    return Rebuilt{count, rebuilt.problems};
}
