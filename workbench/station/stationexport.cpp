#include "blockreport.h"
#include "reporttexts.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(StationExport)
};

QString changesText(const ChannelParameters &parameters)
{
    QStringList texts;
    for (const ChannelSetting &setting : parameters.settings) {
        if (setting.isChanged) {
            texts += Texts::tr("%1: %2 instead of %3").arg(setting.title, setting.text, setting.factoryText);
        }
    }
    return texts.join(QStringLiteral(", "));
}

QJsonArray fieldsOf(const QByteArray &state)
{
    QJsonArray fields;
    for (const blockdecoder::Part &part : blockdecoder::decodeSavedState(state).parts) {
        for (const blockdecoder::Field &field : part.fields) {
            fields += QJsonObject{{QStringLiteral("name"), field.name},
                                  {QStringLiteral("value"), blockdecoder::jsonValue(field.value)}};
        }
    }
    return fields;
}

/// A spreadsheet would calculate a name that begins like a formula, and a project can come from another person.
QString notAFormula(const QString &name)
{
    static const QRegularExpression formula(QStringLiteral("^[=+@-]"));
    return name.contains(formula) ? QLatin1Char('\'') + name : name;
}

} // namespace

QString csvLine(const QStringList &cells)
{
    QStringList quoted;
    for (QString cell : cells) {
        static const QRegularExpression special(QStringLiteral("[\",;\\r\\n]"));
        if (cell.contains(special)) {
            cell = QLatin1Char('"') + cell.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
        }
        quoted += cell;
    }
    return quoted.join(QLatin1Char(',')) + QLatin1Char('\n');
}

QStringList csvHeader()
{
    return {Texts::tr("Rack"),   Texts::tr("Slot"),     Texts::tr("Module"),
            Texts::tr("Type"),   Texts::tr("Channel"),  Texts::tr("Address"),
            Texts::tr("Signal"), Texts::tr("Settings"), Texts::tr("Changed from the factory settings")};
}

QStringList csvCells(const ChannelRow &channel, const ChannelParameters &parameters)
{
    return {QString::number(channel.place.rack),
            QString::number(channel.place.slot),
            notAFormula(channel.module),
            QString::number(channel.typeCode),
            QString::number(channel.channel),
            channel.address(),
            parameters.signal,
            parameters.text(),
            changesText(parameters)};
}

QByteArray stationCsv(const Station &station)
{
    const ChannelList channels(station);
    QString text = csvLine(csvHeader());
    for (int row = 0; row < channels.count(); ++row) {
        text += csvLine(csvCells(channels.at(row), channels.parameters(row)));
    }
    return text.toUtf8();
}

QByteArray stationJson(const Station &station)
{
    const Project project = station.project();
    QJsonArray modules;
    for (const StoredModule &module : project.modules) {
        modules += QJsonObject{{QStringLiteral("rack"), module.place.rack},
                               {QStringLiteral("slot"), module.place.slot},
                               {QStringLiteral("type"), static_cast<qint64>(module.typeCode)},
                               {QStringLiteral("name"), module.name},
                               {QStringLiteral("available"), module.unavailable.isEmpty()},
                               {QStringLiteral("fields"), fieldsOf(module.state)}};
    }
    const ProjectProperties &properties = project.properties;
    return QJsonDocument(QJsonObject{{QStringLiteral("plcType"), static_cast<qint64>(project.plcType)},
                                     {QStringLiteral("title"), properties.title},
                                     {QStringLiteral("author"), properties.author},
                                     {QStringLiteral("revision"), properties.revision},
                                     {QStringLiteral("notes"), properties.notes},
                                     {QStringLiteral("modules"), modules}})
        .toJson();
}
