#include "weighsection.h"

void writeWeighSection(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount)
{
    if (par.weighCount == 0) {
        return;
    }
    ++sectionCount;
    const int mark = beginSection(writer, SectionType::Weighing);
    writer.u8("count", par.weighCount);
    if (par.weighPar.size() >= par.weighCount) {
        visitChannels(par.weighPar, [&writer](quint8 channel, const WeighChannelPar &entry) {
            writer.u8("channel", channel);
            blocklayout::walkWeighing(writer, entry);
        });
    }
    endSection(writer, mark);
}

void readWeighSection(Section section, SimpleExtendPar &par)
{
    if (section.type != SectionType::Weighing) {
        return;
    }
    ByteReader &body = section.body;
    body.u8("count", par.weighCount);
    for (int left = par.weighCount; left > 0; --left) {
        quint8 channel = 0;
        WeighChannelPar entry;
        body.u8("channel", channel);
        blocklayout::walkWeighing(body, entry);
        if (body.failed()) {
            return;
        }
        par.weighPar[channel] = entry;
    }
}
