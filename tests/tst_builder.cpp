// Factory records, and the order of the memory calls that reach the host.
#include "catalogfolder.h"
#include "defaultbuilder.h"
#include "imagerange.h"
#include "recordinghost.h"
#include "recordtexts.h"
#include "rows.h"

namespace {

const QString owner = QStringLiteral("plc");

QString describe(const IoMap &range)
{
    return QStringLiteral("%1:%2 x%3 u%4").arg(range.area).arg(range.start).arg(range.count).arg(range.unit);
}

} // namespace

class TestBuilder : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { recordingHost() = RecordingHost(); }

    void build_data()
    {
        const Rows<quint32, quint32, QStringList, QString, QString> row("code", "moduleInfo", "calls", "ranges",
                                                                        "channels");
        const QString output = "0,1,0,1,1";
        const auto analog = [&output](const QString &input) {
            return QString("ai 2 0:%1 1:%1 aq 1 0:%2").arg(input, output);
        };
        const QStringList words{"auto plc 6 4", "auto plc 7 2"};
        const QString wordRanges = "6:4 x2 u2 7:2 x1 u2";
        row("voltage/current", 13395, 0x01020000, words, wordRanges, analog("0,1,5,320/0102000200000000"));
        row("thermocouple", 13396, 0x01020000, words, wordRanges, analog("1,1,5,320/0102040100000100"));
        row("resistance thermometer", 13397, 0x01020000, words, wordRanges, analog("2,1,5,320/0102000100000001"));
        row("no fixed family", 13398, 0x01020000, words, wordRanges, analog("0,1,5,320/0102000200000000"));
        row("analog, outputs only", 13400, 0x01000000, {"auto plc 7 2"}, "6:0 x0 u2 7:2 x1 u2",
            "ai 0 aq 1 0:" + output);
        row("digital, 12 inputs", 13650, 0x0C, {"auto plc 129 2"}, "129:2 x12 u0 130:0 x0 u0", "di 12 5555 dq 0,2 ");
        row("digital, both directions", 13651, 0x0A10, {"auto plc 129 2", "auto plc 130 2"},
            "129:2 x16 u0 130:2 x10 u0", "di 16 5555 dq 10,2 0000");
        const QString weighing = "weigh 2 0:1,2,4,15,0,0,0,1,0 1:1,2,4,15,0,0,0,1,0";
        row("weighing, double words", 14418, 0x01020000, {"auto plc 132 8", "auto plc 132 4"},
            "132:8 x2 u4 132:4 x1 u4", weighing);
        row("weighing, words", 14421, 0x01020000, words, wordRanges, weighing);
        row("plain", 100, 0x01020304, {}, "0:0 x0 u1 0:0 x0 u1", "");
    }
    void build()
    {
        QFETCH(quint32, code);
        CatalogFolder catalog;
        catalog.writeModule(code, fetched<quint32>("moduleInfo"));
        recordingHost().allocate = [](VarArea, qint32 length) { return length; };
        const auto par = buildDefault(code, owner);
        QVERIFY(par);
        QTEST(recordingHost().takeCalls(), "calls");
        QTEST(QString(describe(par->inMap) + ' ' + describe(par->outMap)), "ranges");
        QCOMPARE((QList<int>{par->inMap.flag, par->outMap.flag}), (QList<int>{1, 1}));
        QTEST(channelTexts(*par), "channels");
        QCOMPARE(par->memoryOwner, owner);

        const auto unclaimed = buildDefault(code, QString());
        QVERIFY(unclaimed);
        QCOMPARE(recordingHost().calls, QStringList());
        QCOMPARE((QList<int>{unclaimed->inMap.start, unclaimed->outMap.start, unclaimed->inMap.count}),
                 (QList<int>{0, 0, par->inMap.count}));
        QTEST(channelTexts(*unclaimed), "channels");
    }

    void refusal_data()
    {
        const Rows<QByteArray, qint32, qint32, QStringList> row("lines", "inputs", "start", "calls");
        row("no component file named", "ServerFile=\n", 1, 0, {});
        row("component path names a folder", "ServerFile=../9\n", 1, 0, {});
        row("moduleInfo is 0", "ModuleInfo=0\n", 1, 0, {});
        row("host returns a negative channel count", "", -1, 0, {});
        row("length of the channels exceeds 32 bits", "", 0x7FFFFFFF, 0, {});
        row("start 65535 means no room", "", 1, 65535, {"auto plc 6 2"});
        row("no room for the outputs, the inputs stay claimed", "", 1, 0, {"auto plc 6 2", "auto plc 7 4"});
    }
    void refusal()
    {
        QFETCH(qint32, start);
        CatalogFolder catalog;
        catalog.writeModule(13395, 0x02010000, fetched<QByteArray>("lines"));
        recordingHost().channels = {{'i', fetched<qint32>("inputs")}};
        recordingHost().allocate = [start](VarArea area, qint32) {
            return area == VarArea::AnalogOutput ? 65535 : start;
        };
        QVERIFY(!buildDefault(13395, owner));
        QTEST(recordingHost().calls, "calls");
        QVERIFY(!buildDefault(13396, owner));
    }

    void moreThan255Channels()
    {
        CatalogFolder catalog;
        catalog.writeModule(13395, 1);
        catalog.writeModule(13650, 1);
        recordingHost().channels = {{'i', 300}, {'q', 0}, {'I', 300}, {'Q', 0}};
        const auto analog = buildDefault(13395, owner);
        const auto digital = buildDefault(13650, owner);
        QCOMPARE(recordingHost().calls, QStringList({"auto plc 6 600", "auto plc 129 38"}));
        QCOMPARE((QList<int>{analog->aiCount, analog->aiRange.size(), digital->diCount, digital->diFilter.size()}),
                 (QList<int>{44, 256, 44, 38}));

        recordingHost().channels['I'] = 0x7FFFFFFF; // must not overflow when it is rounded up to bytes
        QCOMPARE(buildDefault(13650, QString())->diFilter.size(), 0x10000000);
    }

    void confirm_data()
    {
        const Rows<int, int, int, qint32, QStringList, QStringList> row("area", "count", "unit", "found", "calls",
                                                                        "freed");
        row("analog range that is not free moves", 6, 4, 2, 7, {"get plc 6 40 8", "auto plc 6 8"}, {"free  6 4464 8"});
        row("double words count as bits", 132, 2, 4, 1, {"get plc 132 40 1"}, {"free  132 40 8"});
        row("the other direction's words count as bits", 7, 4, 2, 1, {"get plc 7 40 1"}, {"free  7 40 8"});
        row("range without channels", 6, 0, 2, 0, {}, {});
    }
    void confirm()
    {
        QFETCH(int, count);
        QFETCH(QStringList, calls);
        recordingHost().takeResult = fetched<qint32>("found");
        recordingHost().allocate = [](VarArea, qint32) { return 70000; };
        IoMap range{quint8(fetched<int>("area")), 40, quint8(count), 1, quint8(fetched<int>("unit"))};
        QVERIFY(confirmRange(owner, range, VarArea::AnalogInput));
        QCOMPARE(recordingHost().takeCalls(), calls);
        QCOMPARE(int(range.start), calls.size() == 2 ? 70000 - 65536 : 40);
        QVERIFY(confirmRange(QString(), range, VarArea::AnalogInput));
        QVERIFY(recordingHost().calls.isEmpty());
        freeRange(QString(), range);
        QTEST(recordingHost().takeCalls(), "freed");

        recordingHost().takeResult = 0;
        for (const qint32 start : {65535, -1}) { // only -1 means no room
            recordingHost().allocate = [start](VarArea, qint32) { return start; };
            QCOMPARE(confirmRange(owner, range, VarArea::AnalogInput), count == 0 || start != -1);
            QCOMPARE(int(range.start), count == 0 ? 40 : 65535);
        }
    }
};

QTEST_GUILESS_MAIN(TestBuilder)
#include "tst_builder.moc"
