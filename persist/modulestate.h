// Saved state and configuration block of a module.
//
// A block is a count byte (number of sections plus one), the header record and the sections. Whatever the bytes,
// reading stays inside them, takes linear time and at most 255 section steps; a damaged section is left out.
#pragma once

#include "simpleextendpar.h"

#include <memory>

/// The block for the project file.
QByteArray saveModule(const SimpleExtendPar &par);

/// The module of a saved state, its ranges claimed under @p memoryOwner. Null when @p state ends before its header or
/// its type code does, when the catalog does not have the type code, or when the component file is missing. Ranges
/// claimed before such a failure stay claimed; for an unknown type code none are claimed.
std::unique_ptr<SimpleExtendPar> restoreModule(const QByteArray &state, const QString &memoryOwner);

/// Appends the block for the download.
void compileModule(const SimpleExtendPar &par, QByteArray &block);

/// As restoreModule, from a configuration block.
/// @p result (null is accepted) receives a HeaderResult once the header has been read, else it stays as it is.
std::unique_ptr<SimpleExtendPar> recompileModule(const QByteArray &block, const QString &memoryOwner, qint32 *result);
