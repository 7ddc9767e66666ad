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

/// The first page contains the header and the list of tables, and is the same in every project file. So a sound one
/// replaces it, which makes damage there harmless.
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
        if (checksum != projectChecksum(m_result.project)) {
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
    QFile file(copy);
    if (!ProjectFile(copy).write({}) || !file.open(QIODevice::ReadWrite)) {
        return Failure{Texts::tr("No temporary file can be written.")};
    }
    const QByteArray sound = file.readAll();
    file.seek(0);
    file.write(withSoundFirstPage(*content, sound));
    file.close();
    const RecoveredProject recovered = Reader(copy).read();
    if (recovered.project.modules.empty()) {
        return Failure{Texts::tr("No module of the file can be read.")};
    }
    return recovered;
}
