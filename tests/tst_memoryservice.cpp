// The simulated host: the memory service compared with a plain list of ranges, conversions, catalog, help.
#include "rows.h"
#include "simulatedhost.h"

#include <climits>
#include <set>
#include <tuple>

using namespace simulatedhost;

namespace {

constexpr quint32 compactPlc = 1;
const QString owner = QStringLiteral("station");

/// Area, start, length.
using Range = std::tuple<VarArea, qint32, qint32>;

/// What the memory service should have stored.
struct Model {
    std::set<Range> ranges;
    std::vector<std::set<Range>> snapshots;

    qint32 claim(VarArea area, qint32 start, qint32 length)
    {
        if (length <= 0 || start < 0 || start + length > areaSize(owner, area)) {
            return length <= 0 ? EmptyRange : OutOfRange;
        }
        for (const auto &[otherArea, otherStart, otherLength] : ranges) {
            if (area == otherArea && start < otherStart + otherLength && otherStart < start + length) {
                return Overlap;
            }
        }
        ranges.insert({area, start, length});
        return Held;
    }
};

} // namespace

class TestMemoryService : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        simulatedhost::reset();
        setPlcType(owner, compactPlc);
    }

    void matchesModel_data()
    {
        const Rows<quint32> row("seed");
        for (const quint32 seed : {1U, 2U, 3U, 4U, 5U, 6U, QRandomGenerator::system()->generate()}) {
            row("seed " + QByteArray::number(seed), seed);
        }
    }
    void matchesModel()
    {
        QRandomGenerator random(fetched<quint32>("seed"));
        Model model;
        for (int i = 0; i < 4000; ++i) {
            const VarArea area = random.bounded(2) == 0 ? VarArea::AnalogInput : VarArea::DigitalOutput;
            const qint32 start = random.bounded(-3, areaSize(owner, area) + 3);
            const qint32 length = random.bounded(-1, 25);
            const int choice = random.bounded(12);
            if (choice < 3) {
                QCOMPARE(getMemory(owner, area, start, length), model.claim(area, start, length));
            } else if (choice < 5) {
                qint32 lowest = 0;
                while (lowest < areaSize(owner, area) && model.claim(area, lowest, length) != Held) {
                    lowest += area == VarArea::AnalogInput ? 2 : 1;
                }
                QCOMPARE(autoMallocMemory(owner, area, length), lowest < areaSize(owner, area) ? lowest : -1);
            } else if (choice < 9 && !model.ranges.empty()) {
                const auto range = std::next(model.ranges.begin(), random.bounded(int(model.ranges.size())));
                const auto [itsArea, itsStart, itsLength] = *range;
                QVERIFY(!freeMemory(owner, itsArea, itsStart, itsLength - 1));
                QVERIFY(!freeMemory(owner, itsArea, itsStart + 1, itsLength - 1));
                QVERIFY(freeMemory(owner, itsArea, itsStart, itsLength));
                model.ranges.erase(range);
            } else if (choice == 9) {
                backupUsedMemory(owner);
                model.snapshots.push_back(model.ranges);
            } else if (choice > 9) {
                choice == 10 ? popBackupMemory(owner) : restoreUsedMemory(owner);
                if (!model.snapshots.empty()) {
                    model.ranges = choice == 10 ? model.ranges : model.snapshots.back();
                    model.snapshots.pop_back();
                }
            }
            std::set<Range> claimed;
            for (const ClaimedRange &range : claimedRanges(owner)) {
                claimed.insert({range.area, range.start, range.length});
            }
            QVERIFY(claimed == model.ranges);
            QCOMPARE(openSnapshots(owner), qint32(model.snapshots.size()));
        }
    }

    void refusalsNameAreaAndAddresses_data()
    {
        // request: area, start, length, expected code; text: pattern for parts of the error text
        const Rows<QVector<int>, QString> row("request", "text");
        row("the owner is empty", {6, 0, 8, NoOwner}, "0 to 7.*analog inputs");
        row("no controller has the area", {131, 4, 8, UnknownArea}, "4 to 11.*area 131");
        row("the length is 0", {7, 20, 0, EmptyRange}, "20.*analog outputs");
        row("the length is the minimum", {7, INT_MAX, INT_MIN, EmptyRange}, "2147483647.*analog outputs");
        row("the start is below the area", {129, -1, 2, OutOfRange}, "-1 to 0.*digital inputs.*0 to 127");
        row("the end is one byte beyond the area", {129, 127, 2, OutOfRange}, "127 to 128.*0 to 127");
        row("start and length are the maximum", {132, INT_MAX, INT_MAX, OutOfRange}, "4294967293.*variables");
        row("the start is the minimum", {132, INT_MIN, INT_MAX, OutOfRange}, "-2147483648 to -2");
        row("the last byte is claimed", {130, 3, 8, Overlap}, "3 to 10.*digital outputs.*10 to 13");
    }
    void refusalsNameAreaAndAddresses()
    {
        QFETCH(QVector<int>, request);
        QCOMPARE(getMemory(owner, VarArea::DigitalOutput, 10, 4), qint32{Held});
        const qint32 code = request[3];
        QCOMPARE(getMemory(code == NoOwner ? "" : owner, VarArea(request[0]), request[1], request[2]), code);
        const QString message = getMemoryErrStrByErrCode(code);
        QVERIFY2(message.contains(QRegularExpression(fetched<QString>("text"))), qPrintable(message));
        QVERIFY(getMemoryErrStrByErrCode(999).contains("999"));
        simulatedhost::reset();
        QVERIFY(getMemoryErrStrByErrCode(code) != message);
    }

    void ownersAreSeparate()
    {
        backupUsedMemory("other");
        QCOMPARE(autoMallocMemory(owner, VarArea::Variable, 8), 0);
        restoreUsedMemory("other");
        QCOMPARE(claimedRanges(owner).size(), 1);
        QCOMPARE(autoMallocMemory(QString(), VarArea::Variable, 8), -1);
    }

    void controllerSetsAreaSizes()
    {
        QVERIFY(!setPlcType(owner, 0));
        for (const PlcType &plc : plcTypes()) {
            QVERIFY(setPlcType(owner, plc.id));
            QCOMPARE(getPrjPlcTypeVersion(owner).type, plc.id);
            const auto size = static_cast<qint32>(getPlcAddrRange(plc.id, plc.version, "AQEx"));
            QCOMPARE(getMemory(owner, VarArea::AnalogOutput, size, 1), qint32{OutOfRange});
            QCOMPARE(getMemory(owner, VarArea::AnalogOutput, size - 1, 1), qint32{Held});
        }
    }

    void conversions()
    {
        const QByteArray bytes = intToByteArray(-2) + shortToByteArray(-3) + ushortToByteArray(0x1234);
        QCOMPARE(byteArryDataToString(bytes + floatToByteArray(2.0F), {}), "FFFFFFFEFFFD123440000000");
        QCOMPARE(byteArryDataToString(bytes.right(3), "-"), "FD-12-34");
        QCOMPARE(byteArrayToInt(QByteArray::fromHex("80000001ff")), INT_MIN + 1);
        QCOMPARE(byteArrayToFloat(QByteArray::fromHex("c1200000")), -10.0F);
        QCOMPARE(byteArrayToFloat(QByteArray::fromHex("c12000")), 0.0F);
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
        QStringList keywords;
        setHelpListener([&keywords](const QString &keyword) {
            keywords.append(keyword);
            setHelpListener({}); // a listener may replace itself while it runs
        });
        startHelpSys(helpKeyWord("english", "local"));
        setLanguage(Language::Local);
        startHelpSys(helpKeyWord("english", "local"));
        QCOMPARE(keywords, QStringList("english"));
        QCOMPARE(lastHelpKeyword(), "local");
        simulatedhost::reset();
        QCOMPARE(helpKeyWord("english", "local"), "english");
        QVERIFY(lastHelpKeyword().isNull());
    }
};

QTEST_GUILESS_MAIN(TestMemoryService)
#include "tst_memoryservice.moc"
