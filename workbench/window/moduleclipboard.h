// Modules on the clipboard.
#pragma once

#include "project.h"

struct CopiedModules {
    bool areCut = false;               ///< no copies remain, so they keep their addresses
    std::vector<StoredModule> modules; ///< in the order of a station
};

void copyToClipboard(const CopiedModules &copied);
bool clipboardHasModules();
/// No modules if the clipboard contains none that can be read.
CopiedModules clipboardModules();
