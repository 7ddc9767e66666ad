// The host checker: the simulated host keeps every promise, and each broken promise is found and named.
#include "rows.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <set>

namespace {

using Names = std::set<QString>;

struct Result {
    int status;
    QString output;
    QString complaint;
};

/// Runs the program. @p change is that of a broken host.
Result run(const QStringList &arguments, const QString &change = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("BROKEN_PROMISE", change);
    process.setProcessEnvironment(environment);
    process.start(HOSTCHECK_PROGRAM, arguments);
    const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

/// A pair of host libraries: links to these files, basemodule first.
class HostFolder {
public:
    explicit HostFolder(const QStringList &files)
    {
        const QStringList names{"libbasemodule.so", "libhelpsharemodule.so"};
        for (int i = 0; i < files.size(); ++i) {
            QFile::link(files.at(i), m_folder.filePath(names.at(i)));
        }
    }
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

/// Returns the matches of the pattern's first group.
Names matches(const QString &pattern, const QString &text)
{
    Names found;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (auto match = expression.globalMatch(text); match.hasNext();) {
        found.insert(match.next().captured(1));
    }
    return found;
}

/// Returns the promises whose line continues with the pattern.
Names namesIn(const QString &output, const QString &result)
{
    return matches("^([a-z-]+) +" + result, output);
}

/// Returns the functions that the linker's tool lists, as C++ source spells them.
Names symbols(const QStringList &arguments)
{
    QProcess nm;
    nm.start(NM_PROGRAM, QStringList{"--dynamic", "--demangle"} + arguments);
    nm.waitForFinished();
    return matches(" [TWU] (\\S.*\\))$", nm.readAllStandardOutput());
}

} // namespace

class TestHostCheck : public QObject {
    Q_OBJECT

    Names m_broken{"symbols"}; ///< and the promises of all rows of change()

private slots:
    void change_data()
    {
        // needing: the number of promises that need the broken one
        const Rows<QString, int, QString> add("broken", "needing", "text");
        const auto row = [&add](const char *promise, int needing, const char *text) {
            add(promise, promise, needing, text);
        };
        row("channel-counts", 0, "getModuleAINum(0x00000010) returned 16 instead of 0");
        row("component-path", 0, "getHwcnfgComponentPath(6) returned \"/");
        row("app-version", 0, "getAppVerNum returned 1999");
        row("number-bytes", 0, "shortToByteArray(258) returned 0201 instead of 0102");
        row("bytes-float", 0, "byteArrayToFloat of the bytes 3f9d70a4 returned -");
        row("bytes-text", 0, "returned \"00 01 20 7F 80 FF\" for the bytes 0001207f80ff");
        row("help-keyword", 0, "helpKeyWord returned \"Digital module");
        row("claim", 14, "AIEx: getMemory returned 1 for no range of 1 bytes, but 0 for 0..0");
        row("claim-refusal", 13, "AIEx: getMemory returned 1 for 0..15, although 0..15 was claimed");
        row("area-size", 0, "AIEx: getMemory returned 1 for 1024..1024 of 1024 bytes");
        row("allocate", 6, "AIEx: address 8 is free after autoMallocMemory returned the start of 8..15");
        row("no-room", 0, "AIEx: autoMallocMemory of 65537 bytes returned 65535 instead of -1");
        row("release", 4, "AIEx: getMemory returned 6 for 8..15 after freeMemory of 8..15");
        row("release-exact", 0, "AIEx: address 0 is free after freeMemory of 8 bytes at 0");
        row("snapshot-drop", 1, "AIEx: address 8 is free after popBackupMemory");
        row("snapshot-restore", 2, "AIEx: address 0 is free after restoreUsedMemory");
        row("snapshot-nesting", 0, "AIEx: getMemory returned 6 for 16..23 after the second of three snapshots");
        row("error-text", 0, "AIEx: getMemoryErrStrByErrCode(6) returned no text");
        row("unknown-area", 0, "IEx: address 0 is free after freeMemory of area 0");
        row("empty-range", 0, "AIEx: getMemory returned 6 for 8..15 after getMemory of 0 bytes");
        row("separate-owners", 0, "although only another owner had claimed them");
        row("empty-owner", 0, "AIEx: address 8 is free after calls with an empty owner");
        add("crash", "bytes-text", 0, "the host crashed: Aborted");
        add("hang", "bytes-text", 0, "the host did not return within 2 s");
        add("exit", "bytes-text", 0, "the host ended the process with status 0");
        add("throw", "bytes-text", 0, "the host threw no text");
    }
    void change()
    {
        QFETCH(QString, broken);
        const QString change = QTest::currentDataTag();
        const QString timeout = change == "hang" ? "2" : "60"; // the other changes do not depend on the machine's load
        const HostFolder host({BROKEN_HOST, BROKEN_HOST});
        const auto [status, output, complaint] = run({"--timeout", timeout, host.path()}, change);
        QCOMPARE(status, 1);
        QVERIFY2(namesIn(output, "broken") == Names{broken}, qPrintable(output + complaint));
        QVERIFY2(output.contains(fetched<QString>("text")), qPrintable(output));
        QCOMPARE(int(namesIn(output, "not checked +needs").size()), fetched<int>("needing"));
        m_broken.insert(broken);
    }

    void program_data()
    {
        const Rows<QStringList, QStringList, int, QString> row("libraries", "arguments", "status", "complaint");
        row("the libraries of the build", {}, {}, 0, "");
        row("a replacement without a change", {BROKEN_HOST, BROKEN_HOST}, {}, 0, "");
        row("no folder", {}, {"/none"}, 2, "no file /none/libbasemodule.so");
        row("one library", {BASE_MODULE}, {}, 2, "/libhelpsharemodule.so");
        row("a text instead of a library", {HOST_CONTRACT_DOCUMENT, BASE_MODULE}, {}, 2,
            "libbasemodule.so: invalid ELF header");
        row("two folders", {}, {"a", "b"}, 2, "expected at most one FOLDER");
        row("an unknown option", {}, {"--all"}, 2, "Unknown option");
        row("no time", {}, {"--timeout", "0"}, 2, "--timeout: expected a number");
        row("no owner", {}, {"--owner", ""}, 2, "two different keys");
        row("the same owner twice", {}, {"--owner", "a", "--other-owner", "a"}, 2, "two different keys");
    }
    void program()
    {
        QFETCH(QStringList, libraries);
        QFETCH(int, status);
        const HostFolder host(libraries);
        auto arguments = fetched<QStringList>("arguments");
        if (!libraries.isEmpty()) {
            arguments.append(host.path());
        }
        const Result result = run(arguments);
        QVERIFY2(result.complaint.contains(fetched<QString>("complaint")), qPrintable(result.complaint));
        QCOMPARE(result.status, status);
        QCOMPARE(result.complaint.startsWith("hostcheck: "), status == 2);
        QCOMPARE(result.output.isEmpty(), status == 2);
        QVERIFY(namesIn(result.output, "(broken|not)").empty());
    }

    void crashOnLoading()
    {
        const HostFolder host({BROKEN_HOST, BROKEN_HOST});
        const Result result = run({host.path()}, "loading");
        QCOMPARE(result.status, 2);
        QVERIFY2(result.complaint.contains(" crashed: Aborted"), qPrintable(result.complaint));
    }

    void missingSymbols()
    {
        // The files have none of the functions. So all that the plug-in imports are missing.
        const HostFolder none({UNRELATED_LIBRARY, UNRELATED_LIBRARY});
        const Result result = run({none.path()});
        const QString line = QStringList(QStringList(result.output.split('\n')).filter("symbols ")).value(0);
        const Names imported = symbols({"--undefined-only", SIMPLEEXTEND_LIBRARY_PATH});
        Names expected;
        for (const QString &symbol : symbols({"--defined-only", BASE_MODULE, HELP_SHARE_MODULE})) {
            if (imported.count(symbol) != 0) {
                expected.insert(symbol);
            }
        }
        const QStringList missing = line.section("missing: ", 1).split("; ");
        QVERIFY2(Names(missing.begin(), missing.end()) == expected, qPrintable(line));

        const HostFolder noHelp({BASE_MODULE, UNRELATED_LIBRARY});
        const Result withoutHelp = run({noHelp.path()});
        QVERIFY(namesIn(withoutHelp.output, "broken") == Names{"symbols"});
        QVERIFY(namesIn(withoutHelp.output, "not checked +needs helpKeyWord\\(") == Names{"help-keyword"});
    }

    void json()
    {
        const HostFolder host({BROKEN_HOST, BROKEN_HOST});
        const Result result = run({"--json", host.path()}, "app-version");
        const QJsonArray promises = QJsonDocument::fromJson(result.output.toUtf8()).array();
        QCOMPARE(promises.size(), int(m_broken.size()));
        QVERIFY(promises.contains(
            QJsonObject{{"promise", "app-version"}, {"result", "broken"}, {"text", "getAppVerNum returned 1999"}}));
    }

    // Runs after the tests above, because it uses the promises that they break.
    void everyPromiseIsBrokenAboveAndDocumented()
    {
        QFile file(HOST_CONTRACT_DOCUMENT);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const Names documented = matches("^\\| `([a-z-]+)` \\|", file.readAll());
        const Names checked = namesIn(run({}).output, "kept");
        QVERIFY(checked == documented);
        QVERIFY(checked == m_broken);
        QVERIFY(matches("^([a-z-]+) +\\S", run({"--list-promises"}).output) == documented);
    }
};

QTEST_GUILESS_MAIN(TestHostCheck)
#include "tst_hostcheck.moc"
