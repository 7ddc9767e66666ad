#include "stationdocument.h"

#include "files.h"
#include "projectfile.h"

#include <utility>

StationDocument::StationDocument(const PluginLibrary &plugin, std::unique_ptr<Station> station)
    : m_plugin(plugin), m_station(std::move(station))
{
}

/// Two stations exist while one replaces the other, so each has a separate key.
QString StationDocument::nextMemoryOwner()
{
    return QStringLiteral("workbench-%1").arg(++m_stationNumber);
}

void StationDocument::replace(std::unique_ptr<Station> station, const QString &fileName)
{
    m_undoStack.clear();
    const std::unique_ptr<Station> former = std::exchange(m_station, std::move(station));
    m_fileName = fileName;
    emit stationReplaced();
    emit fileNameChanged();
}

void StationDocument::create()
{
    replace(std::make_unique<Station>(m_plugin, nextMemoryOwner()), QString());
}

Result<> StationDocument::open(const QString &path, const Progress &progress)
{
    Result<std::unique_ptr<Station>> opened = openStation(m_plugin, nextMemoryOwner(), path, progress);
    if (!opened) {
        return opened.failure();
    }
    replace(std::move(*opened), path);
    return {};
}

Result<> StationDocument::save(const QString &path)
{
    Result<> written = ProjectFile(path).write(m_station->project());
    if (written) {
        m_fileName = path;
        m_undoStack.setClean();
        emit fileNameChanged();
    }
    return written;
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
        replace(std::move(rebuilt.station), QString());
        m_undoStack.resetClean();
    }
    return Rebuilt{count, rebuilt.problems};
}
