#include "projectrecovery.h"

#include "baseservices.h"
#include "projectdatabase.h"
#include "projectfile.h"
#include "statepatch.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <optional>

namespace {

constexpr int pageSizeOffset = 16; // in the header of a SQLite database, as its format defines it
constexpr int pageCountOffset = 28;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ProjectRecovery)
};

Result<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > ProjectFile::maximumSize) {
        return Failure{file.isOpen() ? Texts::tr("The file is too large for a station.") : file.errorString()};
    }
    return file.readAll();
}

bool hasProjectTables(const QString &path)
{
    QStringList statements;
    ProjectDatabase database(path);
    database.select(QStringLiteral("SELECT sql FROM sqlite_master ORDER BY rowid"),
                    [&](const QSqlQuery &query) { statements += query.value(0).toString(); });
    return statements == projectSchema(ProjectFile::formatVersion) ||
           statements == projectSchema(ProjectFile::versionWithoutProperties);
}

bool overwrite(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// The first page contains the header and the list of tables. Both are the same in every file that was created in the
/// present format version. So a sound one replaces it, which makes damage there harmless.
QByteArray withSoundFirstPage(QByteArray content, const QByteArray &sound)
{
    const int pageSize = qFromBigEndian<quint16>(sound.constData() + pageSizeOffset);
    content.replace(0, pageSize, sound.left(pageSize));
    return content.replace(pageCountOffset, 4, intToByteArray(content.size() / pageSize));
}

/// Reads one module after the other, because a damaged page affects only the modules that it contains.
class Reader {
public:
    explicit Reader(const QString &path) : m_database(path) {}

    RecoveredProject read()
    {
        const QString checksum = readStation();
        for (int i = 0; i < Place::count; ++i) {
            readModule(Place::at(i));
        }
        closeGap(Place::count);
        if (checksum != projectChecksum(m_result.project, m_version)) {
            m_result.losses += Texts::tr("The checksum of the file does not match. Parameters of the modules may be "
                                         "wrong too: compare them with a backup or a report.");
        }
        return m_result;
    }

private:
    QString readStation()
    {
        QString checksum;
        m_database.select(QStringLiteral("SELECT plc_type, sha256 FROM station WHERE id = 1"),
                          [&](const QSqlQuery &query) {
                              m_result.project.plcType = query.value(0).toUInt();
                              checksum = query.value(1).toString();
                          });
        m_database.forgetError();
        m_version = m_database.version();
        if (m_version != ProjectFile::versionWithoutProperties) {
            m_result.project.properties = m_database.properties();
        }
        m_database.forgetError();
        return checksum;
    }

    void readModule(Place place)
    {
        StoredModule module{place, 0, {}, {}, {}};
        bool isSound = true;
        const bool isRead =
            m_database.select(QStringLiteral("SELECT rack, slot, type_code, name, state FROM module WHERE place = ?"),
                              [&](const QSqlQuery &query) {
                                  module.typeCode = query.value(2).toUInt();
                                  module.name = query.value(3).toString();
                                  module.state = query.value(4).toByteArray();
                                  isSound = Place{query.value(0).toInt(), query.value(1).toInt()} == place &&
                                            query.value(4).type() == QVariant::ByteArray && !module.state.isEmpty() &&
                                            module.state.size() <= StoredModule::maximumStateSize;
                              },
                              {place.index()});
        m_database.forgetError();
        if (!isRead) {
            m_gapStart = m_gapStart.value_or(place.index());
            return;
        }
        closeGap(place.index());
        if (!isSound) {
            m_result.losses += Texts::tr("Rack %1, slot %2: the module is damaged.").arg(place.rack).arg(place.slot);
        } else if (!module.state.isEmpty()) {
            check(module);
            m_result.project.modules.push_back(module);
        }
    }

    /// The file contains the type twice.
    void check(const StoredModule &module)
    {
        if (typeCodeOfState(module.state) != module.typeCode) {
            m_result.losses +=
                Texts::tr("Rack %1, slot %2, \"%3\": the module type is contradictory.")
                    .arg(QString::number(module.place.rack), QString::number(module.place.slot), module.name);
        }
    }

    /// Reports the places before @p end that cannot be read.
    void closeGap(int end)
    {
        if (m_gapStart) {
            const Place first = Place::at(*m_gapStart);
            const Place last = Place::at(end - 1);
            m_result.losses += Texts::tr("Rack %1, slot %2 to rack %3, slot %4: all modules there are lost.")
                                   .arg(first.rack)
                                   .arg(first.slot)
                                   .arg(last.rack)
                                   .arg(last.slot);
            m_gapStart.reset();
        }
    }

    ProjectDatabase m_database;
    RecoveredProject m_result;
    std::optional<int> m_gapStart;
    int m_version = 0;
};

} // namespace

Result<RecoveredProject> recoverProject(const QString &path)
{
    const Result<QByteArray> content = contentOf(path);
    if (!content) {
        return content.failure();
    }
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.station"));
    if (!overwrite(copy, *content)) {
        return Failure{Texts::tr("No temporary file can be written.")};
    }
    if (!hasProjectTables(copy)) {
        const QString sound = folder.filePath(QStringLiteral("sound.station"));
        const Result<QByteArray> page = ProjectFile(sound).write({}) ? contentOf(sound) : Failure();
        if (!page || !overwrite(copy, withSoundFirstPage(*content, *page))) {
            return Failure{Texts::tr("No temporary file can be written.")};
        }
    }
    const RecoveredProject recovered = Reader(copy).read();
    if (recovered.project.modules.empty()) {
        return Failure{Texts::tr("No module of the file can be read.")};
    }
    return recovered;
}
