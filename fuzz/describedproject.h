// Writes the project file that an input describes.
//
// An input describes a project and changes of single columns to values of any type. The file is written without
// constraints, and by default with the checksum of its content, so the reader must find the invalid values itself.
#pragma once

#include "fastfolder.h"
#include "inputcursor.h"
#include "projectdatabase.h"
#include "projectfile.h"
#include "target.h"

#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace fuzz {

constexpr int maximumSteps = 64;
constexpr std::array<const char *, 2> encodings = {"UTF-8", "UTF-16le"};

/// The tables of projectSchema() without constraints.
inline const QStringList looseTables{
    QStringLiteral("CREATE TABLE station (id INTEGER PRIMARY KEY, plc_type INTEGER, sha256 TEXT)"),
    QStringLiteral("CREATE TABLE module (place INTEGER PRIMARY KEY, rack INTEGER, slot INTEGER, type_code INTEGER, "
                   "name TEXT, state BLOB)"),
    QStringLiteral("CREATE TABLE properties (id INTEGER PRIMARY KEY, title TEXT, author TEXT, revision TEXT, "
                   "notes TEXT)")};

struct Column {
    const char *table;
    const char *name;
};
constexpr Column columns[] = {{"station", "id"},       {"station", "plc_type"}, {"station", "sha256"},
                              {"properties", "id"},    {"properties", "title"}, {"properties", "notes"},
                              {"module", "place"},     {"module", "rack"},      {"module", "slot"},
                              {"module", "type_code"}, {"module", "name"},      {"module", "state"}};

inline QString pathOf(const char *name)
{
    static const QTemporaryDir folder(fastFolder());
    return folder.filePath(QLatin1String(name));
}

inline void writeContent(const QString &path, const QByteArray &content)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "no file can be written");
}

/// Returns a file with empty tables.
inline QByteArray newTemplate(int version, const char *encoding)
{
    const QString path = pathOf("template");
    QFile::remove(path);
    {
        ProjectDatabase database(path);
        database.run(QStringLiteral("PRAGMA encoding = '%1'").arg(QLatin1String(encoding)));
        database.run(QStringLiteral("PRAGMA application_id = %1").arg(ProjectFile::applicationId));
        database.run(QStringLiteral("PRAGMA user_version = %1").arg(version));
        for (const QString &table : looseTables.mid(0, projectSchema(version).size())) {
            database.run(table);
        }
        require(database.errorString());
    }
    return contentOf(path);
}

/// The content of a file as the reader converts it, without any check.
inline Project projectOf(ProjectDatabase &database, int version)
{
    Project project;
    database.select(QStringLiteral("SELECT plc_type FROM station"),
                    [&](const QSqlQuery &row) { project.plcType = row.value(0).toUInt(); });
    database.select(QStringLiteral("SELECT rack, slot, type_code, name, state FROM module ORDER BY place"),
                    [&](const QSqlQuery &row) {
                        project.modules.push_back({{row.value(0).toInt(), row.value(1).toInt()},
                                                   row.value(2).toUInt(),
                                                   row.value(3).toString(),
                                                   row.value(4).toByteArray(),
                                                   {}});
                    });
    if (version != ProjectFile::versionWithoutProperties) {
        project.properties = database.properties();
    }
    return project;
}

inline bool hasValidPlaces(const Project &project)
{
    return std::all_of(project.modules.begin(), project.modules.end(),
                       [](const StoredModule &module) { return module.place.isValid(); });
}

/// Takes a text: as UTF-8, also invalid, for a cast of SQLite, or as UTF-16 with any units.
inline QVariant takeText(InputCursor &input, bool isWide)
{
    const QByteArray bytes = input.bytes();
    return isWide ? QVariant(QString(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2))
                  : QVariant(bytes);
}

/// Sets a column of all rows to a value of any type. A value that SQLite does not accept there changes nothing.
inline void setColumn(ProjectDatabase &database, InputCursor &input, bool isWide)
{
    const Column &column = columns[input.below(std::size(columns))];
    const QString statement =
        QStringLiteral("UPDATE %1 SET %2 = ").arg(QLatin1String(column.table), QLatin1String(column.name));
    switch (input.below(6)) {
    case 0:
        database.run(statement + QStringLiteral("NULL"));
        break;
    case 1:
        database.run(statement + QLatin1Char('?'), {QVariantList{input.number<qint8>()}});
        break;
    case 2:
        database.run(statement + QLatin1Char('?'), {QVariantList{input.number<qint64>()}});
        break;
    case 3:
        database.run(statement + QLatin1Char('?'), {QVariantList{input.number<qint8>() / 4.0}});
        break;
    case 4:
        database.run(statement + QStringLiteral("CAST(? AS TEXT)"), {QVariantList{takeText(input, isWide)}});
        break;
    default:
        database.run(statement + QLatin1Char('?'), {QVariantList{input.bytes()}});
        break;
    }
    database.forgetError();
}

/// Writes the file that @p input describes. Returns its content if the reader must accept it.
inline std::optional<Project> writeDescribed(const QString &path, InputCursor input)
{
    static const std::array<std::array<QByteArray, encodings.size()>, 2> templates = {
        {{newTemplate(1, encodings[0]), newTemplate(1, encodings[1])},
         {newTemplate(2, encodings[0]), newTemplate(2, encodings[1])}}};
    const int version = 2 - input.below(2);
    const bool isWide = input.below(2) == 1;
    writeContent(path, templates[static_cast<uint>(version - 1)][isWide ? 1 : 0]);

    ProjectDatabase database(path);
    database.run(QStringLiteral("PRAGMA journal_mode = MEMORY"));
    database.run(QStringLiteral("PRAGMA synchronous = OFF"));
    database.run(QStringLiteral("BEGIN"));
    bool isValid = input.below(16) != 1;
    const QString checksum = isValid ? QString() : QString::number(input.byte());
    database.run(QStringLiteral("INSERT INTO station VALUES (1, ?, '')"), {QVariantList{input.number<quint32>()}});
    if (version != ProjectFile::versionWithoutProperties) {
        database.run(
            QStringLiteral("INSERT INTO properties VALUES (1, CAST(? AS TEXT), CAST(? AS TEXT), "
                           "CAST(? AS TEXT), CAST(? AS TEXT))"),
            {{takeText(input, isWide), takeText(input, isWide), takeText(input, isWide), takeText(input, isWide)}});
    }
    for (int step = 0; step < maximumSteps && !input.atEnd(); ++step) {
        if (input.below(4) == 1) {
            isValid = false;
            setColumn(database, input, isWide);
            continue;
        }
        const Place place = Place::at(input.number<quint16>() % Place::count);
        const quint32 typeCode = input.number<quint16>();
        const QVariant name = takeText(input, isWide);
        const QByteArray state = input.bytes() + '\1';
        database.run(QStringLiteral("INSERT OR REPLACE INTO module VALUES (?, ?, ?, ?, CAST(? AS TEXT), ?)"),
                     {{place.index(), place.rack, place.slot, typeCode, name, state}});
    }
    const Project project = projectOf(database, version);
    if (checksum.isEmpty() && hasValidPlaces(project)) { // other places have no checksum
        database.run(QStringLiteral("UPDATE station SET sha256 = ? WHERE sha256 = ''"),
                     {QVariantList{projectChecksum(project, version)}});
    }
    database.run(QStringLiteral("PRAGMA writable_schema = ON"));
    QVector<QVariantList> tables;
    for (const QString &table : projectSchema(version)) {
        tables.append({table, tables.size() + 1});
    }
    database.run(QStringLiteral("UPDATE sqlite_master SET sql = ? WHERE rowid = ?"), tables);
    database.run(QStringLiteral("COMMIT"));
    require(database.errorString());
    return isValid ? std::optional(project) : std::nullopt;
}

} // namespace fuzz
