#include "digitalsection.h"

#include "diagnostics.h"

namespace {

int bitBytes(quint8 count)
{
    return (count + 7) / 8;
}

void writeInputFilter(BlockWriter &writer, const SimpleExtendPar &par)
{
    const int mark = beginSection(writer, SectionType::DigitalInputFilter);
    writer.u8(par.diCount);
    writer.raw(par.diFilter);
    endSection(writer, mark);
}

void readInputFilter(ByteReader &body, SimpleExtendPar &par)
{
    body.u8(par.diCount);
    if (body.failed())
        return;
    body.raw(par.diFilter, bitBytes(par.diCount));
    par.dqCount = 0; // intended: only a table section behind this one says that there are outputs
}

void writeOutputTable(BlockWriter &writer, const SimpleExtendPar &par)
{
    const int mark = beginSection(writer, SectionType::DigitalOutputTable);
    writer.u8(par.dqCount);
    writer.u8(par.dqMode);
    writer.raw(par.dqOutTbl);
    endSection(writer, mark);
}

void readOutputTable(ByteReader &body, SimpleExtendPar &par)
{
    body.u8(par.dqCount);
    body.u8(par.dqMode);
    body.raw(par.dqOutTbl, bitBytes(par.dqCount));
}

} // namespace

void writeDigitalSections(BlockWriter &writer, const SimpleExtendPar &par, quint8 &sectionCount)
{
    if (par.diCount != 0) {
        ++sectionCount;
        writeInputFilter(writer, par);
    }
    if (par.dqCount != 0) {
        ++sectionCount;
        writeOutputTable(writer, par);
    }
}

void readDigitalSection(Section section, SimpleExtendPar &par)
{
    writeDiagnostic(DiagnosticLine::DigitalSection, section.fromHere);
    if (section.type == SectionType::DigitalInputFilter)
        readInputFilter(section.body, par);
    else if (section.type == SectionType::DigitalOutputTable)
        readOutputTable(section.body, par);
}
