// The block inspector: its decoder compared with the plug-in's readers, its texts, its damage reports, the program.
#include "blockagreement.h"
#include "blockbuilder.h"
#include "blockreport.h"
#include "catalogfolder.h"
#include "modulestate.h"
#include "rows.h"

using namespace blockbuilder;
using namespace blockdecoder;

namespace {

constexpr BlockFormat savedState = BlockFormat::SavedState;
constexpr BlockFormat configuration = BlockFormat::Configuration;

/// Sections with what no writer produces, too: channels twice, sections twice, an unknown family.
const QByteArrayList analogSections{
    hex("00000016 00 25 0000 01  000B 00 07 01 05 0140 01 02 03 02 01"),
    hex("0000003C 00 25 0000 04  000D 01 00 01 05 0140 01 02 08 01 00 00 01  000D 02 01 00 07 0011 01 04 13 01 01 01 01"
        "000B 00 00 01 05 0000 01 04 03 02 01  0006 09 02 01 05 0140"),
    hex("0000001B 00 26 0000 02  0007 00 00 01 FFFE 01 03  0007 00 01 00 8000 00 04")};
const QByteArrayList digitalSections{hex("0000000B 00 05 0000 08 01 81"), hex("0000000B 01 12 0000 0C 5071"),
                                     hex("0000000C 00 05 0000 10 02 81FF")};
const QByteArrayList weighSections{hex(
    "00000029 00 29 0000 02  00 01 40000000 04 000F 0102 0304 00 01 9D  03 00 7FC00000 00 07D1 0000 0000 02 06 64")};
const QMap<quint32, QByteArrayList> sectionsOf{
    {13395, analogSections}, {13650, digitalSections}, {14418, weighSections}, {14419, {}}, {100, {}}};

QByteArray headerFields(quint32 objId, BlockFormat format)
{
    return be32(objId) + hex("01 FE 02 4E78") + (format == savedState ? hex("01 63 01020304 00000005") : QByteArray()) +
           hex("01010808 0C  B00102030405060708090A0B0CB1  500000000000000051") +
           hex("06 0110 02  82 0220 01  01 01020304E5  0000000000000000");
}

QByteArray sample(quint32 objId, BlockFormat format = savedState)
{
    return block(header(headerFields(objId, format)), sectionsOf.value(objId));
}

/// Returns how decoder and plug-in differ; an empty string if they agree.
QString disagreementOver(const QByteArray &bytes, BlockFormat format)
{
    const DecodedBlock decoded = decodeFirst(bytes, format);
    const auto par =
        format == savedState ? restoreModule(bytes, QString()) : recompileModule(bytes, QString(), nullptr);
    if (decoded.refused != (par == nullptr)) {
        return QStringLiteral("refused");
    }
    return par ? disagreement(decoded, *par, format) : QString();
}

QString textOf(const QByteArray &bytes)
{
    return toText(QVector<DecodedBlock>{decodeSavedState(bytes)});
}

} // namespace

class TestBlockInspect : public QObject {
    Q_OBJECT

    struct Run {
        int status;
        QByteArray output;
        QByteArray complaint;
    };

    /// Runs the program in the catalog's folder.
    Run run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        QProcess process;
        process.setWorkingDirectory(m_catalog.path());
        process.start(QStringLiteral(BLOCKINSPECT_PATH), arguments);
        process.write(input.left(10));
        if (process.waitForBytesWritten()) {
            QTest::qSleep(100); // as a slow pipe
        }
        process.write(input.mid(10));
        process.closeWriteChannel();
        const bool finished = process.waitForFinished();
        return {finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput(), process.readAllStandardError()};
    }

    CatalogFolder m_catalog;

private slots:
    void initTestCase()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
        for (const quint32 objId : sectionsOf.keys()) {
            m_catalog.writeModule(objId, 0x01010808);
        }
        m_catalog.writeFile("state", sample(13650));
        m_catalog.writeFile("other", sample(13650).replace(13, 1, hex("02")));
        m_catalog.writeFile("cut", sample(13650).chopped(3));
        m_catalog.writeFile("%2", "x");
        m_catalog.writeFile("shorter", sample(13650).replace(15, 1, hex("01")));
    }

    void readsWhatThePlugInReads_data()
    {
        const Rows<QByteArray, BlockFormat> row("whole", "format");
        for (const quint32 objId : sectionsOf.keys()) {
            row(QByteArray::number(objId) + ", saved state", sample(objId, savedState), savedState);
            row(QByteArray::number(objId) + ", configuration", sample(objId, configuration), configuration);
        }
    }
    void readsWhatThePlugInReads()
    {
        QFETCH(QByteArray, whole);
        QFETCH(BlockFormat, format);
        QVERIFY(decodeFirst(whole, format).damages.isEmpty());
        for (int size = 0; size <= whole.size(); ++size) {
            QCOMPARE(disagreementOver(whole.left(size), format), QString());
        }
        for (int at = 0; at < whole.size(); at += at == 8 ? 5 : 1) { // the catalog may lack another type code
            for (const int value : {0, 1, 2, 5, 8, 11, 16, 38, 41, 64, 127, 128, 255}) {
                const QByteArray changed = QByteArray(whole).replace(at, 1, QByteArray(1, char(value)));
                QVERIFY2(disagreementOver(changed, format).isEmpty(), changed.toHex().constData());
            }
        }
    }

    void meanings_data()
    {
        const Rows<quint32, QString, QString> named("objId", "name", "meaning");
        const auto row = [&named](quint32 objId, const char *name, const char *meaning) {
            named(QByteArray::number(objId) + ' ' + name, objId, name, meaning);
        };
        row(13650, "header.objId", "digital module");
        row(13650, "header.rackId", "");
        row(13650, "header.inMap.area", "analog inputs");
        row(13650, "header.outMap.area", "digital outputs");
        row(13650, "digitalInput.diFilter[0]", "I0.0 - I0.3: 0.20ms");
        row(13650, "digitalInput.diFilter[1]", "I0.4 - I0.7: 6.40ms");
        row(13650, "digitalInput.diFilter[3]", "beyond the last input");
        row(13650, "digitalOutput.dqMode", "outputs take the states of the table");
        row(13650, "digitalOutput.dqOutTbl[0]", "Q0.0 - Q0.7: Q0.0 Q0.7 ON");
        row(13650, "digitalOutput.dqOutTbl[1]", "Q1.0 - Q1.7: all ON");
        row(13395, "analogInput[0].family", "voltage/current");
        row(13395, "analogInput[0].filterTime", "100ms");
        row(13395, "analogInput[0].inputRange", "4~20mA");
        row(13395, "analogInput[0].openWire", "Invalid");
        row(13395, "analogInput[1].filterTime", "5s");
        row(13395, "analogInput[1].inputRange", "NTC10K(B=3950)");
        row(13395, "analogInput[1].openWire", "Enable");
        row(13395, "analogInput[1].wiringScheme", "3-wire");
        row(13395, "analogInput[1].temperatureScale", "Degrees Fahrenheit");
        row(13395, "analogInput[1].samples", "256 samples");
        row(13395, "analogInput[1].deadband", "not a multiple of 16 up to 4080");
        row(13395, "analogInput[2].family", "unknown family, without range bytes");
        row(13395, "analogOutput[0].range", "4~20mA");
        row(13395, "analogOutput[1].range", "no such choice");
        row(13395, "analogOutput[1].stopValue", "outside -32000 to 32000");
        row(14418, "weighing[0].limitFreq", "10Hz");
        row(14418, "weighing[0].bootClear", "");
        row(14418, "weighing[3].limitFreq", "no such choice");
        row(14418, "weighing[3].sensitivity", "outside 0 to 32");
        row(14418, "weighing[3].filterDepth", "outside 0 to 2000");
        row(14418, "weighing[3].sampleFreq", "2400Hz");
        row(14418, "weighing[3].bootClear", "outside -99 to 99");
    }
    void meanings()
    {
        QFETCH(quint32, objId);
        QFETCH(QString, name);
        const DecodedBlock decoded = decodeSavedState(sample(objId));
        const Field *field = decoded.find(name);
        QVERIFY(field);
        QTEST(field->meaning, "meaning");
    }

    void damage_data()
    {
        const Rows<QByteArray, bool, QString> row("bytes", "refused", "firstDamage");
        const QByteArray head = headerFields(13650, savedState);
        const auto digital = [&head](const QByteArray &section, int count = honest) {
            return block(header(head), {section}, count);
        };
        const auto analog = [](const char *body) {
            return block(header(headerFields(13395, savedState)), {section(37, hex(body))});
        };
        row("no bytes", {}, true, "0000, sectionCount: expected 1 byte, found the end");
        row("a truncated header frame", hex("01 00000008 0002"), true,
            "0001, header.length: expected at least 8 bytes, found 6 bytes");
        row("a header length beyond the data", block(header(head, 500)), true,
            "0001, header.length: expected 500 bytes, the length of the header, found 77 bytes");
        row("a header length below its frame", block(header({}, 7)), true,
            "0001, header.length: expected at least 8, found 7");
        row("a header that ends in its type code", block(header(head.left(3))), true,
            "0009, header.objId: expected 4 bytes, found 3 bytes");
        row("a header that ends in a field", block(header(head.left(8))), false,
            "000F, header.objName: expected 2 bytes of text, found 1 byte");
        row("a header that ends in a range", block(header(head.left(49))), false,
            "0039, header.inMap.start: expected 2 bytes, found 1 byte");
        row("a negative name length", block(header(head.left(6) + hex("80") + QByteArray(200, 0))), false,
            "000F, header.objName: expected at most 127 bytes of text, found 128");
        row("a header longer than its fields", block(header(head + "x")), false,
            "004E, header.rest: expected the end of the header, found 1 more bytes");
        row("a missing section", digital({}), false,
            "004E, section[1].length: expected a section of at least 8 bytes, found 0 bytes");
        row("a section longer than the data", digital(section(18, hex("08 55"), 11)), false,
            "004E, section[1].length: expected 1 to 10, found 11");
        row("a negative section length", digital(section(18, hex("08 55"), 0x80000000)), false,
            "004E, section[1].length: expected 1 to 10, found -2147483648");
        row("a section shorter than its frame", digital(section(18, hex("08 55"), 5)), false,
            "004E, section[1].length: expected at least 8, found 5");
        row("a section of another module kind", digital(section(41, hex("00"))), false,
            "0053, section[1].type: expected 18 or 5 in a digital module, found 41");
        row("a table shorter than its count", digital(section(18, hex("10 55"))), false,
            "0057, digitalInput.diFilter: expected 2 bytes, found 1 byte");
        row("a record length beyond its section", analog("01 000B 00 00 01"), false,
            "0057, analogInput[0].recordLength: expected at most 3, found 11");
        row("a record length of another family", analog("01 000A 00 00 01 05 0140 01 02 03 02 01"), false,
            "0057, analogInput[0].recordLength: expected 11, found 10");
        row("a section that ends in a record", analog("02 0006 07 00 01 05 0140 0002 07 01"), false,
            "005F, analogInput[1].recordLength: expected 6, found 2");
    }
    void damage()
    {
        QFETCH(QByteArray, bytes);
        const DecodedBlock decoded = decodeSavedState(bytes);
        QTEST(decoded.refused, "refused");
        QTEST(damageText({decoded}).section(';', 0, 0).remove("Damaged at "), "firstDamage");
        QCOMPARE(disagreementOver(bytes, savedState), QString());
    }

    void decodesTheBlocksOfAStation()
    {
        const QByteArray first = sample(13650, configuration);
        const QByteArray second = sample(14418, configuration);
        const QByteArray whole = first + second + sample(100, configuration);
        const QVector<DecodedBlock> blocks = decodeConfiguration(whole);
        QVector<int> ends;
        for (const DecodedBlock &each : blocks) {
            ends += each.offset + each.size;
        }
        QCOMPARE(ends, (QVector<int>{first.size(), first.size() + second.size(), whole.size()}));
        QCOMPARE(blocks.at(1).find(QStringLiteral("header.objId"))->offset, first.size() + 9);
    }

    void textOfABlock()
    {
        const QString text = textOf(sample(13650) + "xy");
        QVERIFY(text.contains("\n  000D  01                        header.rackId              1\n"));
        QVERIFY(text.contains("\nAfter the block\n  0070  78 79 "));
    }

    void program_data()
    {
        const Rows<QStringList, QByteArray, int, QString> row("arguments", "input", "status", "output");
        const QByteArray state = sample(13650);
        const QByteArray cut = state.chopped(3);
        const QByteArray stations = sample(13395, configuration) + sample(100, configuration);
        row("a file", {"state"}, {}, 0, textOf(state));
        row("standard input", {"-"}, state, 0, textOf(state));
        row("hexadecimal text", {"--hex", "-"}, state.toHex(' ') + '\n', 0, textOf(state));
        row("configuration blocks", {"--config", "-"}, stations, 0, toText(decodeConfiguration(stations)));
        row("a damaged block", {"cut"}, {}, 2, textOf(cut));
        row("bytes after the block", {"-"}, state + "xy", 0, textOf(state + "xy"));
        row("no difference", {"state", "--diff", "state"}, {}, 0, "No field differs\n");
        row("a difference", {"state", "--diff", "other"}, {}, 1,
            "Block 1, header.rackId\n-  000D  01                        1\n+  000D  02                        2\n");
        row("a difference from a damaged block", {"state", "--diff", "cut"}, {}, 2,
            toText(difference({decodeSavedState(state)}, {decodeSavedState(cut)})));
        row("no file", {}, {}, 2, {});
        row("two files", {"state", "other"}, {}, 2, {});
        row("an unknown option", {"--nonsense", "state"}, {}, 2, {});
        row("a missing file", {"absent"}, {}, 2, {});
        row("a folder", {"."}, {}, 2, {});
        row("bytes instead of hexadecimal text", {"--hex", "state"}, {}, 2, {});
        row("more bytes than the limit", {"-"}, QByteArray(maximumFileSize + 1, 0), 2, {});
        row("standard input twice", {"-", "--diff", "-"}, {}, 2, {});
    }
    void program()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, input);
        QFETCH(QString, output);
        const Run result = run(arguments, input);
        QTEST(result.status, "status");
        QCOMPARE(QString::fromUtf8(result.output), output);
        QVERIFY(!output.isEmpty() || result.complaint.startsWith("blockinspect: "));
    }

    void complaintsNameAnyFile() { QVERIFY(run({"--hex", "%2"}).complaint.startsWith("blockinspect: %2: ")); }

    void helpIsNoError() { QCOMPARE(run({"--help"}).status, 0); }

    void jsonOfABlock()
    {
        const QJsonObject shown = QJsonDocument::fromJson(run({"--json", "-"}, sample(14418)).output).object();
        QCOMPARE(shown, toJson(QVector<DecodedBlock>{decodeSavedState(sample(14418))}));
        const QJsonArray parts = shown.value("blocks").toArray().at(0).toObject().value("parts").toArray();
        const QJsonObject nan = parts.at(2).toObject().value("fields").toArray().at(17).toObject();
        QCOMPARE(nan, QJsonObject({{"offset", 0x69},
                                   {"raw", "7fc00000"},
                                   {"name", "weighing[3].sensitivity"},
                                   {"value", "nan"},
                                   {"meaning", "outside 0 to 32"},
                                   {"stored", true}}));
    }

    void jsonOfADifference()
    {
        const Run result = run({"--json", "--diff", "shorter", "state"});
        const QJsonArray differences = QJsonDocument::fromJson(result.output).object().value("differences").toArray();
        QCOMPARE(result.status, 2); // the name is one byte shorter than before, so one byte is too many
        QCOMPARE(differences.at(0).toObject().value("name").toString(), QStringLiteral("header.objName.length"));
    }
};

QTEST_GUILESS_MAIN(TestBlockInspect)
#include "tst_blockinspect.moc"
