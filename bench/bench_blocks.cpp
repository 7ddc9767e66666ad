// How long saving and restoring a module takes, and how much heap a record takes, against what the framework offers for
// the same: QDataStream for the bytes, a text stream for the catalog, a CBOR tree for the channels.
#include "blockvariants.h"
#include "comparison.h"
#include "modulestate.h"
#include "sampledescriptions.h"

#include <QCborArray>
#include <QCborMap>
#include <QDataStream>
#include <QFileInfo>
#include <QLoggingCategory>

#include <malloc.h>

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

} // namespace

// The record as anyone would stream it: what a block holds, field by field, the hashes whole.

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

QDataStream &operator<<(QDataStream &stream, const AiFilter &filter)
{
    return stream << filter.samples << filter.deadband << filter.filterOn;
}

QDataStream &operator>>(QDataStream &stream, AiFilter &filter)
{
    return stream >> filter.samples >> filter.deadband >> filter.filterOn;
}

QDataStream &operator<<(QDataStream &stream, const AqOutTbl &stop)
{
    return stream << stop.freezeLast << stop.stopValue;
}

QDataStream &operator>>(QDataStream &stream, AqOutTbl &stop)
{
    return stream >> stop.freezeLast >> stop.stopValue;
}

QDataStream &operator<<(QDataStream &stream, const AqOutType &type)
{
    return stream << type.enable << type.range;
}

QDataStream &operator>>(QDataStream &stream, AqOutType &type)
{
    return stream >> type.enable >> type.range;
}

QDataStream &operator<<(QDataStream &stream, const IoMap &range)
{
    return stream << range.area << range.start << range.count << range.unit;
}

QDataStream &operator>>(QDataStream &stream, IoMap &range)
{
    return stream >> range.area >> range.start >> range.count >> range.unit;
}

QDataStream &operator<<(QDataStream &stream, const SimpleExtendPar &par)
{
    return stream << par.objId << par.rackId << par.slotId << par.objName << par.comment << par.position
                  << par.moduleInfo << par.fwVersion << par.buffCnfg << par.syncCnfg << par.inMap << par.outMap
                  << par.intEnableTbl << par.reservBytes << par.aiCount << par.aiKind << par.aiFilter << par.aiRange
                  << par.aqCount << par.aqKind << par.aqOutTbl << par.aqOutType;
}

QDataStream &operator>>(QDataStream &stream, SimpleExtendPar &par)
{
    return stream >> par.objId >> par.rackId >> par.slotId >> par.objName >> par.comment >> par.position >>
           par.moduleInfo >> par.fwVersion >> par.buffCnfg >> par.syncCnfg >> par.inMap >> par.outMap >>
           par.intEnableTbl >> par.reservBytes >> par.aiCount >> par.aiKind >> par.aiFilter >> par.aiRange >>
           par.aqCount >> par.aqKind >> par.aqOutTbl >> par.aqOutType;
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

/// What a restore does beside reading the bytes: the head from the catalog, and whether the component file exists.
std::unique_ptr<SimpleExtendPar> restoreWholeByStream(const QByteArray &bytes)
{
    auto par = restoreByStream(bytes);
    ModuleMetInfo info;
    if (sampledescriptions::lookUpPlainly(par->objId, info) < 0 ||
        !QFileInfo(getHwcnfgComponentPath(HwcnfgComponent::ModuleComponent) % info.serverFile).isFile()) {
        return nullptr;
    }
    par->serverFile = info.serverFile; // for the whole head, which is what a restore takes over
    return par;
}

std::unique_ptr<SimpleExtendPar> restoreWhole(const QByteArray &state)
{
    return restoreModule(state, QString());
}

/// The channels with a name at each value.
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

/// Bytes of heap that what @p make returns takes, the allocator's own share included.
template <class Make>
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

void measureRestore(const QString &name, const QByteArray &state, Restore restore)
{
    benchmark::RegisterBenchmark(qPrintable(name), [state, restore](benchmark::State &run) {
        for ([[maybe_unused]] const auto _ : run) {
            const auto par = restore(state);
            if (par == nullptr) {
                run.SkipWithError("nothing restored");
                return;
            }
        }
    });
}

void measureBoth(const QString &name, const SimpleExtendPar &par, Save save, Restore restore)
{
    benchmark::RegisterBenchmark(qPrintable(name), [par, save, restore](benchmark::State &run) {
        for ([[maybe_unused]] const auto _ : run) {
            const auto restored = restore(save(par));
            benchmark::DoNotOptimize(restored.get());
        }
    });
}

QString named(const QString &work, const char *side)
{
    return work % QLatin1Char('/') % QLatin1String(side);
}

/// Save and restore with the catalog set aside. Returns the name of the restore alone.
QString addRecord(Comparison &comparison, const QString &channels, const SimpleExtendPar &par)
{
    const QString both = QStringLiteral("save + restore, ") % channels;
    measureBoth(named(both, "plug-in"), par, asshipped::save, asshipped::restore);
    measureBoth(named(both, "QDataStream"), par, saveByStream, restoreByStream);
    measureBoth(named(both, "without lines"), par, withoutlines::save, withoutlines::restore);
    comparison.add(TimeRow{both, named(both, "plug-in"), {named(both, "QDataStream")}, 0.45});
    comparison.add(TimeRow{both, named(both, "plug-in"), {named(both, "without lines")}, 1.02});

    const QString restored = QStringLiteral("restore, ") % channels;
    measureRestore(named(restored, "plug-in"), asshipped::save(par), asshipped::restore);
    measureRestore(named(restored, "QDataStream"), saveByStream(par), restoreByStream);
    comparison.add(TimeRow{restored, named(restored, "plug-in"), {named(restored, "QDataStream")}});
    return named(restored, "plug-in");
}

void addWhole(Comparison &comparison, const SimpleExtendPar &par)
{
    using sampledescriptions::Folder;
    Folder::write(metFilePath(typeCode), sampledescriptions::descriptionEntry(typeCode));
    const QString whole = QStringLiteral("whole restore");
    measureRestore(named(whole, "plug-in"), saveModule(par), restoreWhole);
    measureRestore(named(whole, "QDataStream, text stream, exists"), saveByStream(par), restoreWholeByStream);
    comparison.add(TimeRow{whole, named(whole, "plug-in"), {named(whole, "QDataStream, text stream, exists")}, 0.35});
}

} // namespace

int main(int argc, char *argv[])
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    sampledescriptions::folder();
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
                            heapOf([&] { return restoreWhole(state); }), QStringLiteral("CBOR tree of its channels"),
                            heapOf([&] { return treeOf(wide); }), QStringLiteral("bytes"), 0.55});
    return comparison.run(argc, argv);
}
