// Section of weighing modules with double-word channels.
#pragma once

#include "section.h"
#include "simpleextendpar.h"

/// Appends the section when the module has channels and adds it to @p sectionCount. When fewer channels are known than
/// counted, the section holds the count alone.
void writeWeighSection(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount);

/// Stores the channels; a record that the section cuts short stores nothing and ends the reading.
void readWeighSection(Section section, SimpleExtendPar &par);
