// The workbench's station with the built plug-in: edits, unavailable modules, blocks, batch tasks.
#include "batch.h"
#include "catalog.h"
#include "catalogfolder.h"
#include "claims.h"
#include "imagerangetext.h"
#include "problems.h"
#include "projectfile.h"
#include "projecttexts.h"
#include "rows.h"
#include "statepatch.h"
#include "stationblocks.h"
#include "stationcommands.h"

#include <QUndoStack>

using Edit = std::function<Result<>(Station &station)>;
Q_DECLARE_METATYPE(Edit)

namespace {

const QString owner = QStringLiteral("owner");
const QString otherOwner = QStringLiteral("other");

/// The ranges of the modules of a station, except those that cannot be reserved.
QStringList rangesOf(const Station &station)
{
    QStringList texts;
    for (int i = 0; i < station.count(); ++i) {
        for (const auto &[area, start, length] : memoryRanges(station.module(i).in, station.module(i).out)) {
            texts += claimText(static_cast<int>(area), start, length);
        }
    }
    for (const UnreservedRange &unreserved : station.memory().unreserved()) {
        const auto &[area, start, length] = unreserved.range;
        texts.removeOne(claimText(static_cast<int>(area), start, length));
    }
    texts.sort();
    return texts;
}

Place shifted(Place place, Place by)
{
    return {place.rack + by.rack, place.slot + by.slot};
}

/// A module of a type that the catalog lacks.
StoredModule unavailableModule(Place place, const QByteArray &state)
{
    return {place, 1, "absent", withPlace(withFields(state, {{"objId", {"\0\0\0\1", 4}}}), place), {}};
}

} // namespace

class TestStation : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;
    QTemporaryDir m_folder;
    QString m_output; // of the latest batch task

    std::unique_ptr<Station> stationOf(const std::vector<quint32> &types, const QString &memoryOwner = owner) const
    {
        auto station = std::make_unique<Station>(m_plugin, memoryOwner);
        station->setLargestPlcType();
        for (const quint32 type : types) {
            if (const Result<> added = station->add(type, Place::at(station->count())); !added) {
                qFatal("%s", qPrintable(added.reason()));
            }
        }
        return station;
    }

    /// The types of the catalog in turn.
    static std::vector<quint32> allTypes(std::size_t count = 19)
    {
        const std::vector<CatalogEntry> catalog = readCatalog();
        std::vector<quint32> types(count);
        for (std::size_t i = 0; i < count; ++i) {
            types[i] = catalog.at(i % catalog.size()).typeCode;
        }
        return types;
    }

    /// Runs a batch task on files of the test's folder.
    BatchExit batch(const QStringList &arguments)
    {
        QCommandLineParser parser;
        parser.addPositionalArgument("file", {});
        const BatchOptions options;
        options.addTo(parser);
        m_output.clear();
        QTextStream stream(&m_output);
        const bool isValid = parser.parse(QStringList{"workbench", "--batch"} + arguments);
        return isValid ? runBatch(parser, options, m_plugin, stream, stream) : UsageOrUnreadable;
    }

private slots:
    void initTestCase()
    {
        QCOMPARE(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH).reason(), QString());
        QVERIFY(QDir::setCurrent(m_folder.path()));
        QCOMPARE(batch({"--new", "batch.station", "--modules", "40"}), NoFindings);
        QCOMPARE(batch({"batch.station", "--compile", "batch.blk"}), NoFindings);
        Project part = stationOf({13655})->project();
        part.modules.push_back(unavailableModule({0, 1}, part.modules[0].state));
        QVERIFY(ProjectFile("part.station").write(part));
    }
    void init() { simulatedhost::resetBase(); }

    void everyTypeGetsItsAddresses_data()
    {
        // Input and output of the first and of the second module.
        const Rows<quint32, QStringList> row("type", "ranges");
        row("analog input 4 x U/I", 13395, {"AI 0..7", "", "AI 8..15", ""});
        row("analog input 4 x TC", 13396, {"AI 0..7", "", "AI 8..15", ""});
        row("analog input 4 x RTD", 13397, {"AI 0..7", "", "AI 8..15", ""});
        row("analog input 8 x U/I", 13398, {"AI 0..15", "", "AI 16..31", ""});
        row("analog output 2 x U/I", 13399, {"", "AQ 0..3", "", "AQ 4..7"});
        row("analog output 4 x U/I", 13400, {"", "AQ 0..7", "", "AQ 8..15"});
        row("analog mixed 4 AI 2 AQ", 13401, {"AI 0..7", "AQ 0..3", "AI 8..15", "AQ 4..7"});
        row("digital input 8", 13650, {"I 0", "", "I 1", ""});
        row("digital input 16", 13651, {"I 0..1", "", "I 2..3", ""});
        row("digital input 32", 13652, {"I 0..3", "", "I 4..7", ""});
        row("digital output 8", 13653, {"", "Q 0", "", "Q 1"});
        row("digital output 16", 13654, {"", "Q 0..1", "", "Q 2..3"});
        row("digital mixed 8 DI 8 DQ", 13655, {"I 0", "Q 0", "I 1", "Q 1"});
        row("digital mixed 12 DI 10 DQ", 13656, {"I 0..1", "Q 0..1", "I 2..3", "Q 2..3"});
        row("weighing 1 x double word", 14418, {"V 0..3", "", "V 4..7", ""});
        row("weighing 1 x word", 14419, {"AI 0..1", "", "AI 2..3", ""});
        row("weighing 2 x double word", 14420, {"V 0..7", "V 8..11", "V 12..19", "V 20..23"});
        row("weighing 2 x word", 14421, {"AI 0..3", "AQ 0..1", "AI 4..7", "AQ 2..3"});
        row("bus supply", 14848, {"", "", "", ""});
    }
    /// The second module is a pasted copy of the first.
    void everyTypeGetsItsAddresses()
    {
        QFETCH(quint32, type);
        auto station = stationOf({type});
        QCOMPARE(station->paste(station->stored(0).state, {0, 1}).reason(), QString());
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

    void randomEditsMatchAPlainModel_data()
    {
        const Rows<quint32> row("seed");
        for (quint32 seed = 1; seed <= 20; ++seed) {
            row("seed " + QByteArray::number(seed), seed);
        }
    }
    /// The model is a map of type codes by place. Undo and redo must restore every byte.
    void randomEditsMatchAPlainModel()
    {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        const std::vector<quint32> types = allTypes();
        Station station(m_plugin, owner);
        QUndoStack stack;
        StationEdits edits(station, stack);
        QSet<int> signalled; // places of modules according to the signals
        QMap<int, quint32> model;
        const QByteArray state = stationOf({13655}, otherOwner)->stored(0).state;
        for (int i = 0; i < 3; ++i) { // the third one has the addresses of the second
            const Place place = Place::at(i * 7);
            const char start = char(20 + std::min(i, 1));
            const QByteArray moved = withFields(state, {{"inMap.start", {1, start}}, {"outMap.start", {1, start}}});
            QVERIFY(!station.put(unavailableModule(place, moved)));
            model[place.index()] = 1;
            signalled.insert(place.index());
        }
        connect(&station, &Station::moduleAdded, &stack, [&](Place at) { signalled.insert(at.index()); });
        connect(&station, &Station::moduleRemoved, &stack, [&](Place at) { signalled.remove(at.index()); });
        connect(&station, &Station::moduleMoved, &stack, [&](Place from, Place to) {
            signalled.remove(from.index());
            signalled.insert(to.index());
        });

        // Chosen again before each edit:
        StoredModule source; // a module of the station
        QByteArray renamed;
        QByteArray readdressed;
        QVector<Place> removed;
        Place to; // a free or a taken place
        quint32 type = 0;
        QVector<Place> together;
        Place by;
        PasteResult pasted;
        enum Expected { IfFree, IfPossible, Always, IfAvailable, Either }; // when the edit is a step
        const auto unchanged = [] {};
        using Run = std::function<Result<>()>;
        const std::vector<std::tuple<const char *, Expected, Run, std::function<void()>>> table{
            {"add", IfFree, [&] { return edits.add(type, to); }, [&] { model[to.index()] = type; }},
            {"paste", Either,
             [&] {
                 pasted = edits.paste({source}, to, Station::Addresses::New);
                 return source.typeCode == 1 || to.rack == 127 ? Result<>() : pasted.result();
             },
             [&] { model[pasted.places.at(0).index()] = source.typeCode; }},
            {"cut and paste", Always,
             [&] {
                 stack.beginMacro("cut and paste");
                 edits.remove({source.place});
                 pasted = edits.paste({source}, to, Station::Addresses::Stored);
                 stack.endMacro();
                 return pasted.keptAddresses == 1 ? Result<>() : Failure{"the addresses are lost"};
             },
             [&] {
                 model.remove(source.place.index());
                 model[pasted.places.at(0).index()] = source.typeCode;
             }},
            {"move together", IfPossible, [&] { return edits.moveBy(together, by); },
             [&] {
                 const quint32 first = model.take(together.at(0).index());
                 const quint32 second = model.take(together.at(1).index());
                 model[shifted(together.at(0), by).index()] = first;
                 model[shifted(together.at(1), by).index()] = second;
             }},
            {"move", IfFree, [&] { return edits.move(source.place, to); },
             [&] { model[to.index()] = model.take(source.place.index()); }},
            {"remove", Always,
             [&] {
                 edits.remove(removed);
                 return Result<>();
             },
             [&] {
                 model.remove(removed.first().index());
                 model.remove(removed.last().index());
             }},
            {"rename", IfAvailable, [&] { return edits.replaceState(source.place, renamed); }, unchanged},
            {"set the address", Either, [&] { return edits.replaceState(source.place, readdressed); }, unchanged},
            {"set the controller", Either, [&] { return edits.setPlcType(1 + random.bounded(3U)); }, unchanged},
        };
        const auto snapshot = [&] { return textsOf(station.project()) + claims(owner); };
        std::vector<std::pair<QMap<int, quint32>, QStringList>> history{{model, snapshot()}};
        for (int step = 0; step < 120; ++step) {
            const int before = stack.index();
            to = Place::at(random.bounded(24) * 7);
            type = types[random.bounded(static_cast<quint32>(types.size()))];
            source = model.isEmpty() ? StoredModule() : station.stored(random.bounded(station.count()));
            renamed = withFields(source.state, {{"objName", "n"}});
            readdressed = withFields(source.state, {{"inMap.start", QByteArray(1, 0) + char(random.bounded(128) * 2)}});
            removed = {source.place};
            if (model.size() > 8 && model.firstKey() != source.place.index()) {
                removed.prepend(Place::at(model.firstKey()));
            }
            together = {source.place, Place::at(model.lastKey())};
            if (together.at(0) == together.at(1)) {
                together[1] = Place::at(model.firstKey());
            }
            by = {random.bounded(2), 7 * random.bounded(-1, 2)};
            by.rack += by == Place() ? 1 : 0;
            const auto canGo = [&](Place from) {
                const Place target = shifted(from, by);
                return target.isValid() && (!model.contains(target.index()) || together.contains(target));
            };
            const bool isPossible = canGo(together.at(0)) && canGo(together.at(1));
            const std::size_t edit = model.size() < 2 ? 0 : random.bounded(quint32(table.size()));
            const auto &[name, expected, run, updateModel] = table[edit];
            const Result<> result = run();
            const bool isStep = stack.index() != before;
            const bool shouldBeStep = expected == Always || (expected == IfFree && !model.contains(to.index())) ||
                                      (expected == IfPossible && isPossible) ||
                                      (expected == IfAvailable && source.typeCode != 1);
            QVERIFY2(expected == Either || (isStep == shouldBeStep && (result || !isStep)),
                     qPrintable(name + result.reason()));
            if (isStep) {
                updateModel();
                history.resize(static_cast<std::size_t>(before) + 1);
                history.emplace_back(model, snapshot());
            }
            if (random.bounded(4) == 0) {
                stack.setIndex(random.bounded(stack.count() + 1));
            }
            const auto &[expectedModel, expectedSnapshot] = history.at(static_cast<std::size_t>(stack.index()));
            model = expectedModel;
            QCOMPARE(snapshot(), expectedSnapshot);
            QMap<int, quint32> found;
            for (int i = 0; i < station.count(); ++i) {
                found[station.module(i).place.index()] = station.module(i).typeCode;
            }
            QCOMPARE(found, model);
            QCOMPARE(signalled, QSet<int>(found.keyBegin(), found.keyEnd()));
            QCOMPARE(claims(owner), rangesOf(station));
            QCOMPARE(simulatedhost::openSnapshots(owner), 0);
            if (step % 10 == 0) {
                QVERIFY(ProjectFile("random.station").write(station.project()));
                const auto opened = openStation(m_plugin, otherOwner, "random.station");
                QCOMPARE(textsOf((*opened)->project()) + claims(otherOwner), expectedSnapshot);
            }
        }
    }

    void failedEditsChangeNothing_data()
    {
        const Rows<QString, Edit> row("reason", "edit");
        row("add to a taken slot", "is taken by", [](Station &station) { return station.add(13655, Place()); });
        row("add outside the racks", "not exist", [](Station &station) { return station.add(13655, Place::at(4096)); });
        row("add an unknown type", "hw00000001.met", [](Station &station) { return station.add(1, Place::at(1)); });
        row("set an unknown controller", "no PLC type 9", [](Station &station) { return station.setPlcType(9); });
        row("set a small controller", "\"Digital Mixed 8 DI 8 DQ\" in rack 0, slot 0 uses Q 8192",
            [](Station &station) { return station.setPlcType(1); });
        row("paste a truncated state", "damaged",
            [](Station &station) { return station.paste(station.stored(0).state.left(30), Place::at(1)); });
    }
    /// The station has one module, whose outputs are at a high address.
    void failedEditsChangeNothing()
    {
        QFETCH(Edit, edit);
        QFETCH(QString, reason);
        const auto station = stationOf({13655});
        StoredModule module = station->take({0, 0});
        module.state = withFields(module.state, {{"outMap.start", QByteArray(1, 0x20)}});
        QVERIFY(station->put(module));
        const QStringList before = textsOf(station->project()) + claims(owner);
        const Result<> result = edit(*station);
        QVERIFY2(!result && result.reason().contains(reason), qPrintable(result.reason()));
        QCOMPARE(textsOf(station->project()) + claims(owner), before);
    }

    void pastesWhatFits_data()
    {
        // The modules of types are copied and pasted at a place of a station whose slots 0 to 3 are taken.
        using Types = QVector<quint32>;
        const Rows<Types, bool, Place, QString, QString, QString> row("types", "cut", "at", "places", "text", "reason");
        row("in their arrangement", {13650, 13651}, false, {1, 5}, "37 38",
            "2 of 2 module(s) pasted, with new addresses.", "");
        row("into free slots", {13650, 13651}, false, {0, 2}, "4 5", "2 of 2 module(s) pasted, with new addresses.",
            "");
        row("at the end", {13650, 13651, 13650}, false, {127, 30}, "4094 4095", "2 of 3 module(s) pasted",
            "1 module(s): No free slot follows.");
        row("into a full area", {13652, 13650, 13651}, false, {2, 0}, "65 66", "2 of 3 module(s) pasted",
            "1 module(s): The area I has no room for 4 more");
        row("cut", {13650, 13651}, true, {2, 0}, "64 65", "2 of 2 module(s) pasted, with their former addresses.", "");
        row("cut, with an address that is taken", {13650, 13652}, true, {2, 0}, "64 65",
            "2 of 2 module(s) pasted: 1 with former addresses, 1 with new", "");
    }
    void pastesWhatFits()
    {
        QFETCH(QVector<quint32>, types);
        QFETCH(bool, cut);
        QFETCH(Place, at);
        QFETCH(QString, reason);
        QFETCH(QString, text);
        simulatedhost::resetBase();
        auto station = stationOf({14848, 14848, 14848, 14848});
        std::vector<StoredModule> copied;
        for (const quint32 type : types) {
            const Place place = Place::at(10 + int(copied.size()));
            QVERIFY(station->add(type, place));
            copied.push_back(station->stored(*station->moduleAt(place)));
        }
        for (const StoredModule &module : copied) {
            static_cast<void>(cut ? station->take(module.place) : StoredModule());
        }
        if (reason.contains("area I")) { // leaves 3 bytes
            QVERIFY(station->setPlcType(1));
            const int size = simulatedhost::areaSize(owner, VarArea::DigitalInput);
            for (int i = 0; i < size - 7 - 3; ++i) { // the copied modules have 7 bytes
                QVERIFY(station->add(13650, Place::at(200 + i)));
            }
        }
        if (cut && types.last() == 13652) {
            QVERIFY(station->add(13650, {5, 5}));
        }
        QUndoStack stack;
        const QStringList before = textsOf(station->project()) + claims(owner);
        const PasteResult pasted =
            StationEdits(*station, stack).paste(copied, at, cut ? Station::Addresses::Stored : Station::Addresses::New);
        QStringList places;
        for (const Place place : pasted.places) {
            places += QString::number(place.index());
        }
        QVERIFY2(pasted.result().reason().left(reason.size()) == reason, qPrintable(pasted.result().reason()));
        QTEST(places.join(' '), "places");
        QVERIFY2(pasted.text().startsWith(text), qPrintable(pasted.text()));
        QCOMPARE(stack.count(), 1);
        stack.undo();
        QCOMPARE(textsOf(station->project()) + claims(owner), before);
    }

    void listsProblemsWithTheirPlaces()
    {
        Project project = stationOf({13656, 13656}, otherOwner)->project();
        project.modules[1] = unavailableModule({0, 1}, project.modules[0].state);
        const auto station = Station::opened(m_plugin, owner, project);
        QStringList found;
        for (const Problem &problem : problemsOf(**station)) {
            found += whereText(problem) + ": " + problem.text;
        }
        QCOMPARE(found.size(), 3);
        QVERIFY2(found.at(0).startsWith("Rack 0, slot 1: \"absent\" is not available"), qPrintable(found.at(0)));
        QVERIFY2(found.at(1).contains("I 0..1 is not reserved, because it overlaps"), qPrintable(found.at(1)));

        QCOMPARE(ignoredDescriptions(m_plugin).size(), std::size_t{0});
        CatalogFolder catalog;
        catalog.writeModule(13650, 8);
        catalog.writeModule(13651, 16, "ServerFile=absent.cmp\n");
        catalog.writeDescription(13652, "[MODULE START]\nObjName=Unended\n");
        catalog.writeFile("6/hw3556.met", "");
        found.clear();
        for (const Problem &problem : ignoredDescriptions(m_plugin)) {
            found += whereText(problem) + ": " + problem.text;
        }
        const QString all = found.join('\n');
        QVERIFY2(!all.contains("hw00003552"), qPrintable(all));
        for (const char *expected :
             {"hw00003553.met, line 6: ", "absent.cmp", "hw00003554.met, line 1: no [END]", "hw3556.met, line 1: "}) {
            QVERIFY2(all.contains(expected), qPrintable(all));
        }
    }

    void moduleWithoutRoomForOutputsFreesItsInputs()
    {
        Station station(m_plugin, owner);
        for (int i = 0; i < simulatedhost::areaSize(owner, VarArea::DigitalOutput); ++i) {
            QVERIFY(station.add(13653, Place::at(i)));
        }
        const QStringList held = claims(owner);
        QVERIFY(station.add(13655, *station.freePlace({})).reason().contains("area Q"));
        QCOMPARE(claims(owner), held);
    }

    void keepsUnavailableModules_data()
    {
        // The state of the module in slot 1, and how many of its two ranges cannot be reserved for it.
        const Rows<QByteArray, QString, int> row("state", "reason", "unreserved");
        const auto station = stationOf({13656, 13656});
        const QByteArray good = station->stored(1).state;
        const QByteArray first = station->stored(0).state;
        row("truncated in its header", good.left(40), "damaged", 0);
        row("type that the catalog lacks", withFields(good, {{"objId", {"\0\0\0\1", 4}}}), "hw00000001.met", 0);
        row("state of another place", first, "rack 0, slot 0", 2);
        row("address of another module", withFields(good, {{"outMap.start", {"\0\0", 2}}}),
            "Q 0..1 overlaps the addresses of \"", 1);
        row("overlapping address", withFields(good, {{"outMap.start", {"\0\1", 2}}}), "in rack 0, slot 0. Change", 1);
        row("address outside its area", withFields(good, {{"inMap.start", "\xff\xff"}}), "lies outside the area I", 1);
        row("range with another length", withFields(good, {{"inMap.area", {"\x81\0\4\1", 4}}}), "lengths", 1);
    }
    void keepsUnavailableModules()
    {
        QFETCH(QByteArray, state);
        QFETCH(QString, reason);
        Project project = stationOf({13656, 13656, 13656}, otherOwner)->project();
        project.modules[1].state = state;
        auto opened = Station::opened(m_plugin, owner, project);
        QVERIFY2(opened, qPrintable(opened.reason()));
        Station *station = opened->get();
        QCOMPARE(station->unavailableCount(), 1);
        QVERIFY2(station->module(1).unavailable.contains(reason), qPrintable(station->module(1).unavailable));
        QTEST(int(station->memory().unreserved().size()), "unreserved");
        QCOMPARE(claims(owner), rangesOf(*station)); // an edit cannot take them
        QUndoStack stack;
        StationEdits edits(*station, stack);
        QVERIFY(edits.add(13656, {5, 5}));
        QVERIFY(edits.move({0, 1}, {9, 9}));
        edits.remove({{9, 9}, {5, 5}});
        edits.remove({{0, 0}, {0, 2}});
        QCOMPARE(claims(owner), QStringList());
        stack.setIndex(0);
        QVERIFY(!station->module(1).unavailable.isEmpty());
        QCOMPARE(textsOf(station->project()), textsOf(project));
        QCOMPARE(claims(owner), rangesOf(*station));
        stack.clear();
        opened->reset();
        QCOMPARE(claims(owner), QStringList());
    }

    void reportsWhatTheCatalogLacks_data()
    {
        const Rows<QByteArray, QString> row("lines", "reason");
        row("missing component file", "ServerFile=absent.cmp\n", "component file absent.cmp");
        row("digits after percent signs", "ServerFile=%2%3\n", "component file %2%3 of \"Module\" (type 13656)");
        row("no ServerFile", "ServerFile=\n", "component file");
        row("entry for a newer host", "NeedHwCnfgVersion=9999\n", "newer host");
    }
    void reportsWhatTheCatalogLacks()
    {
        QFETCH(QByteArray, lines);
        QFETCH(QString, reason);
        const Project project = stationOf({13656})->project();
        CatalogFolder catalog;
        catalog.writeModule(13656, 0x00001010, lines);
        QVERIFY(Station(m_plugin, otherOwner).add(13656, {}).reason().contains(reason));
        const auto opened = Station::opened(m_plugin, owner, project);
        QVERIFY2((*opened)->module(0).unavailable.contains(reason), qPrintable((*opened)->module(0).unavailable));
    }

    void decompilingRestoresTwoThousandModules()
    {
        const auto station = stationOf(allTypes(2000));
        const auto rebuilt = decompiled(m_plugin, otherOwner, *station->compiled());
        QCOMPARE(rebuilt.problems.size(), std::size_t{0});
        station->fitPlcType();
        QCOMPARE(textsOf(rebuilt.station->project()), textsOf(station->project()));
        QCOMPARE(claims(otherOwner), claims(owner));
    }

    void cancelledOperationsLeaveNothing()
    {
        const auto station = stationOf(allTypes());
        const Progress progress = [](int done, int /*total*/) { return done < 7; };
        QVERIFY(!Station::opened(m_plugin, otherOwner, station->project(), progress));
        QVERIFY(!decompiled(m_plugin, otherOwner, *station->compiled(), progress).station);
        QVERIFY(!station->compiled(progress));
        QCOMPARE(claims(otherOwner), QStringList());
    }

    void reportsDamagedBlocks()
    {
        const auto station = stationOf({13650, 13651, 13652});
        QByteArray first = *stationOf({13650}, otherOwner)->compiled();
        QByteArray unknown = first;
        unknown.replace(9, 4, QByteArray("\0\0\0\1", 4));
        const QByteArray bytes = first + unknown + first + station->compiled()->mid(first.size()).chopped(5);
        const auto [rebuilt, problems] = decompiled(m_plugin, otherOwner, bytes);
        QCOMPARE(problems.size(), std::size_t{3});
        QCOMPARE(problems[0].code, 129);
        QCOMPARE(problems[0].offset, first.size());
        QVERIFY(problems[1].error.contains("is taken by"));
        QVERIFY(!problems[2].unread.isEmpty());
        QCOMPARE(rebuilt->count(), 3);
    }

    void runsBatchTasks_data()
    {
        const Rows<QStringList, int, QString> row("arguments", "status", "output"); // the project has 40 modules
        row("list", {"batch.station", "--list"}, NoFindings, "^(.*\n){19}rack 0, slot 19: 13395, (.*\n){21}40 modules");
        row("verify", {"batch.station", "--verify"}, NoFindings, "40 modules, 0 findings\n$");
        row("compile", {"batch.station", "--compile", "x.blk"}, NoFindings, "^40 of 40 modules compiled\n$");
        row("compile an unavailable module", {"part.station", "--compile", "x.blk"}, Findings,
            "^rack 0, slot 1: \"absent\" left out: .*hw00000001.met.*\n1 of 2 modules compiled\n$");
        row("decompile", {"x.station", "--decompile", "batch.blk"}, NoFindings, "40 modules");
        row("create over a file", {"--new", "batch.station", "--modules", "40"}, UsageOrUnreadable,
            "^batch.station: The file already exists\\.\n$");
        row("create too many modules", {"--new", "x.station", "--modules", "5000"}, Findings, "does not fit");
        row("decompile a file of another kind", {"x.station", "--decompile", "batch.station"}, Findings, "No project");
        row("decompile an endless device", {"x.station", "--decompile", "/dev/zero"}, UsageOrUnreadable, "larger than");
        row("list without a project", {"none.station", "--list"}, UsageOrUnreadable, "^none.station: ");
        row("two tasks", {"batch.station", "--list", "--verify"}, UsageOrUnreadable, "^--batch needs");
    }
    void runsBatchTasks()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, output);
        QFile::remove("x.station");
        QCOMPARE(int{batch(arguments)}, status);
        QVERIFY2(m_output.contains(QRegularExpression(output)), qPrintable(m_output));
        QCOMPARE(QFile::exists("x.station"), arguments.first() == "x.station" && status == NoFindings);
    }

    void reportsAMissingExport()
    {
        const QDir libraries = QFileInfo(SIMPLEEXTEND_LIBRARY_PATH).dir();
        PluginLibrary library;
        for (const auto &[file, reason] : {std::pair("libhelpsharemodule.so", "does not export createObject."),
                                           std::pair("nothing.so", "nothing.so")}) {
            const Result<> loaded = library.load(libraries.filePath(file));
            QVERIFY2(!loaded && loaded.reason().contains(reason), qPrintable(loaded.reason()));
        }
    }
};

QTEST_GUILESS_MAIN(TestStation)
#include "tst_station.moc"
