// The finished library as a host sees it: loaded at run time, driven through its exports alone.
#include "pluginlibrary.h"
#include "simulatedhost.h"

#include <QWidget>
#include <QtTest>

namespace {

const QString owner = QStringLiteral("station");

QString describe(const IoMap &range)
{
    return QStringLiteral("%1:%2 x%3 u%4 f%5")
        .arg(range.area)
        .arg(range.start)
        .arg(range.count)
        .arg(range.unit)
        .arg(range.flag);
}

QStringList claimed()
{
    QStringList ranges;
    for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(owner)) {
        ranges << QStringLiteral("%1:%2+%3").arg(static_cast<int>(range.area)).arg(range.start).arg(range.length);
    }
    return ranges;
}

} // namespace

class TestExports : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;

    const PluginExports &host() const { return m_plugin.exports(); }

private slots:
    void initTestCase()
    {
        QVERIFY2(m_plugin.load(QStringLiteral(SIMPLEEXTEND_LIBRARY_PATH)), qPrintable(m_plugin.errorString()));
    }
    void init() { simulatedhost::reset(); }

    void lifeOfAModule()
    {
        SimpleExtendPar *module = host().createObject(13650, owner);
        QVERIFY(module != nullptr);
        QCOMPARE(host().getNodeId(module), 13650);
        QVERIFY(!host().getName(module).isEmpty());
        QCOMPARE((QList<int>{host().getRackId(module), host().getSlotId(module)}), (QList<int>{-1, -1}));
        host().setRackId(module, 2);
        host().setSlotId(module, 3);
        host().setPosition(module, {30, 20});
        QCOMPARE(host().getPosition(module), QPoint(30, 20));
        QCOMPARE(describe(host().getInMap(module)), QStringLiteral("129:0 x8 u0 f1"));
        QCOMPARE(describe(host().getOutMap(module)), QStringLiteral("130:0 x0 u0 f1"));
        QCOMPARE(claimed(), QStringList("129:0+1"));

        const QByteArray state = host().save(module);
        QByteArray block("before");
        QStringList list("dropped");
        QCOMPARE(host().compile(module, block, list), 0);
        QVERIFY(list.isEmpty() && block.startsWith("before\x02"));
        host().releaseObject(module);
        host().releaseObject(nullptr);
        QVERIFY(claimed().isEmpty());

        SimpleExtendPar *restored = host().restore(state, owner);
        QCOMPARE((QList<int>{host().getRackId(restored), host().getSlotId(restored)}), (QList<int>{2, 3}));
        QCOMPARE(host().getPosition(restored), QPoint(30, 20));
        QCOMPARE(host().save(restored), state);
        QCOMPARE(claimed(), QStringList("129:0+1"));

        // The range is still held, so confirming it finds another place.
        QVERIFY(host().autoMallocInMap(restored) && host().autoMallocOutMap(restored));
        QCOMPARE(describe(host().getInMap(restored)), QStringLiteral("129:1 x8 u0 f1"));

        qint32 result = 5;
        SimpleExtendPar *rebuilt = host().recompile(block.mid(6), QStringLiteral("other"), &result);
        QCOMPARE(result, 0);
        QVERIFY(host().getComment(rebuilt).isEmpty());
        QCOMPARE(host().getPosition(rebuilt), QPoint());
        QByteArray again("before");
        host().compile(rebuilt, again, list);
        QCOMPARE(again, block);
        host().releaseObject(restored);
        host().releaseObject(rebuilt);
    }

    void refusals()
    {
        QVERIFY(host().createObject(1, owner) == nullptr);
        QVERIFY(host().restore({}, owner) == nullptr);
        qint32 result = 5;
        QVERIFY(host().recompile({}, owner, &result) == nullptr);
        QVERIFY(host().recompile("\1\2", owner, nullptr) == nullptr);
        QCOMPARE(result, 5);
        QVERIFY(claimed().isEmpty());
    }

    void configWithoutModuleOrParent()
    {
        SimpleExtendPar *module = host().createObject(13395, owner);
        QWidget parent;
        QCOMPARE(host().config(module, owner, nullptr, false), 0);
        QCOMPARE(host().config(nullptr, owner, &parent, false), 0);
        QCOMPARE(simulatedhost::openSnapshots(owner), 0);
        host().releaseObject(module);
    }
};

QTEST_MAIN(TestExports)
#include "tst_exports.moc"
