#include "sectiondecoder.h"

#include "blocklayout.h"
#include "digitalbits.h"

#include <QSet>

#include <algorithm>

using blockdecoder::Field;
using blockdecoder::Part;

namespace {

// The writer measures a record. The decoder checks its length against these bytes:
constexpr int recordHeadSize = 2; // family and channel number
constexpr int filterSize = 4;     // fields of an input record before its range bytes
constexpr int outputSize = 5;     // fields of an output record

const QString keepsOlderValues = QStringLiteral("the section ends here; fields that it lacks keep their values");
const QString dropsChannels = QStringLiteral("this channel and all later ones are left out");
const QString dropsSection = QStringLiteral("the section is left out");

void leaveOut(Field &field, const char *reason)
{
    if (!field.stored) {
        return;
    }
    field.stored = false;
    field.meaning += (field.meaning.isEmpty() ? "" : "; ") + QLatin1String(reason);
}

/// Called at the first byte of the body, which is 3 bytes after the type.
void reportType(FieldCursor &section, quint8 type, const QString &expected)
{
    section.report(section.offset() - 3, "type", expected, QString::number(type), dropsSection);
}

/// Names the fields that follow by the channel number @p ahead bytes from here.
void enterChannel(FieldCursor &section, FieldPlace place, const QString &prefix, int ahead)
{
    const std::optional<quint8> channel = section.peek<quint8>(ahead);
    const QString number = channel ? QString::number(*channel) : QStringLiteral("?");
    section.enter(place, prefix + number + QStringLiteral("]."));
}

void checkRecordLength(FieldCursor &section, int recordAt, int recordLength, int fieldsSize)
{
    const int expected = recordHeadSize + fieldsSize;
    if (recordLength != expected) {
        section.report(
            recordAt, "recordLength", QString::number(expected), QString::number(recordLength),
            QStringLiteral("%1 bytes are read anyway; the next record is expected after them").arg(expected));
    }
}

void readAnalogInput(FieldCursor &section, quint8 family, int recordAt, quint16 recordLength)
{
    checkRecordLength(section, recordAt, recordLength,
                      filterSize + static_cast<int>(blocklayout::rangeOrder(family).count));
    section.setFamily(family);
    AiFilter filter;
    AiRange range{};
    blocklayout::walkAnalogInput(section, family, filter, range);
}

void readAnalogOutput(FieldCursor &section, quint8 /*family*/, int recordAt, quint16 recordLength)
{
    checkRecordLength(section, recordAt, recordLength, outputSize);
    AqOutTbl stop;
    AqOutType type;
    blocklayout::walkAnalogOutput(section, stop, type);
}

} // namespace

void SectionDecoder::decode(FieldCursor &section, const QString &prefix)
{
    section.enter(FieldPlace::Frame, prefix);
    if (section.remaining() < blocklayout::sectionFrameSize) {
        section.report(section.offset(), "length", QStringLiteral("at least %1").arg(blocklayout::sectionFrameSize),
                       QString::number(section.remaining()), dropsSection);
        return;
    }
    quint32 length = 0;
    quint8 direction = 0;
    quint8 type = 0;
    quint16 zero = 0;
    section.u32("length", length);
    section.u8("direction", direction);
    section.u8("type", type);
    section.u16("zero", zero);
    switch (m_family) {
    case ModuleFamily::Digital:
        return decodeDigital(section, type);
    case ModuleFamily::Analog:
        return decodeAnalog(section, type);
    case ModuleFamily::WeighDword:
        return decodeWeighing(section, type);
    case ModuleFamily::WeighWord:
    case ModuleFamily::Plain:
        return reportType(section, type, QStringLiteral("no section in a module of this kind"));
    }
}

void SectionDecoder::decodeDigital(FieldCursor &section, quint8 type)
{
    section.setCutEffect(keepsOlderValues);
    if (type == static_cast<quint8>(SectionType::DigitalInputFilter)) {
        decodeInputFilter(section);
    } else if (type == static_cast<quint8>(SectionType::DigitalOutputTable)) {
        decodeOutputTable(section);
    } else {
        reportType(section, type, QStringLiteral("18 or 5 in a digital module"));
    }
}

void SectionDecoder::decodeInputFilter(FieldCursor &section)
{
    section.enter(FieldPlace::DigitalInput, QStringLiteral("digitalInput."));
    quint8 count = 0;
    section.u8("count", count);
    if (section.failed()) {
        return;
    }
    const int at = section.offset();
    const QByteArray codes = takeTable(section, "diFilter", count, m_inputFilter);
    for (int row = 0; row < 2 * codes.size(); ++row) {
        const int code = filterCode(codes, row).value_or(0);
        addEntry(m_inputFilter, row, at + row / 2, codes.at(row / 2), code, filterGroupText(row, count, code));
    }
    if (m_outputCount != 0) {
        m_outputCount = 0;
        section.enter(FieldPlace::DigitalOutput, QStringLiteral("digitalOutput."));
        section.imply("count", 0LL, QStringLiteral("cleared by the input filter after the output table"));
    }
}

void SectionDecoder::decodeOutputTable(FieldCursor &section)
{
    section.enter(FieldPlace::DigitalOutput, QStringLiteral("digitalOutput."));
    quint8 mode = 0;
    section.u8("count", m_outputCount);
    section.u8("dqMode", mode);
    const int at = section.offset();
    const QByteArray states = takeTable(section, "dqOutTbl", m_outputCount, m_outputTable);
    for (int i = 0; i < states.size(); ++i) {
        addEntry(m_outputTable, i, at + i, states.at(i), static_cast<quint8>(states.at(i)),
                 outputStatesText(i, m_outputCount, states));
    }
}

/// Returns the bytes of a table, which replaces the one before. A table that the section truncates is not read: then
/// returns no bytes.
QByteArray SectionDecoder::takeTable(FieldCursor &section, const char *name, int channels, EntryList &table)
{
    const std::optional<QByteArray> bytes = section.take(name, bitTableSize(channels));
    if (bytes) {
        replace(table);
    }
    return bytes.value_or(QByteArray());
}

void SectionDecoder::addEntry(const EntryList &table, int index, int offset, int byte, int value,
                              const QString &meaning)
{
    fields() += Field{offset,
                      QByteArray(1, static_cast<char>(byte)),
                      table.prefix() + QString::number(index) + QLatin1Char(']'),
                      static_cast<qlonglong>(value),
                      meaning,
                      true};
}

void SectionDecoder::decodeAnalog(FieldCursor &section, quint8 type)
{
    section.setCutEffect(dropsChannels);
    if (type == static_cast<quint8>(SectionType::AnalogInput)) {
        decodeAnalogRecords(section, m_analogInputs, readAnalogInput);
    } else if (type == static_cast<quint8>(SectionType::AnalogOutput)) {
        decodeAnalogRecords(section, m_analogOutputs, readAnalogOutput);
    } else {
        reportType(section, type, QStringLiteral("37 or 38 in an analog module"));
    }
}

void SectionDecoder::decodeAnalogRecords(FieldCursor &section, EntryList &channels, ReadRecord readRecord)
{
    replace(channels);
    section.enter(channels.place, channels.name + QLatin1Char('.'));
    quint8 count = 0;
    section.u8("count", count);
    for (; count > 0 && !section.failed(); --count) {
        const int firstField = fields().size();
        const int at = section.offset();
        enterChannel(section, channels.place, channels.prefix(), 3);
        quint16 recordLength = 0;
        section.u16("recordLength", recordLength);
        if (section.failed()) {
            return;
        }
        if (recordLength > section.remaining()) {
            section.report(at, "recordLength", QStringLiteral("at most %1").arg(section.remaining()),
                           QString::number(recordLength), dropsChannels);
            return;
        }
        quint8 family = 0;
        quint8 channel = 0;
        section.u8("family", family);
        section.u8("channel", channel);
        readRecord(section, family, at, recordLength);
        leaveOutTruncated(section, firstField);
    }
}

void SectionDecoder::decodeWeighing(FieldCursor &section, quint8 type)
{
    if (type != static_cast<quint8>(SectionType::Weighing)) {
        reportType(section, type, QStringLiteral("41 in a weighing module"));
        return;
    }
    section.setCutEffect(dropsChannels);
    section.enter(FieldPlace::Weighing, QStringLiteral("weighing."));
    quint8 count = 0;
    section.u8("count", count);
    for (; count > 0 && !section.failed(); --count) {
        const int firstField = fields().size();
        enterChannel(section, FieldPlace::Weighing, QStringLiteral("weighing["), 0);
        quint8 channel = 0;
        WeighChannelPar entry;
        section.u8("channel", channel);
        blocklayout::walkWeighing(section, entry);
        leaveOutTruncated(section, firstField);
    }
}

/// A truncated record stores none of its fields.
void SectionDecoder::leaveOutTruncated(const FieldCursor &section, int firstField)
{
    for (int i = firstField; section.failed() && i < fields().size(); ++i) {
        leaveOut(fields()[i], "left out");
    }
}

/// Removes the stored entries of @p list, whose new entries are in the last part.
void SectionDecoder::replace(EntryList &list)
{
    if (list.part >= 0) {
        for (Field &field : m_block.parts[list.part].fields) {
            if (field.name.startsWith(list.prefix())) {
                leaveOut(field, "replaced by a later section");
            }
        }
    }
    list.part = m_block.parts.size() - 1;
}

void SectionDecoder::leaveOutReplaced()
{
    QSet<QStringView> later; // of names, which do not change here
    for (auto part = m_block.parts.rbegin(); part != m_block.parts.rend(); ++part) {
        for (auto field = part->fields.rbegin(); field != part->fields.rend(); ++field) {
            if (!field->stored) {
                continue;
            }
            const QStringView name = field->name;
            const QStringView channel(name.begin(), std::find(name.begin(), name.end(), QLatin1Char('.')));
            if (later.contains(name) || later.contains(channel)) {
                leaveOut(*field, "replaced by a later field");
            }
            later.insert(name);
            // The first field of a record replaces all of the channel's, because another family has other fields.
            if (name.endsWith(QLatin1String("].family"))) {
                later.insert(channel);
            }
        }
    }
}
