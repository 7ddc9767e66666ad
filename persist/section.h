// What all parameter sections share: the frame of length (which includes itself), direction, type and two zero bytes.
#pragma once

#include "blocklayout.h"
#include "blockwriter.h"
#include "bytereader.h"
#include "fieldarchive.h"

#include <QHash>

#include <limits>

/// Calls @p visit with each channel of a hash and its entry, in ascending order of channels.
/// Channel numbers rarely have gaps, so the number of lookups is close to the number of channels.
template <typename Value, typename Visitor>
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

/// Writes the frame. Returns the mark for BlockWriter::endLength().
inline int beginSection(BlockWriter &writer, SectionType type)
{
    const int mark = writer.beginLength();
    writer.u8(type == SectionType::DigitalInputFilter ? 1 : 0);
    writer.u8(static_cast<quint8>(type));
    writer.u16(0);
    return mark;
}
