#include "comparison.h"

#include <QHash>
#include <QTextStream>
#include <QVector>

#include <benchmark/benchmark.h>

#include <algorithm>

namespace {

/// The fastest repetition of each benchmark, in seconds.
class FastestReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context & /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                const QString name = QString::fromStdString(run.run_name.function_name);
                const double time = timeOf(run);
                m_fastest[name] = m_fastest.contains(name) ? std::min(m_fastest.value(name), time) : time;
            }
        }
    }
    bool has(const QString &name) const { return m_fastest.contains(name); }
    double fastest(const QString &name) const { return m_fastest.value(name); }

private:
    static double timeOf(const Run &run)
    {
        const bool manual = run.run_name.time_type == "manual_time";
        return (manual ? run.real_accumulated_time : run.cpu_accumulated_time) / static_cast<double>(run.iterations);
    }

    QHash<QString, double> m_fastest;
};

/// Three digits and a unit.
QString timeText(double seconds)
{
    const char *unit = "ns";
    double value = seconds * 1e9;
    for (const char *larger : {"us", "ms", "s"}) {
        if (value < 1000) {
            break;
        }
        value /= 1000;
        unit = larger;
    }
    return QString::number(value, 'f', value < 10 ? 2 : value < 100 ? 1 : 0) % QLatin1Char(' ') % QLatin1String(unit);
}

QString outcome(double figure, double goal)
{
    return figure <= goal ? QStringLiteral("met") : QStringLiteral("short");
}

/// Returns the last cells of a row: ratio, goal and outcome.
QStringList verdict(double ratio, double goal)
{
    QStringList cells{QString::number(ratio, 'f', 3)};
    if (goal > 0) {
        cells << QString::number(goal) << outcome(ratio, goal);
    }
    return cells;
}

using Table = std::vector<QStringList>;

void print(Table table)
{
    const QStringList titles{"work", "ours", "peer", "fastest ours", "fastest peer", "ratio", "goal", "outcome"};
    table.insert(table.begin(), titles);
    std::vector<int> widths(static_cast<std::size_t>(titles.size()));
    for (QStringList &row : table) {
        while (row.size() < titles.size()) {
            row << QString();
        }
        std::transform(row.begin(), row.end(), widths.begin(), widths.begin(),
                       [](const QString &cell, int width) { return std::max(cell.size(), width); });
    }
    QTextStream out(stdout);
    const auto printRow = [&](const QStringList &row, QChar fill) {
        for (int column = 0; column < row.size(); ++column) {
            out << "| " << row.at(column).leftJustified(widths[static_cast<std::size_t>(column)], fill) << ' ';
        }
        out << "|\n";
    };
    printRow(titles, QLatin1Char(' '));
    printRow(QVector<QString>(titles.size()).toList(), QLatin1Char('-'));
    std::for_each(std::next(table.begin()), table.end(),
                  [&](const QStringList &row) { printRow(row, QLatin1Char(' ')); });
}

/// Returns the name of a benchmark without the work of the row as its prefix.
QString sideOf(const QString &name, const QString &work)
{
    return name.startsWith(work % QLatin1Char('/')) ? name.mid(work.size() + 1) : name;
}

/// Returns an empty list if a benchmark of the row did not run.
QStringList cellsOf(const TimeRow &row, const FastestReporter &reporter)
{
    QStringList needed = row.peers + QStringList{row.ours};
    if (!row.floor.isEmpty()) {
        needed << row.floor;
    }
    if (!std::all_of(needed.begin(), needed.end(), [&](const auto &name) { return reporter.has(name); })) {
        return {};
    }
    const double floor = row.floor.isEmpty() ? 0 : reporter.fastest(row.floor);
    const double ours = reporter.fastest(row.ours) - floor;
    double peer = -floor;
    QStringList peerNames;
    for (const QString &name : row.peers) {
        peer += reporter.fastest(name);
        peerNames << sideOf(name, row.work);
    }
    const QString work =
        row.floor.isEmpty() ? row.work : row.work % QStringLiteral(", less ") % row.floor.section(QLatin1Char('/'), -1);
    QStringList cells{work, sideOf(row.ours, row.work), peerNames.join(QLatin1String(" + ")), timeText(ours)};
    if (!row.peers.isEmpty()) {
        cells << timeText(peer) << verdict(ours / peer, row.goal);
    } else if (row.goal > 0) {
        cells << QString() << QString() << timeText(row.goal) << outcome(ours, row.goal);
    }
    return cells;
}

QString valueText(double value, const QString &unit)
{
    return QString::number(value, 'f', 0) % QLatin1Char(' ') % unit;
}

QStringList cellsOf(const ValueRow &row)
{
    return QStringList{row.work, row.ours, row.peer, valueText(row.ourValue, row.unit),
                       valueText(row.peerValue, row.unit)} +
           verdict(row.ourValue / row.peerValue, row.goal);
}

} // namespace

int Comparison::run(int argc, char *argv[]) const
{
    // Before the program's arguments, because the last argument applies.
    std::vector<std::string> defaults{"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=15",
                                      "--benchmark_min_time=0.02"};
    std::vector<char *> arguments{argv, argv + argc};
    for (std::string &option : defaults) {
        arguments.insert(std::next(arguments.begin()), option.data());
    }
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 1;
    }
    for (const ValueRow &row : m_values) {
        benchmark::AddCustomContext(row.work.toStdString(),
                                    cellsOf(row).mid(1).join(QLatin1String(", ")).toStdString());
    }
    FastestReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    Table table;
    for (const TimeRow &row : m_times) {
        const QStringList cells = cellsOf(row, reporter);
        if (!cells.isEmpty()) {
            table.push_back(cells);
        }
    }
    std::transform(m_values.begin(), m_values.end(), std::back_inserter(table),
                   [](const ValueRow &row) { return cellsOf(row); });
    print(std::move(table));
    return 0;
}
