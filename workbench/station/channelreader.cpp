#include "channelreader.h"

#include "blockdecoder.h"
#include "fieldtexts.h"
#include "statepatch.h"

#include <algorithm>
#include <utility>

using blockdecoder::Field;

namespace {

constexpr int inputsPerFilterRow = 4;
constexpr int outputsPerByte = 8;
constexpr int dqModeFreeze = 1;
constexpr int maximumRead = 8192; ///< module variants that are remembered

QString inBrackets(const char *name, int index)
{
    return QStringLiteral("%1[%2]").arg(QLatin1String(name)).arg(index);
}

} // namespace

bool ChannelParameters::isChanged() const
{
    return std::any_of(settings.begin(), settings.end(), [](const ChannelSetting &each) { return each.isChanged; });
}

QString ChannelParameters::text() const
{
    QStringList texts;
    for (const ChannelSetting &setting : settings) {
        texts += setting.title + QStringLiteral(": ") + setting.text;
    }
    return texts.join(QStringLiteral(", "));
}

/// The fields that a rebuilt module stores, by the names of their channel or table.
struct ChannelReader::Fields {
    bool isKnown = true; ///< false for the factory fields of a type that the plug-in cannot create
    QHash<QString, QVector<Field>> byChannel;
    QHash<QString, Field> single; ///< fields without a channel

    Fields() = default;
    explicit Fields(const QByteArray &state)
    {
        for (const blockdecoder::Part &part : blockdecoder::decodeSavedState(state).parts) {
            for (const Field &field : part.fields) {
                if (!field.stored) {
                    continue;
                }
                const int end = field.name.indexOf(QLatin1String("]."));
                if (end < 0) {
                    single.insert(field.name, field);
                } else {
                    byChannel[field.name.left(end + 1)] += field;
                }
            }
        }
    }

    int number(const QString &name) const { return single.value(name).value.toInt(); }
    /// The parameters of an analog or weighing channel.
    QVector<ChannelSetting> settings(const QString &channel, const Fields &factory) const
    {
        QVector<ChannelSetting> settings;
        const QVector<Field> factoryFields = factory.byChannel.value(channel);
        for (const Field &field : byChannel.value(channel)) {
            const QString title = parameterTitle(field.name);
            if (title.isEmpty()) {
                continue;
            }
            const auto *const original = std::find_if(factoryFields.begin(), factoryFields.end(),
                                                      [&](const Field &each) { return each.name == field.name; });
            const bool hasOriginal = original != factoryFields.end();
            settings += {title, parameterText(field), hasOriginal ? parameterText(*original) : QString(),
                         factory.isKnown && !(hasOriginal && original->value == field.value)};
        }
        return settings;
    }
    ChannelSetting filter(int channel, const Fields &factory) const
    {
        const QString name = inBrackets("digitalInput.diFilter", channel / inputsPerFilterRow);
        const auto text = [&](const Fields &fields) { // after the inputs that share the filter
            return fields.single.value(name).meaning.section(QStringLiteral(": "), 1);
        };
        return {ChannelReader::tr("Input filter"), text(*this), text(factory),
                factory.isKnown && number(name) != factory.number(name)};
    }
    /// What an output does on the transition from RUN to STOP.
    ChannelSetting stop(int channel, const Fields &factory) const
    {
        const QString text = stopText(channel);
        const QString original = factory.stopText(channel);
        return {ChannelReader::tr("In STOP"), text, original, factory.isKnown && text != original};
    }
    QString stopText(int channel) const
    {
        if (number(QStringLiteral("digitalOutput.dqMode")) == dqModeFreeze) {
            return ChannelReader::tr("last state");
        }
        const int states = number(inBrackets("digitalOutput.dqOutTbl", channel / outputsPerByte));
        return (states & 0x80 >> channel % outputsPerByte) != 0 ? QStringLiteral("ON") : QStringLiteral("OFF");
    }
    bool hasTable(const char *name, int entry) const { return single.contains(inBrackets(name, entry)); }
};

namespace {

bool isRange(const Field &field)
{
    return field.name.endsWith(QLatin1String(".inputRange")) || field.name.endsWith(QLatin1String("].range"));
}

/// The range of an analog channel describes its signal best. A channel without a range has the signal @p kind.
ChannelParameters analogChannel(const QVector<Field> &fields, const QVector<ChannelSetting> &settings,
                                const QString &kind)
{
    const auto *const range = std::find_if(fields.begin(), fields.end(), isRange);
    if (range == fields.end()) {
        return {kind, settings};
    }
    const QString title = parameterTitle(range->name);
    const bool isChanged = std::any_of(settings.begin(), settings.end(), [&](const ChannelSetting &setting) {
        return setting.isChanged && setting.title == title;
    });
    return {parameterText(*range), settings, isChanged};
}

} // namespace

ChannelParameters ChannelReader::input(const Fields &fields, const Fields &factory, VarArea area, int channel)
{
    if (area == VarArea::DigitalInput) {
        if (!fields.hasTable("digitalInput.diFilter", channel / inputsPerFilterRow)) {
            return {tr("Digital input"), {}};
        }
        return {tr("Digital input"), {fields.filter(channel, factory)}};
    }
    if (const QString weighing = inBrackets("weighing", channel); fields.byChannel.contains(weighing)) {
        return {tr("Weighing"), fields.settings(weighing, factory)};
    }
    const QString name = inBrackets("analogInput", channel);
    const QVector<Field> own = fields.byChannel.value(name);
    ChannelParameters parameters = analogChannel(own, fields.settings(name, factory), tr("Analog input"));
    const bool isThermocouple = std::any_of(own.begin(), own.end(), [](const Field &field) {
        return field.name.endsWith(QLatin1String(".family")) && field.value.toInt() == 1;
    });
    if (isThermocouple) {
        parameters.signal = tr("Thermocouple %1").arg(parameters.signal);
    }
    return parameters;
}

ChannelParameters ChannelReader::output(const Fields &fields, const Fields &factory, VarArea area, int channel)
{
    if (area == VarArea::DigitalOutput) {
        if (!fields.hasTable("digitalOutput.dqOutTbl", channel / outputsPerByte)) {
            return {tr("Digital output"), {}};
        }
        return {tr("Digital output"), {fields.stop(channel, factory)}};
    }
    const QString name = inBrackets("analogOutput", channel);
    return analogChannel(fields.byChannel.value(name), fields.settings(name, factory), tr("Analog output"));
}

std::shared_ptr<const ChannelReader::Fields> ChannelReader::factoryFields(quint32 typeCode)
{
    std::shared_ptr<const Fields> &factory = m_factory[typeCode];
    if (!factory) {
        const PluginExports &exports = m_plugin.exports();
        const ModuleHandle handle = m_plugin.own(exports.createObject(typeCode, QString()));
        auto fields = handle ? std::make_shared<Fields>(exports.save(handle.get())) : std::make_shared<Fields>();
        fields->isKnown = static_cast<bool>(handle);
        factory = std::move(fields);
    }
    return factory;
}

std::shared_ptr<const ModuleChannels> ChannelReader::read(quint32 typeCode, const QByteArray &state, const IoMap &in,
                                                          const IoMap &out)
{
    QByteArray key;
    for (const quint32 part : {typeCode, quint32{in.area}, quint32{in.count}, quint32{out.area}, quint32{out.count}}) {
        key += QByteArray::number(part) + ' ';
    }
    key += sectionsOf(state);
    if (m_read.size() > maximumRead) {
        m_read.clear();
    }
    std::shared_ptr<const ModuleChannels> &known = m_read[key];
    if (known) {
        return known;
    }
    const Fields fields(state);
    const auto factory = factoryFields(typeCode);
    auto channels = std::make_shared<ModuleChannels>();
    for (int channel = 0; channel < in.count; ++channel) {
        channels->inputs += input(fields, *factory, static_cast<VarArea>(in.area), channel);
    }
    for (int channel = 0; channel < out.count; ++channel) {
        channels->outputs += output(fields, *factory, static_cast<VarArea>(out.area), channel);
    }
    known = std::move(channels);
    return known;
}

void ChannelReader::clear()
{
    m_read.clear();
    m_factory.clear();
}
