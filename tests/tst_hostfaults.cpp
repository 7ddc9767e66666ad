// The exports of the built library, while the host refuses one call after the other. Memory and records must then be as
// the rules of the memory protocol require.
#include "catalogfolder.h"
#include "claims.h"
#include "hostfault.h"
#include "pluginlibrary.h"
#include "rows.h"
#include "simpleextendpar.h"
#include "simulatedhost.h"

using simulatedhost::HostCall;

namespace {

const QString owner = QStringLiteral("plc");
constexpr auto descriptions = HwcnfgComponent::ModuleDescription;
constexpr auto components = HwcnfgComponent::ModuleComponent;

struct ModuleType {
    quint32 code;
    quint32 moduleInfo;
};

int lengthOf(const IoMap &range)
{
    return int(bytesOfChannels(range.unit, range.count));
}

/// A module in a station and the results of an operation.
struct Scene {
    QString station;
    const ModuleType &type;
    std::array<IoMap, 2> ranges{}; ///< input and output
    bool exists = true;
    qint32 answer = 0;
    QVector<bool> confirmed{}; ///< input and output range

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
        debug << "module" << exists << "answer" << answer << confirmed << "snapshots"
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
    {"releaseObject", &Driven::releaseObject, &Rules::releaseObject},
    {"autoMalloc", &Driven::autoMalloc, &Rules::autoMalloc},
    {"autoMalloc of lost ranges", &Driven::autoMalloc, &Rules::autoMalloc, true},
};

const ModuleType moduleTypes[] = {
    {13398, 0x02040000}, // analog with both directions
    {13396, 0x00040000}, {13400, 0x02000000},
    {13650, 0x00001008}, {13650, 0x00000008},
    {14418, 0x01020000}, // weighing, double words
    {14419, 0x01020000}, {100, 0},
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
    void initTestCase() { QCOMPARE(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH).reason(), QString()); }
    void cleanup() { simulatedhost::reset(); }

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
            forEachFault([&](Fault &fault) {
                const auto [actual, expected] = outcome(*operation, type, fault);
                QCOMPARE(actual, expected);
            });
        }
    }
};

QTEST_MAIN(TestHostFaults)
#include "tst_hostfaults.moc"
