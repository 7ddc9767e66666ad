// Saved states and configuration blocks: golden bytes, round trips, intended oddities, malformed blocks.
#include "blockcheck.h"
#include "catalogfolder.h"
#include "goldenblocks.h"
#include "recordinghost.h"
#include "recordtexts.h"
#include "rows.h"
#include "section.h"
#include "simpleextendpar.h"

using namespace blockbuilder;

namespace {

const QString owner = QStringLiteral("plc");

BlockFormat formatOf(bool saved)
{
    return saved ? BlockFormat::SavedState : BlockFormat::Configuration;
}

SimpleExtendPar recordOf(const Golden &golden)
{
    SimpleExtendPar par = *restoreModule(goldenBlock(golden, true), owner);
    recordingHost().calls.clear();
    return par;
}

/// Returns the section with 255 channels of random values instead of its one channel.
QByteArray filled(const QByteArray &one, QRandomGenerator &random)
{
    const auto bytes = [&random](int count) {
        QByteArray values(count, 0);
        std::generate(values.begin(), values.end(), [&random] { return char(random.bounded(256)); });
        return values;
    };
    const auto type = SectionType(one[5]);
    QByteArray body = "\xFF" + QByteArray(int(type == SectionType::DigitalOutputTable), 1);
    if (type == SectionType::DigitalOutputTable || type == SectionType::DigitalInputFilter) {
        return section(one[5], body + bytes(32));
    }
    const QByteArray record = one.mid(9);
    const int channelAt = type == SectionType::Weighing ? 0 : 3;
    for (int channel = 0; channel < 255; ++channel) {
        body += record.left(channelAt) + char(channel) + bytes(record.size() - channelAt - 1);
    }
    return section(one[5], body);
}

QStringList captured;

void capture(QtMsgType /*type*/, const QMessageLogContext &context, const QString &message)
{
    const bool hasContext = context.file != nullptr || context.line != 0 || context.function != nullptr;
    captured << message + (hasContext ? " with context" : "");
}

} // namespace

class TestBlocks : public QObject {
    Q_OBJECT

    std::optional<CatalogFolder> m_catalog;

private slots:
    void init()
    {
        recordingHost() = RecordingHost();
        m_catalog.emplace();
        for (const Golden &golden : goldens()) { // its bytes differ from those of the blocks
            m_catalog->writeModule(golden.objId, 0x01010101, "ReservBytes=0\nIntEnableTbl=9,9,9,9,9\n");
        }
    }
    void cleanup() { m_catalog.reset(); }

    void golden_data()
    {
        const Rows<int, bool> row("index", "saved");
        for (int i = 0; i < goldens().size(); ++i) {
            row(goldens().at(i).name + QByteArray(", saved state"), i, true);
            row(goldens().at(i).name + QByteArray(", configuration"), i, false);
        }
    }
    void golden()
    {
        QFETCH(int, index);
        QFETCH(bool, saved);
        Golden golden = goldens().at(index);
        const QByteArray bytes = goldenBlock(golden, saved);
        const auto read = blockcheck::read(bytes, owner, formatOf(saved));
        QVERIFY(read);
        QCOMPARE(recordingHost().calls, golden.claims);
        QCOMPARE(read->objId, golden.objId);
        QCOMPARE((QList<int>{read->rackId, read->slotId, read->fwVersion}), (QList<int>{1, -2, 12}));
        QCOMPARE((QStringList{read->objName, read->comment, read->memoryOwner}),
                 (QStringList{"Né", saved ? "c" : "", owner}));
        QCOMPARE(read->position, saved ? QPoint(0x01020304, 5) : QPoint());
        QCOMPARE(channelTexts(*read), golden.tail);
        // Double-word weighing channels have 4 bytes in a saved state and 2 in a configuration block.
        const int unit = !saved && golden.unit == 4 ? 2 : golden.unit;
        QCOMPARE((QList<int>{read->inMap.unit, read->outMap.unit}), (QList<int>{unit, unit}));
        read->inMap.unit = read->outMap.unit = static_cast<quint8>(golden.unit);
        QCOMPARE(blockcheck::write(*read, formatOf(saved)).toHex(), bytes.toHex());

        recordingHost().takeResult = 6; // a range that the host refuses stays in the record
        const auto refused = blockcheck::read(bytes, owner, formatOf(saved));
        QCOMPARE(refused->inMap.start, read->inMap.start);
        QCOMPARE(refused->outMap.start, read->outMap.start);

        recordingHost().calls.clear();
        QVERIFY(blockcheck::read(bytes, QString(), formatOf(saved)));
        QVERIFY(recordingHost().calls.isEmpty());

        QRandomGenerator random(static_cast<quint32>(index));
        for (QByteArray &section : golden.sections) {
            section = filled(section, random);
        }
        const QByteArray randomBytes = goldenBlock(golden, saved);
        const auto randomRead = blockcheck::read(randomBytes, owner, formatOf(saved));
        QVERIFY(randomRead);
        randomRead->inMap.unit = randomRead->outMap.unit = static_cast<quint8>(golden.unit);
        QCOMPARE(blockcheck::write(*randomRead, formatOf(saved)).toHex(), randomBytes.toHex());
    }

    void headerLength_data()
    {
        const Rows<qint64, bool, qint32> row("length", "accepted", "code"); // 55 = unchanged
        row("correct", correct, true, 0);
        row("0 leaves no fields", 0, false, 0);
        row("7 leaves no fields", 7, false, 0);
        row("8 leaves no fields", 8, false, 0);
        row("11 truncates the type code", 11, false, 0);
        row("12 has only the type code", 12, true, 0);
        row("2^31 - 1", 0x7FFFFFFF, false, 55);
        row("2^31", 0x80000000, false, 55);
        row("2^32 - 1", 0xFFFFFFFF, false, 55);
    }
    void headerLength()
    {
        QFETCH(qint64, length);
        QFETCH(bool, accepted);
        QFETCH(qint32, code);
        for (const bool saved : {true, false}) {
            qint32 result = 55;
            const auto read = blockcheck::read(block(header(headerFields(goldens().at(3), saved), length)), owner,
                                               formatOf(saved), &result);
            QCOMPARE(read != nullptr, accepted);
            QCOMPARE(result, saved ? 55 : code);
            QVERIFY(!read || read->objId == 13650);
        }
    }

    void catalogRefuses_data()
    {
        const Rows<QByteArray, qint32> row("lines", "code"); // without lines there is no description file
        row("no description file", "", 129);
        row("entry for a newer host", "NeedHwCnfgVersion=2301\n", 129);
        row("no component file named", "ServerFile=\n", 0);
        row("component path names a folder", "ServerFile=../9\n", 0);
        row("missing component file", "ServerFile=absent.cmp\n", 0);
    }
    void catalogRefuses()
    {
        QFETCH(QByteArray, lines);
        QFETCH(qint32, code);
        const Golden &golden = goldens().at(3);
        m_catalog.emplace(); // without description files
        if (!lines.isEmpty()) {
            m_catalog->writeModule(golden.objId, 0x01010101, lines);
        }
        for (const bool saved : {true, false}) {
            recordingHost().calls.clear();
            qint32 result = 55;
            QVERIFY(!blockcheck::read(goldenBlock(golden, saved), owner, formatOf(saved), &result));
            QCOMPARE(result, saved ? 55 : code);
            QCOMPARE(recordingHost().calls, code == 0 ? golden.claims : QStringList());
        }
    }

    void headerEndsEarly()
    {
        const QByteArray fields = headerFields(goldens().at(0), true);
        for (int size = 4; size < fields.size(); ++size) {
            recordingHost().calls.clear();
            const auto read = restoreModule(block(header(fields.left(size))), owner);
            QVERIFY(read);
            QCOMPARE(read->rackId, size >= 5 ? 1 : -1);
            QCOMPARE(read->objName,
                     size < 7 ? QStringLiteral("Module") : QString::fromUtf8("N\xC3\xA9", qBound(0, size - 7, 3)));
            QCOMPARE(read->position, QPoint(size >= 16 ? 0x01020304 : 0, size >= 20 ? 5 : 0));
            QCOMPARE(read->moduleInfo, size >= 24 ? 0x01010000U : 0x01010101U);
            QCOMPARE(int(read->inMap.area), size >= 49 ? 6 : 0);
            QCOMPARE(recordingHost().calls, goldens().at(0).claims.mid(0, size >= 56 ? 2 : size >= 52 ? 1 : 0));
            QCOMPARE(int(read->intEnableTbl[4]), size >= 62 ? 0xE5 : 9);
        }
    }

    void sections_data()
    {
        const Rows<quint32, QByteArray, QString, int> counted("objId", "bytes", "stored", "count");
        const auto row = [&counted](const char *name, quint32 objId, const QByteArray &bytes, const char *stored,
                                    int count = 3) { counted(name, objId, bytes, stored, count); };
        const QByteArray filter = section(18, hex("08 66"));
        const QByteArray table = section(5, hex("08 01 AA"));
        row("filter clears the outputs", 13650, table + filter, "di 8 66 dq 0,1 aa");
        row("255 section steps", 13650, section(5, "").repeated(253) + filter + table + section(5, hex("10")),
            "di 8 66 dq 8,1 aa", 0);
        row("one section counted", 13650, table + filter, "di 0  dq 8,1 aa", 2);
        row("unknown type", 13650, section(37, hex("08 66")) + table, "di 0  dq 8,1 aa");
        row("length 0 ends the sections", 13650, section(18, hex("08 66"), 0) + table, "di 0  dq 0,2 ");
        row("length 7 has no section", 13650, hex("00000007 000000") + table, "di 0  dq 8,1 aa");
        row("length 8 has no body", 13650, section(18, "") + table, "di 0  dq 8,1 aa");
        row("length beyond the end", 13650, section(18, hex("08 66"), 100) + table, "di 0  dq 0,2 ");
        row("length 2^31 - 1", 13650, section(18, hex("08 66"), 0x7FFFFFFF), "di 0  dq 0,2 ");
        row("length 2^31", 13650, section(18, hex("08 66"), 0x80000000) + table, "di 0  dq 0,2 ");
        row("length 2^32 - 1", 13650, section(18, hex("08 66"), 0xFFFFFFFF) + table, "di 0  dq 0,2 ");
        row("truncated filter", 13650, section(18, hex("10 66")) + table, "di 16  dq 8,1 aa");
        row("table without mode", 13650, section(5, hex("08")), "di 0  dq 8,2 ");

        const QByteArray input = hex("000B 00 03 01 02 0140 01 02 03 04 05");
        row("channels", 13395, section(37, hex("01") + input), "ai 1 3:0,1,2,320/0102030405000000 aq 0");
        row("a second section replaces the first", 13395, section(37, hex("01") + input) + section(37, hex("00")),
            "ai 0 aq 0");
        row("truncated list of channels", 13395, section(37, hex("FF") + input) + section(38, hex("00")),
            "ai 255 3:0,1,2,320/0102030405000000 aq 0");
        row("record longer than the section", 13395, section(37, hex("01 000C 00 03 01 02 0140 01 02 03 04 05")),
            "ai 1 aq 0");
        row("record length 0 does not skip", 13395, section(37, hex("01 0000 00 03 01 02 0140 01 02 03 04 05")),
            "ai 1 3:0,1,2,320/0102030405000000 aq 0");
        row("record beyond the end of its section", 13395,
            section(37, hex("01 0001 00 03 01")) + section(38, hex("02 0007 05 09 01 8000 02 03 0002 05 08")),
            "ai 1 aq 2 9:5,1,-32768,2,3");
        row("unknown family has no range bytes", 13395, section(37, hex("01 0006 07 03 01 02 0140")),
            "ai 1 3:7,1,2,320/0000000000000000 aq 0");

        const QByteArray entry = hex("02 00 3F800000 0E 07D0 0001 0002 01 06 63");
        row("weighing channel", 14420, section(41, hex("01") + entry), "weigh 1 2:0,1,14,2000,1,2,1,6,99");
        row("the later of two records of a channel is stored", 14420,
            section(41, hex("02 02 01 40000000 01 0001 0001 0001 00 01 FF") + entry),
            "weigh 2 2:0,1,14,2000,1,2,1,6,99");
        row("a truncated channel is not stored", 14420, section(41, hex("02") + entry + entry.left(15)),
            "weigh 2 2:0,1,14,2000,1,2,1,6,99");
        row("weighing modules ignore other types", 14420, section(37, hex("01") + entry), "weigh 0");
        row("word channels have no sections", 14419, section(41, hex("01") + entry), "weigh 0");
    }
    void sections()
    {
        QFETCH(quint32, objId);
        QFETCH(QByteArray, bytes);
        QFETCH(int, count);
        m_catalog->writeModule(objId, 1);
        for (const bool saved : {true, false}) {
            const auto read = blockcheck::read(block(header(be32(objId)), {bytes}, count), owner, formatOf(saved));
            QVERIFY(read);
            QTEST(channelTexts(*read), "stored");
        }
    }

    void analogWriterGivesUpButCounts()
    {
        const int bytesWithoutSections = goldenBlock(goldens().last(), true).size();
        SimpleExtendPar par = recordOf(goldens().first()); // has one channel of each kind
        for (const auto &[inputs, outputs, bytes, sections] :
             {std::tuple{1, 1, 22 + 18, 3}, {1, 2, 0, 3}, {2, 2, 0, 2}}) {
            par.aiCount = quint8(inputs);
            par.aqCount = quint8(outputs);
            const QByteArray state = saveModule(par);
            QCOMPARE(state.size() - bytesWithoutSections, bytes);
            QCOMPARE(int(state[0]), sections);
        }
    }

    void recordsOutsideTheOtherHashesAreZero()
    {
        SimpleExtendPar par = recordOf(goldens().first());
        par.aiFilter.clear();
        par.aiRange.clear();
        par.aqOutTbl.clear();
        par.aqOutType.clear();
        QCOMPARE(saveModule(par).right(40), hex("00000016 00 25 0000 01 000B 00 00 00 00 0000 0000000000"
                                                "00000012 00 26 0000 01 0007 00 00 00 0000 00 00"));
        SimpleExtendPar weighing = recordOf(goldens().at(4));
        weighing.weighCount = 2;
        QCOMPARE(saveModule(weighing).right(9).toHex(), hex("00000009 00 29 0000 02").toHex());
    }

    void moduleInfoDecidesOnTheRanges()
    {
        Golden golden = goldens().at(3);
        golden.moduleInfo = 0;
        QByteArray bytes = goldenBlock(golden, true);
        auto read = restoreModule(bytes, owner);
        QCOMPARE((QList<int>{read->inMap.area, read->outMap.area, read->intEnableTbl[4]}), (QList<int>{0, 0, 0xE5}));
        QCOMPARE(recordingHost().calls, QStringList());

        golden = goldens().at(4); // outputs of double words are counted as digital
        golden.moduleInfo = 0x07060504;
        read = restoreModule(goldenBlock(golden, true), owner);
        QCOMPARE((QList<int>{read->inMap.count, read->outMap.count}), (QList<int>{6, 5}));

        SimpleExtendPar par = recordOf(golden); // the length of the range is stored modulo 256
        par.inMap = {132, 0x1234, 100, 1, 4};
        QVERIFY(saveModule(par).contains(hex("84 1234 90")));

        bytes = goldenBlock(goldens().last(), true);
        bytes[bytes.size() - 14] = 0; // the marker in front of the interrupt table
        QCOMPARE(int(restoreModule(bytes, owner)->intEnableTbl[4]), 0);
    }

    void textLengths()
    {
        SimpleExtendPar par = recordOf(goldens().at(3));
        // The length of the name has a sign. 260 bytes are truncated to 4.
        for (const auto &[length, name, comment] :
             {std::tuple{127, 127, 127}, {128, 0, 128}, {255, 0, 255}, {260, 4, 4}}) {
            par.objName = "n";
            par.comment = QString(length, 'x');
            QCOMPARE(restoreModule(saveModule(par), owner)->comment, QString(comment, 'x'));
            par.objName = par.comment;
            QCOMPARE(restoreModule(saveModule(par), owner)->objName, QString(name, 'x'));
        }
    }

    void signedBytes()
    {
        SimpleExtendPar par = recordOf(goldens().at(3));
        par.position = {0x00008000, 0x01FF0000};
        QCOMPARE(restoreModule(saveModule(par), owner)->position, QPoint(-0x8000, 0x00FF0000));
        // With signed bytes 00 00 01 A4 is 256 - 92.
        m_catalog->writeModule(164, 1);
        QCOMPARE(restoreModule(block(header(hex("000001A4"))), owner)->objId, 164U);
    }

    void twoByteEncoding()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("GBK"));
        SimpleExtendPar par = recordOf(goldens().at(3));
        par.objName = QStringLiteral("模块");
        const QByteArray bytes = saveModule(par);
        const QString name = restoreModule(bytes, owner)->objName;
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
        QCOMPARE(bytes.mid(15, 5), hex("04 C4A3BFE9"));
        QCOMPARE(name, par.objName);
    }

    void diagnosticLines()
    {
        const SimpleExtendPar analog = recordOf(goldens().first());
        const SimpleExtendPar plain = recordOf(goldens().last());
        const QByteArray saved = goldenBlock(goldens().first(), true);
        const QByteArray configured = goldenBlock(goldens().at(3), false);
        const auto traffic = [&] {
            saveModule(analog);
            restoreModule(saved, owner);
            recompileModule(configured, owner, nullptr);
            QByteArray bytes("\x07");
            compileModule(plain, bytes);
        };
        traffic();
        QCOMPARE(recordingHost().rendered, 0);

        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
        const auto previous = qInstallMessageHandler(capture);
        traffic();
        qInstallMessageHandler(previous);
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);

        const QString place = QStringLiteral(" .\\simpleextendexportfunc.cpp %1 \"%2\"");
        const auto line = [&place](int number, const QByteArray &bytes) {
            return place.arg(number).arg(QString::fromLatin1(bytes.toHex()));
        };
        QCOMPARE(QStringList(captured).replaceInStrings(QRegularExpression("^\"\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\""), ""),
                 (QStringList{line(370, hex("0007 00 00 01 FFFE 01 03")), line(1339, saved), line(1350, saved),
                              line(865, saved.right(40)), line(865, saved.right(18)), line(509, configured),
                              line(1047, configured.right(22)), line(1047, configured.right(11)),
                              line(141, "\x07" + goldenBlock(goldens().last(), false))}));
    }
};

QTEST_GUILESS_MAIN(TestBlocks)
#include "tst_blocks.moc"
