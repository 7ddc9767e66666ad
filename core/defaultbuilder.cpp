#include "defaultbuilder.h"

#include "digitalbits.h"
#include "imagerange.h"
#include "metreader.h"
#include "modulekind.h"

#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr AiRange factoryRanges[] = {
    {1, 2, 0, 2, 0, 0, 0, 0}, // VoltageCurrent: 0~10V, open wire detection invalid
    {1, 2, 4, 1, 0, 0, 1, 0}, // Thermocouple: type K, cold junction
    {1, 2, 0, 1, 0, 0, 0, 1}, // ResistanceThermometer: first Pt-100, 3-wire
};
constexpr AiFilter factoryFilter{5, 320, 1}; // 64 samples
constexpr AqOutTbl factoryStop{1, 0};        // keep the last value
constexpr AqOutType factoryOutput{1, 1};     // enabled, +/-10V
constexpr char factoryDelays = 0x55;         // 6.40ms for two groups of four inputs
constexpr int channelKeys = 256;             // channel numbers are 8 bits wide

/// Asks the host for the channel count of one direction, fills the range and claims its bytes.
/// Returns the channel count; std::nullopt if it is invalid or the host has no room.
std::optional<qint32> openRange(const SimpleExtendPar &par, const DirectionKind &kind, IoMap &range)
{
    const qint32 channels = kind.channelCount(par.moduleInfo);
    range.area = static_cast<quint8>(kind.area);
    range.unit = kind.unit;
    range.count = static_cast<quint8>(channels);

    const qint64 length = bytesOfChannels(kind.unit, channels);
    if (channels < 0 || length > std::numeric_limits<qint32>::max()) {
        return std::nullopt;
    }
    if (!claimRange(par.memoryOwner, range, static_cast<qint32>(length))) {
        return std::nullopt;
    }
    return channels;
}

/// Calls @p fill once for each channel number, also if the host counts more channels than there are numbers.
template <typename Fill>
void forEachChannel(qint32 channels, Fill &&fill)
{
    for (int channel = 0; channel < std::min(channels, channelKeys); ++channel) {
        fill(static_cast<quint8>(channel));
    }
}

QByteArray bitTable(qint32 channels, char initial)
{
    return {bitTableSize(channels), initial};
}

void fillAnalog(SimpleExtendPar &par, qint32 inputs, qint32 outputs)
{
    par.aiCount = par.inMap.count;
    const quint8 family = factorySignalFamily(par.objId);
    forEachChannel(inputs, [&par, family](quint8 channel) {
        par.aiKind[channel] = family;
        par.aiFilter[channel] = factoryFilter;
        par.aiRange[channel] = factoryRanges[family];
    });
    par.aqCount = par.outMap.count;
    forEachChannel(outputs, [&par](quint8 channel) {
        par.aqKind[channel] = 0;
        par.aqOutTbl[channel] = factoryStop;
        par.aqOutType[channel] = factoryOutput;
    });
}

void fillDigital(SimpleExtendPar &par, qint32 inputs, qint32 outputs)
{
    par.diCount = par.inMap.count;
    par.diFilter = bitTable(inputs, factoryDelays);
    par.dqCount = par.outMap.count;
    par.dqMode = DqUseTable;
    par.dqOutTbl = bitTable(outputs, 0);
}

void fillWeighing(SimpleExtendPar &par, qint32 inputs)
{
    par.weighCount = par.inMap.count;
    forEachChannel(inputs, [&par](quint8 channel) { par.weighPar[channel] = WeighChannelPar(); });
}

bool fillKind(SimpleExtendPar &par)
{
    const ModuleKind &kind = moduleKind(par.objId);
    if (kind.family == ModuleFamily::Plain) {
        return true;
    }
    if (par.moduleInfo == 0) {
        return false;
    }
    const auto inputs = openRange(par, kind.input, par.inMap);
    const auto outputs = inputs ? openRange(par, kind.output, par.outMap) : std::nullopt;
    if (!outputs) {
        return false;
    }
    if (kind.family == ModuleFamily::Analog) {
        fillAnalog(par, *inputs, *outputs);
    } else if (kind.family == ModuleFamily::Digital) {
        fillDigital(par, *inputs, *outputs);
    } else {
        fillWeighing(par, *inputs);
    }
    return true;
}

} // namespace

bool hasComponentFile(const ModuleMetInfo &info)
{
    return QFileInfo(getHwcnfgComponentPath(HwcnfgComponent::ModuleComponent) % info.serverFile).isFile();
}

std::unique_ptr<SimpleExtendPar> buildDefault(quint32 typeCode, const QString &memoryOwner)
{
    auto par = std::make_unique<SimpleExtendPar>();
    if (lookUpMetInfo(typeCode, *par) < 0) {
        return nullptr;
    }
    par->memoryOwner = memoryOwner;
    if (!hasComponentFile(*par) || !fillKind(*par)) {
        return nullptr;
    }
    return par;
}
