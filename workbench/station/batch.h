// The workbench without a window: one task on one project file, for scripts and load tests.
#pragma once

#include <QCommandLineOption>

class PluginLibrary;
class QCommandLineParser;
class QTextStream;

/// Exit status of the program.
enum BatchExit {
    NoFindings = 0,
    Findings = 1,         ///< a module or a block has a problem
    UsageOrUnreadable = 2 ///< the command line is wrong, or a file cannot be read or written
};

/// The options of all tasks. A valid command line contains one task.
struct BatchOptions {
    BatchOptions();

    void addTo(QCommandLineParser &parser) const;
    /// The number of different tasks in the arguments.
    int taskCount(const QCommandLineParser &parser) const;

    QCommandLineOption batch;
    QCommandLineOption list;
    QCommandLineOption verify;
    QCommandLineOption compile;
    QCommandLineOption decompile;
    QCommandLineOption report;
    QCommandLineOption compare;
    QCommandLineOption create;
    QCommandLineOption modules;
};

/// Runs the task of a parsed command line. Prints results and problems to @p out, and the reason of UsageOrUnreadable
/// to @p err. Never overwrites a file with a new project.
BatchExit runBatch(const QCommandLineParser &parser, const BatchOptions &options, const PluginLibrary &plugin,
                   QTextStream &out, QTextStream &err);
