#include "blockdecoder.h"

#include "blocklayout.h"
#include "fieldcursor.h"
#include "sectiondecoder.h"

#include <algorithm>

namespace {

using namespace blockdecoder;

const QString noModule = QStringLiteral("no module is rebuilt");
const QString keepsCatalogValues = QStringLiteral("this field and all later ones keep the catalog's values");
const QString notRead = QStringLiteral("not read");

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

/// Decodes the block that begins at an offset of the data. Its values go into a record, which decides how to go on.
class Decoder {
public:
    Decoder(const QByteArray &bytes, int offset, BlockFormat format)
        : m_format(format), m_cursor(bytes, offset, m_block, noModule)
    {
        m_block.offset = offset;
    }

    DecodedBlock run()
    {
        addPart(QStringLiteral("Block"));
        if (readHeader()) {
            readSections();
        } else {
            m_block.refused = true;
        }
        m_block.size = m_cursor.offset() - m_block.offset;
        if (m_format == BlockFormat::SavedState || !m_block.complete) {
            addTrailing();
        }
        return std::move(m_block);
    }

private:
    void addPart(const QString &title) { m_block.parts += Part{title, {}}; }

    /// Returns false if no module is rebuilt from the block.
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
            refuse(at, QStringLiteral("%1 bytes, the length of the header").arg(length), available);
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
            header.explain(QStringLiteral("not read back; the catalog's bytes stay"));
        }
        if (header.remaining() != 0) {
            header.report(header.offset(), "rest", QStringLiteral("the end of the header"),
                          QStringLiteral("%1 more bytes").arg(header.remaining()),
                          QStringLiteral("they are not read; a block of the other format has such a header"));
        }
        header.takeRest(QStringLiteral("header.rest"), notRead);
    }

    /// Without a module info the ranges are skipped.
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

    /// Decodes the sections up to the last one or up to the first one with an invalid length.
    void readSections()
    {
        SectionDecoder decoder(m_block, moduleKind(m_par.objId).family);
        m_block.complete = true;
        for (int number = 1; m_block.complete && number <= sectionCount(); ++number) {
            m_block.complete = readSection(number, decoder);
        }
        decoder.leaveOutReplaced();
    }

    /// Returns false if the length of the section is invalid, so its end is unknown.
    bool readSection(int number, SectionDecoder &decoder)
    {
        const QString prefix = QStringLiteral("section[%1].").arg(number);
        const int available = m_cursor.remaining();
        const std::optional<quint32> claimed = m_cursor.peek<quint32>();
        const quint8 type = claimed.value_or(0) < blocklayout::sectionFrameSize ? 0 : typeAhead();
        addPart(QStringLiteral("Section %1: %2").arg(number).arg(sectionTypeText(type)));
        const auto length = static_cast<qint32>(claimed.value_or(0));
        const bool isValid = length > 0 && length <= available;
        FieldCursor section = m_cursor.sub(isValid ? length : 0);
        if (isValid) {
            decoder.decode(section, prefix);
            section.takeRest(prefix + QStringLiteral("rest"), notRead);
            return true;
        }
        section.enter(FieldPlace::Frame, prefix);
        section.report(section.offset(), "length",
                       claimed ? QStringLiteral("1 to %1").arg(available)
                               : QStringLiteral("a section of at least %1 bytes").arg(blocklayout::sectionFrameSize),
                       claimed ? QString::number(length) : QStringLiteral("%1 bytes").arg(available),
                       QStringLiteral("decoding ends; this section and all later ones are left out"));
        return false;
    }

    quint8 typeAhead() const { return m_cursor.peek<quint8>(sizeof(quint32) + 1).value_or(0); }

    void addTrailing()
    {
        if (m_cursor.remaining() != 0) {
            addPart(m_block.complete ? QStringLiteral("After the block") : QStringLiteral("Not read"));
            m_cursor.takeRest(QStringLiteral("trailing"), notRead);
        }
    }

    BlockFormat m_format;
    DecodedBlock m_block;
    FieldCursor m_cursor;
    SimpleExtendPar m_par;
    quint8 m_count = 0;
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

DecodedBlock decodeSavedState(const QByteArray &bytes)
{
    return Decoder(bytes, 0, BlockFormat::SavedState).run();
}

QVector<DecodedBlock> decodeConfiguration(const QByteArray &bytes)
{
    QVector<DecodedBlock> blocks;
    int offset = 0;
    do {
        blocks += Decoder(bytes, offset, BlockFormat::Configuration).run();
        offset += blocks.last().size;
    } while (blocks.last().complete && offset < bytes.size());
    return blocks;
}

} // namespace blockdecoder
