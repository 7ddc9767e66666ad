// Section of weighing modules with double-word channels.
#pragma once

#include "section.h"
#include "simpleextendpar.h"

/// Appends the section if the module has channels. Returns the number of sections, 0 or 1. If fewer channels are stored
/// than counted, the section has only the count.
int writeWeighSection(BlockWriter &writer, const SimpleExtendPar &par);

/// Stores the channels up to the first truncated record. Ignores other types.
void readWeighSection(SectionType type, ByteReader &body, SimpleExtendPar &par);
