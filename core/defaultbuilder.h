// Builds the factory record of a module type.
#pragma once

#include "simpleextendpar.h"

#include <memory>

/// Returns true if the host's component folder has the file that "ServerFile" of the description names. Returns false
/// for a folder, also for an empty "ServerFile", which leads to the component folder itself.
bool hasComponentFile(const ModuleMetInfo &info);

/// Returns a module with the factory parameters of its type and claims its ranges under @p memoryOwner. With an empty
/// owner it claims nothing, and every start is 0.
/// Returns null if the type is not in the catalog, its component file is missing, its moduleInfo is 0 although its kind
/// has channels, the host reports an invalid number of channels, or the host has no room for a range. Ranges claimed
/// before such a failure stay claimed.
std::unique_ptr<SimpleExtendPar> buildDefault(quint32 typeCode, const QString &memoryOwner);
