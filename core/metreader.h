// Module description files: one text file per type code, in the host's description folder, with one or more
// entries between "[MODULE START]" and "[END]", a "Key=value" pair per line.
//
// A file is read anew at each look-up; nothing is cached.
#pragma once

#include "metformat.h"

#include <QVector>

/// Takes the lines of one file and gives out its entries as they end.
class MetParser {
public:
    /// The finished entry when @p line ends one, else null. The entry is valid until the next line.
    const ModuleMetInfo *feed(const MetLine &line);

private:
    void startEntry();

    ModuleMetInfo m_entry;
};

/// The type code that a look-up of @p typeCode searches for: 3 for 4, else the same.
quint32 searchedTypeCode(quint32 typeCode);

/// Name of the description file of a type code, without folder.
QString metFileName(quint32 typeCode);

/// Path of the description file of a type code.
QString metFilePath(quint32 typeCode);

/// All entries of the type code's file, in file order; empty when the file cannot be read.
QVector<ModuleMetInfo> readMetEntries(quint32 typeCode);

/// Copies the entry of @p typeCode to @p destination and returns its index in the file, or returns -1 and leaves
/// @p destination alone. An entry that needs a newer host ends the search, also for entries behind it. Type code 4
/// is looked up as 3 and keeps its own code.
qint32 lookUpMetInfo(quint32 typeCode, ModuleMetInfo &destination);
