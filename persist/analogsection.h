// Sections of analog modules: input channels and output channels.
#pragma once

#include "section.h"
#include "simpleextendpar.h"

/// Appends the sections of the module and returns their number. If a direction has fewer channels in aiKind or aqKind
/// than it counts, no section is appended, but the result includes the sections up to this direction.
int writeAnalogSections(BlockWriter &writer, const SimpleExtendPar &par);

/// Replaces all channels of the section's direction, up to the first truncated channel record. Ignores other types.
void readAnalogSection(SectionType type, ByteReader &body, SimpleExtendPar &par);
