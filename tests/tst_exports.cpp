// The exports of the built library with a host that fails or throws in each call, with invalid arguments and with a
// parent that the host destroys.
#include "boxrecorder.h"
#include "claims.h"
#include "pagefixture.h"
#include "pluginlibrary.h"
#include "rows.h"
#include "simpleextendpar.h"
#include "simulatedhost.h"
#include "throwinghost.h"

using simulatedhost::HostCall;

namespace {

const QString owner = QStringLiteral("plc");
constexpr quint32 mixedAnalog = 0x3459; // four inputs, two outputs
constexpr quint32 mixedDigital = 0x3558;
constexpr quint32 weighing = 0x3852;

/// One call of the given kinds fails: the call with the number @c first, or this one and all later ones.
struct Fault {
    int kinds; ///< a bit for each HostCall
    bool lasts;
    int first = 1;
    int calls = 0;
    int failed = 0; ///< the kinds of the calls that have failed

    bool strikes(HostCall call)
    {
        const int bit = kinds & (1 << int(call));
        calls += int(bit != 0);
        const bool fails = bit != 0 && (lasts ? calls >= first : calls == first);
        failed |= fails ? bit : 0;
        return fails;
    }
    bool has(HostCall call) const { return (failed & (1 << int(call))) != 0; }
    QString textFor(quint32 type) const
    {
        return QString::asprintf("%u, %d, %d, %d: ", type, kinds, first, int(lasts));
    }
};

/// Calls @p run with faults at all numbers at which they strike, single ones and lasting ones of each kind and of any.
/// A single failure of one kind is a single failure of any kind, too, so it needs no series.
template <typename Run>
void forEachFault(Run &&run)
{
    for (Fault fault : {Fault{31, false}, {31, true}, {1, true}, {2, true}, {4, true}, {8, true}, {16, true}}) {
        for (; fault.calls >= fault.first - 1; ++fault.first) { // until the fault does not strike
            fault.calls = 0;
            fault.failed = 0;
            run(fault);
            if (fault.first == 30) {
                qFatal("the calls of the host do not end");
            }
        }
    }
}

int lengthOf(const IoMap &range)
{
    return int(bytesOfChannels(range.unit, range.count));
}

} // namespace

class TestExports : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;
    QMap<QByteArray, int> m_calls; ///< of each function, in the latest config

    const PluginExports &host() const { return m_plugin.exports(); }

    /// Describes the claims of the station and the starts of the module's ranges.
    QStringList heldBy(SimpleExtendPar *module) const
    {
        return claims(owner) << QString::number(host().getInMap(module).start)
                             << QString::number(host().getOutMap(module).start);
    }
    /// Returns the claims of a station that has claimed the module's ranges in addition to @p others.
    QStringList withRanges(QStringList others, SimpleExtendPar *module) const
    {
        for (const IoMap &range : {host().getInMap(module), host().getOutMap(module)}) {
            if (range.count != 0) {
                others << claimText(range.area, range.start, lengthOf(range));
            }
        }
        others.sort();
        return others;
    }
    /// Creates a factory module in a station where no input range can move to 100.
    ModuleHandle newModule(quint32 type) const
    {
        simulatedhost::reset();
        getMemory(owner, VarArea::AnalogInput, 100, 8);
        return m_plugin.own(host().createObject(type, owner));
    }
    /// Runs config under @p parent and calls @p drive in the dialog's event loop. Returns config's result.
    qint32 configure(SimpleExtendPar *module, QWidget *parent, const std::function<void(QDialog &dialog)> &drive) const
    {
        QTimer::singleShot(0, parent, [&] { drive(*parent->findChild<QDialog *>()); });
        return host().config(module, owner, parent, false);
    }

    /// Runs config, in which calls throw or fail. Returns how many snapshots stay open, whether claims or starts have
    /// moved and whether they disagree; an empty string if all is as before.
    QString changesBy(quint32 type, const QString &steps, const ThrowingHost &throwing,
                      const std::function<bool(HostCall call)> &fails = {})
    {
        const ModuleHandle module = newModule(type);
        const QStringList before = heldBy(module.get());
        BoxRecorder boxes;
        QWidget parent;
        throwingHost() = throwing;
        simulatedhost::setFaults(fails);
        const qint32 result = configure(module.get(), &parent, [&steps](QDialog &dialog) {
            dialog.setUpdatesEnabled(false); // painting would take most of the time
            perform(dialog, steps + " cancelButton");
        });
        m_calls = std::exchange(throwingHost(), {}).calls;
        simulatedhost::setFaults({});
        const int open = simulatedhost::openSnapshots(owner);
        const QStringList after = heldBy(module.get());
        const bool isWrong = result != 0 || parent.findChild<QDialog *>() != nullptr;
        const bool disagrees = after.mid(0, after.size() - 2) != withRanges({claimText(6, 100, 8)}, module.get());
        const QStringList changes{open == 0 ? "" : QString("%1 open").arg(open), after == before ? "" : "moved",
                                  disagrees ? "disagree" : "", isWrong ? "wrong result" : ""};
        return QStringList(changes.filter(QRegularExpression("."))).join(", ");
    }

    /// Results of an operation.
    struct Outcome {
        ModuleHandle module;
        qint32 answer = 0;
        bool isConfirmed = true;
    };

    /// Performs the operation with @p module, whose ranges are free, or with a module of its type, state or block.
    Outcome outcomeOf(const QString &operation, ModuleHandle module, Fault &fault) const
    {
        const auto type = quint32(host().getNodeId(module.get()));
        const QByteArray state = host().save(module.get());
        QByteArray block;
        QStringList list;
        host().compile(module.get(), block, list);
        const auto guard = qScopeGuard([] { simulatedhost::setFaults({}); });
        simulatedhost::setFaults([&fault](HostCall call) { return fault.strikes(call); });
        if (operation == "autoMalloc") {
            const bool hasInput = host().autoMallocInMap(module.get());
            const bool hasOutput = host().autoMallocOutMap(module.get());
            return {std::move(module), 0, hasInput && hasOutput};
        }
        module.reset();
        if (operation == "createObject") {
            return {m_plugin.own(host().createObject(type, owner))};
        }
        if (operation == "restore") {
            return {m_plugin.own(host().restore(state, owner))};
        }
        qint32 answer = 0;
        module = m_plugin.own(host().recompile(block, owner, &answer));
        return {std::move(module), answer};
    }

    /// Returns what is wrong after an operation in which calls fail; an empty text if the module is as before and has
    /// exactly its ranges, except those that the host refuses, and frees them. What was claimed before a call failed
    /// stays claimed.
    QString wrongAfter(const QString &operation, quint32 type, Fault &fault) const
    {
        const ModuleHandle neighbour = newModule(type);
        const QStringList others = claims(owner);
        ModuleHandle module = m_plugin.own(host().createObject(type, owner));
        const QStringList all = claims(owner);
        const QByteArray state = host().save(module.get());
        for (const IoMap &range : {host().getInMap(module.get()), host().getOutMap(module.get())}) {
            freeMemory(owner, VarArea(range.area), range.start, lengthOf(range));
        }
        Outcome outcome = outcomeOf(operation, std::move(module), fault);

        const bool isFound = !fault.has(HostCall::FindDescriptions) && !fault.has(HostCall::FindComponents);
        const bool hasRoom = !fault.has(HostCall::ClaimMemory);
        const bool isTaken = !fault.has(HostCall::TakeMemory);
        const bool isConfirming = operation == "autoMalloc";
        const bool exists = outcome.module != nullptr;
        const qint32 answer = operation == "recompile" && fault.has(HostCall::FindDescriptions) ? 129 : 0;
        const bool claimsRanges = exists && (isConfirming ? outcome.isConfirmed : isTaken);
        const bool keepsState = exists && (isTaken || !isConfirming);
        QStringList wrong;
        wrong << (exists == (isFound && (hasRoom || operation != "createObject")) ? "" : "existence");
        wrong << (outcome.answer == answer ? "" : "answer");
        wrong << (outcome.isConfirmed == (hasRoom || !isConfirming) ? "" : "confirmation");
        wrong << (!keepsState || host().save(outcome.module.get()) == state ? "" : "state");
        wrong << (!claimsRanges || claims(owner) == withRanges(others, outcome.module.get()) ? "" : "claims");
        outcome.module.reset();
        const QStringList left = claims(owner);
        const bool isFreed = exists ? left == others : (QStringList(all) << left).removeDuplicates() == left.size();
        wrong << (isFreed ? "" : "claims left");
        wrong.removeAll("");
        return wrong.isEmpty() ? QString() : operation + ", " + fault.textFor(type) + wrong.join(", ");
    }

private slots:
    void initTestCase() { QCOMPARE(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH).reason(), QString()); }
    void cleanup()
    {
        throwingHost() = ThrowingHost();
        simulatedhost::reset();
    }

    /// Each call of each function throws, first that call alone, then it and all later ones.
    void hostThrows_data()
    {
        // changes: after which call that throws they are seen; only one that closes config's own snapshot
        const Rows<quint32, QString, QString> row("type", "steps", "changes");
        const auto add = [&row](const char *steps, const char *changes, quint32 type = mixedAnalog) {
            row(steps, type, steps, changes);
        };
        add("cancelButton", "restoreUsedMemory 1: 1 open");
        add("okButton", "popBackupMemory 1: 2 open");
        add("inputStart=40 outputStart=40 okButton", "popBackupMemory 2: 1 open, moved");
        add("inputStart=40 outputStart=40 signal_saveData", "restoreUsedMemory 1: 1 open, moved, disagree");
        add("inputStart=100 okButton", "restoreUsedMemory 2: 1 open");
        add("inputStart=40 deadband_0=20 okButton inputStart=60 okButton inputStart=80 okButton",
            "restoreUsedMemory 1: 4 open, moved, disagree");
        add("inputStart=40 deadband_0=20 okButton helpButton", "restoreUsedMemory 1: 2 open, moved, disagree");
        add("F1", "restoreUsedMemory 1: 1 open");
        add("defaultAllButton defaultsButton", "restoreUsedMemory 1: 1 open");
        add("defaultsButton defaultAllButton", "restoreUsedMemory 1: 1 open", mixedDigital);
    }
    /// If all later calls throw as well, the host may be unable to roll back.
    void hostThrows()
    {
        QFETCH(quint32, type);
        QFETCH(QString, steps);
        changesBy(type, steps, {});
        const auto functions = m_calls;
        QStringList changes;
        for (auto function = functions.begin(); function != functions.end(); ++function) {
            for (int at = 1; at <= *function; ++at) {
                const QString change = changesBy(type, steps, {function.key(), at});
                QVERIFY(m_calls[function.key()] >= at);
                if (!change.isEmpty()) {
                    changes << function.key() + ' ' + QString::number(at) + ": " + change;
                }
                QVERIFY(!changesBy(type, steps, {function.key(), at, true}).contains("result"));
            }
        }
        QTEST(changes.join("; "), "changes");
    }

    void hostFails_data()
    {
        const Rows<QVector<quint32>, QString, QString> row("types", "steps", "changes"); // without a failure
        const QString twice = "defaultAllButton inputStart=40 outputStart=40 okButton okButton";
        row("both ranges", {13401, 13655, 14421}, twice, "moved");
        row("double words, whose areas are one", {14420}, QString(twice).replace("inputStart=40", "inputStart=100"),
            "moved");
        row("inputs", {13396, 13650, 14418, 14419}, twice, "1 open, moved");
        row("outputs", {13400, 13653}, twice, "moved");
        row("no ranges", {14848}, twice, "1 open");
        row("a refused deadband", {13401}, "outputStart=40 inputStart=40 deadband_0=20 okButton", "");
        row("a refused deadband, inputs", {13396}, "inputStart=40 deadband_0=20 okButton", "1 open");
        row("a refused filter depth", {14418}, "inputStart=40 filterDepth_0=2 subMax_0=5 okButton", "1 open");
    }
    /// A call fails, or all from this one on. The user presses OK a second time, so only ranges that the host refuses
    /// to the end make a difference.
    void hostFails()
    {
        QFETCH(QString, steps);
        QFETCH(QString, changes);
        for (const quint32 type : fetched<QVector<quint32>>("types")) {
            QCOMPARE(changesBy(type, steps, {}), changes);
            forEachFault([&](Fault &fault) {
                const auto fails = [&fault](HostCall call) { return fault.strikes(call); };
                const QString found = changesBy(type, steps, {}, fails);
                const bool staysRefused =
                    fault.has(HostCall::TakeMemory) && (fault.lasts || !steps.endsWith("okButton okButton"));
                QCOMPARE(fault.textFor(type) + found, fault.textFor(type) + (staysRefused ? QString() : changes));
            });
        }
    }

    void operationFails()
    {
        for (const char *operation : {"createObject", "restore", "recompile", "autoMalloc"}) {
            for (const quint32 type : {13401U, 13396U, 13400U, 13655U, 13650U, 14421U, 14419U, 14848U}) {
                forEachFault([&](Fault &fault) { QCOMPARE(wrongAfter(operation, type, fault), QString()); });
            }
        }
    }

    /// The host destroys the dialog's parent while a page's message box is open.
    void parentDestroyed_data()
    {
        const Rows<quint32, QString, int> row("type", "edits", "restores");
        row("Address", mixedAnalog, "inputStart=100", 2);
        row("Address and deadband", mixedAnalog, "inputStart=100 deadband_0=20", 2);
        row("deadband", mixedAnalog, "deadband_0=20", 1);
        row("deadband after a move", mixedAnalog, "inputStart=40 deadband_3=20", 1);
        row("filter rule", weighing, "filterDepth_0=2 subMax_0=5", 1);
    }
    void parentDestroyed()
    {
        QFETCH(quint32, type);
        QFETCH(QString, edits);
        for (const bool byKey : {false, true}) {
            const ModuleHandle module = newModule(type);
            const QStringList before = heldBy(module.get());
            QPointer<QWidget> parent = new QWidget;
            BoxRecorder boxes;
            boxes.onBox = [&parent](const QMessageBox &) {
                QMetaObject::invokeMethod(
                    qApp, [&parent] { delete parent; }, Qt::QueuedConnection);
            };
            throwingHost().calls.clear();
            const qint32 answer = configure(module.get(), parent, [&edits, byKey](QDialog &dialog) {
                edit(dialog, edits);
                byKey ? QTest::keyPress(child(dialog, "nameEdit"), Qt::Key_Return)
                      : QTest::mouseClick(child(dialog, "okButton"), Qt::LeftButton);
            });
            QVERIFY(parent.isNull());
            QCOMPARE(answer, 0);
            QCOMPARE(boxes.texts.size(), 1);
            QTEST(throwingHost().calls.value("restoreUsedMemory"), "restores");
            QCOMPARE(heldBy(module.get()), before);
        }
    }

    void configPassesItsArgumentsOn()
    {
        const ModuleHandle module = newModule(mixedAnalog);
        const QString other = "other";
        QWidget parent;
        QList<int> seen;
        QTimer::singleShot(0, &parent, [&] {
            auto *dialog = parent.findChild<QDialog *>();
            seen << int(child(*dialog, "okButton")->isEnabled()) << simulatedhost::openSnapshots(other)
                 << simulatedhost::openSnapshots(owner);
            dialog->reject();
        });
        QCOMPARE(host().config(module.get(), other, &parent, true), 0);
        QCOMPARE(seen << simulatedhost::openSnapshots(other), (QList<int>{0, 1, 0, 0}));
    }

    void gettersSettersAndBlocks()
    {
        ModuleHandle handle = m_plugin.own(host().createObject(13650, owner));
        SimpleExtendPar *module = handle.get();
        module->comment = "remark";
        host().setRackId(module, 2);
        host().setSlotId(module, 3);
        host().setPosition(module, {30, 20});
        const QByteArray state = host().save(module);
        QByteArray block("before");
        QStringList list("dropped");
        QCOMPARE(host().compile(module, block, list), 0);
        QVERIFY(list.isEmpty());
        QVERIFY(block.startsWith("before\x02"));

        handle.reset();
        handle = m_plugin.own(host().restore(state, owner));
        module = handle.get();
        QCOMPARE(QStringList({host().getName(module), host().getComment(module)}),
                 QStringList({module->objName, "remark"}));
        QCOMPARE(host().getPosition(module), QPoint(30, 20));
        QCOMPARE((QList<int>{host().getNodeId(module), host().getRackId(module), host().getSlotId(module)}),
                 (QList<int>{13650, 2, 3}));
        QCOMPARE(host().save(module), state);
    }

    /// The same calls fail for invalid arguments and then for a host that throws.
    void refusals()
    {
        const ModuleHandle module = m_plugin.own(host().createObject(13395, owner));
        const QByteArray state = host().save(module.get());
        const auto held = simulatedhost::claimedRanges(owner).size();
        QWidget parent;
        qint32 result = 5;
        for (const bool throws : {false, true}) {
            QVERIFY(host().createObject(throws ? 13395 : 1, owner) == nullptr);
            QVERIFY(host().restore(throws ? state : QByteArray(), owner) == nullptr);
            QVERIFY(host().recompile(throws ? state : QByteArray(), owner, &result) == nullptr);
            QCOMPARE(host().config(throws ? module.get() : nullptr, owner, &parent, false), 0);
            host().releaseObject(nullptr);
            simulatedhost::setFaults([](HostCall) -> bool { throw std::bad_alloc(); });
        }
        QVERIFY(host().recompile("\1\2", owner, nullptr) == nullptr);
        QVERIFY(!host().autoMallocInMap(module.get()));
        QCOMPARE(host().config(module.get(), owner, nullptr, false), 0);
        QCOMPARE(result, 5);
        QCOMPARE(simulatedhost::claimedRanges(owner).size(), held);
        QCOMPARE(simulatedhost::openSnapshots(owner), 0);
    }
};

QTEST_MAIN(TestExports)
#include "tst_exports.moc"
