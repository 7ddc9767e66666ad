// Measures how long the workbench's window takes for the steps of an edit in a station of 500 and of 4,000 modules,
// until the event loop is idle again. The time of one step should not depend on the size of the station; the times of
// the steps over all modules should grow with it at most linearly.
#include "catalogview.h"
#include "comparison.h"
#include "mainwindow.h"
#include "projectfile.h"
#include "rackview.h"
#include "simulatedbase.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

#include <array>
#include <functional>

namespace {

constexpr std::array moduleCounts = {500, 4000};
constexpr double stepGrowthGoal = 1.5;
constexpr double stepGoal = 0.005; ///< seconds
constexpr double linear = double(moduleCounts[1]) / moduleCounts[0];

/// A window with a station that is opened from a file.
class Workbench {
public:
    Workbench(const PluginLibrary &plugin, const QString &path)
        : m_window(plugin, readCatalog(), std::make_unique<Station>(plugin, path))
    {
        m_window.show();
        if (!m_window.openFile(path)) {
            qFatal("cannot open %s", qPrintable(path));
        }
        auto *tree = m_window.findChild<QTreeWidget *>();
        tree->setCurrentItem(tree->topLevelItem(0)->child(0));
        m_racks = m_window.findChild<RackView *>();
        settle();
    }

    void trigger(const char *action) const { m_window.findChild<QAction *>(QLatin1String(action))->trigger(); }
    RackView &racks() const { return *m_racks; }

    /// Returns when no event is left.
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

private:
    MainWindow m_window;
    RackView *m_racks = nullptr;
};

/// One kind of edit: the part that is measured, and the parts before and after it, which restore the station.
struct Edit {
    const char *name;
    bool isStep; ///< of one module, else of all modules
    std::function<void(const Workbench &)> before;
    std::function<void(const Workbench &)> measured;
    std::function<void(const Workbench &)> after;
};

std::function<void(const Workbench &)> triggers(const char *action)
{
    return [action](const Workbench &workbench) { workbench.trigger(action); };
}

std::function<void(const Workbench &)> goes(Place place)
{
    return [place](const Workbench &workbench) { workbench.racks().setCurrentPlace(place); };
}

void selectAll(const Workbench &workbench)
{
    workbench.racks().selectAll();
}

void selectAllAndRemove(const Workbench &workbench)
{
    selectAll(workbench);
    workbench.trigger("removeAction");
}

void cutAll(const Workbench &workbench)
{
    selectAll(workbench);
    workbench.trigger("cutAction");
    workbench.racks().setCurrentPlace({0, 0});
}

void undoTwice(const Workbench &workbench)
{
    workbench.trigger("undoAction");
    workbench.trigger("undoAction");
}

const std::array edits = {
    Edit{"place", true, goes({0, 0}), triggers("addAction"), triggers("undoAction")},
    Edit{"undo of a placement", true, triggers("addAction"), triggers("undoAction"), goes({0, 0})},
    Edit{"cursor step", true, goes({0, 0}), goes({0, 1}), goes({0, 0})},
    Edit{"select all", false, goes({0, 0}), selectAll, goes({0, 0})},
    Edit{"remove all", false, selectAll, triggers("removeAction"), triggers("undoAction")},
    Edit{"undo of removing all", false, selectAllAndRemove, triggers("undoAction"), goes({0, 0})},
    Edit{"paste all", false, cutAll, triggers("pasteAction"), undoTwice},
};

QString nameOf(const Edit &edit, int modules)
{
    return QStringLiteral("%1/%2 modules").arg(QLatin1String(edit.name)).arg(modules);
}

void run(benchmark::State &state, const PluginLibrary &plugin, const QString &path, const Edit &edit)
{
    simulatedhost::resetBase();
    const Workbench workbench(plugin, path);
    for ([[maybe_unused]] const auto _ : state) {
        edit.before(workbench);
        Workbench::settle();
        QElapsedTimer timer;
        timer.start();
        edit.measured(workbench);
        Workbench::settle();
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) * 1e-9);
        edit.after(workbench);
        Workbench::settle();
    }
}

void writeStation(const PluginLibrary &plugin, const QString &path, int modules)
{
    Station station(plugin, path);
    station.setLargestPlcType();
    const std::vector<CatalogEntry> catalog = readCatalog();
    for (int i = 0; i < modules; ++i) {
        const CatalogEntry &entry = catalog[static_cast<std::size_t>(i) % catalog.size()];
        if (!station.add(entry.typeCode, Place::at(i))) {
            qFatal("no room for %d modules", modules);
        }
    }
    if (!ProjectFile(path).write(station.project())) {
        qFatal("cannot write %s", qPrintable(path));
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    PluginLibrary plugin;
    if (const Result<> loaded = plugin.load(QString()); !loaded) {
        qFatal("%s", qPrintable(loaded.reason()));
    }
    Comparison comparison;
    for (const int modules : moduleCounts) {
        const QString path = folder.filePath(QStringLiteral("%1.station").arg(modules));
        writeStation(plugin, path, modules);
        for (const Edit &edit : edits) {
            benchmark::RegisterBenchmark(
                qPrintable(nameOf(edit, modules)),
                [&plugin, path, &edit](benchmark::State &state) { run(state, plugin, path, edit); })
                ->UseManualTime()
                ->Iterations(edit.isStep ? 10 : 1);
        }
    }
    for (const Edit &edit : edits) {
        const auto &[few, many] = moduleCounts;
        comparison.add(TimeRow{
            QLatin1String(edit.name), nameOf(edit, many), {nameOf(edit, few)}, edit.isStep ? stepGrowthGoal : linear});
        if (edit.isStep) {
            comparison.add(TimeRow{QLatin1String(edit.name), nameOf(edit, many), {}, stepGoal});
        }
    }
    return comparison.run(argc, argv);
}
