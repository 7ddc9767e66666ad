#include "problems.h"

#include "catalog.h"
#include "linter.h"
#include "station.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 maximumSize = 1024LL * 1024; // bytes, many times the size of any description file

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Problems)
};

void addUnreserved(const Station &station, std::vector<Problem> &problems)
{
    for (const UnreservedRange &unreserved : station.memory().unreserved()) {
        const QString range = rangeText(unreserved.range);
        const QString text =
            unreserved.occupant
                ? Texts::tr("%1 is not reserved, because it overlaps the addresses of %2. Change those addresses.")
                      .arg(range, station.describe(*unreserved.occupant))
                : Texts::tr("%1 is not reserved, because it is outside its area. Choose a larger controller.")
                      .arg(range);
        problems.push_back({Problem::Kind::Address, text, unreserved.place, {}, 0});
    }
}

/// Differences between the host's map and the modules, which a correct plug-in does not leave.
void addStray(const Station &station, std::vector<Problem> &problems)
{
    for (const MemoryRange &range : station.memory().lost()) {
        problems.push_back(
            {Problem::Kind::Address,
             Texts::tr("%1 is not reserved for its module. Open the project again.").arg(rangeText(range)),
             station.memory().holder(range),
             {},
             0});
    }
    for (const MemoryRange &range : station.memory().stray()) {
        problems.push_back(
            {Problem::Kind::Address,
             Texts::tr("%1 is reserved, but no module uses it. Open the project again.").arg(rangeText(range)),
             {},
             {},
             0});
    }
}

/// True if the plug-in creates modules from the file.
bool isUsed(const PluginLibrary &plugin, const std::vector<CatalogEntry> &catalog, const QString &fileName)
{
    const std::optional<quint32> type = typeCodeOfFileName(fileName);
    return type && fileName == descriptionFileName(*type) && findEntry(catalog, *type) != nullptr &&
           plugin.own(plugin.exports().createObject(*type, QString()));
}

/// The linter's texts are English and are not sentences. Its rule has the same name in every language.
QString sentence(const Diagnostic &diagnostic)
{
    return diagnostic.text.left(1).toUpper() +
           QStringLiteral("%1. [%2]").arg(diagnostic.text.mid(1), QLatin1String(lintRule(diagnostic.rule).id));
}

void addDiagnostics(const QFileInfo &info, std::vector<Problem> &problems)
{
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly)) {
        problems.push_back({Problem::Kind::Description, file.errorString(), {}, info.filePath(), 0});
        return;
    }
    LintContext context;
    context.fileName = info.fileName();
    context.hostVersion = getAppVerNum();
    context.componentFolder = getHwcnfgComponentPath(HwcnfgComponent::ModuleComponent);
    const std::size_t before = problems.size();
    for (const Diagnostic &diagnostic : lint(file.read(maximumSize), context)) {
        if (lintRule(diagnostic.rule).severity == Severity::Error) {
            problems.push_back(
                {Problem::Kind::Description, sentence(diagnostic), {}, info.filePath(), diagnostic.place.line});
        }
    }
    if (problems.size() == before) {
        const quint32 type = typeCodeOfFileName(info.fileName()).value_or(0);
        problems.push_back({Problem::Kind::Description, typeProblem(type), {}, info.filePath(), 0});
    }
}

} // namespace

std::vector<Problem> problemsOf(const Station &station)
{
    std::vector<Problem> problems;
    for (const ModuleSummary &module : station.unavailableModules()) {
        problems.push_back(
            {Problem::Kind::Module,
             Texts::tr("\"%1\" is not available, and Compile leaves it out. %2").arg(module.name, module.unavailable),
             module.place,
             {},
             0});
    }
    addUnreserved(station, problems);
    addStray(station, problems);
    return problems;
}

std::vector<Problem> ignoredDescriptions(const PluginLibrary &plugin)
{
    const std::vector<CatalogEntry> catalog = readCatalog();
    const QDir folder(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription));
    std::vector<Problem> problems;
    for (const QFileInfo &info : folder.entryInfoList({QStringLiteral("hw*.met")}, QDir::Files, QDir::Name)) {
        if (info.isFile() && !isUsed(plugin, catalog, info.fileName())) {
            addDiagnostics(info, problems);
        }
    }
    return problems;
}

QString whereText(const Problem &problem)
{
    if (problem.place) {
        return Texts::tr("Rack %1, slot %2").arg(problem.place->rack).arg(problem.place->slot);
    }
    const QString name = QFileInfo(problem.file).fileName();
    return problem.line == 0 ? name : Texts::tr("%1, line %2").arg(name).arg(problem.line);
}
