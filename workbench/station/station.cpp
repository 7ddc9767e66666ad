#include "station.h"

#include "catalog.h"
#include "simulatedbase.h"
#include "statepatch.h"

#include <QPoint>
#include <QSet>

#include <algorithm>
#include <utility>

Station::Station(const PluginLibrary &plugin, QString memoryOwner)
    : m_plugin(plugin),
      m_exports(plugin.exports()),
      m_memory(std::move(memoryOwner), [this](Place place) { return describe(place); })
{
}

Station::~Station() = default;

QString Station::describe(Place place) const
{
    const std::optional<int> index = moduleAt(place);
    return tr("\"%1\" in rack %2, slot %3")
        .arg(index ? module(*index).name : QString(), QString::number(place.rack), QString::number(place.slot));
}

int Station::unavailableCount() const
{
    return static_cast<int>(
        std::count_if(m_modules.begin(), m_modules.end(), [](const Module &module) { return !module.handle; }));
}

std::vector<ModuleSummary> Station::unavailableModules() const
{
    std::vector<ModuleSummary> summaries;
    for (int i = 0; i < count(); ++i) {
        if (!at(i).handle) {
            summaries.push_back(module(i));
        }
    }
    return summaries;
}

Place Station::placeOf(SimpleExtendPar *handle) const
{
    return {m_exports.getRackId(handle), m_exports.getSlotId(handle)};
}

void Station::setPlace(SimpleExtendPar *handle, Place place) const
{
    m_exports.setRackId(handle, place.rack);
    m_exports.setSlotId(handle, place.slot);
    m_exports.setPosition(handle, QPoint(place.slot, place.rack));
}

std::vector<MemoryRange> Station::rangesOf(SimpleExtendPar *handle) const
{
    return handle == nullptr ? std::vector<MemoryRange>()
                             : memoryRanges(m_exports.getInMap(handle), m_exports.getOutMap(handle));
}

ModuleSummary Station::module(int index) const
{
    const Module &module = at(index);
    if (!module.handle) {
        return {module.place, module.kept.typeCode, module.kept.name,       {},
                module.in,    module.out,           module.kept.unavailable};
    }
    SimpleExtendPar *handle = module.handle.get();
    return {module.place,
            static_cast<quint32>(m_exports.getNodeId(handle)),
            m_exports.getName(handle),
            m_exports.getComment(handle),
            m_exports.getInMap(handle),
            m_exports.getOutMap(handle),
            {}};
}

std::vector<Station::Module>::const_iterator Station::lowerBound(Place place) const
{
    return std::lower_bound(m_modules.begin(), m_modules.end(), place.index(),
                            [](const Module &module, int placeIndex) { return module.place.index() < placeIndex; });
}

std::optional<int> Station::moduleAt(Place place) const
{
    const auto found = lowerBound(place);
    if (found == m_modules.end() || found->place != place) {
        return std::nullopt;
    }
    return static_cast<int>(found - m_modules.begin());
}

std::optional<Place> Station::freePlace(Place wanted) const
{
    int index = wanted.index();
    auto next = lowerBound(wanted);
    for (int i = 0; i < Place::count; ++i) { // along the modules, because a search for each place takes longer
        next = next == m_modules.end() ? m_modules.begin() : next;
        if (next == m_modules.end() || next->place.index() != index) {
            return Place::at(index);
        }
        ++next;
        index = (index + 1) % Place::count;
    }
    return std::nullopt;
}

Result<> Station::checkFree(Place place) const
{
    if (!place.isValid()) {
        return Failure{tr("Rack %1, slot %2 does not exist. Racks have the numbers 0 to %3, slots 0 to %4.")
                           .arg(place.rack)
                           .arg(place.slot)
                           .arg(Place::rackCount - 1)
                           .arg(Place::slotCount - 1)};
    }
    if (const std::optional<int> occupant = moduleAt(place)) {
        return Failure{
            tr("Rack %1, slot %2 is taken by \"%3\".").arg(place.rack).arg(place.slot).arg(module(*occupant).name)};
    }
    return {};
}

Result<> Station::checkMove(const QVector<Place> &places, Place by) const
{
    QSet<int> leaving;
    for (const Place from : places) {
        leaving.insert(from.index());
    }
    for (const Place from : places) {
        const Place to{from.rack + by.rack, from.slot + by.slot};
        if (Result<> free = checkFree(to); !free && !(to.isValid() && leaving.contains(to.index()))) {
            return free;
        }
    }
    return {};
}

void Station::setProperties(const ProjectProperties &properties)
{
    m_properties = properties;
    emit propertiesChanged();
}

Result<> Station::setPlcType(quint32 type)
{
    const bool changes = type != plcType();
    Result<> result = m_memory.setPlcType(type);
    if (result && changes) {
        emit plcTypeChanged();
    }
    return result;
}

quint32 Station::largestPlcType()
{
    return simulatedhost::plcTypes().constLast().id;
}

void Station::fitPlcType()
{
    const quint32 ofNewStation = getPrjPlcTypeVersion(QString()).type;
    const QVector<simulatedhost::PlcType> types = simulatedhost::plcTypes();
    const auto *type =
        std::find_if(types.begin(), types.end(), [&](const auto &known) { return known.id == ofNewStation; });
    while (type != types.end() && !setPlcType(type->id)) {
        ++type;
    }
}

void Station::insert(Module module)
{
    const Place place = module.place;
    const auto inserted = m_modules.insert(lowerBound(place), std::move(module));
    if (inserted->handle) {
        m_memory.hold(rangesOf(inserted->handle.get()), place);
    } else {
        m_memory.want(memoryRanges(inserted->in, inserted->out), place);
    }
    emit moduleAdded(place);
}

Result<> Station::add(quint32 typeCode, Place place)
{
    if (Result<> free = checkFree(place); !free) {
        return free;
    }
    ModuleHandle handle = m_plugin.own(m_exports.createObject(typeCode, m_memory.owner()));
    if (!handle) {
        m_memory.settle(); // a module without room for its outputs leaves its inputs claimed
        return Failure{whyNotCreated(typeCode)};
    }
    setPlace(handle.get(), place);
    insert({place, std::move(handle), {}, {}, {}});
    return {};
}

Result<> Station::move(Place from, Place to)
{
    if (to == from) {
        return {};
    }
    if (Result<> free = checkFree(to); !free) {
        return free;
    }
    const auto moved = m_modules.begin() + *moduleAt(from);
    const auto next = m_modules.begin() + (lowerBound(to) - m_modules.cbegin());
    if (moved->handle) {
        setPlace(moved->handle.get(), to);
        m_memory.hold(rangesOf(moved->handle.get()), to);
    } else {
        moved->kept.state = withPlace(moved->kept.state, to);
        moved->kept.place = to;
        m_memory.unwant(from);
        m_memory.want(memoryRanges(moved->in, moved->out), to);
    }
    moved->place = to;
    if (next > moved) {
        std::rotate(moved, moved + 1, next);
    } else {
        std::rotate(next, moved, moved + 1);
    }
    m_memory.updateReserved();
    emit moduleMoved(from, to);
    return {};
}

bool Station::configure(Place place, QWidget *parent)
{
    const int index = *moduleAt(place);
    SimpleExtendPar *handle = at(index).handle.get();
    if (handle == nullptr) {
        return false;
    }
    m_beforeDialog = stored(index);
    const std::vector<MemoryRange> ranges = rangesOf(handle);
    m_exports.config(handle, m_memory.owner(), parent, false);
    m_memory.release(ranges);
    m_memory.hold(rangesOf(handle), place);
    m_memory.updateReserved();
    const StoredModule before = *std::exchange(m_beforeDialog, std::nullopt);
    const bool changed = m_exports.save(handle) != before.state;
    if (changed) {
        emit moduleChanged(place);
    }
    return changed;
}

StoredModule Station::take(Place place)
{
    const int index = *moduleAt(place);
    StoredModule module = stored(index);
    m_memory.release(rangesOf(at(index).handle.get()));
    m_memory.unwant(place);
    m_modules.erase(m_modules.begin() + index); // releases the module, which frees its addresses
    m_memory.updateReserved();
    emit moduleRemoved(place);
    return module;
}

StoredModule Station::stored(int index) const
{
    const Module &module = at(index);
    if (!module.handle) {
        return module.kept;
    }
    if (m_beforeDialog && m_beforeDialog->place == module.place) {
        return *m_beforeDialog;
    }
    SimpleExtendPar *handle = module.handle.get();
    return {module.place,
            static_cast<quint32>(m_exports.getNodeId(handle)),
            m_exports.getName(handle),
            m_exports.save(handle),
            {}};
}

Project Station::project() const
{
    Project project;
    project.plcType = plcType();
    project.properties = m_properties;
    project.modules.reserve(m_modules.size());
    for (int i = 0; i < count(); ++i) {
        project.modules.push_back(stored(i));
    }
    return project;
}

std::optional<QByteArray> Station::compiled(const Progress &progress) const
{
    QByteArray block;
    QStringList list;
    for (int i = 0; i < count(); ++i) {
        if (at(i).handle) {
            m_exports.compile(at(i).handle.get(), block, list);
        }
        if (progress && !progress(i + 1, count())) {
            return std::nullopt;
        }
    }
    return block;
}
