// The finished library as a host sees it: loaded at run time, driven through its exports alone, while the host refuses
// one call after the other. Afterwards memory and records stand as the rules of the memory protocol have it.
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
constexpr int taken = 100; // an input address that a move is refused

/// The first-th of these calls fails, that one alone or all from there on.
struct Fault {
    int kinds; ///< a bit for each HostCall
    bool lasts;
    int first;
    int calls = 0;

    bool strikes(HostCall call)
    {
        const bool counts = ((kinds >> int(call)) & 1) != 0;
        calls += counts ? 1 : 0;
        return counts && (lasts ? calls >= first : calls == first);
    }
};

struct ModuleType {
    quint32 code;
    quint32 moduleInfo;
    const char *refused; ///< edits that a page refuses
};

int lengthOf(const IoMap &range)
{
    return range.unit == 0 ? (range.count + 7) / 8 : range.unit * range.count;
}

/// A module in a station, and what an operation tells.
struct Scene {
    QString station;
    const ModuleType &type;
    std::array<IoMap, 2> ranges{}; ///< input and output
    bool exists = true;
    qint32 answer = 0;
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
        debug << "module" << exists << "answer" << answer << "boxes" << boxes << "snapshots"
              << simulatedhost::openSnapshots(station) << "holding" << claims(station);
        for (const IoMap &range : exists ? ranges : std::array<IoMap, 2>()) {
            debug << range.area << range.start << range.count << range.unit;
        }
        return text;
    }
};

/// The rules, in a station of their own.
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
    void reread(bool saved)
    {
        releaseObject();
        const bool isKnown = isThere(descriptions);
        answer = isKnown || saved ? 0 : 129;
        if (!isKnown) {
            return;
        }
        for (IoMap &range : ranges) {
            if (type.moduleInfo != 0) {
                take(range, lengthOf(range));
            }
            const bool isVariable = VarArea(range.area) == VarArea::Variable;
            range.unit = isVariable && !saved ? 2 : range.unit;
            range.count = isVariable && !isInput(range) ? 0 : range.count; // counted as digital outputs
        }
        exists = isThere(components);
    }
    void autoMalloc()
    {
        for (IoMap &range : ranges) {
            const auto wordArea = isInput(range) ? VarArea::AnalogInput : VarArea::AnalogOutput;
            const int length = VarArea(range.area) == wordArea ? range.count * 2 : (range.count + 7) / 8;
            answer += length == 0 || take(range, length) || claim(range, length) ? 1 : 0;
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
        if (ranges[1].count != 0) { // where no output moves the snapshot stays open
            popBackupMemory(station);
        }
        return true;
    }
    void config()
    {
        backupUsedMemory(station);
        const auto before = ranges;
        for (const IoMap &range : ranges) {
            range.area == 0 ? PlcTypeVersion() : getPrjPlcTypeVersion(station);
        }
        findsFiles(); // "Default All"
        const bool isRefused = *type.refused != 0;
        const bool moved = move() || (!isRefused && move());
        boxes += isRefused ? 1 : 0;
        if (moved && !isRefused) {
            popBackupMemory(station);
        } else {
            restoreUsedMemory(station);
            ranges = before;
        }
    }
};

/// The plug-in.
struct Driven : Scene {
    const PluginExports &plugin;
    SimpleExtendPar *module = nullptr;
    QByteArray state{};
    QByteArray block{};

    /// The exports, once the module is gone.
    const PluginExports &alone()
    {
        plugin.releaseObject(module);
        module = nullptr;
        exists = false;
        return plugin;
    }
    void createObject() { module = alone().createObject(type.code, station); }
    void autoMalloc() { answer = int(plugin.autoMallocInMap(module)) + int(plugin.autoMallocOutMap(module)); }
    /// Moves both ranges, presses OK until it works but not more than twice, and else cancels.
    void config()
    {
        QWidget parent;
        BoxRecorder recorder;
        QTimer::singleShot(0, &parent, [&] {
            const auto *dialog = parent.findChild<QDialog *>();
            edit(*dialog, QStringLiteral("defaultAllButton inputStart=100 outputStart=200 ") + type.refused);
            for (const char *button : {"okButton", *type.refused == 0 ? "okButton" : "", "cancelButton"}) {
                edit(*dialog, dialog->isVisible() ? button : "");
            }
        });
        answer = plugin.config(module, station, &parent, false);
        boxes = recorder.told.size();
    }
    /// Looks at the module; gives its parameters, which stand behind the block's header.
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
    void (*run)(Driven &driven);
    void (*rule)(Rules &rules);
};

const Operation operations[] = {
    {"createObject", [](Driven &d) { d.createObject(); }, [](Rules &r) { r.createObject(); }},
    {"restore", [](Driven &d) { d.module = d.alone().restore(d.state, d.station); }, [](Rules &r) { r.reread(true); }},
    {"recompile", [](Driven &d) { d.module = d.alone().recompile(d.block, d.station, &d.answer); },
     [](Rules &r) { r.reread(false); }},
    {"config", [](Driven &d) { d.config(); }, [](Rules &r) { r.config(); }},
    {"releaseObject", [](Driven &d) { d.alone(); }, [](Rules &r) { r.releaseObject(); }},
    {"autoMalloc", [](Driven &d) { d.autoMalloc(); }, [](Rules &r) { r.autoMalloc(); }},
    {"autoMalloc of lost ranges", [](Driven &d) { d.loseRanges(), d.autoMalloc(); },
     [](Rules &r) { r.loseRanges(), r.autoMalloc(); }},
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

/// The host's calls that count for the fault.
template <class Subject>
int runUnder(Fault fault, void (*run)(Subject &), Subject &subject)
{
    simulatedhost::setFaults([&fault](HostCall call) { return fault.strikes(call); });
    run(subject);
    simulatedhost::setFaults({});
    return fault.calls;
}

} // namespace

Q_DECLARE_METATYPE(const Operation *)

class TestHostFaults : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;

    const PluginExports &host() const { return m_plugin.exports(); }
    static void compare(const QString &actual, const QString &expected) { QCOMPARE(actual, expected); }

    /// A module and what its station holds.
    struct Held {
        QStringList ranges;
        int input;
        int output;
        bool operator==(const Held &other) const
        {
            return ranges == other.ranges && input == other.input && output == other.output;
        }
    };
    Held heldBy(SimpleExtendPar *module) const
    {
        return {claims(owner), host().getInMap(module).start, host().getOutMap(module).start};
    }
    /// A module with factory values in a station where an address is taken.
    ModuleHandle newModule(quint32 type) const
    {
        simulatedhost::reset();
        getMemory(owner, VarArea::AnalogInput, taken, 8);
        return m_plugin.own(host().createObject(type, owner));
    }
    /// Runs config under @p parent, with @p drive once the dialog waits. Returns config's answer.
    qint32 configure(SimpleExtendPar *module, QWidget *parent, const std::function<void(QDialog &dialog)> &drive) const
    {
        QTimer::singleShot(0, parent, [&] { drive(*parent->findChild<QDialog *>()); });
        return host().config(module, owner, parent, false);
    }

    /// Whether the fault struck.
    bool runAgainstRules(const Operation &operation, const ModuleType &type, const Fault &fault)
    {
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

        const int calls = runUnder(fault, operation.run, driven);
        const int ruledCalls = runUnder(fault, operation.rule, rules);
        const QByteArray kept = driven.look();
        const QString what = QString::asprintf("%u, kinds %d, from %d, lasting %d: ", type.code, fault.kinds,
                                               fault.first, fault.lasts ? 1 : 0);
        compare(what + driven.text() + QString::number(calls), what + rules.text() + QString::number(ruledCalls));
        compare(what + kept, what + (rules.exists ? parameters : QByteArray()));
        driven.alone();
        rules.releaseObject();
        compare(what + driven.text(), what + rules.text());
        return calls >= fault.first;
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
            for (const int kinds : {1, 2, 4, 8, 16, 31}) {
                for (const bool lasts : {false, true}) {
                    for (int call = 1; runAgainstRules(*operation, type, {kinds, lasts, call}); ++call) {
                        QVERIFY(!QTest::currentTestFailed() && call < 30);
                    }
                }
            }
        }
    }

    void hostThrows_data()
    {
        // open: snapshots that stay open
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
            const Held before = heldBy(module.get());
            BoxRecorder boxes;
            QWidget parent;
            throwingHost() = {function, at, lasts};
            const qint32 answer = configure(module.get(), &parent, [&steps](QDialog &dialog) {
                const bool isActive = QTest::qWaitForWindowActive(&dialog); // as F1 needs it
                for (const QString &step : steps.split(' ', Qt::SkipEmptyParts)) {
                    bool ok = true;
                    if (!isActive || !dialog.isVisible()) {
                        break;
                    }
                    if (step == "F1") {
                        QTest::keyClick(child(dialog, "nameEdit"), Qt::Key_F1);
                    } else if (step == "signal_saveData") {
                        QMetaObject::invokeMethod(&dialog, "signal_saveData", Q_ARG(bool &, ok));
                    } else {
                        edit(dialog, step);
                    }
                }
                dialog.isVisible() ? dialog.reject() : void(); // it should not be
            });
            QVERIFY(throwingHost().calls >= at);
            throwingHost() = ThrowingHost();
            QCOMPARE(answer, 0);
            QVERIFY(parent.findChild<QDialog *>() == nullptr);
            if (!lasts) { // else nothing can be rolled back
                QVERIFY(heldBy(module.get()) == before);
                QTEST(simulatedhost::openSnapshots(owner), "open");
            }
        }
    }

    // The host destroys the dialog's parent while a page's message is open.
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
            const Held before = heldBy(module.get());
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
                byKey ? QTest::keyPress(name, Qt::Key_Return)
                      : QTest::mouseClick(child(dialog, "okButton"), Qt::LeftButton);
            });
            QVERIFY(parent.isNull());
            QCOMPARE(answer, 0);
            QCOMPARE(boxes.told.size(), 1);
            QTEST(throwingHost().calls, "restores");
            QVERIFY(heldBy(module.get()) == before);
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
        QVERIFY(list.isEmpty() && block.startsWith("before\x02"));
        host().releaseObject(module);

        module = host().restore(state, owner);
        const QPoint at = host().getPosition(module);
        const QString told = host().getName(module) + host().getComment(module);
        QCOMPARE(told, module->objName + "remark");
        QCOMPARE(
            (QList<int>{host().getNodeId(module), host().getRackId(module), host().getSlotId(module), at.x(), at.y()}),
            (QList<int>{13650, 2, 3, 30, 20}));
        QCOMPARE(host().save(module), state);
        QByteArray again("before");
        host().compile(module, again, list);
        QCOMPARE(again, block);
        host().releaseObject(module);
    }

    /// What cannot be, and what the host throws.
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
        QVERIFY(simulatedhost::claimedRanges(owner).size() == held && simulatedhost::openSnapshots(owner) == 0);
    }
};

QTEST_MAIN(TestHostFaults)
#include "tst_hostfaults.moc"
