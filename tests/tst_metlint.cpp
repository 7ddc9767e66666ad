// The description linter: its diagnostics with their places, and that the reader's result is as they describe.
#include "catalogfolder.h"
#include "defaultbuilder.h"
#include "linter.h"
#include "metfields.h"
#include "metreader.h"
#include "modulestate.h"
#include "recordinghost.h"
#include "rows.h"

#include <algorithm>

namespace {

const quint32 typeCode = 13395;
const QByteArray head = "[MODULE START]\nObjID=3453\nServerFile=module.cmp\nModuleInfo=00040000\n"; // lines 1 to 4

QByteArray entry(const QByteArray &moreLines = {})
{
    return head + moreLines + "[END]\n";
}

/// Returns the results of lookup, builder and reader for the file of typeCode.
QString outcome()
{
    ModuleMetInfo info;
    QString text = QStringLiteral("index=%1; ").arg(lookUpMetInfo(typeCode, info));
    const auto module = buildDefault(typeCode, QString());
    text += module ? QStringLiteral("inputs=%1; ").arg(module->aiCount) : QStringLiteral("no module; ");
    if (module) {
        const auto restored = restoreModule(saveModule(*module), QString());
        text += restored->objName == module->objName ? "name restored; " : "name lost; ";
    }
    const QVector<ModuleMetInfo> entries = readMetEntries(typeCode);
    text += QStringLiteral("entries=%1; ").arg(entries.size());
    for (const ModuleMetInfo &one : entries) {
        text += fieldsOf(one).join("; ") + ';';
    }
    return text;
}

} // namespace

class TestMetLint : public QObject {
    Q_OBJECT

    QStringList m_messages; ///< of all tests

    /// Returns rules and places, such as "no-equals@5:1 prefix-key@6:8".
    QString placesIn(const QByteArray &content, const QString &name = "hw00003453.met")
    {
        const LintContext context{name, getAppVerNum(), getHwcnfgComponentPath(HwcnfgComponent::ModuleComponent)};
        QStringList texts;
        for (const Diagnostic &diagnostic : lint(content, context)) {
            const auto &[place, rule, text] = diagnostic;
            texts << QStringLiteral("%1@%2:%3").arg(lintRule(rule).id).arg(place.line).arg(place.column);
            m_messages << formatDiagnostic(context.fileName, diagnostic);
        }
        texts.sort();
        return texts.join(' ');
    }

private slots:
    void init()
    {
        recordingHost() = RecordingHost();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }

    // If a file breaks several rules, the first one is that of the row.
    void diagnostic_data()
    {
        const Rows<QString, QByteArray, QByteArray, QString> add("found", "written", "intended", "result");
        const auto row = [&add](const char *found, const QByteArray &written, const QByteArray &intended,
                                const char *result) { add(found, found, written, intended, result); };
        const auto line = [&row](const char *found, const QByteArray &written, const QByteArray &intended,
                                 const char *result) {
            row(found, entry(written + '\n'), entry(intended + '\n'), result);
        };
        const QByteArray other = "[MODULE START]\nObjID=3454\nServerFile=module.cmp\nModuleInfo=10000\n";

        row("no-entry@1:1", "; ObjID=3453\n", entry(), "entries=0;");
        line("encoding@5:9", "ObjName=\xE4", "ObjName=a", "objName=\xEF\xBF\xBD;");
        row("encoding@8:1 after-last-end@7:1", entry() + "\nMLFB=a\n\xC3", entry("MLFB=a\n"), "mlfb=;");
        row("control-character@5:2 unknown-key@5:1", entry(QByteArray("M\0L\0F\0B\0=\0a\0\n", 13)), entry("MLFB=a\n"),
            "mlfb=;");
        line("line-break@5:10", "ObjName=a\rMLFB=b", "ObjName=a\nMLFB=b", "objName=a MLFB=b;");
        line("leading-blank@5:1", " ObjName=a", "ObjName=a", "objName=;");
        row("leading-blank@6:1 unended-entry@1:1", head + "MLFB=a\n\t[END]\n", entry("MLFB=a\n"), "entries=0;");
        line("look-alike@5:1", u8"\u041EbjName=a", "ObjName=a", "objName=;");
        line("look-alike@5:2", "M\xE2\x80\x8BLFB=a", "MLFB=a", "mlfb=;");
        line("look-alike@5:16 local-encoding@5:19", "SampPeriodList=5ms，9ms", "SampPeriodList=5ms,9ms",
             "sampPeriodList=5ms，9ms;");
        line("prefix-key@5:8", "ObjNameShort=a", "; ObjNameShort=a", "objName=a;");
        line("no-equals@5:1", "ObjName: a", "ObjName=a", "objName=ObjName: a;");
        line("unknown-key@5:1", "OrderNumber=a", "MLFB=a", "mlfb=;");
        row("unknown-marker@6:1 unended-entry@1:1", head + "MLFB=a\n[ENDE]\n", entry("MLFB=a\n"), "entries=0;");
        line("stray-text@6:2", "ObjName=a\n b", "ObjName=a b", "objName=a;");
        row("marker-tail@1:15", "[MODULE START]MLFB=a\n" + entry().mid(15), entry("MLFB=a\n"), "mlfb=;");
        line("number-malformed@5:10", "BaseType=0x7", "BaseType=7", "baseType=0;");
        line("number-malformed@5:13", "IsCatEntry= yes", "IsCatEntry=1", "isCatEntry=0;");
        line("number-malformed@5:21", "NotSupported=FFFFF, 123456789", "NotSupported=FFFFF", "notSupported=fffff|0;");
        line("number-truncated@5:10", "BaseType=258", "BaseType=255", "baseType=2;");
        line("number-truncated@5:15", "SyncCnfg=1,23,456,0,0,0,0,0,0", "SyncCnfg=1,23,45,0,0,0,0,0,0",
             "syncCnfg=012356");
        line("number-truncated@5:19", "NeedHwCnfgVersion=4294967295", "NeedHwCnfgVersion=2300",
             "needHwCnfgVersion=-1;");
        line("number-truncated@5:11", "FwVersion=25.7", "FwVersion=2.5", "fwVersion=1;");
        line("version-ambiguous@5:11", "FwVersion=1.10", "FwVersion=1.1", "fwVersion=110;");
        line("list-too-long@5:24", "IntSupported=1,2,3,4,5,6,7", "IntSupported=1,2,3,4,7", "intSupported=0102030405;");
        line("list-too-short@6:13 duplicate-key@6:1", "ReservBytes=1,2,3,4,5,6,7,8\nReservBytes=9",
             "ReservBytes=9,0,0,0,0,0,0,0", "reservBytes=0902030405060708;");
        line("empty-item@5:16", "NotSupported=1,,2", "NotSupported=1,2", "notSupported=1|0|2;");
        line("empty-item@5:16", "SampPeriodList=,5ms", "SampPeriodList=5ms", "sampPeriodList=|5ms;");
        line("collapsed-blanks@5:9", "ObjName=A  B", "ObjName=A, B", "objName=A B;");
        line("trailing-comment@5:11", "ObjName=a ; b", "; b\nObjName=a", "objName=a ; b;");
        line("quoted-value@5:9", "ObjName=\"a\"", "ObjName=a", "objName=\"a\";");
        row("outside-entry@1:1 carried-over@2:1", "supportRack=9\n" + entry(), entry(), "supportRack=9;");
        row("second-start@3:1", "[MODULE START]\nObjName=a\n" + entry(), entry("ObjName=a\n"), "objName=;");
        row("end-without-start@6:1 duplicate-entry@6:1", entry() + "[END]\n", entry(), "entries=2;");
        row("unended-entry@1:1", head, entry(), "entries=0;");
        row("unended-entry@1:1", "ObjID=3453\n", entry(), "entries=0;");
        row("after-last-end@6:1", entry() + "MLFB=a\nObjName=b\n", entry("MLFB=a\nObjName=b\n"), "objName=;");
        line("duplicate-key@6:1", "MLFB=a\nMLFB=b", "MLFB=a", "mlfb=b;");
        line("duplicate-key@6:1", "NotSupported=1\nNotSupported=2", "NotSupported=2", "notSupported=1|2;");
        row("carried-over@7:1 foreign-code@2:7", other + "supportRack=9\n[END]\n" + entry(),
            other + "[END]\n" + entry("supportRack=4\n"), "supportRack=9;");
        row("carried-over@11:1 foreign-code@2:7", other + "SampPeriodList=5ms\n[END]\n" + entry("SampPeriodList=9ms\n"),
            other + "[END]\n" + entry("SampPeriodList=9ms\n"), "sampPeriodList=5ms|9ms;");
        row("no-type-code@1:1", "[MODULE START]\nServerFile=module.cmp\n[END]\n", entry(), "index=-1;");
        row("foreign-code@2:7", other + "[END]\n", entry(), "index=-1;");
        row("duplicate-entry@7:7", entry() + entry("ObjName=new\n"), entry("ObjName=new\n"),
            "index=0; inputs=4; name restored; entries=2;");
        row("hides-later@5:19", entry("NeedHwCnfgVersion=2301\n") + entry(), entry(), "index=-1;");
        line("long-name@5:9", "ObjName=" + QByteArray(128, 'x'), "ObjName=" + QByteArray(127, 'x'), "name lost;");
        row("no-server-file@1:1", entry().replace("ServerFile=module.cmp\n", ""), entry(), "no module;");
        row("missing-component@3:12", entry().replace("module.cmp", "absent.cmp"), entry(), "no module;");
        row("no-module-info@4:12", entry().replace("40000", "00000"), entry(), "no module;");
        row("no-channels@4:12", entry().replace("40000", "00004"), entry(), "inputs=0;");
    }
    void diagnostic()
    {
        QFETCH(QString, found);
        QFETCH(QString, result);
        const auto resultsOf = [this](const QByteArray &content) {
            CatalogFolder catalog;
            catalog.writeDescription(typeCode, content);
            return std::pair(placesIn(content), outcome());
        };
        const auto [foundInWritten, resultOfWritten] = resultsOf(fetched<QByteArray>("written"));
        QStringList expected = found.split(' ');
        expected.sort();
        QCOMPARE(foundInWritten, expected.join(' '));
        QVERIFY2(resultOfWritten.contains(result), qPrintable(resultOfWritten));
        const auto [foundInIntended, resultOfIntended] = resultsOf(fetched<QByteArray>("intended"));
        QVERIFY2(!foundInIntended.contains(found.section('@', 0, 0)), qPrintable(foundInIntended));
        QVERIFY2(!resultOfIntended.contains(result), qPrintable(resultOfIntended));
    }

    void fileName()
    {
        // Lower-case digits, too few digits, a type code that is looked up as 3.
        for (const auto &[name, code] :
             {std::pair{"hw00003a00.met", 0x3A00U}, {"hw3A00.met", 0x3A00}, {"hw00000004.met", 4}}) {
            CatalogFolder catalog;
            const QByteArray content = entry().replace("3453", QByteArray::number(code, 16));
            catalog.writeFile(QStringLiteral("6/") + name, content);
            QCOMPARE(placesIn(content, name), QStringLiteral("file-name@1:1"));
            ModuleMetInfo info;
            QCOMPARE(lookUpMetInfo(code, info), -1);
        }
    }

    void encodingOfTheMachine()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        CatalogFolder catalog;
        const QByteArray content = entry("ObjName=\xC3\xA4\nMLFB=\xC3\xA4\n");
        catalog.writeDescription(typeCode, content);
        QCOMPARE(readMetEntries(typeCode).value(0).objName, QString::fromUtf8("\xC3\x83\xC2\xA4"));
        QCOMPARE(placesIn(content), QStringLiteral("local-encoding@5:9"));
        catalog.writeDescription(typeCode, "\xEF\xBB\xBF" + content);
        QCOMPARE(readMetEntries(typeCode).value(0).objName, QString::fromUtf8("\xC3\xA4"));
        QCOMPARE(placesIn("\xEF\xBB\xBF" + content), QString());
    }

    void channelCount()
    {
        CatalogFolder catalog;
        catalog.writeDescription(typeCode, entry());
        recordingHost().channels['i'] = 255;
        QCOMPARE(placesIn(entry()), QString());
        recordingHost().channels['i'] = 300;
        QCOMPARE(placesIn(entry()), QStringLiteral("channel-count@4:12"));
        QCOMPARE(int(buildDefault(typeCode, QString())->aiCount), 300 - 256);
        recordingHost().channels['i'] = -1;
        QCOMPARE(placesIn(entry()), QStringLiteral("channel-count@4:12"));
        QVERIFY(!buildDefault(typeCode, QString()));
    }

    void newerHostFindsWhatWasHidden()
    {
        const CatalogFolder catalog;
        recordingHost().appVersion = 2301;
        QCOMPARE(placesIn(entry("NeedHwCnfgVersion=2301\n") + entry()), QStringLiteral("duplicate-entry@8:7"));
    }

    void program_data()
    {
        // "@DIR@" stands for the folder of the catalog.
        const Rows<QStringList, int, QString> row("arguments", "exitCode", "output");
        const char *message =
            "@DIR@/6/hw00003453.met:5:9: warning: the quotation marks are part of ObjName [quoted-value]\n";
        const char *json =
            "[\n    {\n        \"column\": 9,\n        \"file\": \"@DIR@/6/hw00003453.met\",\n"
            "        \"line\": 5,\n        \"rule\": \"quoted-value\",\n        \"severity\": \"warning\",\n"
            "        \"text\": \"the quotation marks are part of ObjName\"\n    }\n]\n";
        row("a file", {"@DIR@/6/hw00003453.met"}, 1, message);
        row("a folder of description files, as JSON", {"--json", "@DIR@/6"}, 1, json);
        row("a catalog", {"@DIR@"}, 1, message);
        row("the shipped catalog", {SHIPPED_CATALOG}, 0, "");
        row("another component folder", {"--components", "@DIR@", SHIPPED_CATALOG "/6/hw00003453.met"}, 1,
            SHIPPED_CATALOG
            "/6/hw00003453.met:11:12: error: no component file \"ai4_ui.cmp\": the module cannot be created "
            "[missing-component]\n");
        row("a missing file after another file", {"@DIR@/6/hw00003453.met", "@DIR@/none"}, 2, message);
        row("a folder without description files", {"@DIR@/9"}, 2, "");
        row("an endless device", {"/dev/zero"}, 2, "");
        row("no arguments", {}, 2, "");
        row("an unknown option", {"--all", "@DIR@"}, 2, "");
        row("a host version that is not a number", {"--host-version", "x", "@DIR@"}, 2, "");
    }
    void program()
    {
        QFETCH(int, exitCode);
        QFETCH(QString, output);
        CatalogFolder catalog;
        catalog.writeDescription(typeCode, entry("ObjName=\"a\"\n"));
        const QString folder = catalog.path();
        QProcess process;
        process.start(METLINT_PROGRAM, fetched<QStringList>("arguments").replaceInStrings("@DIR@", folder));
        QVERIFY(process.waitForFinished());
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), output.replace("@DIR@", folder));
        QCOMPARE(process.exitCode(), exitCode);
        QCOMPARE(process.readAllStandardError().isEmpty(), exitCode != 2);
    }

    void reportsAFullDisk()
    {
        QProcess process;
        process.setStandardOutputFile("/dev/full");
        process.start(METLINT_PROGRAM, {"--list-rules"});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("could not be written"));
    }

    // Runs after the tests above, because it uses their messages.
    void everyRuleHasAFixtureAndIsDocumented()
    {
        QFile file(QStringLiteral(DESCRIPTION_FILES_DOCUMENT));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString document = QString::fromUtf8(file.readAll());
        for (const LintRule &rule : lintRules()) {
            const QStringList messages = m_messages.filter(QStringLiteral("[%1]").arg(rule.id));
            const auto isDocumented = [&document](const QString &message) { return document.contains(message); };
            QVERIFY2(std::any_of(messages.begin(), messages.end(), isDocumented),
                     qPrintable(rule.id + QStringLiteral(" is not documented as any of ") + messages.join('\n')));
        }
    }
};

QTEST_GUILESS_MAIN(TestMetLint)
#include "tst_metlint.moc"
