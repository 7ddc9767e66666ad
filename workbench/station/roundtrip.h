// Checks that a module survives saving and compiling.
#pragma once

#include "pluginlibrary.h"

/// Result of sending one module through both formats and back.
struct RoundTrip {
    int savedBytes = 0;
    int compiledBytes = 0;
    bool savedSame = false; ///< save, restore, save gives the same bytes
    /// Ranges of double-word channels that the rebuilt module counts as word channels, as the plug-in defines it.
    int rangeLengthsHalved = 0;
    bool compiledSame = false; ///< compile, recompile, compile gives the same bytes except those range lengths

    bool isGood() const { return savedSame && compiledSame; }
};

/// @p module is not changed, and no memory is claimed.
RoundTrip roundTrip(const PluginLibrary &plugin, SimpleExtendPar *module);
