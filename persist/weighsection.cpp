#include "weighsection.h"

#include <QList>

#include <algorithm>

namespace {

// A record's fields in their order, walked by the writer over a constant entry and by the reader over one to fill.
template <class Cursor, class Par>
void walkChannel(Cursor &cursor, Par &par)
{
    cursor.u8(par.enable);
    cursor.f32(par.sensitivity);
    cursor.lowByte(par.limitFreq);
    cursor.u16(par.filterDepth);
    cursor.u16(par.subMax);
    cursor.u16(par.subMin);
    cursor.u8(par.filterMode);
    cursor.u8(par.sampleFreq);
    cursor.lowByteSigned(par.bootClear);
}

} // namespace

void writeWeighSection(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount)
{
    if (par.weighCount == 0)
        return;
    ++sectionCount;
    const int mark = beginSection(writer, SectionType::Weighing);
    writer.u8(par.weighCount);
    if (par.weighPar.size() >= par.weighCount) {
        QList<quint8> channels = par.weighPar.keys();
        std::sort(channels.begin(), channels.end());
        for (const quint8 channel : qAsConst(channels)) {
            writer.u8(channel);
            const WeighChannelPar entry = par.weighPar.value(channel);
            walkChannel(writer, entry);
        }
    }
    endSection(writer, mark);
}

void readWeighSection(Section section, SimpleExtendPar &par)
{
    if (section.type != SectionType::Weighing)
        return;
    ByteReader &body = section.body;
    body.u8(par.weighCount);
    for (int left = par.weighCount; left > 0; --left) {
        quint8 channel = 0;
        WeighChannelPar entry;
        body.u8(channel);
        walkChannel(body, entry);
        if (body.failed())
            return;
        par.weighPar[channel] = entry;
    }
}
