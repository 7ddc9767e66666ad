// The finished library as a host sees it: loaded by name, driven through its exports alone.
#include "simpleextendexportfunc.h"
#include "simulatedhost.h"

#include <QLibrary>
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

    template <class Function>
    Function resolve(const char *name)
    {
        const auto found = reinterpret_cast<Function>(m_library.resolve(name));
        if (found == nullptr) {
            qFatal("%s is not exported", name);
        }
        return found;
    }

    QLibrary m_library{QStringLiteral(SIMPLEEXTEND_LIBRARY_PATH)};

// NOLINTNEXTLINE(bugprone-macro-parentheses): the argument is declared and named, not computed with.
#define EXPORTED(name) decltype(&::name) name = resolve<decltype(&::name)>(#name)
    EXPORTED(createObject);
    EXPORTED(releaseObject);
    EXPORTED(config);
    EXPORTED(autoMallocInMap);
    EXPORTED(autoMallocOutMap);
    EXPORTED(getName);
    EXPORTED(getComment);
    EXPORTED(getNodeId);
    EXPORTED(getInMap);
    EXPORTED(getOutMap);
    EXPORTED(getPosition);
    EXPORTED(getRackId);
    EXPORTED(getSlotId);
    EXPORTED(setPosition);
    EXPORTED(setRackId);
    EXPORTED(setSlotId);
    EXPORTED(compile);
    EXPORTED(recompile);
    EXPORTED(save);
    EXPORTED(restore);
#undef EXPORTED

private slots:
    void init()
    {
        simulatedhost::reset();
    }

    void lifeOfAModule()
    {
        SimpleExtendPar *module = createObject(13650, owner);
        QVERIFY(module != nullptr);
        QCOMPARE(getNodeId(module), 13650);
        QVERIFY(!getName(module).isEmpty());
        QCOMPARE((QList<int>{getRackId(module), getSlotId(module)}), (QList<int>{-1, -1}));
        setRackId(module, 2);
        setSlotId(module, 3);
        setPosition(module, {30, 20});
        QCOMPARE(getPosition(module), QPoint(30, 20));
        QCOMPARE(describe(getInMap(module)), QStringLiteral("129:0 x8 u0 f1"));
        QCOMPARE(describe(getOutMap(module)), QStringLiteral("130:0 x0 u0 f1"));
        QCOMPARE(claimed(), QStringList("129:0+1"));

        const QByteArray state = save(module);
        QByteArray block("before");
        QStringList list("dropped");
        QCOMPARE(compile(module, block, list), 0);
        QVERIFY(list.isEmpty() && block.startsWith("before\x02"));
        releaseObject(module);
        releaseObject(nullptr);
        QVERIFY(claimed().isEmpty());

        SimpleExtendPar *restored = restore(state, owner);
        QCOMPARE((QList<int>{getRackId(restored), getSlotId(restored)}), (QList<int>{2, 3}));
        QCOMPARE(getPosition(restored), QPoint(30, 20));
        QCOMPARE(save(restored), state);
        QCOMPARE(claimed(), QStringList("129:0+1"));

        // The range is still held, so confirming it finds another place.
        QVERIFY(autoMallocInMap(restored) && autoMallocOutMap(restored));
        QCOMPARE(describe(getInMap(restored)), QStringLiteral("129:1 x8 u0 f1"));

        qint32 result = 5;
        SimpleExtendPar *rebuilt = recompile(block.mid(6), QStringLiteral("other"), &result);
        QCOMPARE(result, 0);
        QVERIFY(getComment(rebuilt).isEmpty());
        QCOMPARE(getPosition(rebuilt), QPoint());
        QByteArray again("before");
        compile(rebuilt, again, list);
        QCOMPARE(again, block);
        releaseObject(restored);
        releaseObject(rebuilt);
    }

    void refusals()
    {
        QVERIFY(createObject(1, owner) == nullptr);
        QVERIFY(restore({}, owner) == nullptr);
        qint32 result = 5;
        QVERIFY(recompile({}, owner, &result) == nullptr);
        QVERIFY(recompile("\1\2", owner, nullptr) == nullptr);
        QCOMPARE(result, 5);
        QVERIFY(claimed().isEmpty());
    }

    void configWithoutModuleOrParent()
    {
        SimpleExtendPar *module = createObject(13395, owner);
        QWidget parent;
        QCOMPARE(config(module, owner, nullptr, false), 0);
        QCOMPARE(config(nullptr, owner, &parent, false), 0);
        QCOMPARE(simulatedhost::openSnapshots(owner), 0);
        releaseObject(module);
    }
};

QTEST_MAIN(TestExports)
#include "tst_exports.moc"
