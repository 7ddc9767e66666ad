// The channels of a module with their parameters, read from its saved state.
#pragma once

#include "baseservices.h"
#include "pluginlibrary.h"

#include <QCoreApplication>
#include <QHash>
#include <QVector>

#include <memory>

/// A parameter of a channel, in the user's language.
struct ChannelSetting {
    QString title;
    QString text;
    QString factoryText; ///< empty if unknown
    bool isChanged = false;
};

struct ChannelParameters {
    QString signal; ///< range of an analog channel, or its kind
    QVector<ChannelSetting> settings;

    bool isSignalChanged = false; ///< the range in signal is a changed setting

    bool isChanged() const;
    /// Such as "Filter time: 10ms, Direction: Upscale".
    QString text() const;
};

/// The inputs, then the outputs.
struct ModuleChannels {
    QVector<ChannelParameters> inputs;
    QVector<ChannelParameters> outputs;
};

/// Reads channels, and compares them with those of a module that the plug-in creates without an owner. Remembers what
/// it read: modules of one type with the same parameters share their channels. Call clear() when the language changes.
class ChannelReader {
    Q_DECLARE_TR_FUNCTIONS(ChannelReader)
public:
    /// @p plugin must outlive the reader.
    explicit ChannelReader(const PluginLibrary &plugin) : m_plugin(plugin) {}

    /// The channels of the ranges @p in and @p out of a module that was saved as @p state. A channel has no settings if
    /// the state lacks them. No setting counts as changed if the plug-in cannot create the type.
    std::shared_ptr<const ModuleChannels> read(quint32 typeCode, const QByteArray &state, const IoMap &in,
                                               const IoMap &out);
    void clear();

private:
    struct Fields;

    std::shared_ptr<const Fields> factoryFields(quint32 typeCode);
    static ChannelParameters input(const Fields &fields, const Fields &factory, VarArea area, int channel);
    static ChannelParameters output(const Fields &fields, const Fields &factory, VarArea area, int channel);

    const PluginLibrary &m_plugin;
    QHash<QByteArray, std::shared_ptr<const ModuleChannels>> m_read;
    QHash<quint32, std::shared_ptr<const Fields>> m_factory;
};
