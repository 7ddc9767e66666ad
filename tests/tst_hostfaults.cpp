// Loads the finished library at run time and drives it only through its exports, while the host refuses or throws in
// one call after the other. Memory and records must then be as the rules of the memory protocol require.
#include "boxrecorder.h"
#include "catalogfolder.h"
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
constexpr auto descriptions = HwcnfgComponent::ModuleDescription;
constexpr auto components = HwcnfgComponent::ModuleComponent;
constexpr quint32 mixedAnalog = 0x3459; // four inputs, two outputs
constexpr quint32 mixedDigital = 0x3558;
constexpr quint32 weighing = 0x3852;

/// One call of the given kinds fails: the call with the number @c first, or this one and all later ones.
struct Fault {
    int kinds; ///< a bit for each HostCall
    bool lasts;
    int first = 1;
    int calls = 0;

    bool strikes(HostCall call)
    {
        const bool counts = ((kinds >> int(call)) & 1) != 0;
        calls += int(counts);
        return counts && (lasts ? calls >= first : calls == first);
    }
};

struct ModuleType {
    quint32 code;
    quint32 moduleInfo;
    const char *refused; ///< edits that a page refuses; empty = none
};

int lengthOf(const IoMap &range)
{
    return int(bytesOfChannels(range.unit, range.count));
}

/// Performs edits and other steps as long as the dialog is visible.
void perform(QDialog &dialog, const QString &steps)
{
    bool ok = true;
    for (const QString &step : steps.split(' ', Qt::SkipEmptyParts)) {
        if (!dialog.isVisible()) {
            return;
        }
        if (step == "F1" && QTest::qWaitForWindowActive(&dialog)) { // shortcuts need an active window
            QTest::keyClick(child(dialog, "nameEdit"), Qt::Key_F1);
        } else if (step == "signal_saveData") {
            QMetaObject::invokeMethod(&dialog, "signal_saveData", Q_ARG(bool &, ok));
        } else {
            edit(dialog, step);
        }
    }
}

/// A module in a station and the results of an operation.
struct Scene {
    QString station;
    const ModuleType &type;
    std::array<IoMap, 2> ranges{}; ///< input and output
    bool exists = true;
    qint32 answer = 0;
    QVector<bool> confirmed{}; ///< input and output range
    int boxes = 0;

    void free(const IoMap &range) const { freeMemory(station, VarArea(range.area), range.start, lengthOf(range)); }
    bool isInput(const IoMap &range) const { return &range == ranges.data(); }
    void loseRanges() const
    {
        free(ranges[0]);
        free(ranges[1]);
    }
    QString text() const
    {
        QString text;
        QDebug debug(&text);
        debug << "module" << exists << "answer" << answer << confirmed << "boxes" << boxes << "snapshots"
              << simulatedhost::openSnapshots(station) << "holding" << claims(station);
        for (const IoMap &range : exists ? ranges : std::array<IoMap, 2>()) {
            debug << range.area << range.start << range.count << range.unit;
        }
        return text;
    }
};

/// The rules, in their own station.
struct Rules : Scene {
    static bool isThere(HwcnfgComponent component) { return QDir(getHwcnfgComponentPath(component)).exists(); }
    static bool findsFiles() { return isThere(descriptions) && isThere(components); }
    bool take(const IoMap &range, int length) const
    {
        return getMemory(station, VarArea(range.area), range.start, length) == simulatedhost::Held;
    }
    bool claim(IoMap &range, int length) const
    {
        range.start = length == 0 ? range.start : quint16(autoMallocMemory(station, VarArea(range.area), length));
        return range.start != 65535;
    }

    void releaseObject()
    {
        if (exists) {
            loseRanges();
        }
        exists = false;
    }
    /// What was claimed before a call failed stays claimed.
    void createObject()
    {
        releaseObject();
        exists = findsFiles() && claim(ranges[0], lengthOf(ranges[0])) && claim(ranges[1], lengthOf(ranges[1]));
    }
    template <bool IsSaved>
    void reread()
    {
        releaseObject();
        const bool isKnown = isThere(descriptions);
        answer = isKnown || IsSaved ? 0 : 129;
        if (!isKnown) {
            return;
        }
        for (IoMap &range : ranges) {
            if (type.moduleInfo != 0) {
                take(range, lengthOf(range));
            }
            const bool isVariable = VarArea(range.area) == VarArea::Variable;
            range.unit = isVariable && !IsSaved ? 2 : range.unit;
            range.count = isVariable && !isInput(range) ? 0 : range.count; // counted as digital outputs
        }
        exists = isThere(components);
    }
    void autoMalloc()
    {
        for (IoMap &range : ranges) {
            const auto wordArea = isInput(range) ? VarArea::AnalogInput : VarArea::AnalogOutput;
            const int length = VarArea(range.area) == wordArea ? range.count * 2 : (range.count + 7) / 8;
            confirmed += length == 0 || take(range, length) || claim(range, length);
        }
    }
    bool move()
    {
        backupUsedMemory(station);
        const auto before = ranges;
        for (IoMap &range : ranges) {
            if (range.count == 0) {
                continue;
            }
            free(range);
            range.start = isInput(range) ? 100 : 200;
            if (!take(range, lengthOf(range))) {
                restoreUsedMemory(station);
                ranges = before;
                ++boxes;
                return false;
            }
        }
        if (ranges[1].count != 0) { // the snapshot stays open if no output moves
            popBackupMemory(station);
        }
        return true;
    }
    void config()
    {
        backupUsedMemory(station);
        const auto before = ranges;
        for (const IoMap &range : ranges) {
            if (range.area != 0) {
                getPrjPlcTypeVersion(station);
            }
        }
        findsFiles(); // "Default All"
        const bool isRefused = *type.refused != 0;
        const bool moved = move() || (!isRefused && move());
        if (moved && !isRefused) {
            popBackupMemory(station);
            return;
        }
        boxes += int(isRefused);
        restoreUsedMemory(station);
        ranges = before;
    }
};

/// The plug-in in its station.
struct Driven : Scene {
    const PluginExports &plugin;
    SimpleExtendPar *module = nullptr;
    QByteArray state{};
    QByteArray block{};

    void releaseObject()
    {
        plugin.releaseObject(std::exchange(module, nullptr));
        exists = false;
    }
    /// Releases the module and returns the exports.
    const PluginExports &alone()
    {
        releaseObject();
        return plugin;
    }
    void createObject() { module = alone().createObject(type.code, station); }
    void restore() { module = alone().restore(state, station); }
    void recompile() { module = alone().recompile(block, station, &answer); }
    void autoMalloc() { confirmed = {plugin.autoMallocInMap(module), plugin.autoMallocOutMap(module)}; }
    /// Moves both ranges and presses OK, a second time if the first is refused, then Cancel if both are refused.
    void config()
    {
        QWidget parent;
        BoxRecorder recorder;
        QTimer::singleShot(0, &parent, [&] {
            auto *dialog = parent.findChild<QDialog *>();
            dialog->setUpdatesEnabled(false); // painting would take most of the time
            perform(*dialog, QStringLiteral("defaultAllButton inputStart=100 outputStart=200 ") + type.refused +
                                 (*type.refused == 0 ? " okButton okButton cancelButton" : " okButton cancelButton"));
        });
        answer = plugin.config(module, station, &parent, false);
        boxes = recorder.told.size();
    }
    /// Updates the scene from the module. Returns its parameters, which follow the block's header.
    QByteArray look()
    {
        QByteArray bytes;
        exists = module != nullptr;
        if (exists) {
            ranges = {plugin.getInMap(module), plugin.getOutMap(module)};
            QStringList list;
            plugin.compile(module, bytes, list);
        }
        return bytes.mid(1 + byteArrayToInt(bytes.mid(1, 4))).toHex();
    }
};

struct Operation {
    const char *name;
    void (Driven::*run)();
    void (Rules::*rule)();
    bool losesRanges = false; ///< the station does not hold the module's ranges
};

const Operation operations[] = {
    {"createObject", &Driven::createObject, &Rules::createObject},
    {"restore", &Driven::restore, &Rules::reread<true>},
    {"recompile", &Driven::recompile, &Rules::reread<false>},
    {"config", &Driven::config, &Rules::config},
    {"releaseObject", &Driven::releaseObject, &Rules::releaseObject},
    {"autoMalloc", &Driven::autoMalloc, &Rules::autoMalloc},
    {"autoMalloc of lost ranges", &Driven::autoMalloc, &Rules::autoMalloc, true},
};

const ModuleType moduleTypes[] = {
    {13398, 0x02040000, ""}, // analog with both directions
    {13398, 0x02040000, "deadband_0=20"},
    {13396, 0x00040000, "deadband_0=20"},
    {13400, 0x02000000, ""},
    {13650, 0x00001008, ""},
    {13650, 0x00000008, ""},
    {14418, 0x01020000, "filterDepth_0=2 subMax_0=5"}, // weighing, double words
    {14419, 0x01020000, ""},
    {100, 0, ""},
};

template <typename Subject>
void runUnder(Fault &fault, void (Subject::*run)(), Subject &subject)
{
    simulatedhost::setFaults([&fault](HostCall call) { return fault.strikes(call); });
    (subject.*run)();
    simulatedhost::setFaults({});
}

} // namespace

Q_DECLARE_METATYPE(const Operation *)

class TestHostFaults : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;

    const PluginExports &host() const { return m_plugin.exports(); }

    /// Describes the claims of the station and the starts of the module's ranges.
    QStringList heldBy(SimpleExtendPar *module) const
    {
        return claims(owner) << QString::number(host().getInMap(module).start)
                             << QString::number(host().getOutMap(module).start);
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

    /// Describes what an operation leaves in the plug-in's station and what the rules require.
    QPair<QString, QString> outcome(const Operation &operation, const ModuleType &type, Fault &fault) const
    {
        Fault ruledFault = fault;
        simulatedhost::reset();
        Driven driven{{owner, type}, host()};
        Rules rules{{QStringLiteral("rules"), type}};
        const ModuleHandle neighbour = m_plugin.own(host().createObject(type.code, driven.station));
        const ModuleHandle other = m_plugin.own(host().createObject(type.code, rules.station));
        driven.createObject();
        const QByteArray parameters = driven.look();
        driven.state = host().save(driven.module);
        QStringList list;
        host().compile(driven.module, driven.block, list);
        rules.exists = false;
        rules.ranges = driven.ranges;
        rules.createObject();

        if (operation.losesRanges) {
            driven.loseRanges();
            rules.loseRanges();
        }
        runUnder(fault, operation.run, driven);
        runUnder(ruledFault, operation.rule, rules);
        const QByteArray kept = driven.look();
        const QString actual = driven.text() + QString::number(fault.calls) + kept;
        const QString expected =
            rules.text() + QString::number(ruledFault.calls) + (rules.exists ? parameters : QByteArray());
        driven.releaseObject();
        rules.releaseObject();
        const QString what = QString::asprintf("%u, kinds %d, from %d, lasting %d: ", type.code, fault.kinds,
                                               fault.first, int(fault.lasts));
        return {what + actual + driven.text(), what + expected + rules.text()};
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(m_plugin.load(QStringLiteral(SIMPLEEXTEND_LIBRARY_PATH)), qPrintable(m_plugin.errorString()));
        QLoggingCategory::setFilterRules("default.debug=false");
    }
    void cleanup()
    {
        throwingHost() = ThrowingHost();
        simulatedhost::reset();
    }

    void everyCallFails_data()
    {
        const Rows<const Operation *> row("operation");
        for (const Operation &operation : operations) {
            row(operation.name, &operation);
        }
    }
    void everyCallFails()
    {
        QFETCH(const Operation *, operation);
        for (const ModuleType &type : moduleTypes) {
            CatalogFolder catalog;
            catalog.writeModule(type.code, type.moduleInfo);
            // A single failure of one kind is a single failure of any kind, too, so it needs no series.
            for (Fault fault : {Fault{31, false}, {31, true}, {1, true}, {2, true}, {4, true}, {8, true}, {16, true}}) {
                for (; fault.calls >= fault.first - 1; ++fault.first) { // until the fault does not strike
                    fault.calls = 0;
                    const auto [actual, expected] = outcome(*operation, type, fault);
                    QCOMPARE(actual, expected);
                    QVERIFY(fault.first < 30);
                }
            }
        }
    }

    void hostThrows_data()
    {
        // "open" is the number of snapshots that stay open.
        const Rows<quint32, QString, QByteArray, int, int> all("type", "steps", "function", "at", "open");
        const auto row = [&all](const char *steps, const char *function, int at = 1, quint32 type = mixedAnalog,
                                int open = 0) {
            all(QByteArray::number(at) + ". " + function + " after: " + steps, type, steps, function, at, open);
        };
        row("", "backupUsedMemory");
        row("", "helpKeyWord");
        row("", "getPrjPlcTypeVersion");
        row("", "getPrjPlcTypeVersion", 2);
        row("", "getPlcAddrRange");
        row("", "getPlcAddrRange", 2);
        row("okButton", "backupUsedMemory", 2);
        for (const char *steps :
             {"inputStart=40 outputStart=40 okButton", "inputStart=40 outputStart=40 signal_saveData"}) {
            row(steps, "freeMemory");
            row(steps, "freeMemory", 2);
            row(steps, "getMemory");
            row(steps, "getMemory", 2);
            row(steps, "popBackupMemory");
        }
        row("inputStart=100 okButton", "restoreUsedMemory");
        row("inputStart=100 okButton", "getMemoryErrStrByErrCode");
        const char *refusedOnce = "inputStart=40 deadband_0=20 okButton inputStart=60 okButton";
        row(refusedOnce, "backupUsedMemory", 3);
        row(refusedOnce, "getMemory", 2);
        row("inputStart=40 deadband_0=20 okButton inputStart=60 okButton inputStart=80 okButton", "getMemory", 3);
        row("inputStart=40 deadband_0=20 okButton helpButton", "startHelpSys");
        row("F1", "startHelpSys");
        for (const char *steps : {"defaultAllButton", "defaultsButton"}) {
            row(steps, "getAppVerNum");
            row(steps, "getHwcnfgComponentPath");
            row(steps, "getHwcnfgComponentPath", 2);
            row(steps, "getModuleAINum");
            row(steps, "getModuleAQNum");
            row(steps, "getModuleDINum", 1, mixedDigital);
            row(steps, "getModuleDQNum", 1, mixedDigital);
        }
        row("cancelButton", "restoreUsedMemory", 1, mixedAnalog, 1);
        row("okButton", "popBackupMemory", 1, mixedAnalog, 2);
    }
    void hostThrows()
    {
        QFETCH(quint32, type);
        QFETCH(QString, steps);
        QFETCH(QByteArray, function);
        QFETCH(int, at);
        for (const bool lasts : {false, true}) {
            throwingHost() = ThrowingHost();
            const ModuleHandle module = newModule(type);
            const QStringList before = heldBy(module.get());
            BoxRecorder boxes;
            QWidget parent;
            throwingHost() = {function, at, lasts};
            const qint32 answer = configure(module.get(), &parent,
                                            [&steps](QDialog &dialog) { perform(dialog, steps + " cancelButton"); });
            QVERIFY(throwingHost().calls >= at);
            throwingHost() = ThrowingHost();
            QCOMPARE(answer, 0);
            QVERIFY(parent.findChild<QDialog *>() == nullptr);
            if (!lasts) { // otherwise the host cannot roll back
                QCOMPARE(heldBy(module.get()), before);
                QTEST(simulatedhost::openSnapshots(owner), "open");
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
            throwingHost() = {"restoreUsedMemory", 0};
            const qint32 answer = configure(module.get(), parent, [&edits, byKey](QDialog &dialog) {
                edit(dialog, edits);
                auto *name = child(dialog, "nameEdit");
                if (byKey) {
                    QTest::keyPress(name, Qt::Key_Return);
                } else {
                    QTest::mouseClick(child(dialog, "okButton"), Qt::LeftButton);
                }
            });
            QVERIFY(parent.isNull());
            QCOMPARE(answer, 0);
            QCOMPARE(boxes.told.size(), 1);
            QTEST(throwingHost().calls, "restores");
            QCOMPARE(heldBy(module.get()), before);
        }
    }

    void gettersSettersAndBlocks()
    {
        SimpleExtendPar *module = host().createObject(13650, owner);
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
        host().releaseObject(module);

        module = host().restore(state, owner);
        QCOMPARE(host().getName(module), module->objName);
        QCOMPARE(host().getComment(module), QStringLiteral("remark"));
        QCOMPARE(host().getPosition(module), QPoint(30, 20));
        QCOMPARE((QList<int>{host().getNodeId(module), host().getRackId(module), host().getSlotId(module)}),
                 (QList<int>{13650, 2, 3}));
        QCOMPARE(host().save(module), state);
        host().releaseObject(module);
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

QTEST_MAIN(TestHostFaults)
#include "tst_hostfaults.moc"
