// Factory records, and the order of the memory calls that reach the host.
#include "catalogfolder.h"
#include "defaultbuilder.h"
#include "imagerange.h"
#include "metfields.h"
#include "recordinghost.h"
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
        const Rows<quint32, quint32, QStringList, QString, QString> row("code", "moduleInfo", "calls", "input",
                                                                        "output");
        row("analog, both directions", 13398, 0x02040000, {"auto plc 6 8", "auto plc 7 4"}, "6:8 x4 u2", "7:4 x2 u2");
        row("analog, outputs only", 13400, 0x02000000, {"auto plc 7 4"}, "6:0 x0 u2", "7:4 x2 u2");
        row("digital, 12 inputs", 13650, 0x0000000C, {"auto plc 129 2"}, "129:2 x12 u0", "130:0 x0 u0");
        row("digital, both directions", 13651, 0x00000810, {"auto plc 129 2", "auto plc 130 1"}, "129:2 x16 u0",
            "130:1 x8 u0");
        row("weighing, double words", 14418, 0x01020000, {"auto plc 132 8", "auto plc 132 4"}, "132:8 x2 u4",
            "132:4 x1 u4");
        row("weighing, words", 14421, 0x01020000, {"auto plc 6 4", "auto plc 7 2"}, "6:4 x2 u2", "7:2 x1 u2");
        row("plain", 100, 0x01020304, {}, "0:0 x0 u1", "0:0 x0 u1");
    }
    void build()
    {
        QFETCH(quint32, code);
        QFETCH(quint32, moduleInfo);
        CatalogFolder catalog;
        catalog.writeModule(code, moduleInfo);
        recordingHost().allocate = [](VarArea, qint32 length) { return length; };
        const auto par = buildDefault(code, owner);
        QVERIFY(par);
        QTEST(recordingHost().takeCalls(), "calls");
        QTEST(describe(par->inMap), "input");
        QTEST(describe(par->outMap), "output");
        QCOMPARE(par->memoryOwner, owner);

        const auto unclaimed = buildDefault(code, QString());
        QVERIFY(unclaimed);
        QCOMPARE(recordingHost().calls, QStringList());
        QCOMPARE((QList<int>{unclaimed->inMap.start, unclaimed->outMap.start, unclaimed->inMap.count}),
                 (QList<int>{0, 0, par->inMap.count}));
        QCOMPARE(unclaimed->weighPar.keys(), par->weighPar.keys());
        QCOMPARE(unclaimed->aiKind.keys(), par->aiKind.keys());
    }

    void factoryInputs_data()
    {
        const Rows<quint32, int, QString> row("code", "family", "range");
        row("voltage/current", 13395, 0, "0102000200000000");
        row("thermocouple", 13396, 1, "0102040100000100");
        row("resistance thermometer", 13397, 2, "0102000100000001");
        row("type without a fixed family", 13398, 0, "0102000200000000");
    }
    void factoryInputs()
    {
        QFETCH(quint32, code);
        CatalogFolder catalog;
        catalog.writeModule(code, 0x01020000);
        const auto par = buildDefault(code, QString());
        QVERIFY(par);
        QTEST(int(par->aiKind.value(1, 9)), "family");
        QTEST(hex(par->aiRange.value(1)), "range");
        const AiFilter filter = par->aiFilter.value(1);
        QCOMPARE((QList<int>{par->aiCount, filter.samples, filter.deadband, filter.filterOn}),
                 (QList<int>{2, 5, 320, 1}));
        const AqOutTbl stop = par->aqOutTbl.value(0);
        const AqOutType type = par->aqOutType.value(0);
        QCOMPARE((QList<int>{par->aqCount, par->aqKind.value(0, 9), stop.freezeLast, stop.stopValue, type.enable,
                             type.range}),
                 (QList<int>{1, 0, 1, 0, 1, 1}));
    }

    void factoryTables()
    {
        CatalogFolder catalog;
        catalog.writeModule(13700, 0x00000A0C);
        const auto digital = buildDefault(13700, QString());
        QCOMPARE(digital->diFilter, QByteArray("\x55\x55"));
        QCOMPARE(digital->dqOutTbl, QByteArray(2, 0));
        QCOMPARE((QList<int>{digital->diCount, digital->dqCount, digital->dqMode}), (QList<int>{12, 10, 2}));
        catalog.writeModule(14419, 0x00030000);
        const auto weighing = buildDefault(14419, QString());
        QCOMPARE((QList<int>{weighing->weighCount, weighing->weighPar.size()}), (QList<int>{3, 3}));
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
    }
    void refusal()
    {
        QFETCH(QByteArray, lines);
        QFETCH(qint32, inputs);
        QFETCH(qint32, start);
        CatalogFolder catalog;
        catalog.writeModule(13395, 0x02010000, lines);
        recordingHost().channels = {{'i', inputs}};
        recordingHost().allocate = [start](VarArea, qint32) { return start; };
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
        QCOMPARE(int(analog->aiCount), 44);
        QCOMPARE(analog->aiRange.size(), 256);
        QCOMPARE(int(digital->diCount), 44);
        QCOMPARE(digital->diFilter.size(), 38);

        recordingHost().channels['I'] = 0x7FFFFFFF; // must not overflow when it is rounded up to bytes
        QCOMPARE(buildDefault(13650, QString())->diFilter.size(), 0x10000000);
    }

    void confirm_data()
    {
        const Rows<int, int, int, qint32, QStringList, int> row("area", "count", "unit", "found", "calls", "freed");
        row("analog range that is not free moves", 6, 4, 2, 7, {"get plc 6 40 8", "auto plc 6 8"}, 8);
        row("double words count as bits", 132, 2, 4, 1, {"get plc 132 40 1"}, 8);
        row("the other direction's words count as bits", 7, 4, 2, 1, {"get plc 7 40 1"}, 8);
        row("range without channels", 6, 0, 2, 0, {}, 0);
    }
    void confirm()
    {
        QFETCH(int, area);
        QFETCH(int, count);
        QFETCH(int, unit);
        QFETCH(qint32, found);
        QFETCH(QStringList, calls);
        recordingHost().takeResult = found;
        recordingHost().allocate = [](VarArea, qint32) { return 70000; };
        IoMap range{quint8(area), 40, quint8(count), 1, quint8(unit)};
        QVERIFY(confirmRange(owner, range, VarArea::AnalogInput));
        QCOMPARE(recordingHost().takeCalls(), calls);
        QCOMPARE(int(range.start), calls.size() == 2 ? 70000 - 65536 : 40);
        QVERIFY(confirmRange(QString(), range, VarArea::AnalogInput));
        QVERIFY(recordingHost().calls.isEmpty());
        QTEST(int(rangeLength(range)), "freed");

        recordingHost().allocate = [](VarArea, qint32) { return -1; };
        recordingHost().takeResult = 0;
        QCOMPARE(confirmRange(owner, range, VarArea::AnalogInput), count == 0);
        QCOMPARE(int(range.start), count == 0 ? 40 : 65535);
    }
};

QTEST_GUILESS_MAIN(TestBuilder)
#include "tst_builder.moc"
