// Sections of analog modules: input channels and output channels.
#pragma once

#include "section.h"
#include "simpleextendpar.h"

/// Appends the sections that the module has and adds their number to @p sectionCount. When a direction has fewer
/// channels in its aiKind or aqKind than it counts, nothing at all is appended, though the number has been raised.
void writeAnalogSections(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount);

/// Replaces all channels of the section's direction; ends at the first channel record that the section cuts short.
void readAnalogSection(Section section, SimpleExtendPar &par);
