// Stations for tests of the workbench's model.
#pragma once

#include "catalog.h"
#include "claims.h"
#include "fastfolder.h"
#include "statepatch.h"
#include "station.h"

#include <QTemporaryDir>
#include <QtTest>

const QString owner = QStringLiteral("owner");
const QString otherOwner = QStringLiteral("other");

/// The ranges of the modules of a station, except those that cannot be reserved.
inline QStringList rangesOf(const Station &station)
{
    QStringList texts;
    for (int i = 0; i < station.count(); ++i) {
        for (const auto &[area, start, length] : memoryRanges(station.module(i).in, station.module(i).out)) {
            texts += claimText(static_cast<int>(area), start, length);
        }
    }
    for (const UnreservedRange &unreserved : station.memory().unreserved()) {
        const auto &[area, start, length] = unreserved.range;
        texts.removeOne(claimText(static_cast<int>(area), start, length));
    }
    texts.sort();
    return texts;
}

/// A module of a type that the catalog lacks.
inline StoredModule unavailableModule(Place place, const QByteArray &state)
{
    return {place, 1, "absent", withPlace(withFields(state, {{"objId", {"\0\0\0\1", 4}}}), place), {}};
}

/// The base of a test class, whose files are in a temporary folder.
class SampleStations {
protected:
    void loadPlugin()
    {
        QVERIFY(QDir::setCurrent(m_folder.path()));
        QCOMPARE(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH).reason(), QString());
    }

    std::unique_ptr<Station> stationOf(const std::vector<quint32> &types, const QString &memoryOwner = owner) const
    {
        auto station = std::make_unique<Station>(m_plugin, memoryOwner);
        station->setLargestPlcType();
        for (const quint32 type : types) {
            if (const Result<> added = station->add(type, Place::at(station->count())); !added) {
                qFatal("%s", qPrintable(added.reason()));
            }
        }
        return station;
    }

    /// The types of the catalog in turn.
    static std::vector<quint32> allTypes(std::size_t count = 19)
    {
        const std::vector<CatalogEntry> catalog = readCatalog();
        std::vector<quint32> types(count);
        for (std::size_t i = 0; i < count; ++i) {
            types[i] = catalog.at(i % catalog.size()).typeCode;
        }
        return types;
    }

    PluginLibrary m_plugin;
    QTemporaryDir m_folder{fastFolder()};
};
