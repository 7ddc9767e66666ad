// Saved state and configuration block of a module.
//
// A block is a count byte (number of sections plus one), the header record and the sections. For any bytes, reading
// stays within them, takes linear time and reads at most 255 sections. It leaves out invalid sections.
#pragma once

#include "simpleextendpar.h"

#include <memory>

/// Returns the saved state, the block for the project file.
QByteArray saveModule(const SimpleExtendPar &par);

/// Returns the module of a saved state and claims its ranges under @p memoryOwner. Errors of a claim are ignored.
/// Returns null if @p state ends before its header or its type code does, if the catalog does not have the type code,
/// or if the component file is missing. Ranges claimed before such a failure stay claimed. For an unknown type code
/// none are claimed.
std::unique_ptr<SimpleExtendPar> restoreModule(const QByteArray &state, const QString &memoryOwner);

/// Appends the configuration block, the block for the download, to @p block.
void compileModule(const SimpleExtendPar &par, QByteArray &block);

/// The same as restoreModule() for a configuration block.
/// @p result (null is accepted) receives a HeaderResult; it is unchanged if @p block ends before its header.
std::unique_ptr<SimpleExtendPar> recompileModule(const QByteArray &block, const QString &memoryOwner, qint32 *result);
