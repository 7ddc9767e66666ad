// The frame that all parameter sections share: length (counts itself), direction, type, two zero bytes, body.
#pragma once

#include "blocklayout.h"
#include "blockwriter.h"
#include "bytereader.h"

#include <QHash>

#include <limits>

/// A received section; the cursors share the block's bytes.
struct Section {
    SectionType type;    ///< any byte, also one that is no enumerator
    ByteReader body;     ///< what follows the frame, bounded by the section's length
    ByteReader fromHere; ///< the whole block from the section's first byte on
};

/// Calls @p visit with each channel of a hash and its entry, in the order in which sections write them: ascending.
/// Channels are mostly numbered without gaps, so that this asks little more often than there are channels.
template <class Value, class Visitor>
void visitChannels(const QHash<quint8, Value> &hash, Visitor &&visit)
{
    int left = hash.size();
    for (int channel = 0; left > 0 && channel <= std::numeric_limits<quint8>::max(); ++channel) {
        const auto entry = hash.find(static_cast<quint8>(channel));
        if (entry != hash.end()) {
            visit(entry.key(), entry.value());
            --left;
        }
    }
}

/// Writes the frame; the mark is for endSection.
inline int beginSection(BlockWriter &writer, SectionType type)
{
    const int mark = writer.beginLength();
    writer.u8("direction", type == SectionType::DigitalInputFilter ? 1 : 0);
    writer.u8("type", static_cast<quint8>(type));
    writer.u16("zero", 0);
    return mark;
}

inline void endSection(BlockWriter &writer, int mark)
{
    writer.endLength(mark);
}
