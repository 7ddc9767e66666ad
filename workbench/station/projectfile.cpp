#include "projectfile.h"

#include "projectdatabase.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>
#include <QtEndian>

#include <filesystem>

namespace {

constexpr int headerSize = 100; // of a SQLite database, as its format defines it
constexpr int versionOffset = 60;
constexpr int applicationIdOffset = 68;
constexpr int fileSystemName = 255; // bytes of a file name in most file systems
constexpr int longestSuffix = 45;   // bytes that the journal of a TemporaryName appends to a name

/// Fails if Qt cannot open any project, or not one of this name.
Result<> checkUsable(const QString &path)
{
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE"))) {
        return Failure{ProjectFile::tr("Qt's SQLite driver is not installed.")};
    }
    if (path.startsWith(QLatin1Char(':'))) { // the name of a resource of the program
        return Failure{
            ProjectFile::tr("A file name that begins with a colon needs its folder, such as ./%1.").arg(path)};
    }
    return {};
}

Result<> checkNameLength(const QString &path)
{
    constexpr int maximum = fileSystemName - longestSuffix;
    const int size = QFile::encodeName(QFileInfo(path).fileName()).size();
    return size <= maximum
               ? Result<>()
               : Failure{ProjectFile::tr("The file name has %1 bytes. That of a project can have at most %2 bytes.")
                             .arg(size)
                             .arg(maximum)};
}

bool isDatabase(const QByteArray &header)
{
    return header.size() == headerSize && header.startsWith(QByteArray("SQLite format 3\0", 16));
}

bool hasApplicationId(const QByteArray &header)
{
    return qFromBigEndian<quint32>(header.constData() + applicationIdOffset) == ProjectFile::applicationId;
}

QString damaged(const QString &complaint)
{
    return ProjectFile::tr("The file is damaged: %1").arg(complaint);
}

QString invalidValues()
{
    return damaged(ProjectFile::tr("it has unreadable pages or invalid values."));
}

/// What is wrong with the tables or their rows; empty if they are correct. The tables are compared first, because
/// SQLite's check evaluates their constraints and must not evaluate those of other tables.
QString complaintOf(ProjectDatabase &database, int version)
{
    QStringList statements;
    QStringList findings;
    database.select(QStringLiteral("SELECT sql FROM sqlite_master ORDER BY rowid"),
                    [&](const QSqlQuery &query) { statements += query.value(0).toString(); });
    if (database.errorString().isEmpty() && statements != projectSchema(version)) {
        return damaged(ProjectFile::tr("its tables are not those of a station."));
    }
    database.select(QStringLiteral("PRAGMA integrity_check(1)"),
                    [&](const QSqlQuery &query) { findings += query.value(0).toString(); });
    findings.removeAll(QStringLiteral("ok"));
    return database.errorString().isEmpty() && !findings.isEmpty() ? invalidValues() : database.errorString();
}

/// The project of an open transaction.
Result<Project> readFrom(ProjectDatabase &database)
{
    const int version = database.version();
    if (const QString complaint = complaintOf(database, version); !complaint.isEmpty()) {
        return Failure{complaint};
    }
    Project project;
    QString storedChecksum;
    database.select(QStringLiteral("SELECT plc_type, sha256 FROM station"), [&](const QSqlQuery &query) {
        project.plcType = query.value(0).toUInt();
        storedChecksum = query.value(1).toString();
    });
    bool isAtPlace = true; // SQLite's check accepts a fraction of a rack
    database.select(QStringLiteral("SELECT rack, slot, type_code, name, state, place FROM module ORDER BY place"),
                    [&](const QSqlQuery &query) {
                        project.modules.push_back({{query.value(0).toInt(), query.value(1).toInt()},
                                                   query.value(2).toUInt(),
                                                   query.value(3).toString(),
                                                   query.value(4).toByteArray(),
                                                   {}});
                        isAtPlace = isAtPlace && project.modules.back().place == Place::at(query.value(5).toInt());
                    });
    if (version != ProjectFile::versionWithoutProperties) {
        project.properties = database.properties();
    }
    if (!database.errorString().isEmpty()) {
        return Failure{database.errorString()};
    }
    if (!isAtPlace) {
        return Failure{invalidValues()};
    }
    if (storedChecksum != projectChecksum(project, version)) {
        return Failure{damaged(ProjectFile::tr("its modules do not match its checksum."))};
    }
    return project;
}

/// The name of a temporary file in the folder of @p path. The file is removed with this object unless it was renamed.
class TemporaryName {
public:
    explicit TemporaryName(const QString &path)
        : m_path(path + QStringLiteral(".%1.tmp").arg(QUuid::createUuid().toString(QUuid::Id128)))
    {
    }
    ~TemporaryName() { QFile::remove(m_path); }
    Q_DISABLE_COPY_MOVE(TemporaryName)

    const QString &path() const { return m_path; }

private:
    QString m_path;
};

Result<> writeNew(const QString &path, const Project &project)
{
    ProjectDatabase database(path);
    return database.create(project) ? Result<>() : Failure{database.errorString()};
}

/// Removes the temporary files of programs that were killed.
void removeLeftovers(const QString &path)
{
    static const QRegularExpression ending(QStringLiteral("^\\.[0-9a-f]{32}\\.tmp(-journal)?$"));
    const QString name = QFileInfo(path).fileName();
    QDir folder = QFileInfo(path).dir();
    for (const QString &other : folder.entryList(QDir::Files | QDir::Hidden)) {
        if (other.startsWith(name) && ending.match(other.mid(name.size())).hasMatch()) {
            folder.remove(other);
        }
    }
}

} // namespace

QString projectChecksum(const Project &project, int version)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray::number(project.plcType));
    for (const StoredModule &module : project.modules) {
        hash.addData(' ' + QByteArray::number(module.place.index()) + ' ' + QByteArray::number(module.state.size()) +
                     ':');
        hash.addData(module.state);
    }
    if (version != ProjectFile::versionWithoutProperties) {
        QStringList texts = textsOf(project.properties);
        for (const StoredModule &module : project.modules) {
            texts += storedText(module.name);
        }
        for (const QString &text : qAsConst(texts)) {
            const QByteArray bytes = text.toUtf8();
            hash.addData(' ' + QByteArray::number(bytes.size()) + ':');
            hash.addData(bytes);
        }
    }
    return QString::fromLatin1(hash.result().toHex());
}

ProjectFile::ProjectFile(const QString &path) : m_path(QFileInfo(path).absoluteFilePath()) {}

bool ProjectFile::isProject() const
{
    QFile file(m_path);
    if (!QFileInfo(m_path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray header = file.read(headerSize);
    return isDatabase(header) && hasApplicationId(header);
}

/// Checks the first bytes, so the database library does not open files of other programs.
Result<> ProjectFile::recognise() const
{
    if (Result<> usable = checkUsable(m_path); !usable) {
        return usable;
    }
    const QString isOther = tr("This is not a station file, or its header is damaged.");
    // Opening a pipe waits for a writer.
    if (const QFileInfo info(m_path); info.exists() && !info.isFile()) {
        return Failure{isOther};
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Failure{file.errorString()};
    }
    if (file.size() > maximumSize) {
        return Failure{tr("The file is too large for a station.")};
    }
    const QByteArray header = file.read(headerSize);
    if (!isDatabase(header)) {
        return Failure{isOther};
    }
    if (!hasApplicationId(header)) {
        return Failure{tr("This is the database of another program, or its header is damaged.")};
    }
    const auto version = qFromBigEndian<quint32>(header.constData() + versionOffset);
    if (version < static_cast<quint32>(versionWithoutProperties) || version > static_cast<quint32>(formatVersion)) {
        return Failure{
            tr("The file has version %1; this program reads the versions up to %2.").arg(version).arg(formatVersion)};
    }
    return {};
}

Result<Project> ProjectFile::read() const
{
    if (const Result<> recognised = recognise(); !recognised) {
        return recognised.failure();
    }
    ProjectDatabase database(m_path);
    database.run(QStringLiteral("PRAGMA cell_size_check = ON"));
    database.run(QStringLiteral("BEGIN"));
    return readFrom(database);
}

Result<ProjectFile::Written> ProjectFile::write(const Project &project, const QString &expected) const
{
    for (const Result<> &possible : {checkUsable(m_path), checkNameLength(m_path)}) {
        if (!possible) {
            return possible.failure();
        }
    }
    removeLeftovers(m_path);
    if (!QFileInfo::exists(m_path)) {
        const Result<> created = createWith(project);
        return created ? Result<Written>(Written::Yes) : created.failure();
    }
    if (const Result<> recognised = recognise(); !recognised) {
        return recognised.failure();
    }
    ProjectDatabase database(m_path);
    database.run(QStringLiteral("PRAGMA cell_size_check = ON"));
    database.begin();
    const Result<Project> present = readFrom(database);
    if (!present) {
        return present.failure();
    }
    const QString found = projectChecksum(*present);
    if (!expected.isEmpty() && found != expected) {
        return Written::ChangedOnDisk;
    }
    if (const Result<> kept = found == projectChecksum(project) ? Result<>() : keepBackup(*present); !kept) {
        return Failure{
            tr("The backup %1 cannot be written. %2").arg(QDir::toNativeSeparators(backupPath()), kept.reason())};
    }
    return database.replace(project) ? Result<Written>(Written::Yes) : Failure{database.errorString()};
}

/// Writes a new file under a temporary name and renames it when it is complete.
Result<> ProjectFile::createWith(const Project &project) const
{
    const TemporaryName temporary(m_path);
    if (Result<> written = writeNew(temporary.path(), project); !written) {
        return written;
    }
    QFile file(temporary.path());
    return file.rename(m_path) ? Result<>() : Failure{file.errorString()};
}

/// Unlike createWith() replaces an older backup, also as a whole.
Result<> ProjectFile::keepBackup(const Project &project) const
{
    const TemporaryName temporary(m_path);
    if (Result<> written = writeNew(temporary.path(), project); !written) {
        return written;
    }
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(temporary.path()).toStdString(),
                            QFile::encodeName(backupPath()).toStdString(), error);
    return error ? Failure{QString::fromLocal8Bit(error.message().c_str())} : Result<>();
}

Result<std::unique_ptr<Station>> openStation(const PluginLibrary &plugin, const QString &memoryOwner,
                                             const QString &path, const Progress &progress)
{
    const Result<Project> project = ProjectFile(path).read();
    return project ? Station::opened(plugin, memoryOwner, *project, progress) : project.failure();
}
