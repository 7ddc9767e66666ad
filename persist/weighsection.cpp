#include "weighsection.h"

int writeWeighSection(BlockWriter &writer, const SimpleExtendPar &par)
{
    if (par.weighCount == 0) {
        return 0;
    }
    const int mark = beginSection(writer, SectionType::Weighing);
    writer.u8(par.weighCount);
    if (par.weighPar.size() >= par.weighCount) {
        visitChannels(par.weighPar, [&writer](quint8 channel, const WeighChannelPar &entry) {
            writer.u8(channel);
            blocklayout::walkWeighing(FieldArchive(writer), entry);
        });
    }
    writer.endLength(mark);
    return 1;
}

void readWeighSection(SectionType type, ByteReader &body, SimpleExtendPar &par)
{
    if (type != SectionType::Weighing) {
        return;
    }
    body.u8(par.weighCount);
    for (int left = par.weighCount; left > 0; --left) {
        quint8 channel = 0;
        WeighChannelPar entry;
        body.u8(channel);
        blocklayout::walkWeighing(FieldArchive(body), entry);
        if (body.failed()) {
            return;
        }
        par.weighPar[channel] = entry;
    }
}
