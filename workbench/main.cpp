// The workbench: a host program for the plug-in. It shows a window; without a display it prints a table.
#include "baseservices.h"
#include "batch.h"
#include "catalog.h"
#include "mainwindow.h"
#include "pluginlibrary.h"
#include "projectfile.h"
#include "stationreport.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QTextCodec>
#include <QTextStream>

#include <cstdio>

namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

QString sampleOwner()
{
    return QStringLiteral("workbench");
}

struct Options {
    QCommandLineParser parser;
    // Not "plugin", because Qt removes an option of that name from the arguments.
    QCommandLineOption library{QStringLiteral("library"), QStringLiteral("Load the plug-in from <file>."),
                               QStringLiteral("file")};
    QCommandLineOption table{QStringLiteral("table"),
                             QStringLiteral("Print the station as a table instead of showing a window.")};
    BatchOptions batch;

    Options()
    {
        parser.setApplicationDescription(QStringLiteral(
            "Shows a station of extension modules. Without a file it shows one module of every type.\n\n"
            "Exit status:\n"
            "  0  Success.\n"
            "  1  A module or a block has a problem, the projects differ, or the workbench cannot start.\n"
            "  2  The command line is invalid, or a batch task cannot read or write a file.\n\n"
            "Examples:\n"
            "  $ workbench plant.station\n"
            "  $ workbench --table plant.station\n"
            "  $ workbench --batch plant.station --compile plant.blk\n"
            "  $ workbench --batch plant.station --compare last-week.station"));
        parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Project file to open."),
                                     QStringLiteral("[file]"));
        parser.addHelpOption();
        parser.addVersionOption();
        parser.addOptions({library, table});
        batch.addTo(parser);
    }
};

void complain(const QString &text)
{
    QTextStream(stderr) << text << '\n';
}

/// Returns @p status, or @p failure after an error message if a part of the output could not be written.
int statusAfterOutput(QTextStream &out, int status, int failure)
{
    out.flush();
    if (out.status() == QTextStream::Ok) {
        return status;
    }
    complain(QStringLiteral("A part of the output could not be written."));
    return failure;
}

/// Users who start the program from a desktop do not see standard error.
void complainAtStart(const QString &text, bool inWindow)
{
    complain(text);
    if (inWindow) {
        QMessageBox::critical(nullptr, QCoreApplication::applicationName(), text);
    }
}

/// The plug-in stores names and comments in the local encoding, so an encoding without a character would lose it.
void ensureUnicodeEncoding()
{
    const QString sample = QStringLiteral(u"\u00e4\u4e2d\U0001f600");
    const QTextCodec *codec = QTextCodec::codecForLocale();
    if (codec->toUnicode(codec->fromUnicode(sample)) != sample) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }
}

/// Also true if the user requested a Qt platform that needs no display.
bool hasDisplay()
{
    const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM").section(QLatin1Char(':'), 0, 0);
    if (!platform.isEmpty() && platform != QLatin1String("xcb") && !platform.startsWith(QLatin1String("wayland"))) {
        return true;
    }
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// One module of every type of the catalog, with as many per rack as a window shows.
Result<std::unique_ptr<Station>> sampleStation(const PluginLibrary &plugin, const std::vector<CatalogEntry> &catalog)
{
    auto station = std::make_unique<Station>(plugin, sampleOwner());
    constexpr int modulesPerRack = 4;
    for (const CatalogEntry &entry : catalog) {
        const Place place{station->count() / modulesPerRack, station->count() % modulesPerRack};
        if (const Result<> added = station->add(entry.typeCode, place); !added) {
            return Failure{QStringLiteral("%1: %2").arg(entry.name, added.reason())};
        }
    }
    return station;
}

int printTable(const PluginLibrary &plugin, const std::vector<CatalogEntry> &catalog, const QString &path)
{
    const bool isSample = path.isEmpty();
    const auto station = isSample ? sampleStation(plugin, catalog) : openStation(plugin, sampleOwner(), path);
    if (!station) {
        complain(isSample ? station.reason() : QStringLiteral("%1: %2").arg(path, station.reason()));
        return exitFailure;
    }
    QTextStream out(stdout);
    return statusAfterOutput(out, printStation(out, **station) ? 0 : exitFailure, exitFailure);
}

int showWindow(const PluginLibrary &plugin, const std::vector<CatalogEntry> &catalog, const QString &path)
{
    Result<std::unique_ptr<Station>> station =
        path.isEmpty() ? sampleStation(plugin, catalog) : std::make_unique<Station>(plugin, sampleOwner());
    if (!station) {
        complain(station.reason());
        return exitFailure;
    }
    MainWindow window(plugin, catalog, std::move(*station));
    window.show();
    if (!window.offerRecovery() && !path.isEmpty()) {
        window.openFile(path);
    }
    return QApplication::exec();
}

int run(Options &options, const QCoreApplication &application, bool asTable)
{
    ensureUnicodeEncoding();
    if (!options.parser.parse(QCoreApplication::arguments())) {
        complain(options.parser.errorText());
        return exitUsage;
    }
    options.parser.process(application); // exits for --help and --version
    const bool asBatch = options.parser.isSet(options.batch.batch);
    const QStringList files = options.parser.positionalArguments();
    if (!asBatch && (options.batch.taskCount(options.parser) != 0 || options.parser.isSet(options.batch.modules))) {
        complain(QStringLiteral("A task needs --batch; see --help."));
        return exitUsage;
    }
    if (!asBatch && (files.size() > 1 || files.contains(QString()))) {
        complain(QStringLiteral("Expected at most one file, with a name that is not empty; see --help."));
        return exitUsage;
    }
    PluginLibrary plugin;
    if (const Result<> loaded = plugin.load(options.parser.value(options.library)); !loaded) {
        complainAtStart(QStringLiteral("The plug-in cannot be loaded: %1").arg(loaded.reason()), !asTable && !asBatch);
        return asBatch ? exitUsage : exitFailure;
    }
    if (asBatch) {
        QTextStream out(stdout);
        QTextStream err(stderr);
        return statusAfterOutput(out, runBatch(options.parser, options.batch, plugin, out, err), exitUsage);
    }
    const std::vector<CatalogEntry> catalog = readCatalog();
    if (catalog.empty()) {
        complainAtStart(QStringLiteral("The catalog %1 has no module descriptions.")
                            .arg(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription)),
                        !asTable);
        return exitFailure;
    }
    const QString path = files.value(0);
    return asTable ? printTable(plugin, catalog, path) : showWindow(plugin, catalog, path);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(WORKBENCH_VERSION));
    // The plug-in formats every block as a debug line. QT_LOGGING_RULES can turn these lines on.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));

    Options options;
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments += QString::fromLocal8Bit(argv[i]);
    }
    options.parser.parse(arguments); // still contains Qt's own options
    if (options.parser.isSet(options.table) || options.parser.isSet(options.batch.batch) || !hasDisplay()) {
        if (options.parser.value(options.batch.report).endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
            const QGuiApplication application(argc, argv); // loads fonts
            return run(options, application, true);
        }
        const QCoreApplication application(argc, argv);
        return run(options, application, true);
    }

    // If the display does not answer, the program must print the table and not abort.
    const bool fallsBack = qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (fallsBack) {
        qputenv("QT_QPA_PLATFORM", "xcb;wayland;offscreen");
    }
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("simpleextend-workbench"));
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/icons/workbench-%1.png").arg(size));
    }
    QGuiApplication::setWindowIcon(icon);
    return run(options, application, fallsBack && QGuiApplication::platformName() == QLatin1String("offscreen"));
}
