// The module types that the host's description files offer.
#pragma once

#include <QString>

#include <vector>

struct CatalogEntry {
    quint32 typeCode = 0;
    QString name;
    QString orderNumber;
};

/// One entry per description file in the host's folder, by rising type code. A file whose name is not "hw", eight
/// hexadecimal digits, ".met", or that has no name in it, is left out.
std::vector<CatalogEntry> readCatalog();
