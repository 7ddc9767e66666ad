// The workbench without a window: one task on one project file, for scripts and load tests.
#pragma once

#include <QCommandLineOption>

class PluginLibrary;
class QCommandLineParser;
class QTextStream;

enum BatchExit {
    NoFindings = 0,
    Findings = 1,         ///< something is wrong with a module or a block
    UsageOrUnreadable = 2 ///< nothing could be done
};

/// The options of all tasks, of which a command line has one.
struct BatchOptions {
    BatchOptions();

    void addTo(QCommandLineParser &parser) const;

    QCommandLineOption batch;
    QCommandLineOption list;
    QCommandLineOption verify;
    QCommandLineOption compile;
    QCommandLineOption decompile;
    QCommandLineOption create;
    QCommandLineOption modules;
};

/// Runs the task of a parsed command line. Prints one line per finding to @p out, and to @p err why nothing could be
/// done. A file that exists is never overwritten by a new project.
BatchExit runBatch(const QCommandLineParser &parser, const BatchOptions &options, const PluginLibrary &plugin,
                   QTextStream &out, QTextStream &err);
