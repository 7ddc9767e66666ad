#include "batch.h"

#include "catalog.h"
#include "files.h"
#include "imagerangetext.h"
#include "projectcompare.h"
#include "projectfile.h"
#include "reportfile.h"
#include "stationblocks.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>

namespace {

QString owner()
{
    return QStringLiteral("workbench-batch");
}

QString placeText(Place place)
{
    return QStringLiteral("rack %1, slot %2").arg(place.rack).arg(place.slot);
}

/// Runs one task. Call one of the task functions, once.
class Batch {
public:
    Batch(const PluginLibrary &plugin, QTextStream &out, QTextStream &err) : m_plugin(plugin), m_out(out), m_err(err) {}

    BatchExit list(const QString &path)
    {
        if (!open(path)) {
            return UsageOrUnreadable;
        }
        for (int i = 0; i < m_station->count(); ++i) {
            const ModuleSummary module = m_station->module(i);
            if (!module.unavailable.isEmpty()) {
                find(module, QStringLiteral("unavailable: ") + module.unavailable);
                continue;
            }
            QStringList cells{QString::number(module.typeCode), module.name};
            cells << rangeText(module.in) << rangeText(module.out);
            cells.removeAll(QString());
            m_out << placeText(module.place) << ": " << cells.join(QStringLiteral(", ")) << '\n';
        }
        return finish();
    }

    BatchExit verify(const QString &path)
    {
        const Result<Project> project = ProjectFile(path).read();
        if (!project) {
            return refuse(path, project);
        }
        if (!use(path, Station::opened(m_plugin, owner(), *project))) {
            return UsageOrUnreadable;
        }
        for (int i = 0; i < m_station->count(); ++i) {
            const ModuleSummary module = m_station->module(i);
            const QByteArray &stored = project->modules[static_cast<std::size_t>(i)].state;
            if (!module.unavailable.isEmpty()) {
                find(module, QStringLiteral("unavailable: ") + module.unavailable);
            } else if (m_station->stored(i).state != stored) {
                find(module, QStringLiteral("changes its state when it is restored and saved again"));
            }
        }
        return finish();
    }

    BatchExit compile(const QString &path, const QString &blockFile)
    {
        if (!open(path)) {
            return UsageOrUnreadable;
        }
        for (const ModuleSummary &module : m_station->unavailableModules()) {
            find(module, QStringLiteral("left out: ") + module.unavailable);
        }
        if (const Result<> written = writeFile(blockFile, *m_station->compiled()); !written) {
            return refuse(blockFile, written);
        }
        m_out << m_station->count() - m_findings << " of " << m_station->count() << " modules compiled\n";
        return m_findings == 0 ? NoFindings : Findings;
    }

    BatchExit decompile(const QString &path, const QString &blockFile)
    {
        const Result<QByteArray> bytes = readBlockFile(blockFile);
        if (!bytes) {
            return refuse(blockFile, bytes);
        }
        DecompiledStation rebuilt = decompiled(m_plugin, owner(), *bytes);
        m_station = std::move(rebuilt.station);
        for (const BlockResult &result : rebuilt.problems) {
            m_out << "block " << result.number << " at byte " << result.offset << ", result code " << result.code
                  << ": " << QStringList{result.error, result.unread}.join(QLatin1Char(' ')).trimmed() << '\n';
            ++m_findings;
        }
        if (m_station->count() == 0) { // probably a file of another kind
            m_out << "No project is written.\n";
            return finish();
        }
        return finishWith(path);
    }

    BatchExit report(const QString &path, const QString &out)
    {
        if (!open(path)) {
            return UsageOrUnreadable;
        }
        const int views = m_station->unavailableCount() == 0 ? 0 : m_station->count();
        for (int i = 0; i < views; ++i) {
            if (const ModuleSummary module = m_station->module(i); !module.unavailable.isEmpty()) {
                find(module, QStringLiteral("unavailable: ") + module.unavailable);
            }
        }
        const Result<> written = writeReport(out, *m_station, readCatalog(), {path, QDateTime::currentDateTime()});
        return written ? finish() : refuse(out, written);
    }

    /// Reads the files only, so modules that the plug-in cannot restore are compared, too.
    BatchExit compare(const QString &path, const QString &other)
    {
        const Result<Project> left = ProjectFile(path).read();
        const Result<Project> right = ProjectFile(other).read();
        if (!left || !right) {
            return left ? refuse(other, right) : refuse(path, left);
        }
        const QVector<ProjectDifference> differences = compareProjects(*left, *right);
        for (const ProjectDifference &difference : differences) {
            m_out << differenceLine(difference, path, other) << '\n';
        }
        return differences.isEmpty() ? NoFindings : Findings;
    }

    /// Modules of all types of the catalog in turn, with the smallest controller that has room for them.
    BatchExit create(const QString &path, int modules)
    {
        const std::vector<CatalogEntry> catalog = readCatalog();
        if (catalog.empty()) {
            return refuse(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription),
                          Failure{QStringLiteral("The catalog has no module descriptions.")});
        }
        m_station = std::make_unique<Station>(m_plugin, owner());
        m_station->setLargestPlcType();
        for (int i = 0; i < modules; ++i) {
            const CatalogEntry &entry = catalog[static_cast<std::size_t>(i) % catalog.size()];
            if (const Result<> added = m_station->add(entry.typeCode, Place::at(i)); !added) {
                m_out << "module " << i + 1 << " of " << modules << " does not fit: " << added.reason() << '\n';
                return Findings;
            }
        }
        m_station->fitPlcType();
        return finishWith(path);
    }

private:
    bool open(const QString &path) { return use(path, openStation(m_plugin, owner(), path)); }

    bool use(const QString &path, Result<std::unique_ptr<Station>> opened)
    {
        if (!opened) {
            refuse(path, opened);
            return false;
        }
        m_station = std::move(*opened);
        return true;
    }

    BatchExit finishWith(const QString &path)
    {
        const Result<> written = QFileInfo::exists(path) ? Failure{QStringLiteral("The file already exists.")}
                                                         : ProjectFile(path).write(m_station->project());
        return written ? finish() : refuse(path, written);
    }

    void find(const ModuleSummary &module, const QString &text)
    {
        m_out << placeText(module.place) << ": \"" << module.name << "\" " << text << '\n';
        ++m_findings;
    }

    BatchExit refuse(const QString &path, const Result<> &failed)
    {
        m_err << QDir::toNativeSeparators(path) << ": " << failed.reason() << '\n';
        return UsageOrUnreadable;
    }

    BatchExit finish()
    {
        m_out << m_station->count() << " modules, " << m_findings << " findings\n";
        return m_findings == 0 ? NoFindings : Findings;
    }

    const PluginLibrary &m_plugin;
    QTextStream &m_out;
    QTextStream &m_err;
    std::unique_ptr<Station> m_station;
    int m_findings = 0;
};

} // namespace

BatchOptions::BatchOptions()
    : batch(QStringLiteral("batch"), QStringLiteral("Run one of the tasks below, without a window.")),
      list(QStringLiteral("list"), QStringLiteral("Batch: list the modules of the project [file].")),
      verify(QStringLiteral("verify"),
             QStringLiteral("Batch: restore every module of [file], save it again and compare.")),
      compile(QStringLiteral("compile"),
              QStringLiteral("Batch: write the configuration blocks of [file] to the file <out>."),
              QStringLiteral("out")),
      decompile(QStringLiteral("decompile"),
                QStringLiteral("Batch: create the project [file] from the configuration blocks in <block file>."),
                QStringLiteral("block file")),
      report(QStringLiteral("report"),
             QStringLiteral("Batch: write a report of [file] to the file <out>: .html, .pdf, .csv or .json."),
             QStringLiteral("out")),
      compare(QStringLiteral("compare"),
              QStringLiteral("Batch: print one line for each difference between [file] and the project <other>."),
              QStringLiteral("other")),
      create(QStringLiteral("new"), QStringLiteral("Batch: with --modules, create the project file <project>."),
             QStringLiteral("project")),
      modules(QStringLiteral("modules"),
              QStringLiteral("Batch: number of modules for --new. Uses all module types in turn."),
              QStringLiteral("number"))
{
}

void BatchOptions::addTo(QCommandLineParser &parser) const
{
    parser.addOptions({batch, list, verify, compile, decompile, report, compare, create, modules});
}

int BatchOptions::taskCount(const QCommandLineParser &parser) const
{
    const auto tasks = {&list, &verify, &compile, &decompile, &report, &compare, &create};
    return static_cast<int>(std::count_if(tasks.begin(), tasks.end(),
                                          [&parser](const QCommandLineOption *task) { return parser.isSet(*task); }));
}

BatchExit runBatch(const QCommandLineParser &parser, const BatchOptions &options, const PluginLibrary &plugin,
                   QTextStream &out, QTextStream &err)
{
    const bool creates = parser.isSet(options.create);
    const QStringList files = parser.positionalArguments();
    if (options.taskCount(parser) != 1 || parser.isSet(options.modules) != creates ||
        files.size() != (creates ? 0 : 1)) {
        err << "--batch needs a project file and one of --list, --verify, --compile, --decompile, --report and "
               "--compare, or "
               "--new and --modules.\n";
        return UsageOrUnreadable;
    }
    Batch batch(plugin, out, err);
    if (creates) {
        bool isNumber = false;
        const int modules = parser.value(options.modules).toInt(&isNumber);
        if (!isNumber || modules < 0) {
            err << "--modules needs an integer of at least 0.\n";
            return UsageOrUnreadable;
        }
        return batch.create(parser.value(options.create), modules);
    }
    if (parser.isSet(options.list)) {
        return batch.list(files.first());
    }
    if (parser.isSet(options.verify)) {
        return batch.verify(files.first());
    }
    if (parser.isSet(options.compile)) {
        return batch.compile(files.first(), parser.value(options.compile));
    }
    if (parser.isSet(options.report)) {
        return batch.report(files.first(), parser.value(options.report));
    }
    if (parser.isSet(options.compare)) {
        return batch.compare(files.first(), parser.value(options.compare));
    }
    return batch.decompile(files.first(), parser.value(options.decompile));
}
