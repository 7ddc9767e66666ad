// The workbench's station with the built plug-in: addresses, unavailable modules, problems, blocks, batch tasks.
#include "batch.h"
#include "catalogfolder.h"
#include "imagerangetext.h"
#include "problems.h"
#include "projectfile.h"
#include "projecttexts.h"
#include "rows.h"
#include "samplestations.h"
#include "stationblocks.h"
#include "stationcommands.h"

#include <QUndoStack>

#include <sys/stat.h>

class TestStation : public QObject, private SampleStations {
    Q_OBJECT

    QString m_output; // of the latest batch task

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
        loadPlugin();
        QCOMPARE(batch({"--new", "batch.station", "--modules", "40"}), NoFindings);
        QCOMPARE(batch({"--new", "fewer.station", "--modules", "39"}), NoFindings);
        QCOMPARE(batch({"batch.station", "--compile", "batch.blk"}), NoFindings);
        Project part = stationOf({13655})->project();
        part.modules.push_back(unavailableModule({0, 1}, part.modules[0].state));
        QVERIFY(ProjectFile("part.station").write(part));
        QCOMPARE(mkfifo("pipe", S_IRUSR | S_IWUSR), 0);
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
        auto station = stationOf({fetched<quint32>("type")});
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
             {"hw00003553.met, line 6: ", "absent.cmp", "hw00003554.met, line 1: No [END]", "hw3556.met, line 1: "}) {
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
        QFETCH(QString, reason);
        const Project project = stationOf({13656})->project();
        CatalogFolder catalog;
        catalog.writeModule(13656, 0x00001010, fetched<QByteArray>("lines"));
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
        QVERIFY(problems[2].unread.contains("end of this block") && !problems[2].unread.contains("damaged"));
        QCOMPARE(rebuilt->count(), 3);
    }

    void runsBatchTasks_data()
    {
        // The project has 40 modules. The last column is the file x.* that is written, with its first bytes.
        const Rows<QStringList, int, QString, QByteArray> rows("arguments", "status", "output", "written");
        const auto row = [&rows](const char *name, const char *arguments, int status, const char *output,
                                 const char *written = "") {
            rows(name, QString(arguments).split(' '), status, output, written);
        };
        row("list", "batch.station --list", NoFindings, "^(.*\n){19}rack 0, slot 19: 13395, (.*\n){21}40 modules");
        row("verify", "batch.station --verify", NoFindings, "40 modules, 0 findings\n$");
        row("compile", "batch.station --compile x.blk", NoFindings, "^40 of 40 modules compiled\n$", "x.blk:");
        row("compile an unavailable module", "part.station --compile x.blk", Findings,
            "^rack 0, slot 1: \"absent\" left out: .*hw00000001.met.*\n1 of 2 modules compiled\n$", "x.blk:");
        row("decompile", "x.station --decompile batch.blk", NoFindings, "40 modules", "x.station:SQLite");
        row("create over a file", "--new batch.station --modules 40", UsageOrUnreadable,
            "^batch.station: The file already exists\\.\n$");
        row("create too many modules", "--new x.station --modules 5000", Findings, "does not fit");
        row("decompile a file of another kind", "x.station --decompile batch.station", Findings, "No project");
        row("decompile an endless device", "x.station --decompile /dev/zero", UsageOrUnreadable, "larger than");
        row("list without a project", "none.station --list", UsageOrUnreadable, "^none.station: ");
        row("list a pipe", "pipe --list", UsageOrUnreadable, "^pipe: This is not a station file");
        row("compile over a project", "batch.station --compile batch.station", UsageOrUnreadable,
            "^batch.station: The file is a project");
        row("two tasks", "batch.station --list --verify", UsageOrUnreadable, "^--batch needs");

        row("compare", "batch.station --compare batch.station", NoFindings, "^$");
        row("compare with another", "fewer.station --compare batch.station", Findings,
            "^rack 1, slot 7: \".*\" \\(type 13396\\) is only in batch\\.station\n$");
        row("compare with no file", "batch.station --compare none", UsageOrUnreadable, "^none: ");
        row("compare with another kind", "batch.station --compare batch.blk", UsageOrUnreadable, "^batch.blk: ");
        row("compare no file", "none --compare batch.station", UsageOrUnreadable, "^none: ");
        const char *const complete = "^40 modules, 0 findings\n$";
        row("HTML report", "batch.station --report x.html", NoFindings, complete, "x.html:<!DOCTYPE html>");
        row("PDF report", "batch.station --report x.pdf", NoFindings, complete, "x.pdf:%PDF-");
        row("CSV report", "batch.station --report x.csv", NoFindings, complete, "x.csv:Rack,Slot,Module,");
        row("JSON report", "batch.station --report x.JSON", NoFindings, complete, "x.JSON:{\n");
        row("unknown report", "batch.station --report x.doc", UsageOrUnreadable, "^x\\.doc: The name of a report");
        row("report without a project", "none --report x.csv", UsageOrUnreadable, "^none: ");
    }
    void runsBatchTasks()
    {
        QFETCH(QByteArray, written);
        QCOMPARE(int{batch(fetched<QStringList>("arguments"))}, fetched<int>("status"));
        QVERIFY2(m_output.contains(QRegularExpression(fetched<QString>("output"))), qPrintable(m_output));
        QByteArray found;
        for (const QString &file : QDir().entryList({"x.*"})) {
            found += file.toUtf8() + ':' + contentOf(file);
            QVERIFY(QFile::remove(file));
        }
        QCOMPARE(found.left(qMax(1, written.size())), written);
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

QTEST_MAIN(TestStation)
#include "tst_station.moc"
