// The simulated host: memory service against a byte-per-byte model, conversions, catalog, help.
#include "simulatedhost.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <limits>

using namespace simulatedhost;

namespace {

constexpr qint32 kMin = std::numeric_limits<qint32>::min();
constexpr qint32 kMax = std::numeric_limits<qint32>::max();
constexpr quint32 kCompact = 1;
const QString kOwner = QStringLiteral("station");

/// One area with a cell per byte: 0 free, else 1 + the start of the claim that holds the byte.
struct NaiveArea {
    std::vector<int> cells;

    qint32 size() const { return static_cast<qint32>(cells.size()); }
    void fill(qint32 start, qint32 length, int value) { std::fill_n(cells.begin() + start, length, value); }
    qint32 claim(qint32 start, qint32 length)
    {
        if (length <= 0 || start < 0 || start + length > size()) {
            return length <= 0 ? EmptyRange : OutOfRange;
        }
        if (std::count(cells.begin() + start, cells.begin() + start + length, 0) < length) {
            return Overlap;
        }
        fill(start, length, start + 1);
        return Held;
    }
    qint32 claimLowest(qint32 step, qint32 length)
    {
        qint32 start = 0;
        while (start < size() && claim(start, length) != Held) {
            start += step;
        }
        return start < size() ? start : -1;
    }
};

/// A request that getMemory turns down, and what its error text must tell.
struct Refused {
    QString owner;
    int area;
    qint32 start;
    qint32 length;
    qint32 code;
    QStringList parts;
};

} // namespace

Q_DECLARE_METATYPE(VarArea)
Q_DECLARE_METATYPE(Refused)

class TestMemoryService : public QObject {
    Q_OBJECT

private slots:
    void init() { simulatedhost::reset(); }

    void matchesModel_data()
    {
        QTest::addColumn<VarArea>("area");
        QTest::addColumn<quint32>("seed");
        for (const VarArea area : {VarArea::AnalogInput, VarArea::DigitalOutput}) {
            for (const quint32 seed : {1U, 2U, 3U, QRandomGenerator::system()->generate()}) {
                QTest::addRow("area %d, seed %u", static_cast<int>(area), seed) << area << seed;
            }
        }
    }
    void matchesModel()
    {
        QFETCH(VarArea, area);
        QFETCH(quint32, seed);
        QVERIFY(setPlcType(kOwner, kCompact));
        const qint32 size = areaSize(kOwner, area);
        const NaiveArea freeArea{std::vector<int>(static_cast<std::size_t>(size))};
        NaiveArea model = freeArea;
        std::vector<NaiveArea> snapshots;
        QRandomGenerator random(seed);
        for (int i = 0; i < 2000; ++i) {
            const qint32 start = random.bounded(-3, size + 3);
            const qint32 length = random.bounded(-1, 25);
            const int choice = random.bounded(12);
            const int cell = start < 0 || start >= size ? 0 : model.cells[static_cast<std::size_t>(start)];
            if (choice < 3) {
                QCOMPARE(getMemory(kOwner, area, start, length), model.claim(start, length));
            } else if (choice < 5) {
                const qint32 step = area == VarArea::AnalogInput ? 2 : 1;
                QCOMPARE(autoMallocMemory(kOwner, area, length), model.claimLowest(step, length));
            } else if (choice < 9 && cell != 0) {
                const auto bytes = static_cast<qint32>(std::count(model.cells.begin(), model.cells.end(), cell));
                QVERIFY(!freeMemory(kOwner, area, cell - 1, bytes - 1));
                QVERIFY(!freeMemory(kOwner, area, cell, bytes - 1));
                QVERIFY(freeMemory(kOwner, area, cell - 1, bytes));
                model.fill(cell - 1, bytes, 0);
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
            NaiveArea claimed = freeArea;
            for (const ClaimedRange &range : claimedRanges(kOwner)) {
                claimed.fill(range.start, range.length, range.start + 1);
            }
            QCOMPARE(claimed.cells, model.cells);
            QCOMPARE(openSnapshots(kOwner), static_cast<qint32>(snapshots.size()));
        }
    }

    void refusalsNameAreaAndAddresses_data()
    {
        QTest::addColumn<Refused>("request");
        const auto row = [](const char *name, const Refused &request) { QTest::newRow(name) << request; };
        row("no owner", {{}, 6, 0, 8, NoOwner, {"analog inputs", "0 to 7"}});
        row("an area that no controller has", {kOwner, 131, 4, 8, UnknownArea, {"area 131", "4 to 11"}});
        row("no byte", {kOwner, 7, 20, 0, EmptyRange, {"analog outputs", "20"}});
        row("lowest length", {kOwner, 7, kMax, kMin, EmptyRange, {"analog outputs", "2147483647"}});
        row("below the area", {kOwner, 129, -1, 2, OutOfRange, {"digital inputs", "-1 to 0", "0 to 127"}});
        row("one byte beyond the end", {kOwner, 129, 127, 2, OutOfRange, {"127 to 128", "0 to 127"}});
        row("highest start and length", {kOwner, 132, kMax, kMax, OutOfRange, {"variables", "4294967293"}});
        row("lowest start", {kOwner, 132, kMin, kMax, OutOfRange, {"-2147483648 to -2"}});
        row("last byte held", {kOwner, 130, 3, 8, Overlap, {"digital outputs", "3 to 10", "10 to 13"}});
    }
    void refusalsNameAreaAndAddresses()
    {
        QFETCH(Refused, request);
        setPlcType(kOwner, kCompact);
        QCOMPARE(getMemory(kOwner, VarArea::DigitalOutput, 10, 4), qint32{Held});
        const auto area = static_cast<VarArea>(request.area);
        QCOMPARE(getMemory(request.owner, area, request.start, request.length), request.code);
        const QString text = getMemoryErrStrByErrCode(request.code);
        for (const QString &part : request.parts) {
            QVERIFY2(text.contains(part), qPrintable(text));
        }
        QVERIFY(getMemoryErrStrByErrCode(999).contains("999"));
        simulatedhost::reset();
        QVERIFY(getMemoryErrStrByErrCode(request.code) != text);
    }

    void ownersAndControllersAreSeparate()
    {
        backupUsedMemory("other");
        QCOMPARE(autoMallocMemory(kOwner, VarArea::Variable, 8), 0);
        restoreUsedMemory("other");
        QCOMPARE(claimedRanges(kOwner).size(), 1);
        QCOMPARE(autoMallocMemory(QString(), VarArea::Variable, 8), -1);
        QVERIFY(!setPlcType(kOwner, 99));
        for (const PlcType &plc : plcTypes()) {
            QVERIFY(setPlcType(kOwner, plc.id));
            QCOMPARE(getPrjPlcTypeVersion(kOwner).type, plc.id);
            const auto size = static_cast<qint32>(getPlcAddrRange(plc.id, plc.version, "AQEx"));
            QCOMPARE(getMemory(kOwner, VarArea::AnalogOutput, size, 1), qint32{OutOfRange});
            QCOMPARE(getMemory(kOwner, VarArea::AnalogOutput, size - 1, 1), qint32{Held});
        }
    }

    void conversions()
    {
        QCOMPARE(intToByteArray(-2), QByteArray::fromHex("fffffffe"));
        QCOMPARE(shortToByteArray(-2) + ushortToByteArray(0x1234), QByteArray::fromHex("fffe1234"));
        QCOMPARE(floatToByteArray(2.0F), QByteArray::fromHex("40000000"));
        QCOMPARE(byteArrayToInt(QByteArray::fromHex("80000001ff")), kMin + 1);
        QCOMPARE(byteArrayToFloat(QByteArray::fromHex("c1200000")), -10.0F);
        QCOMPARE(byteArrayToFloat(QByteArray::fromHex("c12000")), 0.0F);
        QCOMPARE(byteArryDataToString(QByteArray::fromHex("00abff"), QString()), QString("00ABFF"));
        QCOMPARE(byteArryDataToString(QByteArray::fromHex("00abff"), ", "), QString("00, AB, FF"));
        const quint32 info = 0xFF02F304;
        QCOMPARE(
            (QVector<qint32>{getModuleAQNum(info), getModuleAINum(info), getModuleDQNum(info), getModuleDINum(info)}),
            (QVector<qint32>{255, 2, 243, 4}));
    }

    void everyDescriptionHasItsComponent()
    {
        const QTemporaryDir folder;
        qputenv("SIMHOST_COMPONENTS", QFile::encodeName(QDir::current().relativeFilePath(folder.path())));
        QCOMPARE(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription), folder.path() + "/6/");
        qunsetenv("SIMHOST_COMPONENTS");
        const QString descriptions = getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription);
        const QStringList names = QDir(descriptions).entryList({"hw*.met"});
        QVERIFY(QDir::isAbsolutePath(descriptions) && names.size() >= 16);
        for (const QString &name : names) {
            QFile file(descriptions + name);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromLatin1(file.readAll());
            const QString server = text.section("\nServerFile=", 1).section('\n', 0, 0);
            const QString component = getHwcnfgComponentPath(HwcnfgComponent::ModuleComponent) + server;
            QVERIFY2(!server.isEmpty() && QFile::exists(component), qPrintable(component));
            QVERIFY2(text.contains("\nObjID=" + name.mid(6, 4) + '\n'), qPrintable(name));
        }
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
        QCOMPARE(heard, QStringList("first"));
        QCOMPARE(lastHelpKeyword(), QString("second"));
        simulatedhost::reset();
        QCOMPARE(helpKeyWord("english", "local") + lastHelpKeyword(), QString("english"));
    }
};

QTEST_GUILESS_MAIN(TestMemoryService)
#include "tst_memoryservice.moc"
