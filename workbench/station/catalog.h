// The module types that the host's description files offer.
#pragma once

#include <QString>

#include <vector>

/// Groups of module types, in the order in which the catalog shows them.
enum class CatalogFamily { Analog, Temperature, Digital, Weighing, Other };

struct CatalogEntry {
    quint32 typeCode = 0;
    QString name;
    QString orderNumber;
    QString componentFile; ///< name in the host's folder of component files
    CatalogFamily family = CatalogFamily::Other;
};

/// One entry per description file in the host's folder, in ascending order of type codes. Omits files whose name is not
/// "hw", eight upper-case hexadecimal digits, ".met", and files without a module name.
std::vector<CatalogEntry> readCatalog();

/// The only name that the host accepts for the description of a type.
QString descriptionFileName(quint32 typeCode);

/// Which file the host lacks for modules of a type, in the user's language; empty if it has the description and the
/// component file.
QString catalogProblem(quint32 typeCode);

/// Why the plug-in creates no module of a type even without an owner: catalogProblem(), else the description itself.
QString typeProblem(quint32 typeCode);

/// The entry of a type code; null if the catalog has none. Valid as long as @p catalog is unchanged.
const CatalogEntry *findEntry(const std::vector<CatalogEntry> &catalog, quint32 typeCode);

/// Translated heading of a family.
QString familyName(CatalogFamily family);
