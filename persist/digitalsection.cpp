#include "digitalsection.h"

#include "digitalbits.h"

namespace {

void writeInputFilter(BlockWriter &writer, const SimpleExtendPar &par)
{
    const int mark = beginSection(writer, SectionType::DigitalInputFilter);
    writer.u8(par.diCount);
    writer.raw(par.diFilter);
    writer.endLength(mark);
}

void readInputFilter(ByteReader &body, SimpleExtendPar &par)
{
    body.u8(par.diCount);
    if (body.failed()) {
        return;
    }
    body.raw(par.diFilter, bitTableSize(par.diCount));
    par.dqCount = 0; // intended: only an output table after this section sets the number of outputs
}

void writeOutputTable(BlockWriter &writer, const SimpleExtendPar &par)
{
    const int mark = beginSection(writer, SectionType::DigitalOutputTable);
    writer.u8(par.dqCount);
    writer.u8(par.dqMode);
    writer.raw(par.dqOutTbl);
    writer.endLength(mark);
}

void readOutputTable(ByteReader &body, SimpleExtendPar &par)
{
    body.u8(par.dqCount);
    body.u8(par.dqMode);
    body.raw(par.dqOutTbl, bitTableSize(par.dqCount));
}

} // namespace

int writeDigitalSections(BlockWriter &writer, const SimpleExtendPar &par)
{
    int sectionCount = 0;
    if (par.diCount != 0) {
        ++sectionCount;
        writeInputFilter(writer, par);
    }
    if (par.dqCount != 0) {
        ++sectionCount;
        writeOutputTable(writer, par);
    }
    return sectionCount;
}

void readDigitalSection(SectionType type, ByteReader &body, SimpleExtendPar &par)
{
    if (type == SectionType::DigitalInputFilter) {
        readInputFilter(body, par);
    } else if (type == SectionType::DigitalOutputTable) {
        readOutputTable(body, par);
    }
}
