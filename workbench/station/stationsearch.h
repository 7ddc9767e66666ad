// Finds modules of a station by name, order number or address.
#pragma once

#include "catalog.h"
#include "station.h"

#include <QVector>

struct SearchHit {
    Place place;
    QString module; ///< its name
    QString detail; ///< why it was found, such as "I35.2, channel 10" or its addresses
};

struct SearchResult {
    QVector<SearchHit> hits; ///< the best first
    int total = 0;           ///< with those beyond the limit
};

/// Finds the modules that have the address @p query, if it is one; then those whose name, order number, type code or
/// comment contains every word of it. An empty query finds nothing. Returns at most @p limit hits.
SearchResult searchStation(const Station &station, const std::vector<CatalogEntry> &catalog, const QString &query,
                           int limit);
