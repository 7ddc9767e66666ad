// Stored modules as bytes, for the clipboard and for recovery copies.
#pragma once

#include "project.h"

#include <vector>

class QDataStream;

/// Sets the version of @p stream, so programs with different versions of Qt understand each other.
void writeModules(QDataStream &stream, const std::vector<StoredModule> &modules);
/// Returns false, with any modules, unless the bytes contain modules in ascending order of valid places.
bool readModules(QDataStream &stream, std::vector<StoredModule> &modules);
