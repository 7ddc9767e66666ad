#include "station.h"

#include "baseservices.h"
#include "imagerangetext.h"

#include <QPoint>

#include <algorithm>
#include <array>
#include <utility>

namespace {

QByteArray compiledBlock(const PluginExports &exports, SimpleExtendPar *handle)
{
    QByteArray block;
    QStringList list;
    exports.compile(handle, block, list);
    return block;
}

/// True when the blocks are of one size and differ in exactly @p count bytes.
bool differInBytes(const QByteArray &a, const QByteArray &b, int count)
{
    if (a.size() != b.size()) {
        return false;
    }
    int differences = 0;
    for (int i = 0; i < a.size(); ++i) {
        differences += a[i] != b[i] ? 1 : 0;
    }
    return differences == count;
}

bool isHalved(const IoMap &original, const IoMap &rebuilt)
{
    return original.unit == 4 && rebuilt.unit == 2 && original.count != 0;
}

} // namespace

Station::Station(const PluginLibrary &plugin, QString memoryOwner)
    : m_plugin(plugin), m_exports(plugin.exports()), m_memoryOwner(std::move(memoryOwner))
{
}

std::unique_ptr<Station> Station::restored(const PluginLibrary &plugin, const QString &memoryOwner,
                                           const QByteArrayList &states, QString &error)
{
    auto station = std::make_unique<Station>(plugin, memoryOwner);
    backupUsedMemory(memoryOwner);
    bool good = std::all_of(states.begin(), states.end(),
                            [&](const QByteArray &state) { return station->addSaved(state, error); });
    if (good) {
        if (const std::optional<int> unheld = station->firstUnheldModule()) {
            const ModuleView view = station->module(*unheld);
            error = tr("The addresses of \"%1\" in rack %2, slot %3 are taken or do not exist.")
                        .arg(view.name)
                        .arg(view.place.rack)
                        .arg(view.place.slot);
            good = false;
        }
    }
    if (good) {
        popBackupMemory(memoryOwner);
        return station;
    }
    // A module that could not be restored keeps what it had claimed, so its memory goes with the snapshot.
    station.reset();
    restoreUsedMemory(memoryOwner);
    return nullptr;
}

bool Station::addSaved(const QByteArray &state, QString &error)
{
    const int number = count() + 1;
    ModuleHandle module = m_plugin.own(m_exports.restore(state, m_memoryOwner));
    // A type that the catalog lacks may come back as a blank record, which was placed nowhere.
    if (!module || !placeOf(module.get()).isValid()) {
        error = tr("Module %1 is damaged or of a type that is not in the catalog.").arg(number);
        return false;
    }
    const Place place = placeOf(module.get());
    if (moduleAt(place)) {
        error = tr("Module %1 is in rack %2, slot %3 like another module.").arg(number).arg(place.rack).arg(place.slot);
        return false;
    }
    insert(std::move(module));
    return true;
}

/// A restored module does not tell whether the host gave it its addresses. Giving all ranges back and taking them
/// again does: a range that was refused, or taken twice, is not there to be given back.
std::optional<int> Station::firstUnheldModule() const
{
    const auto ranges = [this](int index) { return std::array<IoMap, 2>{module(index).in, module(index).out}; };
    for (int i = 0; i < count(); ++i) {
        for (const IoMap &range : ranges(i)) {
            const int length = rangeBytes(range);
            if (length != 0 && !freeMemory(m_memoryOwner, static_cast<VarArea>(range.area), range.start, length)) {
                return i;
            }
        }
    }
    for (int i = 0; i < count(); ++i) {
        for (const IoMap &range : ranges(i)) {
            const int length = rangeBytes(range);
            if (length != 0 && getMemory(m_memoryOwner, static_cast<VarArea>(range.area), range.start, length) != 1) {
                return i;
            }
        }
    }
    return std::nullopt;
}

Place Station::placeOf(SimpleExtendPar *handle) const
{
    return {m_exports.getRackId(handle), m_exports.getSlotId(handle)};
}

ModuleView Station::module(int index) const
{
    SimpleExtendPar *module = handle(index);
    return {placeOf(module),
            static_cast<quint32>(m_exports.getNodeId(module)),
            m_exports.getName(module),
            m_exports.getComment(module),
            m_exports.getInMap(module),
            m_exports.getOutMap(module)};
}

std::optional<int> Station::moduleAt(Place place) const
{
    const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                    [&](const ModuleHandle &module) { return placeOf(module.get()) == place; });
    if (found == m_modules.end()) {
        return std::nullopt;
    }
    return static_cast<int>(found - m_modules.begin());
}

int Station::insert(ModuleHandle module)
{
    const int index = placeOf(module.get()).index();
    const auto next = std::find_if(m_modules.begin(), m_modules.end(),
                                   [&](const ModuleHandle &other) { return placeOf(other.get()).index() > index; });
    const auto inserted = m_modules.insert(next, std::move(module));
    return static_cast<int>(inserted - m_modules.begin());
}

int Station::insertAt(ModuleHandle module, Place place)
{
    m_exports.setRackId(module.get(), place.rack);
    m_exports.setSlotId(module.get(), place.slot);
    m_exports.setPosition(module.get(), QPoint(place.slot, place.rack));
    return insert(std::move(module));
}

std::optional<int> Station::add(quint32 typeCode, QString &error)
{
    Place free;
    while (free.isValid() && moduleAt(free)) {
        free.slot = (free.slot + 1) % Place::slotCount;
        free.rack += free.slot == 0 ? 1 : 0;
    }
    if (!free.isValid()) {
        error = tr("Every slot of the station is taken.");
        return std::nullopt;
    }
    // A module that finds no room for its outputs leaves its inputs claimed.
    backupUsedMemory(m_memoryOwner);
    ModuleHandle module = m_plugin.own(m_exports.createObject(typeCode, m_memoryOwner));
    if (!module) {
        restoreUsedMemory(m_memoryOwner);
        error = tr("No module of type %1 can be created: the station's memory has no room for its addresses, or its "
                   "description or component file is missing or damaged.")
                    .arg(typeCode);
        return std::nullopt;
    }
    popBackupMemory(m_memoryOwner);
    return insertAt(std::move(module), free);
}

void Station::remove(int index)
{
    m_modules.erase(m_modules.begin() + index);
}

std::optional<int> Station::place(int index, Place place)
{
    if (!place.isValid() || moduleAt(place).value_or(index) != index) {
        return std::nullopt;
    }
    const auto position = m_modules.begin() + index;
    ModuleHandle module = std::move(*position);
    m_modules.erase(position);
    return insertAt(std::move(module), place);
}

void Station::configure(int index, QWidget *parent)
{
    m_exports.config(handle(index), m_memoryOwner, parent, false);
}

QByteArrayList Station::states() const
{
    QByteArrayList states;
    for (const ModuleHandle &module : m_modules) {
        states.append(m_exports.save(module.get()));
    }
    return states;
}

QByteArray Station::compiled() const
{
    QByteArray block;
    QStringList list;
    for (const ModuleHandle &module : m_modules) {
        m_exports.compile(module.get(), block, list);
    }
    return block;
}

RoundTrip Station::roundTrip(int index) const
{
    const QByteArray saved = m_exports.save(handle(index));
    const QByteArray compiled = compiledBlock(m_exports, handle(index));
    // Without an owner the copies claim nothing beside the module itself.
    const ModuleHandle copy = m_plugin.own(m_exports.restore(saved, QString()));
    qint32 code = 0;
    const ModuleHandle rebuilt = m_plugin.own(m_exports.recompile(compiled, QString(), &code));

    RoundTrip result;
    result.savedBytes = saved.size();
    result.compiledBytes = compiled.size();
    result.savedSame = copy && m_exports.save(copy.get()) == saved;
    if (rebuilt) {
        const ModuleView view = module(index);
        result.rangeLengthsHalved = (isHalved(view.in, m_exports.getInMap(rebuilt.get())) ? 1 : 0) +
                                    (isHalved(view.out, m_exports.getOutMap(rebuilt.get())) ? 1 : 0);
        result.compiledSame =
            differInBytes(compiled, compiledBlock(m_exports, rebuilt.get()), result.rangeLengthsHalved);
    }
    return result;
}
