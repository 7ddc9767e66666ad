#include "digitalsection.h"

#include "diagnostics.h"

namespace {

using blocklayout::bitTableSize;

void writeInputFilter(BlockWriter &writer, const SimpleExtendPar &par)
{
    const int mark = beginSection(writer, SectionType::DigitalInputFilter);
    writer.u8("count", par.diCount);
    writer.raw("diFilter", par.diFilter);
    endSection(writer, mark);
}

void readInputFilter(ByteReader &body, SimpleExtendPar &par)
{
    body.u8("count", par.diCount);
    if (body.failed()) {
        return;
    }
    body.raw("diFilter", par.diFilter, bitTableSize(par.diCount));
    par.dqCount = 0; // intended: only a table section behind this one says that there are outputs
}

void writeOutputTable(BlockWriter &writer, const SimpleExtendPar &par)
{
    const int mark = beginSection(writer, SectionType::DigitalOutputTable);
    writer.u8("count", par.dqCount);
    writer.u8("dqMode", par.dqMode);
    writer.raw("dqOutTbl", par.dqOutTbl);
    endSection(writer, mark);
}

void readOutputTable(ByteReader &body, SimpleExtendPar &par)
{
    body.u8("count", par.dqCount);
    body.u8("dqMode", par.dqMode);
    body.raw("dqOutTbl", par.dqOutTbl, bitTableSize(par.dqCount));
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
    if (section.type == SectionType::DigitalInputFilter) {
        readInputFilter(section.body, par);
    } else if (section.type == SectionType::DigitalOutputTable) {
        readOutputTable(section.body, par);
    }
}
