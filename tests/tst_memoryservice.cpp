// The simulated host: memory service against a byte-per-byte model, conversions, catalog, help.
#include "rows.h"
#include "simulatedhost.h"

#include <algorithm>
#include <limits>
#include <map>

using namespace simulatedhost;

namespace {

constexpr qint32 kMin = std::numeric_limits<qint32>::min();
constexpr qint32 kMax = std::numeric_limits<qint32>::max();
constexpr quint32 kCompact = 1;
const QString kOwner = QStringLiteral("station");

/// One area with a cell per byte: 0 free, else 1 + the start of the claim that holds the byte.
struct NaiveArea : std::vector<int> {
    void fill(qint32 start, qint32 length, int value) { std::fill_n(begin() + start, length, value); }
    qint32 claim(qint32 start, qint32 length)
    {
        if (length <= 0 || start < 0 || start + length > qint32(size())) {
            return length <= 0 ? EmptyRange : OutOfRange;
        }
        if (std::count(begin() + start, begin() + start + length, 0) < length) {
            return Overlap;
        }
        fill(start, length, start + 1);
        return Held;
    }
    qint32 claimLowest(qint32 step, qint32 length)
    {
        qint32 start = 0;
        while (start < qint32(size()) && claim(start, length) != Held) {
            start += step;
        }
        return start < qint32(size()) ? start : -1;
    }
};

} // namespace

class TestMemoryService : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        simulatedhost::reset();
        setPlcType(kOwner, kCompact);
    }

    void matchesModel_data()
    {
        QTest::addColumn<quint32>("seed");
        for (const quint32 seed : {1U, 2U, 3U, 4U, 5U, 6U, QRandomGenerator::system()->generate()}) {
            QTest::addRow("seed %u", seed) << seed;
        }
    }
    void matchesModel()
    {
        QFETCH(quint32, seed);
        std::map<VarArea, NaiveArea> model;
        for (const VarArea area : {VarArea::AnalogInput, VarArea::DigitalOutput}) {
            model[area].resize(std::size_t(areaSize(kOwner, area)));
        }
        const auto freeAreas = model;
        std::vector<std::map<VarArea, NaiveArea>> snapshots;
        QRandomGenerator random(seed);
        for (int i = 0; i < 4000; ++i) {
            const VarArea area = random.bounded(2) == 0 ? VarArea::AnalogInput : VarArea::DigitalOutput;
            NaiveArea &cells = model[area];
            const qint32 start = random.bounded(-3, qint32(cells.size()) + 3);
            const qint32 length = random.bounded(-1, 25);
            const int choice = random.bounded(12);
            const int cell = start < 0 || start >= qint32(cells.size()) ? 0 : cells[std::size_t(start)];
            if (choice < 3) {
                QCOMPARE(getMemory(kOwner, area, start, length), cells.claim(start, length));
            } else if (choice < 5) {
                const qint32 step = area == VarArea::AnalogInput ? 2 : 1;
                QCOMPARE(autoMallocMemory(kOwner, area, length), cells.claimLowest(step, length));
            } else if (choice < 9 && cell != 0) {
                const auto bytes = qint32(std::count(cells.begin(), cells.end(), cell));
                QVERIFY(!freeMemory(kOwner, area, cell - 1, bytes - 1) && !freeMemory(kOwner, area, cell, bytes - 1));
                QVERIFY(freeMemory(kOwner, area, cell - 1, bytes));
                cells.fill(cell - 1, bytes, 0);
            } else if (choice == 9) {
                backupUsedMemory(kOwner);
                snapshots.push_back(model);
            } else if (choice > 9) {
                choice == 10 ? popBackupMemory(kOwner) : restoreUsedMemory(kOwner);
                if (!snapshots.empty()) {
                    model = choice == 10 ? model : snapshots.back();
                    snapshots.pop_back();
                }
            }
            auto claimed = freeAreas;
            for (const ClaimedRange &range : claimedRanges(kOwner)) {
                claimed[range.area].fill(range.start, range.length, range.start + 1);
            }
            QVERIFY(claimed == model && openSnapshots(kOwner) == qint32(snapshots.size()));
        }
    }

    void refusalsNameAreaAndAddresses_data()
    {
        // request: area, start, length; the answer; told: parts of the error text
        const Rows<QVector<int>, QString> row("request", "told");
        row("no owner", {6, 0, 8, NoOwner}, "0 to 7.*analog inputs");
        row("an area that no controller has", {131, 4, 8, UnknownArea}, "4 to 11.*area 131");
        row("no byte", {7, 20, 0, EmptyRange}, "20.*analog outputs");
        row("lowest length", {7, kMax, kMin, EmptyRange}, "2147483647.*analog outputs");
        row("below the area", {129, -1, 2, OutOfRange}, "-1 to 0.*digital inputs.*0 to 127");
        row("one byte beyond the end", {129, 127, 2, OutOfRange}, "127 to 128.*0 to 127");
        row("highest start and length", {132, kMax, kMax, OutOfRange}, "4294967293.*variables");
        row("lowest start", {132, kMin, kMax, OutOfRange}, "-2147483648 to -2");
        row("last byte held", {130, 3, 8, Overlap}, "3 to 10.*digital outputs.*10 to 13");
    }
    void refusalsNameAreaAndAddresses()
    {
        QFETCH(QVector<int>, request);
        QFETCH(QString, told);
        QCOMPARE(getMemory(kOwner, VarArea::DigitalOutput, 10, 4), qint32{Held});
        const qint32 code = request[3];
        QCOMPARE(getMemory(code == NoOwner ? "" : kOwner, VarArea(request[0]), request[1], request[2]), code);
        const QString text = getMemoryErrStrByErrCode(code);
        QVERIFY2(text.contains(QRegularExpression(told)), qPrintable(text));
        QVERIFY(getMemoryErrStrByErrCode(999).contains("999"));
        simulatedhost::reset();
        QVERIFY(getMemoryErrStrByErrCode(code) != text);
    }

    void ownersAndControllersAreSeparate()
    {
        backupUsedMemory("other");
        QCOMPARE(autoMallocMemory(kOwner, VarArea::Variable, 8), 0);
        restoreUsedMemory("other");
        QCOMPARE(claimedRanges(kOwner).size(), 1);
        QCOMPARE(autoMallocMemory(QString(), VarArea::Variable, 8), -1);
        QVERIFY(!setPlcType(kOwner, 0) && !setPlcType(kOwner, 99));
        for (const PlcType &plc : plcTypes()) {
            QVERIFY(setPlcType(kOwner, plc.id) && getPrjPlcTypeVersion(kOwner).type == plc.id);
            const auto size = static_cast<qint32>(getPlcAddrRange(plc.id, plc.version, "AQEx"));
            QCOMPARE(getMemory(kOwner, VarArea::AnalogOutput, size, 1), qint32{OutOfRange});
            QCOMPARE(getMemory(kOwner, VarArea::AnalogOutput, size - 1, 1), qint32{Held});
        }
    }

    void conversions()
    {
        const QByteArray bytes = intToByteArray(-2) + shortToByteArray(-3) + ushortToByteArray(0x1234);
        QCOMPARE(bytes + floatToByteArray(2.0F), QByteArray::fromHex("fffffffefffd123440000000"));
        QCOMPARE(byteArrayToInt(QByteArray::fromHex("80000001ff")), kMin + 1);
        QCOMPARE(byteArrayToFloat(QByteArray::fromHex("c1200000")), -10.0F);
        QCOMPARE(byteArrayToFloat(QByteArray::fromHex("c12000")), 0.0F);
        QCOMPARE(byteArryDataToString(bytes.right(3), {}) + byteArryDataToString(bytes, "-").left(6), "FD1234FF-FF-");
        const quint32 info = 0xFF02F304;
        const auto counts = {getModuleAQNum(info), getModuleAINum(info), getModuleDQNum(info), getModuleDINum(info)};
        QCOMPARE(QVector<qint32>(counts), QVector<qint32>({255, 2, 243, 4}));
    }

    void catalogFolder()
    {
        const QTemporaryDir folder(QDir::tempPath() + "/%1 %2 %3 XXXXXX");
        qputenv("SIMHOST_COMPONENTS", QFile::encodeName(QDir::current().relativeFilePath(folder.path())));
        QCOMPARE(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription), folder.path() + "/6/");
        qunsetenv("SIMHOST_COMPONENTS");
        QVERIFY(QDir::isAbsolutePath(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription)));
    }

    void help()
    {
        QStringList heard;
        setHelpListener([&heard](const QString &keyword) {
            heard.append(keyword);
            setHelpListener({}); // a listener may replace itself while it runs
        });
        startHelpSys(helpKeyWord("first", "local"));
        setLanguage(Language::Local);
        startHelpSys(helpKeyWord("english", "second"));
        QCOMPARE(heard.join(' ') + ' ' + lastHelpKeyword(), QString("first second"));
        simulatedhost::reset();
        QCOMPARE(helpKeyWord("english", "local") + lastHelpKeyword(), QString("english"));
    }
};

QTEST_GUILESS_MAIN(TestMemoryService)
#include "tst_memoryservice.moc"
