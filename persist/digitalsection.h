// Sections of digital modules: input filter and output table.
#pragma once

#include "section.h"
#include "simpleextendpar.h"

/// Appends the sections of the module and returns their number.
int writeDigitalSections(BlockWriter &writer, const SimpleExtendPar &par);

/// Stores the fields of the section. Fields that a truncated section lacks are unchanged. Ignores other types.
void readDigitalSection(SectionType type, ByteReader &body, SimpleExtendPar &par);
