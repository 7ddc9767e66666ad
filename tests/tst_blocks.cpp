// Saved states and configuration blocks: golden bytes, round trips, intended oddities, malformed blocks.
#include "blockcheck.h"
#include "catalogfolder.h"
#include "goldenblocks.h"
#include "metfields.h"
#include "recordinghost.h"
#include "rows.h"
#include "section.h"
#include "simpleextendpar.h"

#include <rapidcheck.h>

using namespace blockbuilder;

namespace {

const QString owner = QStringLiteral("plc");

template <typename... Numbers>
QString numbers(Numbers... values)
{
    return QStringList{QString::number(values)...}.join(',');
}

template <typename Value, typename Describe>
QString describeChannels(const QHash<quint8, Value> &hash, Describe describe)
{
    QString text;
    visitChannels(hash, [&text, &describe](quint8 channel, const Value & /*value*/) {
        text += QStringLiteral(" %1:").arg(channel) + describe(channel);
    });
    return text;
}

/// Describes the parameters that the kind of module uses, without the fields of the header.
QString describeTail(const SimpleExtendPar &par)
{
    if (par.objId < 13000) {
        return {};
    }
    if (par.objId < 13600) {
        const auto input = [&par](quint8 c) -> QString {
            const AiFilter f = par.aiFilter.value(c);
            return numbers(par.aiKind.value(c), f.filterOn, f.samples, f.deadband) + '/' + hex(par.aiRange.value(c));
        };
        const auto output = [&par](quint8 c) {
            const AqOutTbl s = par.aqOutTbl.value(c);
            const AqOutType t = par.aqOutType.value(c);
            return numbers(par.aqKind.value(c), s.freezeLast, s.stopValue, t.enable, t.range);
        };
        return "ai " + numbers(par.aiCount) + describeChannels(par.aiKind, input) + " aq " + numbers(par.aqCount) +
               describeChannels(par.aqKind, output);
    }
    if (par.objId < 14000) {
        return "di " + numbers(par.diCount) + ' ' + par.diFilter.toHex() + " dq " + numbers(par.dqCount, par.dqMode) +
               ' ' + par.dqOutTbl.toHex();
    }
    return "weigh " + numbers(par.weighCount) + describeChannels(par.weighPar, [&par](quint8 c) {
               const WeighChannelPar w = par.weighPar.value(c);
               return numbers(w.enable, w.sensitivity, w.limitFreq, w.filterDepth, w.subMax, w.subMin, w.filterMode,
                              w.sampleFreq, w.bootClear);
           });
}

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

template <typename Value>
Value any()
{
    return *rc::gen::arbitrary<Value>();
}

QString textOfAtMost(int bytes)
{
    static const QString alphabet = QStringLiteral("aZ 9~é模Ω");
    QString text;
    const int length = *rc::gen::inRange(0, bytes);
    while (text.toLocal8Bit().size() < length) {
        text += alphabet.at(*rc::gen::inRange(0, alphabet.size()));
    }
    return text.toLocal8Bit().size() > bytes ? text.chopped(1) : text;
}

QByteArray randomBytes(int count)
{
    return QByteArray::fromStdString(
        *rc::gen::container<std::string>(static_cast<std::size_t>(count), rc::gen::arbitrary<char>()));
}

/// Returns a record with random values in all fields that a block stores. The host reports its channel counts.
SimpleExtendPar randomRecord(const Golden &golden)
{
    SimpleExtendPar par = recordOf(golden);
    const auto inputs = *rc::gen::elementOf(std::vector<quint8>{0, 1, 8, 255});
    const auto outputs = *rc::gen::elementOf(std::vector<quint8>{0, 1, 8, 255});
    recordingHost().channels = {{'i', inputs}, {'I', inputs}, {'q', outputs}, {'Q', outputs}};
    par.inMap.count = par.aiCount = par.diCount = par.weighCount = inputs;
    par.outMap.count = par.aqCount = par.dqCount = outputs;
    par.inMap.start = any<quint16>();
    par.outMap.start = any<quint16>();
    par.rackId = *rc::gen::inRange(-128, 128);
    par.slotId = *rc::gen::inRange(-128, 128);
    par.objName = textOfAtMost(127);
    par.comment = textOfAtMost(255);
    par.position = {static_cast<int>(any<quint32>() & 0x7F7F7F7FU), static_cast<int>(any<quint32>() & 0x7F7F7F7FU)};
    par.moduleInfo = any<quint32>() | 1U;
    par.fwVersion = any<quint8>();
    par.intEnableTbl = any<std::array<quint8, 5>>();
    par.diFilter = randomBytes((inputs + 7) / 8);
    par.dqMode = any<quint8>();
    par.dqOutTbl = randomBytes((outputs + 7) / 8);
    par.weighPar.clear();
    par.aiKind.clear();
    par.aqKind.clear();
    for (int i = 0; i < inputs; ++i) {
        const auto channel = static_cast<quint8>(255 - i); // the first channel need not be 0
        par.aiKind[channel] = *rc::gen::inRange<quint8>(0, 4);
        par.aiFilter[channel] = {any<quint8>(), any<quint16>(), any<quint8>()};
        par.aiRange[channel] = any<AiRange>();
        const auto sensitivity = static_cast<float>(any<qint16>()) / 8;
        par.weighPar[channel] = {any<quint8>(),  sensitivity,   any<quint8>(), any<quint16>(), any<quint16>(),
                                 any<quint16>(), any<quint8>(), any<quint8>(), any<qint8>()};
    }
    for (int i = 0; i < outputs; ++i) {
        const auto channel = static_cast<quint8>(i);
        par.aqKind[channel] = any<quint8>();
        par.aqOutTbl[channel] = {any<quint8>(), any<qint16>()};
        par.aqOutType[channel] = {any<quint8>(), any<quint8>()};
    }
    return par;
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
    void initTestCase()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    }
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
        const Golden &golden = goldens().at(index);
        const QByteArray bytes = goldenBlock(golden, saved);
        const auto read = blockcheck::read(bytes, owner, formatOf(saved));
        QVERIFY(read);
        QCOMPARE(recordingHost().calls, golden.claims);
        QCOMPARE(read->objId, golden.objId);
        QCOMPARE((QList<int>{read->rackId, read->slotId, read->fwVersion}), (QList<int>{1, -2, 12}));
        QCOMPARE(read->objName, QStringLiteral("Né"));
        QCOMPARE(read->comment, saved ? QStringLiteral("c") : QString());
        QCOMPARE(read->position, saved ? QPoint(0x01020304, 5) : QPoint());
        QCOMPARE(read->memoryOwner, owner);
        QCOMPARE(describeTail(*read), golden.tail);
        // Double-word weighing channels have 4 bytes in a saved state and 2 in a configuration block.
        const int unit = !saved && golden.unit == 4 ? 2 : golden.unit;
        QCOMPARE((QList<int>{read->inMap.unit, read->outMap.unit}), (QList<int>{unit, unit}));
        read->inMap.unit = read->outMap.unit = static_cast<quint8>(golden.unit);
        QCOMPARE(blockcheck::write(*read, formatOf(saved)).toHex(), bytes.toHex());

        recordingHost().calls.clear();
        QVERIFY(blockcheck::read(bytes, QString(), formatOf(saved)));
        QVERIFY(recordingHost().calls.isEmpty());
    }

    void randomRecordsSurvive_data() { golden_data(); }
    void randomRecordsSurvive()
    {
        QFETCH(int, index);
        QFETCH(bool, saved);
        QVERIFY(rc::check([index, saved] {
            SimpleExtendPar par = randomRecord(goldens().at(index));
            if (!saved && par.objId == 14418)
                par.inMap.unit = par.outMap.unit = 2;
            const QByteArray bytes = blockcheck::write(par, formatOf(saved));
            const auto read = blockcheck::read(bytes, owner, formatOf(saved));
            RC_ASSERT(read != nullptr);
            RC_ASSERT(blockcheck::write(*read, formatOf(saved)).toHex().toStdString() == bytes.toHex().toStdString());
        }));
    }

    void headerLength_data()
    {
        const Rows<qint64, bool, qint32> row("length", "accepted", "code"); // 55 = unchanged
        row("honest", honest, true, 0);
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
        m_catalog->remove(QStringLiteral("6/hw00003552.met"));
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
            QTEST(describeTail(*read), "stored");
        }
    }

    void analogWriterGivesUpButCounts_data()
    {
        const Rows<quint8, quint8, int, int> row("inputs", "outputs", "bytes", "count");
        row("all channels stored", 1, 1, 22 + 18, 3);
        row("an output is missing", 1, 2, 0, 3);
        row("an input is missing", 2, 2, 0, 2);
    }
    void analogWriterGivesUpButCounts()
    {
        SimpleExtendPar par = recordOf(goldens().first());
        QFETCH(quint8, inputs);
        QFETCH(quint8, outputs);
        par.aiCount = inputs;
        par.aqCount = outputs;
        const QByteArray state = saveModule(par);
        QTEST(int(state.size() - goldenBlock(goldens().last(), true).size()), "bytes");
        QTEST(int(state.at(0)), "count");
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

    void markerZeroClearsTheInterruptTable()
    {
        QByteArray bytes = goldenBlock(goldens().last(), true);
        bytes[bytes.size() - 14] = 0;
        QCOMPARE(int(restoreModule(bytes, owner)->intEnableTbl[4]), 0);
    }

    void rangesNeedModuleInfo()
    {
        Golden golden = goldens().at(3);
        golden.moduleInfo = 0;
        const auto read = restoreModule(goldenBlock(golden, true), owner);
        QCOMPARE((QList<int>{read->inMap.area, read->outMap.area}), (QList<int>{0, 0}));
        QCOMPARE(recordingHost().calls, QStringList());
        QCOMPARE(int(read->intEnableTbl[4]), 0xE5);
    }

    void doubleWordOutputsAreCountedAsDigital()
    {
        Golden golden = goldens().at(4);
        golden.moduleInfo = 0x07060504;
        const auto read = restoreModule(goldenBlock(golden, true), owner);
        QCOMPARE((QList<int>{read->inMap.count, read->outMap.count}), (QList<int>{6, 5}));
    }

    void textLengths_data()
    {
        const Rows<QString, QString, QString> row("text", "name", "comment");
        const auto letters = [](int count) { return QString(count, QLatin1Char('x')); };
        row("127 bytes are the maximum of a name", letters(127), letters(127), letters(127));
        row("128 bytes read as a negative name length", letters(128), QString(), letters(128));
        row("255 bytes are the maximum of a comment", letters(255), QString(), letters(255));
        row("260 bytes are truncated to 4", letters(260), letters(4), letters(4));
    }
    void textLengths()
    {
        QFETCH(QString, text);
        SimpleExtendPar par = recordOf(goldens().at(3));
        par.comment = text;
        QTEST(restoreModule(saveModule(par), owner)->comment, "comment");
        par.objName = text;
        QTEST(restoreModule(saveModule(par), owner)->objName, "name");
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

        const QList<QPair<int, QByteArray>> expected{
            {370, hex("0007 00 00 01 FFFE 01 03")},
            {1339, saved},
            {1350, saved},
            {865, saved.right(40)},
            {865, saved.right(18)},
            {509, configured},
            {1047, configured.right(22)},
            {1047, configured.right(11)},
            {141, "\x07" + goldenBlock(goldens().last(), false)},
        };
        QCOMPARE(captured.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            const QString line = QStringLiteral(" .\\simpleextendexportfunc.cpp %1 \"%2\"")
                                     .arg(expected[i].first)
                                     .arg(QString::fromLatin1(expected[i].second.toHex()));
            QCOMPARE(captured[i].mid(14), line);
            QVERIFY(QRegularExpression("^\"\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\" ").match(captured[i]).hasMatch());
        }
    }
};

QTEST_GUILESS_MAIN(TestBlocks)
#include "tst_blocks.moc"
