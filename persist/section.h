// The frame that all parameter sections share: length (counts itself), direction, type, two zero bytes, body.
#pragma once

#include "blocklayout.h"
#include "blockwriter.h"
#include "bytereader.h"

#include <QHash>
#include <QList>

#include <algorithm>

/// A received section; the cursors share the block's bytes.
struct Section {
    SectionType type;    ///< any byte, also one that is no enumerator
    ByteReader body;     ///< what follows the frame, bounded by the section's length
    ByteReader fromHere; ///< the whole block from the section's first byte on
};

/// The channels that a hash holds, in the order in which sections write them: ascending.
template <class Value>
QList<quint8> sortedChannels(const QHash<quint8, Value> &hash)
{
    QList<quint8> channels = hash.keys();
    std::sort(channels.begin(), channels.end());
    return channels;
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
