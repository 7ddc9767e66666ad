// The header record of a block: type code, placement, texts, catalog fields, ranges.
#pragma once

#include "blocklayout.h"
#include "blockwriter.h"
#include "bytereader.h"

enum HeaderResult : qint32 { HeaderRead = 0, UnknownTypeCode = 129 };

/// Appends the whole header record.
void writeHeader(BlockWriter &writer, const SimpleExtendPar &par, BlockFormat format);

/// Fills @p par from the catalog and then from the fields of the header, over which @p header is a cursor. Fields that
/// a truncated header lacks keep the catalog's values. Claims the ranges under the record's owner. After
/// UnknownTypeCode only the type code is stored. A header that ends before its type code gives HeaderRead and an
/// unchanged record, which has no component file.
HeaderResult readHeader(ByteReader header, SimpleExtendPar &par, BlockFormat format);
