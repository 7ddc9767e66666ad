// What the workbench answers about a station: channels, search, differences, reports; and the edits on many modules.
#include "channeladdress.h"
#include "channellist.h"
#include "fastfolder.h"
#include "projectcompare.h"
#include "projecttexts.h"
#include "reportfile.h"
#include "rows.h"
#include "samplestations.h"
#include "stationcommands.h"
#include "stationsearch.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPdfWriter>
#include <QUndoStack>

using Bytes = QMap<QString, int>; // fields and their last bytes
Q_DECLARE_METATYPE(Bytes)
Q_DECLARE_METATYPE(IoMap)

class TestStationViews : public QObject, private SampleStations {
    Q_OBJECT

    QUndoStack m_stack;

    /// Changes bytes of the module at a place.
    static void change(Station &station, Place place, const Bytes &bytes)
    {
        QByteArray state = station.stored(*station.moduleAt(place)).state;
        for (auto each = bytes.begin(); each != bytes.end(); ++each) {
            const blockdecoder::DecodedBlock decoded = blockdecoder::decodeSavedState(state);
            const blockdecoder::Field *field = decoded.find(each.key());
            QVERIFY2(field != nullptr, qPrintable(each.key()));
            const int last = field->offset + field->raw.size() - 1;
            state[last] = static_cast<char>(each.value());
        }
        StoredModule module = station.take(place);
        module.state = state;
        QVERIFY2(station.put(module), qPrintable(station.module(*station.moduleAt(place)).unavailable));
    }

private slots:
    void initTestCase() { loadPlugin(); }
    void init()
    {
        m_stack.clear();
        simulatedhost::resetBase();
    }

    void addresses_data()
    {
        const Rows<QString, IoMap, int, QString> row("typed", "range", "channel", "address"); // -1: not in the range
        const IoMap words{6, 40, 8, 0, 2};
        const IoMap inputs{129, 35, 12, 0, 0};
        row("a word", "AIW42", words, 1, "AIW42");
        row("a word in small letters with a space", " ai 42 ", words, 1, "AIW42");
        row("the second byte of a word", "AIB43", words, 1, "AIW42");
        row("a double word that begins before the range", "AID38", words, 0, "AIW40");
        row("beyond the last word", "AIW56", words, -1, {});
        row("the same address of another area", "AQW42", words, -1, {});
        row("a bit", "I 35.2", inputs, 2, "I35.2");
        row("a bit of the second byte", "i36.3", inputs, 11, "I36.3");
        row("an unused bit of the last byte", "I36.4", inputs, -1, {});
        row("a byte", "IB36", inputs, 8, "I36.0");
        row("a double word of variables", "VD104", {132, 100, 2, 0, 4}, 1, "VD104");
        row("bit 8", "I35.8", inputs, -1, {});
        row("a bit of a word", "IW35.1", inputs, -1, {});
        row("a name", "AIR", inputs, -1, {});
        row("a number", "35", inputs, -1, {});
    }
    void addresses()
    {
        QFETCH(IoMap, range);
        const std::optional<Address> parsed = parseAddress(fetched<QString>("typed"));
        const std::optional<int> channel = parsed ? channelAt(range, *parsed) : std::nullopt;
        QTEST(channel.value_or(-1), "channel");
        QCOMPARE(channel ? channelAddress(range, *channel) : QString(), fetched<QString>("address"));
    }

    void channels_data()
    {
        // The row of one channel of the second module of a type, after a change: "!" marks changed settings.
        const Rows<quint32, Bytes, int, QString> row("type", "changes", "row", "text");
        row("voltage input", 13395, {{"analogInput[1].inputRange", 3}, {"analogInput[1].deadband", 32}}, 1,
            "in 1 AIW10 4~20mA: Filter on, Samples 64, Deadband !288, Channel Enable, Filter time 20ms, Range !4~20mA, "
            "Open wire Invalid, Direction Upscale");
        row("its unchanged neighbour", 13395, {{"analogInput[1].inputRange", 3}}, 0,
            "in 0 AIW8 0~10V: Filter on, Samples 64, Deadband 320, Channel Enable, Filter time 20ms, Range 0~10V, Open "
            "wire Invalid, Direction Upscale");
        row("thermocouple", 13396, {{"analogInput[0].samples", 9}}, 0,
            "in 0 AIW8 Thermocouple K: Filter on, Samples !(9), Deadband 320, Channel Enable, Filter time 500ms, Range "
            "K, Cold junction Enable, Direction Upscale, Open wire Enable, Temperature scale Degrees Celsius");
        row("output of a mixed module", 13401, {{"analogOutput[1].stopValue", 7}}, 5,
            "out 1 AQW6 +/-10v: Freeze in STOP on, Value in STOP !7, Channel Enable, Range +/-10v");
        row("digital input", 13652, {{"digitalInput.diFilter[6]", 0x53}}, 25,
            "in 25 I7.1 Digital input: Input filter !1.60ms");
        row("digital output", 13654, {{"digitalOutput.dqOutTbl[1]", 0x40}}, 9,
            "out 9 Q3.1 Digital output: In STOP !ON");
        row("its neighbour", 13654, {{"digitalOutput.dqOutTbl[1]", 0x40}}, 8, "out 8 Q3.0 Digital output: In STOP OFF");
        row("outputs that freeze", 13654, {{"digitalOutput.dqMode", 1}}, 0,
            "out 0 Q2.0 Digital output: In STOP !last state");
        row("weighing", 14418, {{"weighing[0].filterDepth", 20}}, 0,
            "in 0 VD4 Weighing: Channel Enable, Sensitivity 2, Limit frequency 10Hz, Filter depth !20, Sub max 0, Sub "
            "min 0, Filter mode Default, Sample frequency 50Hz, Boot clear 0");
    }
    void channels()
    {
        QFETCH(quint32, type);
        QFETCH(int, row);
        const auto station = stationOf({14848, type, type});
        change(*station, {0, 2}, fetched<Bytes>("changes"));
        const ChannelList list(*station);
        const auto [first, count] = list.rowsOf({0, 2});
        QCOMPARE(first + count, list.count());
        QCOMPARE(list.rowsOf({0, 0}).second, 0);
        const ChannelRow channel = list.at(first + row);
        const ChannelParameters &parameters = list.parameters(first + row);
        QStringList settings;
        for (const ChannelSetting &setting : parameters.settings) {
            settings += setting.title + (setting.isChanged ? " !" : " ") + setting.text;
        }
        QTEST(QString("%1 %2 %3 %4: %5")
                  .arg(channel.isOutput ? "out" : "in", QString::number(channel.channel), channel.address(),
                       parameters.signal, settings.join(", ")),
              "text");
        QCOMPARE(parameters.isChanged(), settings.join(QString()).contains('!'));
    }

    void channelListFollowsTheStation()
    {
        const auto station = stationOf({13395, 14848, 13650});
        ChannelList list(*station);
        QCOMPARE(list.count(), 12);
        QVERIFY(station->add(13399, {0, 20}));
        QVERIFY(list.rowsToInsert({0, 20}) == std::pair(12, 2));
        list.insert({0, 20});
        StoredModule taken = station->take({0, 0});
        list.remove({0, 0});
        taken.unavailable = "its file is missing";
        station->put(taken);
        QVERIFY(list.rowsToInsert({0, 0}).second == 0); // its channels are not known
        QCOMPARE(searchStation(*station, {}, "AIW2", 1).hits.at(0).detail, QString("AI 0..7"));
        list.insert({0, 0});
        const ChannelList anew(*station);
        QCOMPARE(list.count(), anew.count());
        for (int row = 0; row < list.count(); ++row) {
            QCOMPARE(list.at(row).address(), anew.at(row).address());
            QCOMPARE(list.parameters(row).text(), anew.parameters(row).text());
        }
    }

    void search_data()
    {
        const Rows<QString, QStringList> row("query", "hits");
        row("part of a name", "mixed", {"0/2 SX-AM06-UI  AI 8..15, AQ 0..3"});
        row("words of order number and name", "sx digital 32", {"0/1 SX-DI32-DC  I 0..3"});
        row("type code", "13395", {"0/0 SX-AI04-UI  AI 0..7"});
        row("address of a word", "AIW10", {"0/2 AIW10, channel 1"});
        row("address of a bit", "I 3.7", {"0/1 I3.7, channel 31"});
        row("order number that looks like an address", "AI04", {"0/0 AIW4, channel 2", "0/3 SX-AI04-TC  AI 16..23"});
        row("free address", "I 4.0", {});
        row("several hits up to the limit", "analog", {"0/0 SX-AI04-UI  AI 0..7", "0/2 SX-AM06-UI  AI 8..15, AQ 0..3"});
        row("nothing", "  ", {});
    }
    void search()
    {
        QFETCH(QString, query);
        const auto station = stationOf({13395, 13652, 13401, 13396});
        const SearchResult result = searchStation(*station, readCatalog(), query, 2);
        QStringList hits;
        for (const SearchHit &hit : result.hits) {
            hits += QString("%1/%2 %3").arg(hit.place.rack).arg(hit.place.slot).arg(hit.detail);
        }
        QTEST(hits, "hits");
        QCOMPARE(result.total, query == "analog" ? 3 : hits.size());
    }

    void differences()
    {
        const auto left = stationOf({13395, 13650, 13396, 13653, 13399});
        const auto right = stationOf({13395, 13650, 13396, 13653}, "other");
        const Project same = right->project();
        QCOMPARE(compareProjects(same, same).size(), 0);
        change(*right, {0, 0}, {{"analogInput[2].inputRange", 3}});
        QVERIFY(right->move({0, 1}, {5, 6}) && right->add(13654, {0, 1})); // another type in the place
        QVERIFY(right->setPlcType(1));
        right->setProperties({"A\nB", {}, {}, {}});
        QStringList lines;
        for (const ProjectDifference &difference : compareProjects(left->project(), right->project())) {
            lines += differenceLine(difference, "A", "B");
        }
        QVERIFY(lines.takeFirst().startsWith("project: plcType: "));
        QCOMPARE(
            lines,
            QStringList({"project: title: \"\" -> \"A\\u000aB\"",
                         R"(rack 0, slot 0: "Analog Input 4 x U/I" analogInput[2].inputRange: 0 (0~10V) -> 3 (4~20mA))",
                         "rack 0, slot 1: \"Digital Input 8 x 24 V\" header.rackId: 0 -> 5",
                         "rack 0, slot 1: \"Digital Input 8 x 24 V\" header.slotId: 1 -> 6",
                         "rack 0, slot 4: \"Analog Output 2 x U/I\" (type 13399) is only in A",
                         "rack 0, slot 1: \"Digital Output 16 Relay\" (type 13654) is only in B"}));
    }

    void pastesParameters()
    {
        const auto station = stationOf({13395, 13395, 13396, 13395, 13395});
        StationEdits edits(*station, m_stack);
        const QByteArray factory = station->stored(0).state;
        change(*station, {0, 0}, {{"analogInput[2].inputRange", 3}});
        change(*station, {0, 1}, {{"header.objName", 'X'}, {"analogInput[1].samples", 2}});
        const QStringList before = textsOf(station->project());
        const auto pasted = edits.pasteParameters({station->stored(0).state}, {{0, 0}, {0, 1}, {0, 2}, {0, 4}});
        QVERIFY2(pasted, qPrintable(pasted.reason()));
        QCOMPARE(pasted->changed, 2);
        QCOMPARE(pasted->same, 1);
        QCOMPARE(pasted->otherType, 1);
        QCOMPARE(m_stack.count(), 1);
        const auto *const name = "analogInput[2].inputRange";
        QCOMPARE(blockdecoder::decodeSavedState(station->stored(1).state).find(name)->value.toInt(), 3);
        QVERIFY(station->module(1).name.endsWith('X'));
        QCOMPARE(station->module(4).in.start, quint16{32});
        QStringList after = textsOf(station->project());
        QCOMPARE(after.at(4), before.at(4)); // not selected
        m_stack.undo();
        QCOMPARE(textsOf(station->project()), before);
        m_stack.redo();
        QCOMPARE(textsOf(station->project()), after);
        QCOMPARE(edits.pasteParameters({"damaged", factory.left(7)}, {{0, 1}})->otherType, 1);
        QCOMPARE(m_stack.count(), 1);
    }

    void properties()
    {
        const auto station = stationOf({});
        StationEdits edits(*station, m_stack);
        edits.setProperties({});
        QCOMPARE(m_stack.count(), 0);
        edits.setProperties({"Title", "Author", "1", "Notes"});
        m_stack.undo();
        QVERIFY(station->properties() == ProjectProperties());
        m_stack.redo();
        QCOMPARE(station->project().properties.author, QString("Author"));
    }

    void reports()
    {
        const auto station = stationOf({13401, 13652, 14848});
        change(*station, {0, 0}, {{"analogInput[1].inputRange", 2}});
        station->setProperties({"Plant <1>", "Me", "7", "First\nSecond"});
        QVERIFY(station->move({0, 1}, {2, 3}) && station->setPlcType(2));
        const QString html = stationHtml(*station, readCatalog(), {"plant.station", {}});
        for (const char *text :
             {"<h1>Plant &lt;1&gt;</h1>", "First<br>Second", "plant.station", "<h3>Rack 2</h3>",
              "<b>Digital Input 32 x 24 V</b><br>SX-DI32-DC<br>I 0..3", "AI, Analog inputs: 8 of 2048", "AI 8..2047",
              "Range: <b>0~20mA *</b>", "Rack 0, slot 2: "}) {
            QVERIFY2(html.contains(text), text);
        }
        QCOMPARE(html.count("*</b>"), 1);

        const QStringList csv = QString(stationCsv(*station)).split('\n');
        QCOMPARE(csv.size(), 1 + 6 + 32 + 1);
        QVERIFY(csv.at(2).startsWith("0,0,Analog Mixed 4 AI 2 AQ,13401,1,AIW2,0~20mA,\"Filter: on, "));
        QVERIFY2(csv.at(2).endsWith(",Range: 0~20mA instead of 0~10V"), qPrintable(csv.at(2)));
        QCOMPARE(csv.last(), QString());
        QCOMPARE(csvLine({"a\"b", "c;d", "e\nf", "g"}), QString("\"a\"\"b\",\"c;d\",\"e\nf\",g\n"));
        ChannelRow named;
        for (const char *name : {"=1+1", "+1", "-1", "@a"}) {
            named.module = name;
            QCOMPARE(csvCells(named, {}).at(2), QString("'") + name);
        }

        const QJsonObject json = QJsonDocument::fromJson(stationJson(*station)).object();
        QCOMPARE(json.value("title").toString(), QString("Plant <1>"));
        QStringList names;
        const QByteArray state = station->stored(0).state;
        for (const blockdecoder::Part &part : blockdecoder::decodeSavedState(state).parts) {
            for (const blockdecoder::Field &field : part.fields) {
                names += field.name;
            }
        }
        QStringList written;
        for (const QJsonValue field : json.value("modules").toArray().at(0).toObject().value("fields").toArray()) {
            written += field.toObject().value("name").toString();
        }
        QCOMPARE(written, names);
        QCOMPARE(stationJson(**Station::opened(m_plugin, "again", station->project())), stationJson(*station));
    }

    void printsPages_data()
    {
        const Rows<int, int, int> rows("first", "last", "pages");
        rows("all", 1, 99, 3);
        rows("one", 2, 2, 1);
        rows("from the second", 2, 99, 2);
    }
    void printsPages()
    {
        QBuffer pdf;
        QVERIFY(pdf.open(QIODevice::WriteOnly));
        QPdfWriter writer(&pdf);
        QPageLayout layout = reportLayout();
        layout.setOrientation(QPageLayout::Landscape);
        writer.setPageLayout(layout);
        QVERIFY(printReport({"a", "b", "c"}, writer, {}, {fetched<int>("first"), fetched<int>("last")}));
        QCOMPARE(pdf.data().count("/Type /Page\n"), fetched<int>("pages"));

        const auto station = stationOf({13401});
        QVERIFY(writeReport("landscape.pdf", *station, readCatalog(), {"plant.station", {}}, {}, layout));
        QVERIFY(contentOf("landscape.pdf").contains("/MediaBox [0 0 842"));
        QVERIFY(QFile::remove("landscape.pdf"));
    }

    /// 4,000 modules: all channels in 300 ms, a search in a frame of 16 ms. The limits leave room for a busy machine.
    void isFastEnough()
    {
        const auto station = stationOf(allTypes(4000));
        QElapsedTimer timer;
        timer.start();
        const ChannelList list(*station);
        int changed = 0;
        for (int row = 0; row < list.count(); ++row) {
            changed += list.parameters(row).isChanged() ? 1 : 0;
        }
        const qint64 channelTime = timer.restart();
        const SearchResult found = searchStation(*station, readCatalog(), "digital no such", 100);
        const qint64 searchTime = timer.elapsed();
        qInfo("%d channels in %lld ms, search in %lld ms", list.count(), channelTime, searchTime);
        QCOMPARE(changed + found.total, 0);
        QVERIFY(channelTime < 1500 && searchTime < 160);
    }
};

QTEST_MAIN(TestStationViews)
#include "tst_stationviews.moc"
