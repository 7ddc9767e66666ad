// What all benchmark programs share: the table of what was measured, ours beside its peer.
//
// A program registers its benchmarks with the benchmark library, names the pairs of them that make a row, and calls
// run(). Every repetition measures all of them, in another order each, so that a busy moment spoils none for good; the
// fastest repetition of each is what counts.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Two benchmarks, by their names. The times of several peers add up; without a peer the row shows our time alone.
struct TimeRow {
    QString work;
    QString ours;
    QStringList peers;
    double goal = 0; ///< largest ratio ours / peer; 0 = none
};

/// Two figures that are no times, such as bytes.
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

    /// Runs the registered benchmarks with the program's arguments and prints the table: by default 15 repetitions of
    /// at least 20 ms. A benchmark with manual time counts with that, every other with the CPU time of its thread.
    /// Returns the program's exit code: 0, also where a goal is missed, for no figure here is a test.
    int run(int argc, char *argv[]) const;

private:
    std::vector<TimeRow> m_times;
    std::vector<ValueRow> m_values;
};
