// Description files: the effect of each line on an entry, and the entry that a lookup chooses.
#include "catalogfolder.h"
#include "metfields.h"
#include "metreader.h"
#include "plainreader.h"
#include "recordinghost.h"
#include "rows.h"

#include <rapidcheck.h>

#include <sys/stat.h>

namespace {

/// The fields in which @p info differs from a fresh record.
QString changes(const ModuleMetInfo &info)
{
    QStringList changed = fieldsOf(info);
    for (const QString &field : fieldsOf(ModuleMetInfo())) {
        changed.removeOne(field);
    }
    return changed.join("; ");
}

/// The index and the fields of the chosen entry, then the fields of all entries.
QStringList describe(const QVector<ModuleMetInfo> &entries, int index, const ModuleMetInfo &chosen)
{
    QStringList texts{QString::number(index), changes(chosen)};
    std::transform(entries.begin(), entries.end(), std::back_inserter(texts), changes);
    return texts;
}

QStringList outcome(CatalogFolder &catalog, quint32 typeCode, const QByteArray &content)
{
    catalog.writeDescription(typeCode, content);
    ModuleMetInfo chosen;
    const int index = lookUpMetInfo(typeCode, chosen);
    return describe(readMetEntries(typeCode), index, chosen);
}

QStringList plainOutcome(quint32 typeCode, const QByteArray &content)
{
    QTextStream stream(content);
    const QVector<ModuleMetInfo> entries = plainreader::read(stream);
    const int index = plainreader::choose(entries, typeCode, recordingHost().appVersion);
    return describe(entries, index, entries.value(index));
}

template <class Value>
Value any(const std::vector<Value> &values)
{
    return *rc::gen::elementOf(values);
}

/// Valid lines and similar ones: in another case, after a space, or with letters beyond ASCII whose lower case is s or
/// k.
QString randomFile()
{
    std::vector<QString> beginnings{"[MODULE START]", "[MODULE START]", "[END]", "[END]", "[END]", ";", "S", ""};
    for (const plainreader::Key &key : plainreader::keys) {
        beginnings.emplace_back(key.name);
    }
    const std::vector<QString> pieces{"3453",       "ff",         "0x1f", "+5", "-1", "@",      "`", "1.2", "99999999",
                                      "4294967295", "4294967296", "é模",  " ",  "\t", "\u00A0", ",", ",",   "="};
    QString file;
    for (int lines = *rc::gen::inRange(0, 40); lines > 0; --lines) {
        const QString key = any(beginnings);
        const QString alike = QString(key).replace('s', QChar(0x17F), Qt::CaseInsensitive).replace('k', QChar(0x212A));
        file += any<QString>({key, key, key, key.toUpper(), key.toLower(), alike, ' ' + key});
        file += any<QString>({"=", "=", " = ", "X=", ""});
        for (int count = *rc::gen::inRange(0, 5); count > 0; --count) {
            file += any(pieces);
        }
        file += any<QString>({"\n", "\r\n"});
    }
    return file;
}

} // namespace

class TestMetReader : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(ModuleMetInfo().supportRack, 4); // changes() omits it
    }
    void cleanup() { recordingHost() = RecordingHost(); }

    void entry_data()
    {
        const Rows<QByteArray, QString> row("lines", "fields");
        row("text", "MetVersion=1.0\nMLFB= A 1 \nServerFile=a=b", "metVersion=1.0; mlfb=A 1; serverFile=a=b");
        row("key case is ignored, white space is collapsed", "objname = A  \t B", "objName=A B");
        row("value in the local encoding", "ObjName=\xC3\xA9\xE6\xA8\xA1", "objName=é模");
        row("key matches as a prefix", "ObjNameX=x", "objName=x");
        row("letters beyond ASCII whose lower case is s and k", u8"I\u017FCatEntry=1\n\u017FupportRac\u212A=9",
            "isCatEntry=1; supportRack=9");
        row("a line without an equals sign is the value", "MLFB only  this", "mlfb=MLFB only this");
        row("a leading space disables the key", " ObjName=x", "");
        row("comment", "; ObjName=x\n  ;ObjName=y", "");
        row("unknown key and empty lines", "\nColour=blue\n   \n=3", "");
        row("lower-case start", "ObjName=lost\n[module start] trailing", "");
        row("hexadecimal codes", "ObjID=3453\nParentObjID=0xFF\nModuleInfo=00040000",
            "objId=13395; parentObjId=255; moduleInfo=262144");
        row("maximum number and overflow", "ObjID=FFFFFFFF\nParentObjID=100000000", "objId=4294967295");
        row("malformed numbers", "ObjID=xyz\nBaseType=-1\nNumIOModules=1.5\nFwVersion=1.a\nSupportHSC=", "");
        row("numbers are truncated to their field", "BaseType=257\nNumIOModules=511\nFwVersion=25.7",
            "baseType=1; numIOModules=255; fwVersion=1");
        row("signed fields wrap", "SupportHSC=4294967295\nsupportRack=0\nSupportEtherCAT=7",
            "supportEtherCAT=7; supportRack=0; supportHSC=-1");
        row("dots are removed from the version", "FwVersion=1.2.3", "fwVersion=123");
        row("flags", "IsCatEntry=2\nSupportGrpCnfg=1\nSampPeriodGrpCnfg=1\nSupportCANopen=1\nsoftctrlremote=x",
            "isCatEntry=1; supportGrpCnfg=1; sampPeriodGrpCnfg=1; supportCANopen=1");
        row("the sixth byte is ignored", "IntSupported=1,2,3,4,5,6\nIntEnableTbl=A, b ,,0x1F,1FF",
            "intSupported=0102030405; intEnableTbl=0a0b001fff");
        row("missing bytes keep their value", "SyncCnfg=1,2,3\nSyncCnfg=9\nBuffCnfg=\nReservBytes=,8",
            "syncCnfg=090203000000000000; reservBytes=0008000000000000");
        row("lists append", "NotSupported=1,,x\nNotSupported=FF\nSampPeriodList=5ms, 10ms\nSampPeriodList=",
            "notSupported=1|0|0|ff; sampPeriodList=5ms| 10ms|");
        row("prefix tests run in table order", "SupportRack=9\nSupportHSCount=3", "supportRack=9; supportHSC=3");
        row("carriage returns", "ObjName=x\r\nMLFB=y\r", "objName=x; mlfb=y");
        row("fields that a start resets",
            "MetVersion=1\nNeedHwCnfgVersion=1\nObjName=n\nMLFB=m\nObjID=1\nParentObjID=1\nBaseType=1\nNumIOModules=1\n"
            "NotSupported=1\nServerFile=s\nIsCatEntry=1\nModuleInfo=1\nIntSupported=1\nIntEnableTbl=1\nFwVersion=1\n"
            "BuffCnfg=1\nSyncCnfg=1\nSupportCANopen=1\nSupportHSC=1\nsoftCtrlRemote=1\n[MODULE START]",
            "");
        row("fields that a start keeps",
            "SupportGrpCnfg=1\nSampPeriodGrpCnfg=1\nSampPeriodList=a\nReservBytes=1\nSupportEtherCAT=1\nsupportRack=1\n"
            "[MODULE START]\nSampPeriodList=b",
            "supportGrpCnfg=1; sampPeriodGrpCnfg=1; sampPeriodList=a|b; reservBytes=0100000000000000; "
            "supportEtherCAT=1; supportRack=1");
    }
    void entry()
    {
        CatalogFolder catalog;
        catalog.writeDescription(13395, fetched<QByteArray>("lines") + "\n[END]\nObjName=after the last end");
        const QVector<ModuleMetInfo> entries = readMetEntries(13395);
        QCOMPARE(entries.size(), 1);
        QTEST(changes(entries.first()), "fields");
    }

    void lookUp_data()
    {
        const Rows<quint32, QByteArray, int, QString> row("typeCode", "content", "index", "name");
        const QByteArray first = "[MODULE START]\nObjID=3453\nObjName=first\n[END]\n";
        const QByteArray other = "[MODULE START]\nObjID=1\nObjName=other\n[END]\n";
        const QByteArray newer = "[MODULE START]\nNeedHwCnfgVersion=2301\nObjID=1\n[END]\n";
        row("the first match wins", 13395, first + "ObjName=second\n[END]\n", 0, "first");
        row("the index counts all entries before the match", 13395, other + other + first, 2, "first");
        row("the code is hexadecimal", 13395, "ObjID=13395\n[END]\n", -1, "");
        row("a newer entry ends the search", 13395, newer + first, -1, "");
        row("a newer entry after the match has no effect", 13395, first + newer, 0, "first");
        row("an entry of the host's version is found", 13395, "NeedHwCnfgVersion=2300\n" + first + "[END]", 0, "first");
        row("versions are compared without sign", 13395, "NeedHwCnfgVersion=4294967295\nObjID=3453\n[END]\n", -1, "");
        row("unfinished entry", 13395, "[MODULE START]\nObjID=3453\nObjName=x\n", -1, "");
        row("a second start discards the entry", 13395,
            "[MODULE START]\nObjID=3453\n[MODULE START]\nObjName=x\n[END]\n", -1, "");
        row("empty file", 13395, "", -1, "");
        row("no file", 13395, {}, -1, "");
        row("a file above the limit", 13395, first + QByteArray(maximumMetFileSize, '\n'), -1, "");
        row("type code 4 is looked up as 3", 4, "ObjID=3\nObjName=three\n[END]\n", 0, "three");
    }
    void lookUp()
    {
        QFETCH(quint32, typeCode);
        QFETCH(QByteArray, content);
        QFETCH(int, index);
        CatalogFolder catalog;
        if (!content.isNull()) {
            catalog.writeDescription(typeCode == 4 ? 3 : typeCode, content);
        }
        QVERIFY(!content.isEmpty() || readMetEntries(typeCode).isEmpty());
        ModuleMetInfo info;
        QCOMPARE(lookUpMetInfo(typeCode, info), index);
        QTEST(info.objName, "name");
        QCOMPARE(info.objId, index < 0 ? 0U : typeCode);
    }

    void entryWithoutVersionNeedsHost2000()
    {
        CatalogFolder catalog;
        catalog.writeDescription(13395, "ObjID=3453\n[END]\n");
        ModuleMetInfo info;
        recordingHost().appVersion = 1999;
        QCOMPARE(lookUpMetInfo(13395, info), -1);
        recordingHost().appVersion = 2000;
        QCOMPARE(lookUpMetInfo(13395, info), 0);
    }

    void aPipeIsNotOpened()
    {
        const CatalogFolder catalog;
        QCOMPARE(mkfifo(QFile::encodeName(metFilePath(13395)).constData(), S_IRUSR | S_IWUSR), 0);
        QVERIFY(readMetEntries(13395).isEmpty());
    }

    void outcomeEqualsThatOfThePlainReader()
    {
        const QByteArray lines = "ObjName=a\r\n\rMLFB=b\nServerFile=c\r\r\n\nMetVersion=\xC3\xA9\xFF" +
                                 QByteArray(16334, 'x') + "\xE6\xA8\xA1\n[END]\nMLFB=\xC3\n[END]\r";
        QByteArrayList contents{
            lines, "[END]\r", "\n", "[END]\xE6\xA8", "\xEF\xBB\xBF" + lines, QByteArray("MLFB=a\0b\n[END]", 14)};
        for (const char *encoding : {"UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"}) {
            contents << QTextCodec::codecForName(encoding)->fromUnicode(QChar(0xFEFF) + QString::fromUtf8(lines));
            contents << contents.last().chopped(1);
        }
        CatalogFolder catalog; // each lookup reads the new content, because nothing is cached
        for (const QByteArray &content : qAsConst(contents)) {
            QCOMPARE(outcome(catalog, 13395, content), plainOutcome(13395, content));
            QVERIFY(outcome(catalog, 0, content).size() > 1 || content == "\n");
        }
        QVERIFY(rc::check([&catalog] {
            const auto *encoding = QTextCodec::codecForName(any<const char *>({"UTF-8", "UTF-16", "UTF-32"}));
            const QByteArray content = encoding->fromUnicode(randomFile());
            const auto typeCode = any<quint32>({0, 0xFF, 0x3453});
            RC_ASSERT(outcome(catalog, typeCode, content) == plainOutcome(typeCode, content));
        }));
    }
};

QTEST_GUILESS_MAIN(TestMetReader)
#include "tst_metreader.moc"
