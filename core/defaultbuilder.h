// The factory record of a module type.
#pragma once

#include "simpleextendpar.h"

#include <memory>

/// Returns true if the file that the description's "ServerFile" names is in the host's component folder. A folder is
/// not a component file, so an empty "ServerFile", which leaves the path of the folder itself, gives false.
bool hasComponentFile(const ModuleMetInfo &info);

/// A module with the factory parameters of its type, its ranges claimed under @p memoryOwner; with an empty owner
/// nothing is claimed and every start is 0.
/// Null when the type is not in the catalog, its component file is missing, its moduleInfo is 0 though its kind has
/// channels, the host reports an impossible number of channels, or a range finds no room. What was claimed before
/// such a failure stays claimed.
std::unique_ptr<SimpleExtendPar> buildDefault(quint32 typeCode, const QString &memoryOwner);
