// Undoable edits of a station: random ones compared with a plain model, failures, moving and pasting.
#include "projectfile.h"
#include "projecttexts.h"
#include "rows.h"
#include "samplestations.h"
#include "stationcommands.h"

#include <QUndoStack>

using Edit = std::function<Result<>(Station &station)>;
Q_DECLARE_METATYPE(Edit)

namespace {

Place shifted(Place place, Place by)
{
    return {place.rack + by.rack, place.slot + by.slot};
}

} // namespace

class TestStationEdits : public QObject, private SampleStations {
    Q_OBJECT

private slots:
    void initTestCase() { loadPlugin(); }
    void init() { simulatedhost::resetBase(); }

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
        QRandomGenerator random(fetched<quint32>("seed"));
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
        StoredModule edited; // the same with another name, and other addresses if it has inputs
        QVector<Place> removed;
        Place to; // a free or a taken place
        quint32 type = 0;
        QVector<Place> together;
        Place by;
        PasteResult pasted;
        const auto cutAndPaste = [&](const StoredModule &module, Place at) {
            stack.beginMacro("cut and paste");
            edits.remove({source.place});
            pasted = edits.paste({module}, at, Station::Addresses::Stored);
            stack.endMacro();
        };
        enum Expected { IfFree, IfPossible, Always, Either }; // when the edit is a step
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
                 cutAndPaste(source, to);
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
            {"set the address", Always,
             [&] {
                 cutAndPaste(edited, source.place);
                 return Result<>();
             },
             [&] {
                 if (pasted.places.isEmpty()) {
                     model.remove(source.place.index());
                 }
             }},
            {"set the controller", Either, [&] { return edits.setPlcType(1 + random.bounded(3U)); }, [] {}},
        };
        const auto snapshot = [&] { return textsOf(station.project()) + claims(owner); };
        std::vector<std::pair<QMap<int, quint32>, QStringList>> history{{model, snapshot()}};
        for (int step = 0; step < 120; ++step) {
            const int before = stack.index();
            to = Place::at(random.bounded(24) * 7);
            type = types[random.bounded(static_cast<quint32>(types.size()))];
            source = model.isEmpty() ? StoredModule() : station.stored(random.bounded(station.count()));
            edited = source;
            const QByteArray start = QByteArray(1, 0) + char(random.bounded(128) * 2);
            edited.state = withFields(source.state, {{"objName", "n"}, {"inMap.start", start}});
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
                                      (expected == IfPossible && isPossible);
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
        QFETCH(QString, reason);
        const auto station = stationOf({13655});
        StoredModule module = station->take({0, 0});
        module.state = withFields(module.state, {{"outMap.start", QByteArray(1, 0x20)}});
        QVERIFY(station->put(module));
        const QStringList before = textsOf(station->project()) + claims(owner);
        const Result<> result = fetched<Edit>("edit")(*station);
        QVERIFY2(!result && result.reason().contains(reason), qPrintable(result.reason()));
        QCOMPARE(textsOf(station->project()) + claims(owner), before);
    }

    void pastesWhatFits_data()
    {
        // The modules of types are copied and pasted at a place of a station whose slots 0 to 3 are taken.
        using Types = QVector<quint32>;
        const Rows<Types, bool, Place, QString, QString, QString> row("types", "cut", "at", "places", "text", "reason");
        const QString fresh = "2 of 2 module(s) pasted, with new addresses.";
        row("in their arrangement", {13650, 13651}, false, {1, 5}, "37 38", fresh, "");
        row("into free slots", {13650, 13651}, false, {0, 2}, "4 5", fresh, "");
        row("at the end", {13650, 13651, 13650}, false, {127, 30}, "4094 4095", "2 of 3 module(s) pasted",
            "1 module(s): No free slot follows.");
        row("into a full area", {13652, 13650, 13651}, false, {2, 0}, "65 66", "2 of 3 module(s) pasted",
            "1 module(s): The area I has no room for 4 more");
        row("cut", {13650, 13651}, true, {2, 0}, "64 65", "2 of 2 module(s) pasted, with the former addresses.", "");
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
};

QTEST_GUILESS_MAIN(TestStationEdits)
#include "tst_stationedits.moc"
