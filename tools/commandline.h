// What the command-line tools have in common: the options --help and --version, messages and the exit status 2.
#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

/// The command line is invalid, or a file cannot be read or written.
constexpr int exitFailure = 2;

/// Prints a message to standard error, after the name of the program.
inline void complain(const QString &text)
{
    std::fprintf(stderr, "%s: %s\n", qPrintable(QCoreApplication::applicationName()), qPrintable(text));
}

/// Parses the arguments of the application, with @p options, --help and --version. Ends the program for these two and
/// for an invalid command line.
inline void processArguments(QCommandLineParser &parser, const char *program, const QList<QCommandLineOption> &options)
{
    QCoreApplication::setApplicationName(QLatin1String(program));
    QCoreApplication::setApplicationVersion(QStringLiteral(TOOLS_VERSION));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help and exit."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version and exit."));
    parser.addOptions({help, version});
    parser.addOptions(options);
    // Not process(), because its exit status for an invalid command line is 1.
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(parser.errorText());
        std::exit(exitFailure);
    }
    if (parser.isSet(help)) {
        parser.showHelp();
    }
    if (parser.isSet(version)) {
        parser.showVersion();
    }
}

/// Returns @p status, or exitFailure after an error message if a part of the output could not be written.
inline int statusAfterOutput(int status)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return status;
    }
    complain(QStringLiteral("a part of the output could not be written"));
    return exitFailure;
}
