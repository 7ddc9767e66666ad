// Reads module description files. Each type code has one text file in the host's description folder. A file has one or
// more entries between "[MODULE START]" and "[END]", with one "Key=value" pair per line.
//
// Each lookup reads the file again, without a cache.
#pragma once

#include "metformat.h"

#include <QVector>

/// In bytes, many times the size of any description file. A larger file has no entries.
constexpr qint64 maximumMetFileSize = Q_INT64_C(16) * 1024 * 1024;

/// Parses the lines of one file and yields each entry at its [END].
class MetParser {
public:
    /// Returns the entry that @p line ends, or null. The parser owns the entry, and later lines change it.
    const ModuleMetInfo *feed(const MetLine &line);

private:
    void startEntry();

    ModuleMetInfo m_entry;
};

/// Returns the type code that a lookup of @p typeCode searches for: 3 for 4, and @p typeCode for all others.
quint32 searchedTypeCode(quint32 typeCode);

/// Returns the name of a type code's description file, without folder.
QString metFileName(quint32 typeCode);

/// Returns the path of a type code's description file.
QString metFilePath(quint32 typeCode);

/// Returns all entries of the type code's file in file order; empty if the file is not a regular file, is larger than
/// maximumMetFileSize or cannot be read.
QVector<ModuleMetInfo> readMetEntries(quint32 typeCode);

/// Copies the first entry of @p typeCode to @p destination. Intended: type code 4 is looked up as 3, and the copy has
/// the type code 4; an entry that needs a newer host ends the search, so it hides all entries after it.
/// @return the index of the entry in the file, from 0; -1 if there is none, and then @p destination is unchanged
qint32 lookUpMetInfo(quint32 typeCode, ModuleMetInfo &destination);
