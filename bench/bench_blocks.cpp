// The time to save and restore a module and the heap memory of a record, compared with Qt's general classes:
// QDataStream for the bytes, a text stream for the catalog, a CBOR tree for the channels.
#include "comparison.h"
#include "defaultbuilder.h"
#include "diagnostics.h"
#include "modulestate.h"
#include "sampledescriptions.h"

#include <QCborArray>
#include <QCborMap>
#include <QDataStream>
#include <QFileInfo>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>

#include <ctime>
#include <malloc.h>
#include <tuple>

namespace {

constexpr quint32 typeCode = 0x3453;

SimpleExtendPar sampleRecord(quint8 inputs, quint8 outputs)
{
    SimpleExtendPar par;
    par.objId = typeCode;
    par.objName = QStringLiteral("Furnace temperatures");
    par.comment = QStringLiteral("Zone 3, left side");
    par.rackId = 1;
    par.slotId = 4;
    par.moduleInfo = 0x08080000;
    par.inMap = {6, 32, inputs, 1, 2};
    par.outMap = {7, 64, outputs, 1, 2};
    par.aiCount = inputs;
    for (quint8 channel = 0; channel < inputs; ++channel) {
        par.aiKind.insert(channel, VoltageCurrent);
        par.aiFilter.insert(channel, {3, 160, 1});
        par.aiRange.insert(channel, {1, 2, 3, 0, 1});
    }
    par.aqCount = outputs;
    for (quint8 channel = 0; channel < outputs; ++channel) {
        par.aqKind.insert(channel, 0);
        par.aqOutTbl.insert(channel, {0, -1200});
        par.aqOutType.insert(channel, {1, 2});
    }
    return par;
}

/// Without the catalog a lookup finds an empty entry at once, and all component files exist.
bool isCatalogUsed = true;

} // namespace

// The linker replaces the plug-in's functions by these; see the option --wrap in CMakeLists.txt.
qint32 catalogLookUp(quint32 typeCode, ModuleMetInfo &destination) asm("__real__Z13lookUpMetInfojR13ModuleMetInfo");
qint32 lookUp(quint32 typeCode, ModuleMetInfo &destination) asm("__wrap__Z13lookUpMetInfojR13ModuleMetInfo");
bool isComponentOnDisk(const ModuleMetInfo &info) asm("__real__Z16hasComponentFileRK13ModuleMetInfo");
bool isComponentThere(const ModuleMetInfo &info) asm("__wrap__Z16hasComponentFileRK13ModuleMetInfo");

qint32 lookUp(quint32 typeCode, ModuleMetInfo &destination)
{
    if (isCatalogUsed) {
        return catalogLookUp(typeCode, destination);
    }
    destination.objId = typeCode;
    return 0;
}

bool isComponentThere(const ModuleMetInfo &info)
{
    return !isCatalogUsed || isComponentOnDisk(info);
}

// The record in a QDataStream: the fields of a block one by one, the hashes as a whole.

template <std::size_t Size>
QDataStream &operator<<(QDataStream &stream, const std::array<quint8, Size> &bytes)
{
    stream.writeRawData(reinterpret_cast<const char *>(bytes.data()), Size);
    return stream;
}

template <std::size_t Size>
QDataStream &operator>>(QDataStream &stream, std::array<quint8, Size> &bytes)
{
    stream.readRawData(reinterpret_cast<char *>(bytes.data()), Size);
    return stream;
}

/// The members of a structure in the order of the stream.
template <typename Record>
constexpr auto members = std::tuple();
template <>
constexpr auto members<AiFilter> = std::tuple(&AiFilter::samples, &AiFilter::deadband, &AiFilter::filterOn);
template <>
constexpr auto members<AqOutTbl> = std::tuple(&AqOutTbl::freezeLast, &AqOutTbl::stopValue);
template <>
constexpr auto members<AqOutType> = std::tuple(&AqOutType::enable, &AqOutType::range);
template <>
constexpr auto members<IoMap> = std::tuple(&IoMap::area, &IoMap::start, &IoMap::count, &IoMap::unit);
using Par = SimpleExtendPar;
template <>
constexpr auto members<Par> = std::tuple(&Par::objId, &Par::rackId, &Par::slotId, &Par::objName, &Par::comment,
                                         &Par::position, &Par::moduleInfo, &Par::fwVersion, &Par::buffCnfg,
                                         &Par::syncCnfg, &Par::inMap, &Par::outMap, &Par::intEnableTbl,
                                         &Par::reservBytes, &Par::aiCount, &Par::aiKind, &Par::aiFilter, &Par::aiRange,
                                         &Par::aqCount, &Par::aqKind, &Par::aqOutTbl, &Par::aqOutType);

template <typename Record>
using HasMembers = std::enable_if_t<std::tuple_size_v<decltype(members<Record>)> != 0>;

template <typename Record, typename = HasMembers<Record>>
QDataStream &operator<<(QDataStream &stream, const Record &record)
{
    return std::apply([&](auto... each) -> QDataStream & { return (stream << ... << (record.*each)); },
                      members<Record>);
}

template <typename Record, typename = HasMembers<Record>>
QDataStream &operator>>(QDataStream &stream, Record &record)
{
    return std::apply([&](auto... each) -> QDataStream & { return (stream >> ... >> (record.*each)); },
                      members<Record>);
}

namespace {

QByteArray saveByStream(const SimpleExtendPar &par)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << par;
    return bytes;
}

std::unique_ptr<SimpleExtendPar> restoreByStream(const QByteArray &bytes)
{
    auto par = std::make_unique<SimpleExtendPar>();
    QDataStream stream(bytes);
    stream >> *par;
    return par;
}

/// A restore with the catalog: reads the bytes, the head of the record, and whether the component file exists.
std::unique_ptr<SimpleExtendPar> restoreWholeByStream(const QByteArray &bytes)
{
    auto par = restoreByStream(bytes);
    ModuleMetInfo info;
    if (sampledescriptions::lookUpPlainly(par->objId, info) < 0 ||
        !QFileInfo(getHwcnfgComponentPath(HwcnfgComponent::ModuleComponent) % info.serverFile).isFile()) {
        return nullptr;
    }
    par->serverFile = info.serverFile; // represents the whole head
    return par;
}

/// The files of such a restore without any use of their content.
std::unique_ptr<SimpleExtendPar> readCatalogFiles(const QByteArray & /*bytes*/)
{
    ModuleMetInfo info;
    info.serverFile = QStringLiteral("module.cmp");
    if (sampledescriptions::readDescription(typeCode).isEmpty() || !isComponentOnDisk(info)) {
        return nullptr;
    }
    return std::make_unique<SimpleExtendPar>();
}

std::unique_ptr<SimpleExtendPar> restoreByPlugin(const QByteArray &state)
{
    return restoreModule(state, QString());
}

/// Returns the channels with the name of each value.
QCborArray treeOf(const SimpleExtendPar &par)
{
    QCborArray channels;
    for (quint8 channel = 0; channel < par.aiCount; ++channel) {
        const AiFilter filter = par.aiFilter.value(channel);
        QCborMap fields{{QStringLiteral("channel"), channel},
                        {QStringLiteral("family"), par.aiKind.value(channel)},
                        {QStringLiteral("filterOn"), filter.filterOn},
                        {QStringLiteral("samples"), filter.samples},
                        {QStringLiteral("deadband"), filter.deadband}};
        constexpr std::array names{"enable",    "filterTime",       "inputRange",   "openWire",
                                   "direction", "temperatureScale", "coldJunction", "wiringScheme"};
        const AiRange range = par.aiRange.value(channel);
        for (std::size_t i = 0; i < names.size(); ++i) {
            fields.insert(QLatin1String(names[i]), range[i]);
        }
        channels.append(fields);
    }
    return channels;
}

/// Returns the bytes of heap memory that the result of @p make takes, including the overhead of the allocator.
template <typename Make>
double heapOf(const Make &make)
{
    constexpr int copies = 100;
    std::vector<decltype(make())> kept;
    kept.reserve(copies);
    const auto before = mallinfo2().uordblks;
    for (int i = 0; i < copies; ++i) {
        kept.push_back(make());
    }
    return static_cast<double>(mallinfo2().uordblks - before) / copies;
}

using Save = QByteArray (*)(const SimpleExtendPar &par);
using Restore = std::unique_ptr<SimpleExtendPar> (*)(const QByteArray &state);

void measureRestore(const QString &name, const QByteArray &state, Restore restore, bool usesCatalog)
{
    benchmark::RegisterBenchmark(qPrintable(name), [state, restore, usesCatalog](benchmark::State &run) {
        isCatalogUsed = usesCatalog;
        for ([[maybe_unused]] const auto _ : run) {
            const auto par = restore(state);
            if (par == nullptr) {
                run.SkipWithError("nothing restored");
                return;
            }
        }
    });
}

void saveAndRestore(const SimpleExtendPar &par, Save save, Restore restore)
{
    const auto restored = restore(save(par));
    benchmark::DoNotOptimize(restored.get());
}

void measureBoth(const QString &name, const SimpleExtendPar &par, Save save, Restore restore)
{
    benchmark::RegisterBenchmark(qPrintable(name), [par, save, restore](benchmark::State &run) {
        isCatalogUsed = false;
        for ([[maybe_unused]] const auto _ : run) {
            saveAndRestore(par, save, restore);
        }
    });
}

/// Returns the number of diagnostic lines of one save and restore.
int linesOf(const SimpleExtendPar &par)
{
    static int lines = 0;
    lines = 0;
    isCatalogUsed = false;
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
    const auto previous = qInstallMessageHandler([](auto /*type*/, auto & /*context*/, auto & /*text*/) { ++lines; });
    saveAndRestore(par, saveModule, restoreByPlugin);
    qInstallMessageHandler(previous);
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    isCatalogUsed = true;
    return lines;
}

/// Returns the CPU time of this thread for @p work, in seconds.
template <typename Work>
double secondsOf(const Work &work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    work();
    return now() - start;
}

/// Measures save and restore less the time that their lines take while debug output is off.
void measureWithoutLines(const QString &name, const SimpleExtendPar &par)
{
    const auto measure = [par, lines = linesOf(par)](benchmark::State &run) {
        constexpr int times = 100; // much more than a call of the clock takes
        isCatalogUsed = false;
        for ([[maybe_unused]] const auto _ : run) {
            const double whole = secondsOf([&] {
                for (int i = 0; i < times; ++i) {
                    saveAndRestore(par, saveModule, restoreByPlugin);
                }
            });
            const double checks = secondsOf([&] {
                for (int i = 0; i < times * lines; ++i) {
                    writeDiagnostic(DiagnosticLine::Save, QByteArray());
                }
            });
            run.SetIterationTime((whole - checks) / times);
        }
    };
    benchmark::RegisterBenchmark(qPrintable(name), measure)->UseManualTime();
}

QString named(const QString &work, const char *side)
{
    return work % QLatin1Char('/') % QLatin1String(side);
}

/// Adds save and restore without the catalog. Returns the name of the benchmark of restore alone.
QString addRecord(Comparison &comparison, const QString &channels, const SimpleExtendPar &par)
{
    const QString both = QStringLiteral("save + restore, ") % channels;
    measureBoth(named(both, "plug-in"), par, saveModule, restoreByPlugin);
    measureBoth(named(both, "QDataStream"), par, saveByStream, restoreByStream);
    measureWithoutLines(named(both, "without lines"), par);
    comparison.add(TimeRow{both, named(both, "plug-in"), {named(both, "QDataStream")}, 0.45});
    comparison.add(TimeRow{both, named(both, "plug-in"), {named(both, "without lines")}, 1.02});

    const QString restored = QStringLiteral("restore, ") % channels;
    measureRestore(named(restored, "plug-in"), saveModule(par), restoreByPlugin, false);
    measureRestore(named(restored, "QDataStream"), saveByStream(par), restoreByStream, false);
    comparison.add(TimeRow{restored, named(restored, "plug-in"), {named(restored, "QDataStream")}});
    return named(restored, "plug-in");
}

void addWhole(Comparison &comparison, const SimpleExtendPar &par)
{
    sampledescriptions::catalog().writeDescription(typeCode, sampledescriptions::descriptionEntry(typeCode));
    const QString whole = QStringLiteral("whole restore");
    const QString ours = named(whole, "plug-in");
    const QString peer = named(whole, "QDataStream, text stream, exists");
    const QString floor = named(whole, "open, read, exists");
    measureRestore(ours, saveModule(par), restoreByPlugin, true);
    measureRestore(peer, saveByStream(par), restoreWholeByStream, true);
    measureRestore(floor, {}, readCatalogFiles, true);
    comparison.add(TimeRow{whole, ours, {peer}, 0.3, floor});
    comparison.add(TimeRow{whole, ours, {peer}});
}

} // namespace

int main(int argc, char *argv[])
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    sampledescriptions::catalog();
    const SimpleExtendPar small = sampleRecord(8, 8);
    const SimpleExtendPar wide = sampleRecord(255, 0);

    Comparison comparison;
    const QString smallRestore = addRecord(comparison, QStringLiteral("8 in + 8 out"), small);
    const QString wideRestore = addRecord(comparison, QStringLiteral("255 in"), wide);
    const double bytes = static_cast<double>(saveModule(wide).size()) / saveModule(small).size();
    comparison.add(
        TimeRow{QStringLiteral("%1 times the bytes").arg(bytes, 0, 'f', 1), wideRestore, {smallRestore}, 2 * bytes});
    addWhole(comparison, small);
    const QByteArray state = saveModule(wide);
    comparison.add(ValueRow{QStringLiteral("heap, 255 in"), QStringLiteral("restored record"),
                            heapOf([&] { return restoreByPlugin(state); }), QStringLiteral("CBOR tree of its channels"),
                            heapOf([&] { return treeOf(wide); }), QStringLiteral("bytes"), 0.55});
    return comparison.run(argc, argv);
}
