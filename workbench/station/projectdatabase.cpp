#include "projectdatabase.h"

#include "projectfile.h"

#include <QUuid>

#include <algorithm>

namespace {

/// The lowest byte of a SQLite result code is its primary code.
QString textOf(const QSqlError &error)
{
    switch (const uint code = error.nativeErrorCode().toUInt() & 0xffU; code) {
    case 5:
        return ProjectFile::tr("Another program is using the file. Close it there, or try again later.");
    case 8:
        return ProjectFile::tr("The file or its folder is write-protected.");
    case 10:
        return ProjectFile::tr("The disk is full, or it failed to read or write.");
    case 13:
        return ProjectFile::tr("The disk is full.");
    case 14:
        return ProjectFile::tr("The folder does not exist, or files cannot be created in it.");
    case 11:
    case 26:
        return ProjectFile::tr("The file is damaged: parts of it cannot be read.");
    default:
        return ProjectFile::tr("The file is damaged: SQLite reports the error %1.").arg(code);
    }
}

QString propertiesTable()
{
    return QStringLiteral("CREATE TABLE properties (id INTEGER PRIMARY KEY CHECK (id = 1), title TEXT NOT NULL, "
                          "author TEXT NOT NULL, revision TEXT NOT NULL, notes TEXT NOT NULL)");
}

} // namespace

QStringList projectSchema(int version)
{
    QStringList statements{
        QStringLiteral("CREATE TABLE station (id INTEGER PRIMARY KEY CHECK (id = 1), plc_type INTEGER NOT NULL, "
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
    if (version != ProjectFile::versionWithoutProperties) {
        statements += propertiesTable();
    }
    return statements;
}

QString storedText(const QString &text)
{
    const auto isKept = [](QChar character) { return !character.isSurrogate() && character.unicode() < 0xFFFE; };
    if (!text.isEmpty() && !text.startsWith(QChar::ByteOrderMark) && std::all_of(text.begin(), text.end(), isKept)) {
        return text;
    }
    QVector<uint> characters = text.toUcs4(); // with U+FFFD for unpaired surrogates
    std::replace_if(
        characters.begin(), characters.end(), [](uint character) { return character == 0xFFFE || character == 0xFFFF; },
        uint{QChar::ReplacementCharacter});
    const auto *const begin = std::find_if(characters.cbegin(), characters.cend(),
                                           [](uint character) { return character != QChar::ByteOrderMark; });
    // A null string would become NULL.
    return begin == characters.cend() ? QStringLiteral("")
                                      : QString::fromUcs4(begin, static_cast<int>(characters.cend() - begin));
}

QStringList textsOf(const ProjectProperties &properties)
{
    return {storedText(properties.title), storedText(properties.author), storedText(properties.revision),
            storedText(properties.notes)};
}

ProjectDatabase::ProjectDatabase(const QString &path)
    : m_name(QUuid::createUuid().toString()), m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name))
{
    m_database.setDatabaseName(path);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000")); // ms
    if (!m_database.open()) {
        keep(m_database.lastError());
    }
}

ProjectDatabase::~ProjectDatabase()
{
    m_query = QSqlQuery();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

bool ProjectDatabase::run(const QString &statement, const QVector<QVariantList> &rows)
{
    QSqlQuery query = prepared(statement);
    return std::all_of(rows.begin(), rows.end(), [&](const QVariantList &row) { return exec(query, row); });
}

QSqlQuery ProjectDatabase::prepared(const QString &statement)
{
    if (statement == m_statement) {
        return m_query;
    }
    m_statement.clear();
    m_query = QSqlQuery(m_database);
    m_query.setForwardOnly(true);
    if (m_errorString.isEmpty() && m_query.prepare(statement)) {
        m_statement = statement;
    } else {
        keep(m_query.lastError());
    }
    return m_query;
}

bool ProjectDatabase::exec(QSqlQuery &query, const QVariantList &row)
{
    if (!m_errorString.isEmpty()) {
        return false;
    }
    for (const QVariant &value : row) {
        query.addBindValue(value);
    }
    return query.exec() || keep(query.lastError());
}

bool ProjectDatabase::keep(const QSqlError &error)
{
    if (error.isValid() && m_errorString.isEmpty()) {
        m_errorString = textOf(error);
    }
    return m_errorString.isEmpty();
}

bool ProjectDatabase::begin()
{
    return run(QStringLiteral("PRAGMA journal_mode = DELETE")) && run(QStringLiteral("PRAGMA synchronous = FULL")) &&
           run(QStringLiteral("BEGIN IMMEDIATE"));
}

int ProjectDatabase::version()
{
    int version = 0;
    select(QStringLiteral("PRAGMA user_version"), [&](const QSqlQuery &query) { version = query.value(0).toInt(); });
    return version;
}

bool ProjectDatabase::setVersion()
{
    return run(QStringLiteral("PRAGMA user_version = %1").arg(ProjectFile::formatVersion));
}

ProjectProperties ProjectDatabase::properties()
{
    ProjectProperties properties;
    // In a damaged file the rows of another table may be in place of these.
    select(QStringLiteral("SELECT title, author, revision, notes FROM properties WHERE id = 1 AND "
                          "typeof(title || author || revision || notes) = 'text' AND typeof(title) = 'text'"),
           [&](const QSqlQuery &query) {
               properties = {query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
                             query.value(3).toString()};
           });
    return properties;
}

bool ProjectDatabase::insert(const Project &project)
{
    QVector<QVariantList> rows;
    for (const StoredModule &module : project.modules) {
        rows.append({module.place.index(), module.place.rack, module.place.slot, module.typeCode,
                     storedText(module.name), module.state});
    }
    QVariantList properties;
    for (const QString &text : textsOf(project.properties)) {
        properties += text;
    }
    return run(QStringLiteral("INSERT INTO station VALUES (1, ?, ?)"), {{project.plcType, projectChecksum(project)}}) &&
           run(QStringLiteral("INSERT INTO properties VALUES (1, ?, ?, ?, ?)"), {properties}) &&
           run(QStringLiteral("INSERT INTO module VALUES (?, ?, ?, ?, ?, ?)"), rows) && run(QStringLiteral("COMMIT"));
}

bool ProjectDatabase::create(const Project &project)
{
    const QStringList statements = projectSchema(ProjectFile::formatVersion);
    return begin() && run(QStringLiteral("PRAGMA application_id = %1").arg(ProjectFile::applicationId)) &&
           setVersion() &&
           std::all_of(statements.begin(), statements.end(),
                       [&](const QString &statement) { return run(statement); }) &&
           insert(project);
}

bool ProjectDatabase::replace(const Project &project)
{
    const bool isPresent = version() != ProjectFile::versionWithoutProperties;
    return run(QStringLiteral("DELETE FROM station")) && run(QStringLiteral("DELETE FROM module")) &&
           (isPresent ? run(QStringLiteral("DELETE FROM properties")) : run(propertiesTable()) && setVersion()) &&
           insert(project);
}
