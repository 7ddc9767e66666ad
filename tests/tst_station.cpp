// The workbench's station on the built plug-in: creating, releasing, files, blocks.
#include "catalog.h"
#include "imagerangetext.h"
#include "simulatedbase.h"
#include "station.h"
#include "stationfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString owner = QStringLiteral("owner");
const QString otherOwner = QStringLiteral("other");

/// Claimed ranges as text, so that a failure shows them.
QStringList claims(const QString &memoryOwner)
{
    QStringList texts;
    for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(memoryOwner)) {
        texts += QStringLiteral("%1 %2+%3").arg(static_cast<int>(range.area)).arg(range.start).arg(range.length);
    }
    return texts;
}

} // namespace

class tst_Station : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;
    QTemporaryDir m_folder;

    std::unique_ptr<Station> stationOf(const std::vector<CatalogEntry> &types, const QString &memoryOwner = owner) const
    {
        auto station = std::make_unique<Station>(m_plugin, memoryOwner);
        QString error;
        for (const CatalogEntry &type : types) {
            if (!station->add(type.typeCode, error)) {
                qFatal("%s", qPrintable(error));
            }
        }
        return station;
    }

    QByteArray fileOf(const QByteArrayList &states) const
    {
        QString error;
        QFile file(m_folder.filePath("written.station"));
        return writeStationFile(file.fileName(), states, error) && file.open(QIODevice::ReadOnly) ? file.readAll() : "";
    }

    /// True when the file is refused and nothing stays claimed for it.
    bool isRefused(const QByteArray &bytes, QString &error) const
    {
        QFile file(m_folder.filePath("damaged.station"));
        const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
        file.close();
        error.clear();
        return written && !openStation(m_plugin, otherOwner, file.fileName(), error) && !error.isEmpty() &&
               claims(otherOwner).isEmpty() && simulatedhost::openSnapshots(otherOwner) == 0;
    }

private slots:
    void initTestCase() { QVERIFY2(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH), qPrintable(m_plugin.errorString())); }
    void init() { simulatedhost::resetBase(); }

    void createsEveryType_data()
    {
        QTest::addColumn<QStringList>("ranges"); // of the first and the second module, each input and output
        const auto row = [](int type, const QStringList &ranges) { QTest::addRow("%d", type) << ranges; };
        for (const int type : {13395, 13396, 13397}) {
            row(type, {"AI 0..7", "", "AI 8..15", ""});
        }
        row(13398, {"AI 0..15", "", "AI 16..31", ""});
        row(13399, {"", "AQ 0..3", "", "AQ 4..7"});
        row(13400, {"", "AQ 0..7", "", "AQ 8..15"});
        row(13401, {"AI 0..7", "AQ 0..3", "AI 8..15", "AQ 4..7"});
        row(13650, {"I 0", "", "I 1", ""});
        row(13651, {"I 0..1", "", "I 2..3", ""});
        row(13652, {"I 0..3", "", "I 4..7", ""});
        row(13653, {"", "Q 0", "", "Q 1"});
        row(13654, {"", "Q 0..1", "", "Q 2..3"});
        row(13655, {"I 0", "Q 0", "I 1", "Q 1"});
        row(13656, {"I 0..1", "Q 0..1", "I 2..3", "Q 2..3"});
        row(14418, {"V 0..3", "", "V 4..7", ""});
        row(14419, {"AI 0..1", "", "AI 2..3", ""});
        row(14420, {"V 0..7", "V 8..11", "V 12..19", "V 20..23"});
        row(14421, {"AI 0..3", "AQ 0..1", "AI 4..7", "AQ 2..3"});
        row(14848, {"", "", "", ""});
    }

    void createsEveryType()
    {
        QFETCH(QStringList, ranges);
        const quint32 type = QByteArray(QTest::currentDataTag()).toUInt();
        auto station = stationOf({});
        QString error;
        QStringList found;
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(station->add(type, error), i);
            found << rangeText(station->module(i).in) << rangeText(station->module(i).out);
        }
        QCOMPARE(found, ranges);
        ranges.removeAll({});
        QCOMPARE(claims(owner).size(), ranges.size());
        station->remove(0);
        QCOMPARE(claims(owner).size(), ranges.size() / 2);
        station.reset();
        QCOMPARE(claims(owner), QStringList());
    }

    void comesBackFromItsFile()
    {
        const auto station = stationOf(readCatalog());
        QCOMPARE(station->count(), 19);
        fileOf(station->states());
        QString error;
        const auto opened = openStation(m_plugin, otherOwner, m_folder.filePath("written.station"), error);
        QVERIFY2(opened, qPrintable(error));
        QCOMPARE(opened->states(), station->states());
        QCOMPARE(opened->compiled(), station->compiled());
        QCOMPARE(claims(otherOwner), claims(owner));
    }

    void comesBackFromItsBlocks()
    {
        const auto station = stationOf(readCatalog());
        const QHash<quint32, int> halved{{14418, 1}, {14420, 2}}; // double words are rebuilt as words
        const QStringList before = claims(owner);
        for (int i = 0; i < station->count(); ++i) {
            const RoundTrip result = station->roundTrip(i);
            QVERIFY2(result.isGood(), qPrintable(station->module(i).name));
            QCOMPARE(result.rangeLengthsHalved, halved.value(station->module(i).typeCode));
        }
        QCOMPARE(claims(owner), before);
    }

    void movesBetweenSlots()
    {
        const auto station = stationOf(readCatalog());
        const QString name = station->module(0).name;
        for (const Place place : {Place{0, 1}, Place{Place::rackCount, 0}, Place{0, -1}}) {
            QVERIFY(!station->place(0, place));
        }
        QCOMPARE(station->place(0, {15, 7}), 18);
        QCOMPARE(station->module(18).name, name);
        QCOMPARE(station->moduleAt({15, 7}), 18);
        QVERIFY(!station->moduleAt({0, 0}));
    }

    void refusesWhatFindsNoRoom()
    {
        const auto station = stationOf({});
        QString error;
        QVERIFY(!station->add(1, error));
        QVERIFY(error.contains("type 1 "));
        // The outputs find no room, so the inputs must not stay claimed.
        getMemory(owner, VarArea::DigitalOutput, 0, simulatedhost::areaSize(owner, VarArea::DigitalOutput));
        QVERIFY(!station->add(13655, error));
        QCOMPARE(claims(owner).size(), 1);
        for (int i = 0; i < Place::rackCount * Place::slotCount; ++i) {
            QVERIFY(station->add(14848, error));
        }
        QVERIFY(!station->add(14848, error));
    }

    void refusesDamagedFiles_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const QByteArray &file, const char *reason) {
            QTest::newRow(name) << file << QString::fromLatin1(reason);
        };
        const QByteArrayList states = stationOf({{13395, {}, {}}, {13395, {}, {}}})->states();
        const auto elsewhere = stationOf({{13395, {}, {}}});
        elsewhere->place(0, {3, 3});
        const QByteArray good = fileOf(states);
        QByteArray unknown = states.at(0);
        unknown[11] = 0x01; // in the type code

        row("another kind of file", "PK\x03\x04", "not a station file");
        row("another version", QByteArray(good).replace("\"version\": 1", "\"version\": 2"), "version 2");
        row("too large", good + QByteArray(5 << 20, ' '), "too large");
        row("no checksum", QByteArray(good).replace("sha256", "sha"), "checksum");
        row("a changed module", QByteArray(good).replace(states.at(1).toHex(), states.at(0).toHex()), "checksum");
        row("an empty module", fileOf({states.at(0), {}}), "Module 2");
        row("a module cut short", fileOf({states.at(0).left(9)}), "Module 1");
        row("a type that the catalog lacks", fileOf({states.at(1), unknown}), "Module 2");
        row("two modules in one slot", fileOf({states.at(0), states.at(0)}), "rack 0, slot 0");
        row("two modules at one address", fileOf(states + elsewhere->states()), "are taken");
    }

    void refusesDamagedFiles()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, reason);
        const auto station = stationOf(readCatalog());
        const QByteArrayList states = station->states();
        const QStringList held = claims(owner);
        QString error;
        QVERIFY(isRefused(file, error));
        QVERIFY2(error.contains(reason), qPrintable(error));
        QCOMPARE(station->states(), states);
        QCOMPARE(claims(owner), held);
    }

    void refusesEveryPrefixOfAFile()
    {
        const QByteArray file = fileOf(stationOf({{14420, {}, {}}})->states()).trimmed();
        QString error;
        for (int length = 0; length < file.size(); ++length) {
            QVERIFY2(isRefused(file.left(length), error), qPrintable(QString::number(length)));
        }
    }

    void namesAMissingExport()
    {
        const QDir libraries = QFileInfo(SIMPLEEXTEND_LIBRARY_PATH).dir();
        PluginLibrary library;
        QVERIFY(!library.load(libraries.filePath("libhelpsharemodule.so")));
        QVERIFY2(library.errorString().endsWith("does not export createObject."), qPrintable(library.errorString()));
        QVERIFY(!library.load(libraries.filePath("nothing.so")));
        QVERIFY2(library.errorString().contains("nothing.so"), qPrintable(library.errorString()));
    }
};

QTEST_GUILESS_MAIN(tst_Station)
#include "tst_station.moc"
