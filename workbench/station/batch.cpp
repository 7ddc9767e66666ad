#include "batch.h"

#include "blockdecoder.h"
#include "catalog.h"
#include "imagerangetext.h"
#include "projectfile.h"
#include "simulatedbase.h"
#include "stationblocks.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
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

/// Runs one task; the functions of the tasks may be called once.
class Batch {
public:
    Batch(const PluginLibrary &plugin, QTextStream &out, QTextStream &err) : m_plugin(plugin), m_out(out), m_err(err) {}

    BatchExit list(const QString &path)
    {
        if (!open(path)) {
            return UsageOrUnreadable;
        }
        for (int i = 0; i < m_station->count(); ++i) {
            const ModuleView module = m_station->module(i);
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
        const std::optional<Project> project = open(path) ? ProjectFile(path).read() : std::nullopt;
        if (!project) {
            return UsageOrUnreadable;
        }
        for (int i = 0; i < m_station->count(); ++i) {
            const ModuleView module = m_station->module(i);
            const QByteArray &stored = project->modules[static_cast<std::size_t>(i)].state;
            if (!module.unavailable.isEmpty()) {
                find(module, QStringLiteral("unavailable: ") + module.unavailable);
            } else if (m_station->stored(i).state != stored) {
                find(module, QStringLiteral("restored and saved again, its state is another one"));
            }
        }
        return finish();
    }

    BatchExit compile(const QString &path, const QString &blockFile)
    {
        if (!open(path)) {
            return UsageOrUnreadable;
        }
        const int views = m_station->unavailableCount() == 0 ? 0 : m_station->count(); // making them takes time
        for (int i = 0; i < views; ++i) {
            if (const ModuleView module = m_station->module(i); !module.unavailable.isEmpty()) {
                find(module, QStringLiteral("left out: ") + module.unavailable);
            }
        }
        QString error;
        if (!writeFile(blockFile, *m_station->compiled(), error)) {
            return refuse(blockFile, error);
        }
        return finish();
    }

    BatchExit decompile(const QString &path, const QString &blockFile)
    {
        QFile file(blockFile);
        if (!file.open(QIODevice::ReadOnly)) {
            return refuse(blockFile, file.errorString());
        }
        if (file.size() > blockdecoder::maximumFileSize) {
            return refuse(blockFile, QStringLiteral("The file is too large for the blocks of a station."));
        }
        std::vector<BlockResult> results;
        m_station = decompiled(m_plugin, owner(), file.readAll(), results);
        for (const BlockResult &result : results) {
            m_out << "block " << result.number << " at byte " << result.offset << ", result code " << result.code
                  << ": " << QStringList{result.error, result.unread}.join(QLatin1Char(' ')).trimmed() << '\n';
            ++m_findings;
        }
        if (m_station->count() == 0) { // most likely a file of something else
            m_out << "No project is written.\n";
            return finish();
        }
        return writeNew(path) ? finish() : UsageOrUnreadable;
    }

    /// Modules of all types of the catalog in turn, under the smallest controller that has room for them.
    BatchExit create(const QString &path, int modules)
    {
        const std::vector<CatalogEntry> catalog = readCatalog();
        if (catalog.empty()) {
            return refuse(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription),
                          QStringLiteral("The catalog describes no module."));
        }
        m_station = std::make_unique<Station>(m_plugin, owner());
        QString error;
        m_station->setPlcType(simulatedhost::plcTypes().constLast().id, error);
        for (int i = 0; i < modules; ++i) {
            const CatalogEntry &entry = catalog[static_cast<std::size_t>(i) % catalog.size()];
            if (!m_station->add(entry.typeCode, Place::at(i), error)) {
                m_out << "module " << i + 1 << " of " << modules << " does not fit: " << error << '\n';
                return Findings;
            }
        }
        m_station->fitPlcType();
        return writeNew(path) ? finish() : UsageOrUnreadable;
    }

private:
    bool open(const QString &path)
    {
        QString error;
        m_station = openStation(m_plugin, owner(), path, error);
        if (!m_station) {
            refuse(path, error);
        }
        return m_station != nullptr;
    }

    bool writeNew(const QString &path)
    {
        ProjectFile file(path);
        if (QFileInfo::exists(path)) {
            refuse(path, QStringLiteral("The file exists already."));
            return false;
        }
        if (!file.write(m_station->project())) {
            refuse(path, file.errorString());
            return false;
        }
        return true;
    }

    void find(const ModuleView &module, const QString &text)
    {
        m_out << placeText(module.place) << ": \"" << module.name << "\" " << text << '\n';
        ++m_findings;
    }

    BatchExit refuse(const QString &path, const QString &error)
    {
        m_err << QDir::toNativeSeparators(path) << ": " << error << '\n';
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
    : batch(QStringLiteral("batch"), QStringLiteral("Do one of the tasks below, without a window.")),
      list(QStringLiteral("list"), QStringLiteral("Batch: list the modules of the project.")),
      verify(QStringLiteral("verify"), QStringLiteral("Batch: restore every module, save it again and compare.")),
      compile(QStringLiteral("compile"), QStringLiteral("Batch: write the station's configuration block to <out>."),
              QStringLiteral("out")),
      decompile(QStringLiteral("decompile"),
                QStringLiteral("Batch: build the new project [file] from the configuration block of <block file>."),
                QStringLiteral("block file")),
      create(QStringLiteral("new"), QStringLiteral("Batch: write the new project <project>."),
             QStringLiteral("project")),
      modules(QStringLiteral("modules"), QStringLiteral("Batch, with --new: number of modules, of all types in turn."),
              QStringLiteral("number"))
{
}

void BatchOptions::addTo(QCommandLineParser &parser) const
{
    parser.addOptions({batch, list, verify, compile, decompile, create, modules});
}

BatchExit runBatch(const QCommandLineParser &parser, const BatchOptions &options, const PluginLibrary &plugin,
                   QTextStream &out, QTextStream &err)
{
    const auto tasks = {&options.list, &options.verify, &options.compile, &options.decompile, &options.create};
    const auto chosen =
        std::count_if(tasks.begin(), tasks.end(), [&](const QCommandLineOption *task) { return parser.isSet(*task); });
    const bool creates = parser.isSet(options.create);
    const QStringList files = parser.positionalArguments();
    if (chosen != 1 || parser.isSet(options.modules) != creates || files.size() != (creates ? 0 : 1)) {
        err << "--batch takes a project file and one of --list, --verify, --compile and --decompile, or --new and "
               "--modules.\n";
        return UsageOrUnreadable;
    }
    Batch batch(plugin, out, err);
    if (creates) {
        bool isNumber = false;
        const int modules = parser.value(options.modules).toInt(&isNumber);
        if (!isNumber || modules < 0) {
            err << "--modules takes a number from 0.\n";
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
    return batch.decompile(files.first(), parser.value(options.decompile));
}
