// Sections of digital modules: input filter and output table.
#pragma once

#include "section.h"
#include "simpleextendpar.h"

/// Appends the sections that the module has and adds their number to @p sectionCount.
void writeDigitalSections(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount);

/// Stores what the section holds; a section that ends early stores what it has.
void readDigitalSection(Section section, SimpleExtendPar &par);
