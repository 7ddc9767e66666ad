#include "projectfile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>
#include <QtEndian>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 maximumFileSize = 64LL * 1024 * 1024; // bytes, many times the size of a full station
constexpr quint32 applicationId = 0x53585354;          // "SXST"
constexpr int headerSize = 100;                        // of a SQLite database, as its format defines it
constexpr int versionOffset = 60;
constexpr int applicationIdOffset = 68;

/// The statements that create the tables. SQLite stores their text, which identifies a station file.
QStringList schema()
{
    return {QStringLiteral("CREATE TABLE station (id INTEGER PRIMARY KEY CHECK (id = 1), plc_type INTEGER NOT NULL, "
                           "sha256 TEXT NOT NULL)"),
            QStringLiteral("CREATE TABLE module (place INTEGER PRIMARY KEY CHECK (place = rack * %1 + slot), "
                           "rack INTEGER NOT NULL CHECK (rack BETWEEN 0 AND %2), "
                           "slot INTEGER NOT NULL CHECK (slot BETWEEN 0 AND %3), type_code INTEGER NOT NULL, "
                           "name TEXT NOT NULL, "
                           "state BLOB NOT NULL CHECK (typeof(state) = 'blob' AND length(state) BETWEEN 1 AND %4))")
                .arg(Place::slotCount)
                .arg(Place::rackCount - 1)
                .arg(Place::slotCount - 1)
                .arg(StoredModule::maximumStateSize)};
}

/// Includes the length of every state, which detects bytes that moved from one module to the next.
QString checksum(const Project &project)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray::number(project.plcType));
    for (const StoredModule &module : project.modules) {
        hash.addData(' ' + QByteArray::number(module.place.index()) + ' ' + QByteArray::number(module.state.size()) +
                     ':');
        hash.addData(module.state);
    }
    return QString::fromLatin1(hash.result().toHex());
}

QString damaged(const QString &complaint)
{
    return ProjectFile::tr("The file is damaged: %1").arg(complaint);
}

/// A sentence for the user. The lowest byte of a SQLite result code is its primary code.
QString textOf(const QSqlError &error)
{
    switch (error.nativeErrorCode().toUInt() & 0xffU) {
    case 5:
        return ProjectFile::tr("Another program is using the file.");
    case 8:
        return ProjectFile::tr("The file or its folder is write-protected.");
    case 10:
        return ProjectFile::tr("The disk is full, or it failed to read or write.");
    case 13:
        return ProjectFile::tr("The disk is full.");
    case 14:
        return ProjectFile::tr("The folder does not exist, or files cannot be created in it.");
    default:
        return damaged(error.text().simplified());
    }
}

/// An open database with a separate connection name, which is removed with it. Stores the first error.
class Database {
public:
    explicit Database(const QString &path)
        : m_name(QUuid::createUuid().toString()),
          m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name))
    {
        m_database.setDatabaseName(path);
        m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000")); // ms
        if (!m_database.open()) {
            keep(m_database.lastError());
        }
    }
    ~Database()
    {
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
    }
    Q_DISABLE_COPY_MOVE(Database)

    /// Runs a statement once per row of values. After a failure all later calls fail.
    bool run(const QString &statement, const QVector<QVariantList> &rows = {QVariantList()})
    {
        QSqlQuery query = prepared(statement);
        return std::all_of(rows.begin(), rows.end(), [&](const QVariantList &row) { return exec(query, row); });
    }
    /// Calls @p take with the query at each row of the result.
    template <typename Take>
    bool select(const QString &statement, Take take)
    {
        QSqlQuery query = prepared(statement);
        if (!exec(query, {})) {
            return false;
        }
        while (query.next()) {
            take(query);
        }
        return keep(query.lastError());
    }

    const QString &errorString() const { return m_errorString; }

private:
    QSqlQuery prepared(const QString &statement)
    {
        QSqlQuery query(m_database);
        query.setForwardOnly(true);
        if (m_errorString.isEmpty() && !query.prepare(statement)) {
            keep(query.lastError());
        }
        return query;
    }
    bool exec(QSqlQuery &query, const QVariantList &row)
    {
        if (!m_errorString.isEmpty()) {
            return false;
        }
        for (const QVariant &value : row) {
            query.addBindValue(value);
        }
        return query.exec() || keep(query.lastError());
    }
    bool keep(const QSqlError &error)
    {
        if (error.isValid() && m_errorString.isEmpty()) {
            m_errorString = textOf(error);
        }
        return m_errorString.isEmpty();
    }

    QString m_name;
    QSqlDatabase m_database;
    QString m_errorString;
};

/// What is wrong with the tables or their rows; empty if they are correct. The tables are compared first, because
/// SQLite's check evaluates their constraints and must not evaluate those of other tables.
QString complaintOf(Database &database)
{
    QStringList statements;
    QStringList findings;
    database.select(QStringLiteral("SELECT sql FROM sqlite_master ORDER BY rowid"),
                    [&](const QSqlQuery &query) { statements += query.value(0).toString(); });
    if (database.errorString().isEmpty() && statements != schema()) {
        return damaged(ProjectFile::tr("its tables are not those of a station."));
    }
    database.select(QStringLiteral("PRAGMA integrity_check(1)"),
                    [&](const QSqlQuery &query) { findings += query.value(0).toString(); });
    findings.removeAll(QStringLiteral("ok"));
    return database.errorString().isEmpty() && !findings.isEmpty() ? damaged(findings.join(QLatin1Char(' ')))
                                                                   : database.errorString();
}

bool insertProject(Database &database, const Project &project)
{
    QVector<QVariantList> rows;
    for (const StoredModule &module : project.modules) {
        rows.append({module.place.index(), module.place.rack, module.place.slot, module.typeCode,
                     module.name.isNull() ? QStringLiteral("") : module.name,
                     module.state}); // a null string would become NULL
    }
    return database.run(QStringLiteral("INSERT INTO station VALUES (1, ?, ?)"),
                        {{project.plcType, checksum(project)}}) &&
           database.run(QStringLiteral("INSERT INTO module VALUES (?, ?, ?, ?, ?, ?)"), rows);
}

bool prepareToWrite(Database &database)
{
    return database.run(QStringLiteral("PRAGMA journal_mode = DELETE")) &&
           database.run(QStringLiteral("PRAGMA synchronous = FULL")) && database.run(QStringLiteral("BEGIN IMMEDIATE"));
}

bool createDatabase(Database &database, const Project &project)
{
    const QStringList statements = schema();
    return prepareToWrite(database) && database.run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId)) &&
           database.run(QStringLiteral("PRAGMA user_version = %1").arg(ProjectFile::formatVersion)) &&
           std::all_of(statements.begin(), statements.end(),
                       [&](const QString &statement) { return database.run(statement); }) &&
           insertProject(database, project) && database.run(QStringLiteral("COMMIT"));
}

bool replaceContent(Database &database, const Project &project)
{
    return prepareToWrite(database) && database.run(QStringLiteral("DELETE FROM station")) &&
           database.run(QStringLiteral("DELETE FROM module")) && insertProject(database, project) &&
           database.run(QStringLiteral("COMMIT"));
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

ProjectFile::ProjectFile(const QString &path) : m_path(QFileInfo(path).absoluteFilePath()) {}

/// Checks the first bytes, so the database library does not open files of other programs.
Result<> ProjectFile::recognise() const
{
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE"))) {
        return Failure{tr("Qt's SQLite driver is not installed.")};
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Failure{file.errorString()};
    }
    if (file.size() > maximumFileSize) {
        return Failure{tr("The file is too large for a station.")};
    }
    const QByteArray header = file.read(headerSize);
    if (header.size() < headerSize || !header.startsWith(QByteArray("SQLite format 3\0", 16))) {
        return Failure{tr("This is not a station file, or its header is damaged.")};
    }
    if (qFromBigEndian<quint32>(header.constData() + applicationIdOffset) != applicationId) {
        return Failure{tr("This is the database of another program, not a station file.")};
    }
    const auto version = qFromBigEndian<quint32>(header.constData() + versionOffset);
    if (version != formatVersion) {
        return Failure{tr("The file has version %1; this program reads version %2.").arg(version).arg(formatVersion)};
    }
    return {};
}

Result<Project> ProjectFile::read() const
{
    if (const Result<> recognised = recognise(); !recognised) {
        return recognised.failure();
    }
    Database database(m_path);
    database.run(QStringLiteral("PRAGMA cell_size_check = ON"));
    database.run(QStringLiteral("BEGIN"));
    if (const QString complaint = complaintOf(database); !complaint.isEmpty()) {
        return Failure{complaint};
    }
    Project project;
    QString storedChecksum;
    database.select(QStringLiteral("SELECT plc_type, sha256 FROM station"), [&](const QSqlQuery &query) {
        project.plcType = query.value(0).toUInt();
        storedChecksum = query.value(1).toString();
    });
    database.select(QStringLiteral("SELECT rack, slot, type_code, name, state FROM module ORDER BY place"),
                    [&](const QSqlQuery &query) {
                        project.modules.push_back({{query.value(0).toInt(), query.value(1).toInt()},
                                                   query.value(2).toUInt(),
                                                   query.value(3).toString(),
                                                   query.value(4).toByteArray(),
                                                   {}});
                    });
    if (!database.errorString().isEmpty()) {
        return Failure{database.errorString()};
    }
    if (storedChecksum != checksum(project)) {
        return Failure{damaged(tr("its modules do not match its checksum."))};
    }
    return project;
}

Result<> ProjectFile::write(const Project &project) const
{
    removeLeftovers(m_path);
    if (!QFileInfo::exists(m_path)) {
        return createWith(project);
    }
    if (Result<Project> present = read(); !present) {
        return present.failure();
    }
    Database database(m_path);
    return replaceContent(database, project) ? Result<>() : Failure{database.errorString()};
}

/// Writes a new file under a temporary name and renames it when it is complete.
Result<> ProjectFile::createWith(const Project &project) const
{
    const TemporaryName temporary(m_path);
    {
        Database database(temporary.path());
        if (!createDatabase(database, project)) {
            return Failure{database.errorString()};
        }
    }
    QFile file(temporary.path());
    return file.rename(m_path) ? Result<>() : Failure{file.errorString()};
}

Result<std::unique_ptr<Station>> openStation(const PluginLibrary &plugin, const QString &memoryOwner,
                                             const QString &path, const Progress &progress)
{
    const Result<Project> project = ProjectFile(path).read();
    return project ? Station::opened(plugin, memoryOwner, *project, progress) : project.failure();
}
