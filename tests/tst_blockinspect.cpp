// The block inspector: its decoder beside the plug-in's readers, its texts, its damage reports, the program.
#include "blockagreement.h"
#include "blockbuilder.h"
#include "blockreport.h"
#include "catalogfolder.h"
#include "modulestate.h"
#include "rows.h"

using namespace blockbuilder;
using namespace blockdecoder;

namespace {

const QVector<quint32> typeCodes{13395, 13650, 14418, 14419, 100};

QByteArray fields(quint32 objId, bool saved, quint32 moduleInfo = 0x01010808)
{
    return be32(objId) + hex("01 FE 02 4E78") + (saved ? hex("01 63 01020304 00000005") : QByteArray()) +
           be32(moduleInfo) + hex("0C  B00102030405060708090A0B0CB1  500000000000000051") +
           hex("06 0110 02  82 0220 01  01 01020304E5  0000000000000000");
}

// Each holds something besides that a writer never writes: channels twice, sections twice, an unknown family.
const QByteArrayList analogSections{
    hex("00000016 00 25 0000 01  000B 00 07 01 05 0140 01 02 03 02 01"),
    hex("0000003C 00 25 0000 04  000D 01 00 01 05 0140 01 02 08 01 00 00 01  000D 02 01 00 07 0011 01 04 13 01 01 01 01"
        "000B 00 00 01 05 0000 01 04 03 02 01  0006 09 02 01 05 0140"),
    hex("0000001B 00 26 0000 02  0007 00 00 01 FFFE 01 03  0007 00 01 00 8000 00 04")};
const QByteArrayList digitalSections{hex("0000000B 00 05 0000 08 01 81"), hex("0000000B 01 12 0000 0C 5071"),
                                     hex("0000000C 00 05 0000 10 02 81FF")};
const QByteArrayList weighSections{hex(
    "00000029 00 29 0000 02  00 01 40000000 04 000F 0102 0304 00 01 9D  03 00 7FC00000 00 07D1 0000 0000 02 06 64")};

QByteArray sample(quint32 objId, bool saved = true)
{
    const QByteArrayList sections = objId == 13395   ? analogSections
                                    : objId == 13650 ? digitalSections
                                    : objId == 14418 ? weighSections
                                                     : QByteArrayList();
    return block(header(fields(objId, saved)), sections);
}

DecodedBlock decodeOne(const QByteArray &bytes, bool saved = true)
{
    return decode(bytes, saved ? Format::SavedState : Format::Configuration).constFirst();
}

/// Empty, or in what the decoder and the plug-in do not agree.
QString disagreementOver(const QByteArray &bytes, bool saved)
{
    const DecodedBlock decoded = decodeOne(bytes, saved);
    const auto par = saved ? restoreModule(bytes, QString()) : recompileModule(bytes, QString(), nullptr);
    if (decoded.refused != (par == nullptr)) {
        return QStringLiteral("refused");
    }
    return par ? disagreement(decoded, *par, saved ? Format::SavedState : Format::Configuration) : QString();
}

struct Run {
    int status;
    QByteArray output;
    QByteArray complaint;
};

Run run(const QStringList &arguments, const QByteArray &input = {})
{
    QProcess process;
    process.start(QStringLiteral(BLOCKINSPECT_PATH), arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool finished = process.waitForFinished();
    return {finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

class TestBlockInspect : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
        for (const quint32 objId : typeCodes) {
            m_catalog.writeModule(objId, 0x01010808);
        }
    }

    void readsWhatThePlugInReads()
    {
        for (const int each : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}) {
            const bool saved = each % 2 == 0;
            const QByteArray whole = sample(typeCodes.at(each / 2), saved);
            QVERIFY(decodeOne(whole, saved).damages.isEmpty());
            for (int size = 0; size <= whole.size(); ++size) {
                QCOMPARE(disagreementOver(whole.left(size), saved), QString());
            }
            for (int at = 0; at < whole.size(); at += at == 8 ? 5 : 1) { // the catalog may not have another type code
                for (const int value : {0, 1, 2, 5, 8, 11, 16, 38, 41, 64, 127, 128, 255}) {
                    const QByteArray changed = QByteArray(whole).replace(at, 1, QByteArray(1, char(value)));
                    QVERIFY2(disagreementOver(changed, saved).isEmpty(), changed.toHex().constData());
                }
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
        const DecodedBlock decoded = decodeOne(sample(objId));
        const Field *field = decoded.find(name);
        QVERIFY(field);
        QTEST(field->meaning, "meaning");
    }

    void damage_data()
    {
        // report: of the first damage
        const Rows<QByteArray, bool, QString> row("bytes", "refused", "report");
        const QByteArray head = fields(13650, true);
        const auto digital = [&head](const QByteArray &section, int count = honest) {
            return block(header(head), {section}, count);
        };
        const auto analog = [](const char *body) {
            return block(header(fields(13395, true)), {section(37, hex(body))});
        };
        row("no bytes", {}, true, "0000 sectionCount: 1 byte / the end");
        row("a header frame cut", hex("01 00000008 0002"), true, "0001 header.length: at least 8 bytes / 6 bytes");
        row("a header length beyond the data", block(header(head, 500)), true,
            "0001 header.length: 500 bytes, as the length says / 77 bytes");
        row("a header length below its frame", block(header({}, 7)), true, "0001 header.length: at least 8 / 7");
        row("a header cut in its type code", block(header(head.left(3))), true, "0009 header.objId: 4 bytes / 3 bytes");
        row("a header cut in a field", block(header(head.left(8))), false,
            "000F header.objName: 2 bytes of text / 1 byte");
        row("a header cut in a range", block(header(head.left(49))), false,
            "0039 header.inMap.start: 2 bytes / 1 byte");
        row("a name length with its sign bit", block(header(head.left(6) + hex("80") + QByteArray(200, 0))), false,
            "000F header.objName: at most 127 bytes of text / 128");
        row("a header longer than its fields", block(header(head + "x")), false,
            "004E header.rest: the end of the header / 1 more bytes");
        row("more sections counted than there are", digital({}), false,
            "004E section[1].length: a section of at least 8 bytes / 0 bytes");
        row("a section longer than the data", digital(section(18, hex("08 55"), 11)), false,
            "004E section[1].length: 1 to 10 / 11");
        row("a section length with its sign bit", digital(section(18, hex("08 55"), 0x80000000)), false,
            "004E section[1].length: 1 to 10 / -2147483648");
        row("a section shorter than its frame", digital(section(18, hex("08 55"), 5)), false,
            "004E section[1].length: at least 8 / 5");
        row("a section of another kind", digital(section(41, hex("00"))), false,
            "0053 section[1].type: 18 or 5 in a digital module / 41");
        row("a table shorter than its count", digital(section(18, hex("10 55"))), false,
            "0057 digitalInput.diFilter: 2 bytes / 1 byte");
        row("a record length beyond its section", analog("01 000B 00 00 01"), false,
            "0057 analogInput[0].recordLength: at most 3 / 11");
        row("a record length that its family does not have", analog("01 000A 00 00 01 05 0140 01 02 03 02 01"), false,
            "0057 analogInput[0].recordLength: 11 / 10");
        row("a section that ends within a record", analog("02 0006 07 00 01 05 0140 0002 07 01"), false,
            "005F analogInput[1].recordLength: 6 / 2");
    }
    void damage()
    {
        QFETCH(QByteArray, bytes);
        const DecodedBlock decoded = decodeOne(bytes);
        QTEST(decoded.refused, "refused");
        QVERIFY(!decoded.damages.isEmpty());
        const Damage &first = decoded.damages.constFirst();
        QTEST(QStringLiteral("%1 %2: %3 / %4")
                  .arg(QString::number(first.offset, 16).toUpper().rightJustified(4, QLatin1Char('0')), first.name,
                       first.expected, first.found),
              "report");
        QCOMPARE(disagreementOver(bytes, true), QString());
    }

    void walksAStation()
    {
        const QByteArray station = sample(13650, false) + sample(14418, false) + sample(100, false);
        const QVector<DecodedBlock> blocks = decode(station, Format::Configuration);
        QCOMPARE(blocks.size(), 3);
        QCOMPARE(blocks.at(1).offset, sample(13650, false).size());
        QCOMPARE(blocks.at(2).offset + blocks.at(2).size, station.size());
        QCOMPARE(blocks.at(1).find(QStringLiteral("header.objId"))->offset, blocks.at(1).offset + 9);
        QCOMPARE(decode(station, Format::SavedState).size(), 1);
    }

    void exitStatuses()
    {
        const QString state = file("state", sample(13650));
        const QString other = file("other", sample(13650).replace(13, 1, hex("02")));
        const QString cut = file("cut", sample(13650).chopped(3));
        const QByteArray text = sample(13650).toHex(' ') + '\n';

        const Run shown = run({state});
        QCOMPARE(shown.status, 0);
        QVERIFY(shown.output.contains("\n  000D  01                        header.rackId              1\n"));
        QCOMPARE(run({"-"}, sample(13650)).output, shown.output);
        QCOMPARE(run({"--hex", "-"}, text).output, shown.output);
        QCOMPARE(run({"--config", file("config", sample(13395, false))}).status, 0);

        const Run damaged = run({cut});
        QCOMPARE(damaged.status, 2);
        QVERIFY(damaged.output.contains("\nDamaged at 0064, section[3].length: expected 1 to 9, found 12; "));
        const Run trailing = run({file("trailing", sample(13650) + "xy")});
        QCOMPARE(trailing.status, 0);
        QVERIFY(trailing.output.contains("\nBehind the block\n  0070  78 79 "));

        QCOMPARE(run({state, "--diff", state}).status, 0);
        const Run different = run({state, "--diff", other});
        QCOMPARE(different.status, 1);
        QCOMPARE(different.output, QByteArray("Block 1, header.rackId\n-  000D  01                        1\n"
                                              "+  000D  02                        2\n"));
        QCOMPARE(run({state, "--diff", cut}).status, 2);

        for (const QStringList &wrong : {QStringList(),
                                         {state, other},
                                         {"--nonsense", state},
                                         {state + "absent"},
                                         {QFileInfo(state).path()},
                                         {"--hex", state},
                                         {"--hex", file("%2 is not a place", "x")},
                                         {file("large", QByteArray(maximumFileSize + 1, 0))},
                                         {"-", "--diff", "-"}}) {
            const Run refused = run(wrong);
            QCOMPARE(refused.status, 2);
            QVERIFY(refused.output.isEmpty() && refused.complaint.startsWith("blockinspect: "));
            QVERIFY(!refused.complaint.contains("1 is not a place"));
        }
        QCOMPARE(run({"--help"}).status, 0);
    }

    void jsonHoldsTheSame()
    {
        const QString state = file("state", sample(14418));
        const QJsonObject shown = QJsonDocument::fromJson(run({"--json", state}).output).object();
        QCOMPARE(shown, toJson(decode(sample(14418), Format::SavedState)));
        const QJsonArray parts = shown.value("blocks").toArray().at(0).toObject().value("parts").toArray();
        const QJsonObject nan = parts.at(2).toObject().value("fields").toArray().at(17).toObject();
        QCOMPARE(nan, QJsonObject({{"offset", 0x69},
                                   {"raw", "7fc00000"},
                                   {"name", "weighing[3].sensitivity"},
                                   {"value", "nan"},
                                   {"meaning", "outside 0 to 32"},
                                   {"stored", true}}));

        const QString other = file("other", sample(14418).replace(15, 1, hex("01")));
        const Run different = run({"--json", "--diff", other, state});
        const QJsonArray differences =
            QJsonDocument::fromJson(different.output).object().value("differences").toArray();
        QCOMPARE(different.status, 2); // a name that is one byte shorter than it says leaves a byte too many
        QCOMPARE(differences.at(0).toObject().value("name").toString(), QStringLiteral("header.objName.length"));
    }

private:
    QString file(const char *name, const QByteArray &content) { return m_catalog.writeFile(name, content); }

    CatalogFolder m_catalog;
};

QTEST_GUILESS_MAIN(TestBlockInspect)
#include "tst_blockinspect.moc"
