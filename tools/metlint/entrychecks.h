// Checks an entry at its [END]: what it keeps, whether a lookup finds it, and whether a module can be created from it.
#pragma once

#include "linter.h"
#include "metformat.h"

#include <QHash>

/// The places that the linter has passed in a file.
struct PassedPlaces {
    using OfKeys = QHash<QLatin1String, TextPlace>;

    TextPlace start;      ///< of the open entry
    TextPlace outsideKey; ///< first key since the last end without a start
    TextPlace lastEnd;
    OfKeys inEntry; ///< values of keys since the last start or end
    OfKeys everSet; ///< values of keys since the beginning of the file
};

/// The checks of all entries of one file, in their order.
class EntryChecks {
public:
    /// The context and the diagnostics, to which the checks add, must outlive the object.
    EntryChecks(const LintContext &context, QVector<Diagnostic> &diagnostics);

    /// Checks the entry that ends at @p end.
    void check(const ModuleMetInfo &entry, const PassedPlaces &places, TextPlace end);

private:
    void checkCarriedOver(const ModuleMetInfo &entry, const PassedPlaces &places);
    void checkTypeCode(const ModuleMetInfo &entry, const PassedPlaces &places, TextPlace end);
    void checkLookup(const ModuleMetInfo &entry, const PassedPlaces &places, TextPlace end);
    void checkName(const ModuleMetInfo &entry, TextPlace place);
    void checkComponent(const ModuleMetInfo &entry, TextPlace place);
    void checkChannels(const ModuleMetInfo &entry, TextPlace place);
    void add(Rule rule, TextPlace place, const QString &text) { m_diagnostics.append({place, rule, text}); }

    const LintContext &m_context;
    const std::optional<quint32> m_typeCode;
    QVector<Diagnostic> &m_diagnostics;
    TextPlace m_found;  // end of the entry that lookups find
    TextPlace m_hiding; // the entry that needs a newer host and stops them
};
