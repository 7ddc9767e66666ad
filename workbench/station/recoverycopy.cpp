#include "recoverycopy.h"

#include "files.h"
#include "modulestream.h"
#include "projectfile.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QSet>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>

namespace {

constexpr quint32 formatMark = 0x53585243; // "SXRC", and the version of the format
constexpr quint32 formatVersion = 1;
constexpr int digestSize = 32;
const QLatin1String lockSuffix(".lock");

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(RecoveryCopy)
};

QByteArray digestOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

QByteArray bytesOf(const UnsavedStation &station)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << formatMark << formatVersion << station.fileName << station.savedChecksum << station.time
           << station.project.plcType;
    writeModules(stream, station.project.modules);
    return bytes + digestOf(bytes);
}

/// Reads bytes whose digest is correct, but which another version of the program may have written.
bool readStation(const QByteArray &bytes, UnsavedStation &station)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 mark = 0;
    quint32 version = 0;
    stream >> mark >> version;
    if (mark != formatMark || version != formatVersion) {
        return false;
    }
    stream >> station.fileName >> station.savedChecksum >> station.time >> station.project.plcType;
    if (!readModules(stream, station.project.modules)) {
        return false;
    }
    for (StoredModule &module : station.project.modules) {
        module.unavailable.clear(); // the reason may be gone
    }
    return true;
}

} // namespace

QString RecoveryCopy::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/simpleextend/workbench/recovery");
}

RecoveryCopy::RecoveryCopy(const QString &folder) : RecoveryCopy(folder, QUuid::createUuid().toString(QUuid::Id128)) {}

RecoveryCopy::RecoveryCopy(const QString &folder, const QString &name)
    : m_folder(QDir(folder).filePath(name)), m_lock(std::make_unique<QLockFile>(m_folder + lockSuffix))
{
    m_lock->setStaleLockTime(0); // stale only when its program does not run
}

RecoveryCopy::~RecoveryCopy() = default;

QString RecoveryCopy::file() const
{
    return m_folder + QStringLiteral("/station");
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryCopy::abandoned(const QString &folder)
{
    QSet<QString> names;
    for (const QString &entry : QDir(folder).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot)) {
        names.insert(entry.endsWith(lockSuffix) ? entry.chopped(lockSuffix.size()) : entry);
    }
    std::vector<std::pair<QDateTime, std::unique_ptr<RecoveryCopy>>> found;
    for (const QString &name : qAsConst(names)) {
        std::unique_ptr<RecoveryCopy> copy(new RecoveryCopy(folder, name));
        if (!copy->m_lock->tryLock()) {
            continue;
        }
        if (const Result<UnsavedStation> station = copy->read()) {
            found.emplace_back(station->time, std::move(copy));
        } else if (!copy->content()) { // a sound one of another version stays for that version
            copy->drop();
        }
    }
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    std::vector<std::unique_ptr<RecoveryCopy>> copies;
    copies.reserve(found.size());
    for (auto &[time, copy] : found) {
        copies.push_back(std::move(copy));
    }
    return copies;
}

Result<> RecoveryCopy::write(const UnsavedStation &station)
{
    const QString parent = QFileInfo(m_folder).path();
    if (!QDir().mkpath(parent) || (!m_lock->isLocked() && !m_lock->tryLock()) || !QDir().mkpath(m_folder)) {
        return Failure{Texts::tr("The folder %1 cannot be written.").arg(QDir::toNativeSeparators(parent))};
    }
    return writeFile(file(), bytesOf(station));
}

/// The file without its digest; std::nullopt if it does not exist or its digest is wrong.
std::optional<QByteArray> RecoveryCopy::content() const
{
    QFile copy(file());
    const QByteArray bytes = copy.open(QIODevice::ReadOnly) ? copy.read(2 * ProjectFile::maximumSize) : QByteArray();
    const QByteArray content = bytes.chopped(std::min(digestSize, bytes.size()));
    return bytes.mid(content.size()) == digestOf(content) ? std::optional<QByteArray>(content) : std::nullopt;
}

Result<UnsavedStation> RecoveryCopy::read() const
{
    const std::optional<QByteArray> bytes = content();
    UnsavedStation station;
    if (!bytes || !readStation(*bytes, station)) {
        return Failure{Texts::tr("The recovery copy is damaged.")};
    }
    return station;
}

void RecoveryCopy::drop() const
{
    QDir(m_folder).removeRecursively();
}
