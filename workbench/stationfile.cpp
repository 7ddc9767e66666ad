#include "stationfile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace {

constexpr int fileVersion = 1;
constexpr qint64 largestFile = 4LL * 1024 * 1024; // far beyond a full station

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(StationFile)
};

QString formatName()
{
    return QStringLiteral("simpleextend-station");
}

/// Covers the length of every state too, so that no byte can move from one module to the next unnoticed.
QString checksum(const QByteArrayList &states)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QByteArray &state : states) {
        hash.addData(QByteArray::number(state.size()) + ':');
        hash.addData(state);
    }
    return QString::fromLatin1(hash.result().toHex());
}

/// False, and why in @p error, unless @p bytes is the text of a whole station.
bool parse(const QByteArray &bytes, QByteArrayList &states, QString &error)
{
    const QJsonObject root = QJsonDocument::fromJson(bytes).object();
    if (root.value(QLatin1String("format")).toString() != formatName()) {
        error = Texts::tr("This is not a station file, or it is damaged.");
        return false;
    }
    const int version = root.value(QLatin1String("version")).toInt();
    if (version != fileVersion) {
        error = Texts::tr("The file has version %1; this program reads version %2.").arg(version).arg(fileVersion);
        return false;
    }
    const QJsonArray modules = root.value(QLatin1String("modules")).toArray();
    QByteArrayList found;
    for (const auto module : modules) {
        found.append(QByteArray::fromHex(module.toString().toLatin1()));
    }
    if (root.value(QLatin1String("sha256")).toString() != checksum(found)) {
        error = Texts::tr("The file is damaged: its modules do not match its checksum.");
        return false;
    }
    states = found;
    return true;
}

} // namespace

bool writeFile(const QString &path, const QByteArray &bytes, QString &error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) {
        return true;
    }
    error = file.errorString();
    return false;
}

bool writeStationFile(const QString &path, const QByteArrayList &states, QString &error)
{
    QJsonArray modules;
    for (const QByteArray &state : states) {
        modules.append(QString::fromLatin1(state.toHex()));
    }
    const QJsonObject root{{QStringLiteral("format"), formatName()},
                           {QStringLiteral("version"), fileVersion},
                           {QStringLiteral("modules"), modules},
                           {QStringLiteral("sha256"), checksum(states)}};
    return writeFile(path, QJsonDocument(root).toJson(), error);
}

std::unique_ptr<Station> openStation(const PluginLibrary &plugin, const QString &memoryOwner, const QString &path,
                                     QString &error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return nullptr;
    }
    const QByteArray bytes = file.read(largestFile + 1);
    if (bytes.size() > largestFile) {
        error = Texts::tr("The file is too large for a station.");
        return nullptr;
    }
    QByteArrayList states;
    if (!parse(bytes, states, error)) {
        return nullptr;
    }
    return Station::restored(plugin, memoryOwner, states, error);
}
