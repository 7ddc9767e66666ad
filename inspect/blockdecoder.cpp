#include "blockdecoder.h"

#include "blocklayout.h"
#include "fieldcursor.h"
#include "modulekind.h"

#include <QSet>

#include <algorithm>
#include <numeric>

namespace {

using namespace blockdecoder;

const QString noModule = QStringLiteral("no module is rebuilt");
const QString keepsCatalogValues = QStringLiteral("the fields from here on keep the catalog's values");
const QString keepsOlderValues = QStringLiteral("the section ends here, and what it lacks stays as it was");
const QString dropsChannels = QStringLiteral("this channel and those behind it are left out");
const QString notRead = QStringLiteral("not read");

/// Channel entries that a later section of the same type replaces all at once.
struct Replaceable {
    QString prefix;
    int until = 0; ///< fields in front of this one, counted over the whole block, are gone
};

QString sectionTypeText(quint8 type)
{
    switch (static_cast<SectionType>(type)) {
    case SectionType::DigitalOutputTable:
        return QStringLiteral("digital output table");
    case SectionType::DigitalInputFilter:
        return QStringLiteral("digital input filter");
    case SectionType::AnalogInput:
        return QStringLiteral("analog inputs");
    case SectionType::AnalogOutput:
        return QStringLiteral("analog outputs");
    case SectionType::Weighing:
        return QStringLiteral("weighing channels");
    }
    return QStringLiteral("unknown type");
}

QString sectionsText(int count)
{
    if (count == 0) {
        return QStringLiteral("header only");
    }
    return count == 1 ? QStringLiteral("header and 1 section") : QStringLiteral("header and %1 sections").arg(count);
}

/// Takes apart the block that begins at an offset of the data. The values that it reads go into a record of its own,
/// which decides how to go on.
class Decoder {
public:
    Decoder(const QByteArray &bytes, int offset, Format format)
        : m_format(format == Format::SavedState ? BlockFormat::SavedState : BlockFormat::Configuration),
          m_cursor(ByteReader(bytes.constData() + offset, bytes.size() - offset), bytes.size(), m_block, noModule)
    {
        m_block.offset = offset;
    }

    DecodedBlock run()
    {
        addPart(QStringLiteral("Block"));
        if (!readHeader()) {
            m_block.refused = true;
        } else {
            m_block.complete = readSections();
        }
        finish();
        return std::move(m_block);
    }

private:
    void addPart(const QString &title) { m_block.parts += Part{title, {}}; }
    int fieldCount() const
    {
        return std::accumulate(m_block.parts.cbegin(), m_block.parts.cend(), 0,
                               [](int sum, const Part &part) { return sum + part.fields.size(); });
    }

    bool readHeader()
    {
        m_cursor.u8("sectionCount", m_count);
        if (!m_cursor.failed()) {
            m_cursor.explain(sectionsText(sectionCount()));
        }
        addPart(QStringLiteral("Header"));
        m_cursor.enter(FieldPlace::Frame, QStringLiteral("header."));
        const int at = m_cursor.offset();
        const int available = m_cursor.remaining();
        if (available < blocklayout::headerFrameSize) {
            refuse(at, QStringLiteral("at least %1 bytes").arg(blocklayout::headerFrameSize), available);
            return false;
        }
        quint32 length = 0;
        m_cursor.u32("length", length);
        if (length > static_cast<quint32>(available)) {
            refuse(at, QStringLiteral("%1 bytes, as the length says").arg(length), available);
            return false;
        }
        std::array<quint8, 4> constant{};
        m_cursor.raw("constant", constant);
        m_cursor.explain(constant == blocklayout::headerConstant ? QStringLiteral("always these bytes")
                                                                 : QStringLiteral("should be 00 02 00 00; not read"));
        if (length < blocklayout::headerFrameSize) {
            m_cursor.report(at, "length", QStringLiteral("at least %1").arg(blocklayout::headerFrameSize),
                            QString::number(length), noModule);
        }
        FieldCursor header = m_cursor.sub(qMax(0, static_cast<int>(length) - blocklayout::headerFrameSize));
        readHeaderFields(header);
        return !m_block.kind.isEmpty(); // known as soon as there is a type code
    }

    void refuse(int at, const QString &expected, int available)
    {
        m_cursor.report(at, "length", expected, QStringLiteral("%1 bytes").arg(available), noModule);
    }

    void readHeaderFields(FieldCursor &header)
    {
        header.enter(FieldPlace::Header, QStringLiteral("header."));
        header.u32FromSignedBytes("objId", m_par.objId);
        if (!header.failed()) {
            m_block.kind = moduleKindText(m_par.objId);
            header.setCutEffect(keepsCatalogValues);
        }
        blocklayout::walkHeader(header, m_par, m_format);
        readRange(header, "inMap", m_par.inMap);
        readRange(header, "outMap", m_par.outMap);
        header.enter(FieldPlace::Header, QStringLiteral("header."));
        readInterruptTable(header);
        header.raw("reservBytes", m_par.reservBytes);
        if (!header.failed()) {
            header.explain(QStringLiteral("not read back: the catalog's stay"));
        }
        if (header.remaining() != 0) {
            header.report(header.offset(), "rest", QStringLiteral("the end of the header"),
                          QStringLiteral("%1 more bytes").arg(header.remaining()),
                          QStringLiteral("they are not read; a block of the other format looks like this"));
        }
        header.takeRest(QStringLiteral("header.rest"), notRead);
    }

    /// Without a module info both ranges are skipped as one.
    void readRange(FieldCursor &header, const char *name, IoMap &range)
    {
        if (header.failed()) {
            return;
        }
        QVector<Field> &fields = m_block.parts.last().fields;
        const int firstField = fields.size();
        header.enter(FieldPlace::Range, QStringLiteral("header.%1.").arg(QLatin1String(name)));
        quint8 length = 0;
        blocklayout::walkRange(header, range, length);
        if (m_par.moduleInfo != 0) {
            return;
        }
        std::for_each(fields.begin() + firstField, fields.end(), [](Field &field) {
            field.stored = false;
            field.meaning = notRead;
        });
    }

    void readInterruptTable(FieldCursor &header)
    {
        quint8 marker = 0;
        header.u8("marker", marker);
        if (header.failed()) {
            return;
        }
        if (marker != 0) {
            header.raw("intEnableTbl", m_par.intEnableTbl);
        } else {
            header.imply("intEnableTbl", QByteArray(static_cast<int>(m_par.intEnableTbl.size()), 0),
                         QStringLiteral("cleared"));
        }
    }

    int sectionCount() const { return static_cast<quint8>(m_count - 1); }

    /// False when the block stops making sense before its last section ends.
    bool readSections()
    {
        for (int number = 1; number <= sectionCount(); ++number) {
            if (!readSection(number)) {
                return false;
            }
        }
        return true;
    }

    bool readSection(int number)
    {
        // What has been said of the header does not keep quiet what is to be said of the sections.
        FieldCursor frame(m_cursor.reader(), m_cursor.offset() + m_cursor.remaining(), m_block, QString());
        const QString prefix = QStringLiteral("section[%1].").arg(number);
        const int at = frame.offset();
        const int available = frame.remaining();
        ByteReader peek = frame.reader();
        quint32 claimed = 0;
        peek.u32("length", claimed);
        quint8 type = 0;
        peek.skip(1);
        peek.u8("type", type);
        const quint8 knownType = claimed < blocklayout::sectionFrameSize ? 0 : type;
        addPart(QStringLiteral("Section %1: %2").arg(number).arg(sectionTypeText(knownType)));
        frame.enter(FieldPlace::Frame, prefix);
        const auto length = static_cast<qint32>(claimed);
        if (length <= 0 || length > available) {
            const bool none = available < static_cast<int>(sizeof claimed);
            const QString bytes = QStringLiteral("%1 bytes").arg(available);
            frame.report(at, "length",
                         none ? QStringLiteral("a section of at least %1 bytes").arg(blocklayout::sectionFrameSize)
                              : QStringLiteral("1 to %1").arg(available),
                         none ? bytes : QString::number(length),
                         QStringLiteral("the reading ends: this section and those behind it are left out"));
            return false;
        }
        m_cursor = frame;
        FieldCursor section = m_cursor.sub(length);
        readFramedSection(section, prefix, type, length);
        section.takeRest(prefix + QStringLiteral("rest"), notRead);
        return true;
    }

    void readFramedSection(FieldCursor &section, const QString &prefix, quint8 type, qint32 length)
    {
        section.enter(FieldPlace::Frame, prefix);
        if (length < blocklayout::sectionFrameSize) {
            section.report(section.offset(), "length", QStringLiteral("at least %1").arg(blocklayout::sectionFrameSize),
                           QString::number(length), QStringLiteral("the section is left out"));
            return;
        }
        quint32 lengthField = 0;
        quint8 direction = 0;
        quint16 zero = 0;
        section.u32("length", lengthField);
        section.u8("direction", direction);
        section.u8("type", type);
        section.u16("zero", zero);
        switch (moduleKind(m_par.objId).family) {
        case ModuleFamily::Digital:
            return readDigital(section, type);
        case ModuleFamily::Analog:
            return readAnalog(section, type);
        case ModuleFamily::WeighDword:
            return readWeighing(section, type);
        case ModuleFamily::WeighWord:
        case ModuleFamily::Plain:
            return reportType(section, type, QStringLiteral("no section in a module of this kind"));
        }
    }

    static void reportType(FieldCursor &section, quint8 type, const QString &expected)
    {
        // The type stands two bytes in front of the body.
        section.report(section.offset() - 3, "type", expected, QString::number(type),
                       QStringLiteral("the section is left out"));
    }

    void readDigital(FieldCursor &section, quint8 type)
    {
        section.setCutEffect(keepsOlderValues);
        if (type == static_cast<quint8>(SectionType::DigitalInputFilter)) {
            readInputFilter(section);
        } else if (type == static_cast<quint8>(SectionType::DigitalOutputTable)) {
            readOutputTable(section);
        } else {
            reportType(section, type, QStringLiteral("18 or 5 in a digital module"));
        }
    }

    void readInputFilter(FieldCursor &section)
    {
        section.enter(FieldPlace::DigitalInput, QStringLiteral("digitalInput."));
        section.u8("count", m_par.diCount);
        if (section.failed()) {
            return;
        }
        readTable(section, "diFilter", m_par.diCount, m_inputFilter, &Decoder::addFilterByte);
        if (m_par.dqCount == 0) {
            return;
        }
        m_par.dqCount = 0;
        section.enter(FieldPlace::DigitalOutput, QStringLiteral("digitalOutput."));
        section.imply("count", 0LL, QStringLiteral("cleared by an input filter behind the output table"));
    }

    void readOutputTable(FieldCursor &section)
    {
        section.enter(FieldPlace::DigitalOutput, QStringLiteral("digitalOutput."));
        section.u8("count", m_par.dqCount);
        section.u8("dqMode", m_par.dqMode);
        readTable(section, "dqOutTbl", m_par.dqCount, m_outputTable, &Decoder::addStatesByte);
    }

    using AddByte = void (Decoder::*)(int offset, int index, char byte);

    /// A table is read as a whole or not at all, and shown by what its bytes say.
    void readTable(FieldCursor &section, const char *name, int channels, Replaceable &table, AddByte addByte)
    {
        const int at = section.offset();
        const int known = fieldCount();
        QByteArray bytes;
        section.raw(name, bytes, blocklayout::bitTableSize(channels));
        if (section.failed()) {
            return;
        }
        table.until = known;
        m_block.parts.last().fields.removeLast();
        for (int i = 0; i < bytes.size(); ++i) {
            (this->*addByte)(at + i, i, bytes.at(i));
        }
    }

    void addFilterByte(int offset, int index, char byte)
    {
        const auto bits = static_cast<quint8>(byte);
        const std::array<int, 2> codes{bits & 0x0F, bits >> 4};
        for (int half = 0; half < 2; ++half) {
            const int group = 2 * index + half;
            const int code = codes[static_cast<std::size_t>(half)];
            addElement(offset, m_inputFilter, group, byte, code, filterGroupText(group, m_par.diCount, code));
        }
    }

    void addStatesByte(int offset, int index, char byte)
    {
        const auto states = static_cast<quint8>(byte);
        addElement(offset, m_outputTable, index, byte, states, outputStatesText(index, m_par.dqCount, states));
    }

    void addElement(int offset, const Replaceable &table, int index, char byte, int value, const QString &meaning)
    {
        m_block.parts.last().fields += Field{offset,
                                             QByteArray(1, byte),
                                             table.prefix + QStringLiteral("%1]").arg(index),
                                             static_cast<qlonglong>(value),
                                             meaning,
                                             true};
    }

    void readAnalog(FieldCursor &section, quint8 type)
    {
        section.setCutEffect(dropsChannels);
        const int known = fieldCount();
        if (type == static_cast<quint8>(SectionType::AnalogInput)) {
            m_analogInputs.until = known;
            section.enter(FieldPlace::AnalogInput, QStringLiteral("analogInput."));
            section.u8("count", m_par.aiCount);
            readAnalogRecords(section, m_par.aiCount, m_analogInputs, &Decoder::readAnalogInput);
        } else if (type == static_cast<quint8>(SectionType::AnalogOutput)) {
            m_analogOutputs.until = known;
            section.enter(FieldPlace::AnalogOutput, QStringLiteral("analogOutput."));
            section.u8("count", m_par.aqCount);
            readAnalogRecords(section, m_par.aqCount, m_analogOutputs, &Decoder::readAnalogOutput);
        } else {
            reportType(section, type, QStringLiteral("37 or 38 in an analog module"));
        }
    }

    using ReadRecord = void (*)(FieldCursor &section, quint8 family, int recordAt, quint16 recordLength);

    void readAnalogRecords(FieldCursor &section, int count, const Replaceable &channels, ReadRecord readRecord)
    {
        const FieldPlace place = &channels == &m_analogInputs ? FieldPlace::AnalogInput : FieldPlace::AnalogOutput;
        for (; count > 0 && !section.failed(); --count) {
            const int firstField = m_block.parts.last().fields.size();
            const int at = section.offset();
            enterChannel(section, place, channels.prefix, 3);
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
            dropIfCut(section, firstField);
        }
    }

    /// Names the fields to come after the channel number that stands @p ahead bytes from here, if it does.
    static void enterChannel(FieldCursor &section, FieldPlace place, const QString &prefix, int ahead)
    {
        ByteReader peek = section.reader();
        quint8 channel = 0;
        peek.skip(ahead);
        peek.u8("channel", channel);
        const QString number = peek.failed() ? QStringLiteral("?") : QString::number(channel);
        section.enter(place, prefix + number + QStringLiteral("]."));
    }

    static void readAnalogInput(FieldCursor &section, quint8 family, int recordAt, quint16 recordLength)
    {
        checkRecordLength(section, recordAt, recordLength, blocklayout::analogInputSize(family));
        section.setFamily(family);
        AiFilter filter;
        AiRange range{};
        blocklayout::walkAnalogInput(section, family, filter, range);
    }

    static void readAnalogOutput(FieldCursor &section, quint8 /*family*/, int recordAt, quint16 recordLength)
    {
        checkRecordLength(section, recordAt, recordLength, blocklayout::analogOutputSize);
        AqOutTbl stop;
        AqOutType type;
        blocklayout::walkAnalogOutput(section, stop, type);
    }

    static void checkRecordLength(FieldCursor &section, int recordAt, int recordLength, int fieldsSize)
    {
        const int expected = blocklayout::analogRecordHeadSize + fieldsSize;
        if (recordLength == expected) {
            return;
        }
        section.report(
            recordAt, "recordLength", QString::number(expected), QString::number(recordLength),
            QStringLiteral("%1 bytes are read all the same, and the next record is sought behind them").arg(expected));
    }

    void readWeighing(FieldCursor &section, quint8 type)
    {
        if (type != static_cast<quint8>(SectionType::Weighing)) {
            reportType(section, type, QStringLiteral("41 in a weighing module"));
            return;
        }
        section.setCutEffect(dropsChannels);
        section.enter(FieldPlace::Weighing, QStringLiteral("weighing."));
        section.u8("count", m_par.weighCount);
        for (int left = m_par.weighCount; left > 0 && !section.failed(); --left) {
            const int firstField = m_block.parts.last().fields.size();
            enterChannel(section, FieldPlace::Weighing, QStringLiteral("weighing["), 0);
            quint8 channel = 0;
            WeighChannelPar entry;
            section.u8("channel", channel);
            blocklayout::walkWeighing(section, entry);
            dropIfCut(section, firstField);
        }
    }

    /// A record that ends early stores nothing of what it holds.
    void dropIfCut(const FieldCursor &section, int firstField)
    {
        if (!section.failed()) {
            return;
        }
        QVector<Field> &fields = m_block.parts.last().fields;
        std::for_each(fields.begin() + firstField, fields.end(), [](Field &field) { leaveOut(field, "left out"); });
    }

    static void leaveOut(Field &field, const char *why)
    {
        if (!field.stored) {
            return;
        }
        field.stored = false;
        field.meaning += (field.meaning.isEmpty() ? "" : "; ") + QLatin1String(why);
    }

    void finish()
    {
        m_block.size = m_cursor.offset() - m_block.offset;
        const bool trails = m_format == BlockFormat::SavedState || !m_block.complete;
        if (trails && m_cursor.remaining() != 0) {
            addPart(m_block.complete ? QStringLiteral("Behind the block") : QStringLiteral("Not read"));
            m_cursor.takeRest(QStringLiteral("trailing"), notRead);
        }
        leaveOutReplaced();
    }

    /// Of several fields with one name the last one stays; a table or a channel list goes with all its entries, and
    /// an analog channel with all its fields, as another family has others.
    void leaveOutReplaced()
    {
        QSet<QString> later;
        int index = fieldCount();
        for (auto part = m_block.parts.rbegin(); part != m_block.parts.rend(); ++part) {
            for (auto field = part->fields.rbegin(); field != part->fields.rend(); ++field) {
                --index;
                if (!field->stored) {
                    continue;
                }
                const QString channel = field->name.left(field->name.indexOf(QLatin1Char('.')));
                if (later.contains(field->name) || later.contains(channel) || isReplaced(*field, index)) {
                    leaveOut(*field, "replaced further down");
                }
                later.insert(field->name);
                if (field->name.endsWith(QLatin1String("].family"))) { // the first field of a channel's record
                    later.insert(channel);
                }
            }
        }
    }

    bool isReplaced(const Field &field, int index) const
    {
        const auto replaces = [&field, index](const Replaceable &list) {
            return index < list.until && field.name.startsWith(list.prefix);
        };
        return replaces(m_inputFilter) || replaces(m_outputTable) || replaces(m_analogInputs) ||
               replaces(m_analogOutputs);
    }

    BlockFormat m_format;
    DecodedBlock m_block;
    FieldCursor m_cursor;
    SimpleExtendPar m_par;
    quint8 m_count = 0;
    Replaceable m_inputFilter{QStringLiteral("digitalInput.diFilter[")};
    Replaceable m_outputTable{QStringLiteral("digitalOutput.dqOutTbl[")};
    Replaceable m_analogInputs{QStringLiteral("analogInput[")};
    Replaceable m_analogOutputs{QStringLiteral("analogOutput[")};
};

} // namespace

namespace blockdecoder {

const Field *DecodedBlock::find(const QString &name) const
{
    for (const Part &part : parts) {
        const auto *const found = std::find_if(part.fields.cbegin(), part.fields.cend(), [&name](const Field &field) {
            return field.stored && field.name == name;
        });
        if (found != part.fields.cend()) {
            return found;
        }
    }
    return nullptr;
}

QVector<DecodedBlock> decode(const QByteArray &bytes, Format format)
{
    QVector<DecodedBlock> blocks;
    int offset = 0;
    do {
        blocks += Decoder(bytes, offset, format).run();
        offset += blocks.last().size;
    } while (format == Format::Configuration && blocks.last().complete && offset < bytes.size());
    return blocks;
}

} // namespace blockdecoder
