// The workbench's station on the built plug-in: edits, what cannot be restored, blocks, batch tasks.
#include "batch.h"
#include "blockdecoder.h"
#include "catalog.h"
#include "catalogfolder.h"
#include "claims.h"
#include "imagerangetext.h"
#include "projectfile.h"
#include "rows.h"
#include "stationblocks.h"
#include "stationcommands.h"

#include <QUndoStack>

namespace {

const QString owner = QStringLiteral("owner");
const QString otherOwner = QStringLiteral("other");
constexpr quint32 largePlc = 3;

/// The ranges that the modules of a station say they have.
QStringList rangesOf(const Station &station)
{
    QStringList texts;
    for (int i = 0; i < station.count(); ++i) {
        const ModuleView module = station.module(i);
        for (const IoMap &range : {module.in, module.out}) {
            if (rangeBytes(range) != 0) {
                texts += claimText(range.area, range.start, rangeBytes(range));
            }
        }
    }
    texts.sort();
    return texts;
}

QStringList textsOf(const Project &project)
{
    QStringList texts{QString::number(project.plcType)};
    for (const StoredModule &module : project.modules) {
        texts += QStringLiteral("%1 %2 ").arg(module.place.index()).arg(module.typeCode) + module.name +
                 module.state.toHex();
    }
    return texts;
}

/// A saved state with other bytes in a field of its header.
QByteArray withField(QByteArray state, const char *name, const QByteArray &bytes)
{
    const auto decoded = blockdecoder::decodeSavedState(state);
    const blockdecoder::Field *field = decoded.find(QLatin1String("header.") + QLatin1String(name));
    return field != nullptr ? state.replace(field->offset, bytes.size(), bytes) : state;
}

} // namespace

class tst_Station : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;
    QTemporaryDir m_folder;

    std::unique_ptr<Station> stationOf(const std::vector<quint32> &types, const QString &memoryOwner = owner) const
    {
        auto station = std::make_unique<Station>(m_plugin, memoryOwner);
        QString error;
        station->setPlcType(largePlc, error);
        for (const quint32 type : types) {
            if (!station->add(type, Place::at(station->count()), error)) {
                qFatal("%s", qPrintable(error));
            }
        }
        return station;
    }

    static std::vector<quint32> allTypes(std::size_t count = 19)
    {
        const std::vector<CatalogEntry> catalog = readCatalog();
        std::vector<quint32> types(count);
        for (std::size_t i = 0; i < count; ++i) {
            types[i] = catalog.at(i % catalog.size()).typeCode;
        }
        return types;
    }

    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

private slots:
    void initTestCase() { QVERIFY2(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH), qPrintable(m_plugin.errorString())); }
    void init() { simulatedhost::resetBase(); }

    void createsEveryType_data()
    {
        const Rows<QStringList> row("ranges"); // of the first and the second module, each input and output
        for (const char *type : {"13395", "13396", "13397"}) {
            row(type, {"AI 0..7", "", "AI 8..15", ""});
        }
        row("13398", {"AI 0..15", "", "AI 16..31", ""});
        row("13399", {"", "AQ 0..3", "", "AQ 4..7"});
        row("13400", {"", "AQ 0..7", "", "AQ 8..15"});
        row("13401", {"AI 0..7", "AQ 0..3", "AI 8..15", "AQ 4..7"});
        row("13650", {"I 0", "", "I 1", ""});
        row("13651", {"I 0..1", "", "I 2..3", ""});
        row("13652", {"I 0..3", "", "I 4..7", ""});
        row("13653", {"", "Q 0", "", "Q 1"});
        row("13654", {"", "Q 0..1", "", "Q 2..3"});
        row("13655", {"I 0", "Q 0", "I 1", "Q 1"});
        row("13656", {"I 0..1", "Q 0..1", "I 2..3", "Q 2..3"});
        row("14418", {"V 0..3", "", "V 4..7", ""});
        row("14419", {"AI 0..1", "", "AI 2..3", ""});
        row("14420", {"V 0..7", "V 8..11", "V 12..19", "V 20..23"});
        row("14421", {"AI 0..3", "AQ 0..1", "AI 4..7", "AQ 2..3"});
        row("14848", {"", "", "", ""});
    }
    /// The second one is a copy of the first, with addresses of its own.
    void createsEveryType()
    {
        auto station = stationOf({QByteArray(QTest::currentDataTag()).toUInt()});
        QString error;
        QVERIFY2(station->paste(station->stored(0).state, {0, 1}, error), qPrintable(error));
        QStringList found;
        for (int i = 0; i < 2; ++i) {
            found << rangeText(station->module(i).in) << rangeText(station->module(i).out);
            QVERIFY(station->roundTrip(i).isGood());
        }
        QTEST(found, "ranges");
        QCOMPARE(claims(owner), rangesOf(*station));
        station->take({0, 0});
        QCOMPARE(claims(owner), rangesOf(*station));
        station.reset();
        QCOMPARE(claims(owner), QStringList());
    }

    void randomEditsAgreeWithAPlainModel_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 20; ++seed) {
            QTest::addRow("seed %u", seed) << seed;
        }
    }
    /// The model knows which type is where. What a step made, undo and redo must make again, byte by byte.
    void randomEditsAgreeWithAPlainModel()
    {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        const std::vector<quint32> types = allTypes();
        Station station(m_plugin, owner);
        QUndoStack stack;
        StationEdits edits(station, stack);
        using Model = QMap<int, quint32>;
        const auto snapshot = [&] { return textsOf(station.project()) + claims(owner); };
        struct Step {
            Model model;
            QStringList snapshot;
        };
        std::vector<Step> history{{{}, snapshot()}};
        QSet<int> told; // by the station's signals
        connect(&station, &Station::moduleAdded, &stack, [&](Place at) { told.insert(at.index()); });
        connect(&station, &Station::moduleRemoved, &stack, [&](Place at) { told.remove(at.index()); });
        connect(&station, &Station::moduleMoved, &stack, [&](Place from, Place to) {
            told.remove(from.index());
            told.insert(to.index());
        });
        QString error;
        for (int step = 0; step < 120; ++step) {
            const auto now = static_cast<std::size_t>(stack.index());
            Model model = history[now].model;
            const Place place = Place::at(random.bounded(24) * 7);
            const Place from = model.isEmpty() ? place : Place::at(model.keys().at(random.bounded(model.size())));
            const StoredModule source = model.isEmpty() ? StoredModule() : station.stored(*station.moduleAt(from));
            bool possible = !model.contains(place.index());
            bool made = false;
            const int edit = random.bounded(model.isEmpty() ? 2 : 11);
            switch (edit) {
            case 0:
            case 1:
                model[place.index()] = types[random.bounded(static_cast<quint32>(types.size()))];
                made = edits.add(model[place.index()], place, error);
                break;
            case 2:
                model[place.index()] = source.typeCode;
                made = edits.paste(source.state, place, error);
                break;
            case 3:
                model[place.index()] = model.take(from.index());
                made = edits.move(from, place, error) && from != place;
                break;
            case 4: {
                QVector<Place> places{from};
                if (model.size() > 4 && model.firstKey() != from.index()) {
                    places.prepend(Place::at(model.firstKey()));
                }
                for (const Place removed : places) {
                    model.remove(removed.index());
                }
                edits.remove(places);
                possible = made = true;
                break;
            }
            case 5:
                possible = made = edits.replaceState(
                    from, withField(source.state, "inMap.start", QByteArray("\0", 1) + char(random.bounded(128) * 2)),
                    error);
                break;
            case 6: {
                const QByteArray name = source.name.toLocal8Bit();
                possible = true;
                made = edits.replaceState(from, QByteArray(source.state).replace(name, QByteArray(name.size(), 'n')),
                                          error);
                break;
            }
            case 7: {
                const auto type = static_cast<quint32>(1 + random.bounded(3));
                made = type != station.plcType() && edits.setPlcType(type, error);
                possible = made;
                break;
            }
            case 8:
                stack.redo();
                break;
            case 9:
                stack.undo();
                break;
            default: {
                ProjectFile file(path("random.station"));
                QVERIFY2(file.write(station.project()), qPrintable(file.errorString()));
                const auto opened = Station::opened(m_plugin, otherOwner, *file.read(), error);
                QCOMPARE(textsOf(opened->project()) + claims(otherOwner), history[now].snapshot);
            }
            }
            if (edit < 8) {
                QVERIFY2(made == possible, qPrintable(error));
            }
            if (made) {
                history.resize(now + 1);
                history.push_back({model, snapshot()});
            }
            const Step &expected = history.at(static_cast<std::size_t>(stack.index()));
            QCOMPARE(snapshot(), expected.snapshot);
            Model found;
            for (int i = 0; i < station.count(); ++i) {
                found[station.module(i).place.index()] = station.module(i).typeCode;
            }
            QCOMPARE(found, expected.model);
            QCOMPARE(told, QSet<int>(found.keyBegin(), found.keyEnd()));
            QCOMPARE(claims(owner), rangesOf(station));
            QCOMPARE(simulatedhost::openSnapshots(owner), 0);
        }
    }

    void refusesWhatCannotBe()
    {
        const auto station = stationOf({13655});
        const QStringList before = textsOf(station->project()) + claims(owner);
        QString error;
        const auto refuses = [&](bool made, const char *reason) {
            return !made && error.contains(QLatin1String(reason)) &&
                   textsOf(station->project()) + claims(owner) == before;
        };
        QVERIFY(refuses(station->add(13655, {0, 0}, error), "is taken by"));
        QVERIFY(refuses(station->add(13655, {Place::rackCount, 0}, error), "no slot"));
        QVERIFY(refuses(station->add(1, {0, 1}, error), "hw00000001.met"));
        QVERIFY(refuses(station->paste(station->stored(0).state.left(30), {0, 1}, error), "damaged"));
        QVERIFY(refuses(station->setPlcType(9, error), "no PLC type 9"));
        StoredModule far = station->take({0, 0});
        far.state = withField(far.state, "outMap.start", QByteArray(1, 0x20));
        QVERIFY(station->put(far));
        QVERIFY(!station->setPlcType(1, error));
        QVERIFY2(error.contains("area Q"), qPrintable(error));
        // Outputs without room: the inputs must not stay claimed.
        Station full(m_plugin, otherOwner);
        for (int i = 0; i < simulatedhost::areaSize(otherOwner, VarArea::DigitalOutput); ++i) {
            QVERIFY(full.add(13653, Place::at(i), error));
        }
        const QStringList held = claims(otherOwner);
        QVERIFY(!full.add(13655, *full.firstFreePlace(), error) && error.contains("area Q"));
        QCOMPARE(claims(otherOwner), held);
    }

    void keepsWhatCannotBeRestored_data()
    {
        const Rows<QByteArray, QString> row("state", "reason"); // of the second module, in slot 1
        const auto station = stationOf({13656, 13656});
        const QByteArray good = station->stored(1).state;
        const QByteArray first = station->stored(0).state;
        row("cut in its header", good.left(40), "damaged");
        row("a type that the catalog lacks", withField(good, "objId", {"\0\0\0\1", 4}), "hw00000001.met");
        row("of another place", first, "rack 0, slot 0");
        row("at another module's address", withField(good, "outMap.start", {"\0\0", 2}), "already in use");
        row("overlapping another module", withField(good, "outMap.start", {"\0\1", 2}), "already in use");
        row("outside its area", withField(good, "inMap.start", "\xff\xff"), "lie outside");
        row("with another length", withField(good, "inMap.area", {"\x81\0\4\1", 4}), "lengths");
    }
    void keepsWhatCannotBeRestored()
    {
        QFETCH(QByteArray, state);
        QFETCH(QString, reason);
        Project project = stationOf({13656, 13656, 13656}, otherOwner)->project();
        project.modules[1].state = state;
        QString error;
        const auto station = Station::opened(m_plugin, owner, project, error);
        QVERIFY2(station, qPrintable(error));
        QCOMPARE(station->unavailableCount(), 1);
        QVERIFY2(station->module(1).unavailable.contains(reason), qPrintable(station->module(1).unavailable));
        QUndoStack stack;
        StationEdits edits(*station, stack);
        QVERIFY(edits.move({0, 1}, {9, 9}, error));
        edits.remove({{9, 9}});
        edits.remove({{0, 0}, {0, 2}});
        QCOMPARE(claims(owner), QStringList());
        stack.setIndex(0);
        QVERIFY(!station->module(1).unavailable.isEmpty());
        QCOMPARE(textsOf(station->project()), textsOf(project));
        QCOMPARE(claims(owner), rangesOf(*station));
    }

    void namesWhatTheCatalogLacks_data()
    {
        const Rows<QByteArray, QString> row("lines", "reason");
        row("missing component file", "ServerFile=absent.cmp\n", "component file absent.cmp");
        row("digits after percent signs", "ServerFile=%2%3\n", "component file %2%3 of \"Module\" (type 13656)");
        row("no ServerFile", "ServerFile=\n", "component file");
        row("entry for a newer host", "NeedHwCnfgVersion=9999\n", "newer host");
    }
    void namesWhatTheCatalogLacks()
    {
        QFETCH(QByteArray, lines);
        QFETCH(QString, reason);
        const Project project = stationOf({13656})->project();
        CatalogFolder catalog;
        catalog.writeModule(13656, 0x00001010, lines);
        QString error;
        QVERIFY(!Station(m_plugin, otherOwner).add(13656, {}, error) && error.contains(reason));
        const auto station = Station::opened(m_plugin, owner, project, error);
        QVERIFY2(station->module(0).unavailable.contains(reason), qPrintable(station->module(0).unavailable));
    }

    void twoThousandModulesComeBackFromTheirBlocks()
    {
        const Project project = stationOf(allTypes(2000))->project();
        QString error;
        const auto opened = Station::opened(m_plugin, owner, project, error);
        std::vector<BlockResult> results;
        const auto rebuilt = decompiled(m_plugin, otherOwner, *opened->compiled(), results);
        QCOMPARE(results.size(), std::size_t{0});
        QCOMPARE(textsOf(rebuilt->project()), textsOf(project));
        QCOMPARE(claims(otherOwner), claims(owner));
        QVERIFY(!opened->compiled([](int done, int) { return done < 7; }));
    }

    void tellsWhichBlocksAreDamaged()
    {
        const auto station = stationOf({13650, 13651, 13652});
        QByteArray first = *stationOf({13650}, otherOwner)->compiled();
        QByteArray unknown = first;
        unknown.replace(9, 4, QByteArray("\0\0\0\1", 4));
        const QByteArray bytes = first + unknown + first + station->compiled()->mid(first.size()).chopped(5);
        std::vector<BlockResult> results;
        const auto rebuilt = decompiled(m_plugin, otherOwner, bytes, results);
        QCOMPARE(results.size(), std::size_t{3});
        QCOMPARE(results[0].code, 129);
        QCOMPARE(results[0].offset, first.size());
        QVERIFY(results[1].error.contains("is taken by"));
        QVERIFY(!results[2].unread.isEmpty());
        QCOMPARE(rebuilt->count(), 3);
    }

    void runsBatchTasks()
    {
        QString out;
        QString err;
        const auto run = [&](QStringList arguments) {
            QCommandLineParser parser;
            parser.addPositionalArgument("file", {});
            const BatchOptions options;
            options.addTo(parser);
            out.clear();
            err.clear();
            QTextStream outStream(&out);
            QTextStream errStream(&err);
            return parser.parse(arguments << "--batch") ? runBatch(parser, options, m_plugin, outStream, errStream)
                                                        : UsageOrUnreadable;
        };
        const QString project = path("batch.station");
        QCOMPARE(run({"workbench", "--new", project, "--modules", "40"}), NoFindings);
        QCOMPARE(run({"workbench", "--new", project, "--modules", "40"}), UsageOrUnreadable);
        QVERIFY2(err.contains("batch.station: The file exists"), qPrintable(err));
        QCOMPARE(run({"workbench", project, "--verify"}), NoFindings);
        QCOMPARE(run({"workbench", project, "--list"}), NoFindings);
        QCOMPARE(out.count('\n'), 41);
        QVERIFY2(out.contains("rack 1, slot 6: 13395, "), qPrintable(out));
        QCOMPARE(run({"workbench", project, "--compile", path("batch.blk")}), NoFindings);
        QCOMPARE(run({"workbench", path("again.station"), "--decompile", path("batch.blk")}), NoFindings);
        QCOMPARE(textsOf(*ProjectFile(path("again.station")).read()), textsOf(*ProjectFile(project).read()));
        QCOMPARE(run({"workbench", path("x.station"), "--decompile", project}), Findings);
        QCOMPARE(run({"workbench", "--new", path("x.station"), "--modules", "5000"}), Findings);
        QVERIFY(!QFileInfo::exists(path("x.station")));
        QCOMPARE(run({"workbench", path("none.station"), "--list"}), UsageOrUnreadable);
        QCOMPARE(run({"workbench", project, "--list", "--verify"}), UsageOrUnreadable);
    }

    void keepsNamesThatTheLocaleLacks()
    {
        CatalogFolder catalog;
        catalog.writeModule(13650, 8, u8"ObjName=\u00e4\u4e2d\n");
        const QString project = path("names.station");
        for (const QStringList &task : {QStringList{"--batch", "--new", project, "--modules", "2"},
                                        {"--batch", project, "--verify"},
                                        {"--table", project},
                                        {"--batch", project, "--compile", path("names.blk")},
                                        {"--batch", path("names again.station"), "--decompile", path("names.blk")}}) {
            const QStringList command{"LC_ALL=C", QCoreApplication::applicationDirPath() + "/workbench"};
            QCOMPARE(QProcess::execute("env", command + task), int{NoFindings});
        }
        QCOMPARE(ProjectFile(path("names again.station")).read()->modules[1].name, QStringLiteral(u"\u00e4\u4e2d"));
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
