// The module types that the host's description files offer.
#pragma once

#include <QString>

#include <vector>

/// What the catalog groups module types by, in the order in which it shows them.
enum class CatalogFamily { Analog, Temperature, Digital, Weighing, Other };

struct CatalogEntry {
    quint32 typeCode = 0;
    QString name;
    QString orderNumber;
    QString componentFile; ///< name in the host's folder of component files
    CatalogFamily family = CatalogFamily::Other;
};

/// One entry per description file in the host's folder, by rising type code. A file whose name is not "hw", eight
/// hexadecimal digits, ".met", or that has no name in it, is left out.
std::vector<CatalogEntry> readCatalog();

/// What the host lacks for modules of a type, in the user's language, with the file's name; empty when its description
/// and component file are there.
QString catalogProblem(quint32 typeCode);

/// The entry of a type code; null when the catalog has none.
const CatalogEntry *findEntry(const std::vector<CatalogEntry> &catalog, quint32 typeCode);

/// Translated heading of a family.
QString familyName(CatalogFamily family);
