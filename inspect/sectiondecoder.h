// Decodes the sections of a block into fields.
#pragma once

#include "fieldcursor.h"
#include "modulekind.h"

/// Decodes the sections of one block in their order. The fields of a later section may replace those of an earlier one,
/// which are then no longer stored.
class SectionDecoder {
public:
    /// The caller owns @p block. @p family decides which section types the module has.
    SectionDecoder(blockdecoder::DecodedBlock &block, ModuleFamily family) : m_block(block), m_family(family) {}

    /// Decodes the section, frame included, that @p section is limited to. @p prefix begins the names of its frame.
    void decode(FieldCursor &section, const QString &prefix);
    /// Of several fields with one name keeps the last as stored; to be called after the last section.
    void leaveOutReplaced();

private:
    /// Entries that each section of their type replaces as a whole.
    struct EntryList {
        QString name;
        FieldPlace place;
        int part = -1; ///< index of the part with the latest entries; -1 = none
        QString prefix() const { return name + QLatin1Char('['); }
    };
    using ReadRecord = void (*)(FieldCursor &section, quint8 family, int recordAt, quint16 recordLength);

    void decodeDigital(FieldCursor &section, quint8 type);
    void decodeInputFilter(FieldCursor &section);
    void decodeOutputTable(FieldCursor &section);
    QByteArray takeTable(FieldCursor &section, const char *name, int channels, EntryList &table);
    void addEntry(const EntryList &table, int index, int offset, int byte, int value, const QString &meaning);
    void decodeAnalog(FieldCursor &section, quint8 type);
    void decodeAnalogRecords(FieldCursor &section, EntryList &channels, ReadRecord readRecord);
    void decodeWeighing(FieldCursor &section, quint8 type);
    void leaveOutTruncated(const FieldCursor &section, int firstField);
    void replace(EntryList &list);
    QVector<blockdecoder::Field> &fields() { return m_block.parts.last().fields; }

    blockdecoder::DecodedBlock &m_block;
    ModuleFamily m_family;
    quint8 m_outputCount = 0;
    EntryList m_inputFilter{QStringLiteral("digitalInput.diFilter"), FieldPlace::DigitalInput};
    EntryList m_outputTable{QStringLiteral("digitalOutput.dqOutTbl"), FieldPlace::DigitalOutput};
    EntryList m_analogInputs{QStringLiteral("analogInput"), FieldPlace::AnalogInput};
    EntryList m_analogOutputs{QStringLiteral("analogOutput"), FieldPlace::AnalogOutput};
};
