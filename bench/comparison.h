// Measures pairs of benchmarks and prints the table of their ratios.
//
// A program registers its benchmarks with the benchmark library, adds the pairs that make a row, and calls run(). Each
// repetition measures all benchmarks in random order, so a short load on the machine affects few of them. The result of
// a benchmark is its fastest repetition.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Two benchmarks, by their names. The times of several peers are added. Without a peer the row shows only our time.
/// A floor is work that both sides need and that neither can make faster, such as system calls. The row then shows both
/// times less that of the floor, so its ratio depends less on the machine.
struct TimeRow {
    QString work;
    QString ours;
    QStringList peers;
    double goal = 0; ///< maximum ratio ours / peer; without a peer the maximum time in seconds; 0 = none
    QString floor{}; ///< empty: none
};

/// Two figures other than times, such as bytes.
struct ValueRow {
    QString work;
    QString ours;
    double ourValue = 0;
    QString peer;
    double peerValue = 0;
    QString unit;
    double goal = 0; ///< as in TimeRow
};

class Comparison {
public:
    void add(const TimeRow &row) { m_times.push_back(row); }
    void add(const ValueRow &row) { m_values.push_back(row); }

    /// Runs the registered benchmarks with the program's arguments and prints the table. By default there are 15
    /// repetitions of at least 20 ms. A benchmark with manual time uses that time, all others the CPU time of the
    /// thread.
    /// @return the exit status of the program: 1 for an invalid command line, otherwise 0, also if a goal is missed
    int run(int argc, char *argv[]) const;

private:
    std::vector<TimeRow> m_times;
    std::vector<ValueRow> m_values;
};
