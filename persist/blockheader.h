// The header record of a block: type code, placement, names, catalog fields, ranges.
#pragma once

#include "blocklayout.h"
#include "blockwriter.h"
#include "bytereader.h"

enum HeaderResult : qint32 { HeaderRead = 0, UnknownTypeCode = 129 };

/// Appends the whole header record.
void writeHeader(BlockWriter &writer, const SimpleExtendPar &par, BlockFormat format);

/// Fills @p par from the catalog and then from the header's fields behind the frame; what the header does not hold
/// keeps the catalog's value. Claims the ranges under the record's owner. With UnknownTypeCode only the type code
/// was stored.
HeaderResult readHeader(ByteReader header, SimpleExtendPar &par, BlockFormat format);
