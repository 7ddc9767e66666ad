// Sample modules for pages: factory modules, and modules with more channels than any type has.
#pragma once

#include "catalog.h"
#include "defaultbuilder.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace samplemodules {

struct Sample {
    QString name;
    std::unique_ptr<SimpleExtendPar> par;
    bool isWide = false; ///< has more channels than the factory module
};

template <typename Entry>
void repeatFirst(QHash<quint8, Entry> &entries, quint8 &count, quint8 channels)
{
    const Entry first = entries.value(0);
    for (quint8 channel = 0; channel < channels; ++channel) {
        entries.insert(channel, first);
    }
    count = count == 0 ? 0 : channels;
}

/// A module of the type with @p channels channels of each kind that the type has.
inline std::unique_ptr<SimpleExtendPar> withChannels(quint32 typeCode, quint8 channels)
{
    auto par = buildDefault(typeCode, QString());
    repeatFirst(par->aiKind, par->aiCount, channels);
    repeatFirst(par->aiFilter, par->aiCount, channels);
    repeatFirst(par->aiRange, par->aiCount, channels);
    repeatFirst(par->aqOutTbl, par->aqCount, channels);
    for (AqOutTbl &stop : par->aqOutTbl) {
        stop = {0, -32000}; // the widest
    }
    repeatFirst(par->aqOutType, par->aqCount, channels);
    repeatFirst(par->weighPar, par->weighCount, channels);
    if (par->diCount != 0) {
        par->diCount = channels;
        par->diFilter = QByteArray((channels + 7) / 8, '\x55');
    }
    if (par->dqCount != 0) {
        par->dqCount = channels;
        par->dqOutTbl = QByteArray((channels + 7) / 8, '\xA0');
    }
    return par;
}

/// One type per set of pages: mixed analog, thermocouples, resistance thermometers, mixed digital, weighing, other.
constexpr std::array<quint32, 6> kinds = {0x3459, 0x3454, 0x3455, 0x3558, 0x3852, 0x3A00};

/// Every type of the catalog, or one per set of pages.
inline std::vector<Sample> factoryModules(bool onlyKinds = false)
{
    std::vector<Sample> samples;
    for (const CatalogEntry &entry : readCatalog()) {
        if (!onlyKinds || std::find(std::begin(kinds), std::end(kinds), entry.typeCode) != std::end(kinds)) {
            samples.push_back({QString::number(entry.typeCode, 16), buildDefault(entry.typeCode, "plc")});
        }
    }
    return samples;
}

/// One per set of pages with channels.
inline std::vector<Sample> wideModules(quint8 channels)
{
    std::vector<Sample> samples;
    samples.reserve(kinds.size());
    for (const quint32 typeCode : kinds) {
        samples.push_back({QStringLiteral("%1-%2-channels").arg(typeCode, 0, 16).arg(channels),
                           withChannels(typeCode, channels), true});
    }
    return samples;
}

} // namespace samplemodules
