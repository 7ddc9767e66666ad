// Measures how long the workbench takes, without a window, to open a large station, compile it and write its blocks.
// Compares it with the sum of its parts, each measured alone: reading the rows from the database, restoring and
// releasing the modules with the plug-in, compiling them with the plug-in, writing the file.
#include "batch.h"
#include "comparison.h"
#include "projectfile.h"
#include "simulatedbase.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVariant>

#include <benchmark/benchmark.h>

#include <array>
#include <functional>

namespace {

constexpr std::array moduleCounts = {2000, 4000};

/// What all benchmarks share. Exists as long as the program.
struct Bench {
    PluginLibrary plugin;
    QTemporaryDir folder;

    QString path(int modules, const char *suffix) const
    {
        return folder.filePath(QStringLiteral("%1.%2").arg(modules).arg(QLatin1String(suffix)));
    }
    QString stationPath(int modules) const { return path(modules, "station"); }
};

[[noreturn]] void fail(const QString &text)
{
    qFatal("%s", qPrintable(text));
}

void runBatchTask(const Bench &bench, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addPositionalArgument(QStringLiteral("file"), QString());
    const BatchOptions options;
    options.addTo(parser);
    QString text;
    QTextStream stream(&text);
    if (!parser.parse(QStringList(QString()) + arguments) ||
        runBatch(parser, options, bench.plugin, stream, stream) != NoFindings) {
        fail(text);
    }
}

std::vector<QByteArray> readStates(const QString &path)
{
    std::vector<QByteArray> states;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), path);
        database.setDatabaseName(path);
        database.open();
        QSqlQuery query(database);
        query.setForwardOnly(true);
        query.exec(QStringLiteral("SELECT rack, slot, type_code, name, state FROM module ORDER BY place"));
        while (query.next()) {
            for (int column = 0; column < 4; ++column) {
                benchmark::DoNotOptimize(query.value(column));
            }
            states.push_back(query.value(4).toByteArray());
        }
    }
    QSqlDatabase::removeDatabase(path);
    return states;
}

std::vector<ModuleHandle> restore(const Bench &bench, const std::vector<QByteArray> &states, const QString &owner)
{
    simulatedhost::setPlcType(owner, simulatedhost::plcTypes().constLast().id);
    std::vector<ModuleHandle> handles;
    handles.reserve(states.size());
    for (const QByteArray &state : states) {
        handles.push_back(bench.plugin.own(bench.plugin.exports().restore(state, owner)));
    }
    return handles;
}

QByteArray compile(const Bench &bench, const std::vector<ModuleHandle> &handles)
{
    QByteArray block;
    QStringList list;
    for (const ModuleHandle &handle : handles) {
        bench.plugin.exports().compile(handle.get(), block, list);
    }
    return block;
}

void write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        fail(file.errorString());
    }
}

QString nameOf(const char *part, int modules)
{
    return QStringLiteral("%1/%2").arg(QLatin1String(part)).arg(modules);
}

void add(const char *part, int modules, const std::function<void()> &work)
{
    benchmark::RegisterBenchmark(qPrintable(nameOf(part, modules)), [work](benchmark::State &state) {
        for ([[maybe_unused]] const auto _ : state) {
            work();
        }
    });
}

void addStation(const Bench &bench, int modules)
{
    const QString path = bench.stationPath(modules);
    const QString owner = QString::number(modules);
    runBatchTask(bench, {QStringLiteral("--new"), path, QStringLiteral("--modules"), QString::number(modules)});
    const std::vector<QByteArray> states = readStates(path);
    const auto handles =
        std::make_shared<std::vector<ModuleHandle>>(restore(bench, states, owner + QStringLiteral(" compiled")));
    const QByteArray block = compile(bench, *handles);

    add("batch", modules, [&bench, path, modules] {
        runBatchTask(bench, {path, QStringLiteral("--compile"), bench.path(modules, "blk")});
    });
    add("read", modules, [path] { benchmark::DoNotOptimize(readStates(path)); });
    add("restore", modules, [&bench, states, owner] { benchmark::DoNotOptimize(restore(bench, states, owner)); });
    add("compile", modules, [&bench, handles] { benchmark::DoNotOptimize(compile(bench, *handles)); });
    add("write", modules, [&bench, block, modules] { write(bench.path(modules, "part.blk"), block); });
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    Bench bench;
    if (const Result<> loaded = bench.plugin.load({}); !loaded) {
        fail(loaded.reason());
    }
    Comparison comparison;
    for (const int modules : moduleCounts) {
        addStation(bench, modules);
        comparison.add(TimeRow{
            QStringLiteral("station of %1 modules: open, compile, write").arg(modules),
            nameOf("batch", modules),
            {nameOf("read", modules), nameOf("restore", modules), nameOf("compile", modules), nameOf("write", modules)},
            1.3});
    }
    comparison.add(TimeRow{QStringLiteral("twice the modules"),
                           nameOf("batch", moduleCounts.back()),
                           {nameOf("batch", moduleCounts.front())},
                           2.1});
    return comparison.run(argc, argv);
}
