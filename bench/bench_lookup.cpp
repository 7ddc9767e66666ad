// The time of a lookup in a description file, compared with QSettings and a text stream that read the same keys, and
// with opening and reading the file alone.
#include "comparison.h"
#include "sampledescriptions.h"

#include <QSettings>

#include <benchmark/benchmark.h>

#include <array>

using namespace sampledescriptions;

namespace {

// QSettings caches the last files that it has parsed, six of this size. All benchmarks read many more files in turn, so
// QSettings parses each one, and the caches of the file system have the same effect on all.
constexpr quint32 fileCount = 64;

/// Copies of a file for consecutive type codes. Entries before the one that the lookup finds have another type code.
struct Files {
    quint32 first;
    int entries;
    int match; ///< number of the entry that the lookup finds, from 1

    /// Of an INI file. QSettings returns the sections in the order of their names.
    static QString sectionName(int entry) { return QStringLiteral("%1").arg(entry, 3, 10, QLatin1Char('0')); }
    static QString iniPath(quint32 typeCode) { return metFilePath(typeCode) % QStringLiteral(".ini"); }
    void write() const
    {
        for (quint32 code = first; code < first + fileCount; ++code) {
            QByteArray description;
            QByteArray ini;
            for (int entry = 1; entry <= entries; ++entry) {
                const quint32 entryCode = entry == match ? code : 0x1000;
                description += descriptionEntry(entryCode);
                ini += iniSection(sectionName(entry).toLatin1(), entryCode);
            }
            catalog().writeFile(metFilePath(code), description);
            catalog().writeFile(iniPath(code), ini);
        }
    }
};

/// Calls @p lookUp with the type codes of the files in turn.
template <typename LookUp>
auto inTurn(const Files &files, const LookUp &lookUp)
{
    return [files, lookUp](benchmark::State &state) {
        quint32 turn = 0;
        for ([[maybe_unused]] const auto _ : state) {
            if (!lookUp(files, files.first + turn++ % fileCount)) {
                state.SkipWithError("nothing found");
                return;
            }
        }
    };
}

bool byPlugin(const Files &files, quint32 typeCode)
{
    ModuleMetInfo info;
    const bool found = lookUpMetInfo(typeCode, info) == files.match - 1;
    benchmark::DoNotOptimize(info);
    return found;
}

bool byTextStream(const Files &files, quint32 typeCode)
{
    ModuleMetInfo info;
    const bool found = lookUpPlainly(typeCode, info) == files.match - 1;
    benchmark::DoNotOptimize(info);
    return found;
}

/// Reads each key of the section and leaves the values as texts and lists of texts.
bool readSection(QSettings &settings, const QString &section)
{
    settings.beginGroup(section);
    bool found = true;
    for (const MetKey &key : metKeys) {
        const QVariant value = settings.value(key.name);
        found = found && value.isValid();
        benchmark::DoNotOptimize(value);
    }
    return found;
}

/// Searches the sections for the type code, as a lookup does.
bool bySettings(const Files &files, quint32 typeCode)
{
    QSettings settings(Files::iniPath(typeCode), QSettings::IniFormat);
    const QStringList sections = settings.childGroups();
    for (const QString &section : sections) {
        if (settings.value(section % QStringLiteral("/NeedHwCnfgVersion")).toUInt() > getAppVerNum()) {
            return false;
        }
        if (settings.value(section % QStringLiteral("/ObjID")).toString().toUInt(nullptr, 16) == typeCode) {
            return readSection(settings, section) && section == Files::sectionName(files.match);
        }
    }
    return false;
}

/// Reads the section without a search.
bool bySettingsInKnownSection(const Files &files, quint32 typeCode)
{
    QSettings settings(Files::iniPath(typeCode), QSettings::IniFormat);
    return readSection(settings, Files::sectionName(files.match));
}

bool byReading(const Files & /*files*/, quint32 typeCode)
{
    const QByteArray content = readDescription(typeCode);
    benchmark::DoNotOptimize(content.constData());
    return !content.isEmpty();
}

void addFiles(Comparison &comparison, const Files &files, const QString &name, double goal)
{
    files.write();
    const auto named = [&](const char *side) { return QStringLiteral("%1/%2").arg(name, QLatin1String(side)); };
    const auto measure = [&](const char *side, bool (*lookUp)(const Files &, quint32)) {
        benchmark::RegisterBenchmark(qPrintable(named(side)), inTurn(files, lookUp));
    };
    measure("plug-in", byPlugin);
    measure("QSettings", bySettings);
    measure("QSettings, section known", bySettingsInKnownSection);
    measure("text stream", byTextStream);
    measure("open and read", byReading);
    const QString ours = named("plug-in");
    comparison.add(TimeRow{name, ours, {named("QSettings")}});
    comparison.add(TimeRow{name, ours, {named("QSettings")}, goal, named("open and read")});
    comparison.add(TimeRow{name, ours, {named("open and read")}});
    comparison.add(TimeRow{name, ours, {named("text stream")}});
    comparison.add(TimeRow{name, ours, {named("QSettings, section known")}});
}

} // namespace

int main(int argc, char *argv[])
{
    Comparison comparison;
    addFiles(comparison, {0x3400, 1, 1}, QStringLiteral("40 lines"), 0.15);
    const auto nameOf = [](int match) { return QStringLiteral("entry %1 of 100").arg(match); };
    for (const int match : {25, 50, 100}) {
        addFiles(comparison, {static_cast<quint32>(0x10000 * match), 100, match}, nameOf(match),
                 match == 50 ? 0.06 : 0);
    }
    for (const int match : {50, 100}) {
        const auto ours = [&](int entry) -> QString { return nameOf(entry) % QStringLiteral("/plug-in"); };
        comparison.add(TimeRow{QStringLiteral("lines before the match doubled"), ours(match), {ours(match / 2)}});
    }
    return comparison.run(argc, argv);
}
