// The block inspector: its texts, its damage reports, the program.
#include "blockreport.h"
#include "catalogfolder.h"
#include "goldenblocks.h"
#include "rows.h"

using namespace blockbuilder;
using namespace blockdecoder;

namespace {

constexpr bool configuration = false;

QByteArray sample(quint32 objId, bool saved = true)
{
    return goldenBlock(odd(objId), saved);
}

QString textOf(const QByteArray &bytes)
{
    return toText(QVector<DecodedBlock>{decodeSavedState(bytes)});
}

} // namespace

class TestBlockInspect : public QObject {
    Q_OBJECT

    /// Runs the program in the catalog's folder. Returns its exit status, output and complaint.
    std::tuple<int, QByteArray, QByteArray> run(const QStringList &arguments, const QByteArray &input = {}) const
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
        m_catalog.writeFile("state", sample(13650));
        m_catalog.writeFile("other", sample(13650).replace(13, 1, hex("02")));
        m_catalog.writeFile("cut", sample(13650).chopped(3));
        const QByteArray first = sample(13395, configuration);
        const QByteArray second = sample(100, configuration);
        m_catalog.writeFile("stations", first + second);
        m_catalog.writeFile("swapped", second + first);
        m_catalog.writeFile("moved", second + QByteArray(first).replace(13, 1, hex("07")));
        m_catalog.writeFile("%2", "x");
        m_catalog.writeFile("shorter", sample(13650).replace(15, 1, hex("01")));
    }

    void meanings_data()
    {
        const Rows<quint32, QString> row("objId", "meanings"); // "name: meaning" of each field
        row("digital", 13650,
            "header.objId: digital module|header.rackId: |header.inMap.area: analog inputs|"
            "header.outMap.area: digital outputs|digitalInput.diFilter[0]: I0.0 - I0.3: 0.20ms|"
            "digitalInput.diFilter[1]: I0.4 - I0.7: 6.40ms|digitalInput.diFilter[3]: beyond the last input|"
            "digitalOutput.dqMode: outputs take the states of the table|"
            "digitalOutput.dqOutTbl[0]: Q0.0 - Q0.7: Q0.0 Q0.7 ON|digitalOutput.dqOutTbl[1]: Q1.0 - Q1.7: all ON");
        row("analog", 13395,
            "analogInput[0].family: voltage/current|analogInput[0].filterTime: 100ms|"
            "analogInput[0].inputRange: 4~20mA|analogInput[0].openWire: Invalid|analogInput[1].filterTime: 5s|"
            "analogInput[1].inputRange: NTC10K(B=3950)|analogInput[1].openWire: Enable|"
            "analogInput[1].wiringScheme: 3-wire|analogInput[1].temperatureScale: Degrees Fahrenheit|"
            "analogInput[1].samples: 256 samples|analogInput[1].deadband: not a multiple of 16 up to 4080|"
            "analogInput[2].family: unknown family, without range bytes|analogOutput[0].range: 4~20mA|"
            "analogOutput[1].range: no such choice|analogOutput[1].stopValue: outside -32000 to 32000");
        row("weighing", 14418,
            "weighing[0].limitFreq: 10Hz|weighing[0].bootClear: |weighing[3].limitFreq: no such choice|"
            "weighing[3].sensitivity: outside 0 to 32|weighing[3].filterDepth: outside 0 to 2000|"
            "weighing[3].sampleFreq: 2400Hz|weighing[3].bootClear: outside -99 to 99");
    }
    void meanings()
    {
        const DecodedBlock decoded = decodeSavedState(sample(fetched<quint32>("objId")));
        for (const QString &expected : fetched<QString>("meanings").split('|')) {
            const QString name = expected.section(": ", 0, 0);
            const Field *field = decoded.find(name);
            QVERIFY2(field, qPrintable(name));
            QCOMPARE(QString(name + ": " + field->meaning), expected);
        }
    }

    void damage_data()
    {
        const Rows<QByteArray, bool, QString> row("bytes", "refused", "firstDamage");
        const QByteArray head = headerFields(odd(13650), true);
        const auto digital = [&head](const QByteArray &section) { return block(header(head), {section}); };
        const auto length = [&](const QByteArray &name, const QByteArray &section, const QString &expected) {
            row(name, digital(section), false, "004F, section[1].length: expected " + expected);
        };
        const auto analog = [](const char *body) {
            return block(header(headerFields(odd(13395), true)), {section(37, hex(body))});
        };
        row("no bytes", {}, true, "0000, sectionCount: expected 1 byte, found the end");
        row("a truncated header frame", hex("01 00000008 0002"), true,
            "0001, header.length: expected at least 8 bytes, found 6 bytes");
        row("a header length beyond the data", block(header(head, 500)), true,
            "0001, header.length: expected 500 bytes, the length of the header, found 78 bytes");
        row("a header length below its frame", block(header({}, 7)), true,
            "0001, header.length: expected at least 8, found 7");
        row("a header that ends in its type code", block(header(head.left(3))), true,
            "0009, header.objId: expected 4 bytes, found 3 bytes");
        row("a header that ends in a field", block(header(head.left(8))), false,
            "000F, header.objName: expected 3 bytes of text, found 1 byte");
        row("a header that ends in a range", block(header(head.left(50))), false,
            "003A, header.inMap.start: expected 2 bytes, found 1 byte");
        row("a negative name length", block(header(head.left(6) + hex("80") + QByteArray(200, 0))), false,
            "000F, header.objName: expected at most 127 bytes of text, found 128");
        row("a header longer than its fields", block(header(head + "x")), false,
            "004F, header.rest: expected the end of the header, found 1 more bytes");
        length("a missing section", {}, "a section of at least 8 bytes, found 0 bytes");
        length("a section longer than the data", section(18, hex("08 55"), 11), "1 to 10, found 11");
        length("a negative section length", section(18, hex("08 55"), 0x80000000), "1 to 10, found -2147483648");
        length("a section shorter than its frame", section(18, hex("08 55"), 5), "at least 8, found 5");
        row("a section of another module kind", digital(section(41, hex("00"))), false,
            "0054, section[1].type: expected 18 or 5 in a digital module, found 41");
        row("a table shorter than its count", digital(section(18, hex("10 55"))), false,
            "0058, digitalInput.diFilter: expected 2 bytes, found 1 byte");
        row("a record length beyond its section", analog("01 000B 00 00 01"), false,
            "0058, analogInput[0].recordLength: expected at most 3, found 11");
        row("a record length of another family", analog("01 000A 00 00 01 05 0140 01 02 03 02 01"), false,
            "0058, analogInput[0].recordLength: expected 11, found 10");
        row("a section that ends in a record", analog("02 0006 07 00 01 05 0140 0002 07 01"), false,
            "0060, analogInput[1].recordLength: expected 6, found 2");
    }
    void damage()
    {
        const DecodedBlock decoded = decodeSavedState(fetched<QByteArray>("bytes"));
        QTEST(decoded.refused, "refused");
        QTEST(damageText({decoded}).section(';', 0, 0).remove("Damaged at "), "firstDamage");
    }

    void textOfABlock()
    {
        const QString text = textOf(sample(13650) + "xy");
        QVERIFY(text.contains("\n  000D  01                        header.rackId              1\n"));
        QVERIFY(text.contains("\nAfter the block\n  0071  78 79 "));
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
        row("blocks in another order", {"--config", "stations", "--diff", "swapped"}, {}, 0, "No field differs\n");
        row("a module in another rack", {"--config", "stations", "--diff", "moved"}, {}, 1,
            "Blocks 1 and 2, header.rackId\n-  000D  01                        1\n+  0052  07                        "
            "7\n");
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
        QFETCH(QString, output);
        const auto [status, shown, complaint] = run(fetched<QStringList>("arguments"), fetched<QByteArray>("input"));
        QTEST(status, "status");
        QCOMPARE(QString::fromUtf8(shown), output);
        QVERIFY(!output.isEmpty() || complaint.startsWith("blockinspect: "));
    }

    void complaintsNameAnyFile() { QVERIFY(std::get<2>(run({"--hex", "%2"})).startsWith("blockinspect: %2: ")); }

    void helpIsNoError() { QCOMPARE(std::get<0>(run({"--help"})), 0); }

    void jsonOfABlock()
    {
        const QJsonObject shown = QJsonDocument::fromJson(std::get<1>(run({"--json", "-"}, sample(14418)))).object();
        QCOMPARE(shown, toJson(QVector<DecodedBlock>{decodeSavedState(sample(14418))}));
        const QJsonArray parts = shown.value("blocks").toArray().at(0).toObject().value("parts").toArray();
        const QJsonObject nan = parts.at(2).toObject().value("fields").toArray().at(17).toObject();
        QCOMPARE(nan, QJsonObject({{"offset", 0x6A},
                                   {"raw", "7fc00000"},
                                   {"name", "weighing[3].sensitivity"},
                                   {"value", "nan"},
                                   {"meaning", "outside 0 to 32"},
                                   {"stored", true}}));
    }

    void blocksWithoutACounterpart()
    {
        const DecodedBlock first = decodeSavedState(sample(13395));
        const DecodedBlock second = decodeSavedState(sample(13650));
        const QVector<Difference> removed = difference({first, second}, {first});
        const QVector<Difference> added = difference({second}, {first, second});
        QVERIFY(removed.first().leftBlock == 1 && !removed.first().rightBlock && removed.first().right.isEmpty());
        QVERIFY(added.first().rightBlock == 0 && !added.first().leftBlock && added.first().left.isEmpty());
        QVERIFY(toText(removed).startsWith("Block 2 on the left only, sectionCount\n-"));
        QVERIFY(toJson(added).value("differences").toArray().at(0).toObject().value("leftBlock").isNull());
    }

    void jsonOfADifference()
    {
        const auto [status, output, complaint] = run({"--json", "--diff", "shorter", "state"});
        const QJsonArray differences = QJsonDocument::fromJson(output).object().value("differences").toArray();
        QCOMPARE(status, 2); // the name is one byte shorter than before, so one byte is too many
        QCOMPARE(differences.at(0).toObject().value("name").toString(), QStringLiteral("header.objName.length"));
    }
};

QTEST_GUILESS_MAIN(TestBlockInspect)
#include "tst_blockinspect.moc"
