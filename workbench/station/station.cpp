#include "station.h"

#include "catalog.h"
#include "simulatedbase.h"
#include "statepatch.h"

#include <QPoint>

#include <algorithm>
#include <utility>

Station::Station(const PluginLibrary &plugin, QString memoryOwner)
    : m_plugin(plugin), m_exports(plugin.exports()), m_memory(std::move(memoryOwner))
{
}

Station::~Station() = default;

Result<std::unique_ptr<Station>> Station::opened(const PluginLibrary &plugin, const QString &memoryOwner,
                                                 const Project &project, const Progress &progress)
{
    auto station = std::make_unique<Station>(plugin, memoryOwner);
    if (const Result<> set = station->setPlcType(project.plcType); !set) {
        return set.failure();
    }
    bool cancelled = false;
    const auto putAll = [&](bool verified) {
        station->m_modules.reserve(project.modules.size());
        return std::all_of(project.modules.begin(), project.modules.end(), [&](const StoredModule &module) {
            const bool available = station->put(module, verified);
            cancelled = progress && !progress(station->count(), static_cast<int>(project.modules.size()));
            return !cancelled && (available || verified);
        });
    };
    // Fast path: verify the whole map once. If it is wrong, start again and verify each module.
    const bool isGood = putAll(false) && station->m_memory.isComplete();
    if (!isGood && !cancelled) {
        station->m_modules.clear();
        station->m_memory.releaseAll();
        station->m_memory.settle();
        putAll(true);
    }
    station->m_memory.settle();
    if (cancelled) {
        return Failure();
    }
    return station;
}

int Station::unavailableCount() const
{
    return static_cast<int>(
        std::count_if(m_modules.begin(), m_modules.end(), [](const Module &module) { return !module.handle; }));
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
        return {module.place, module.kept.typeCode, module.kept.name, {}, {}, {}, module.kept.unavailable};
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
    for (int i = 0; i < Place::count; ++i) {
        const Place place = Place::at((wanted.index() + i) % Place::count);
        if (!moduleAt(place)) {
            return place;
        }
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

Result<> Station::setPlcType(quint32 type)
{
    const bool changes = type != plcType();
    Result<> result = m_memory.setPlcType(type);
    if (result && changes) {
        emit plcTypeChanged();
    }
    return result;
}

void Station::setLargestPlcType()
{
    static_cast<void>(setPlcType(simulatedhost::plcTypes().constLast().id)); // larger areas hold every address
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
    m_memory.hold(rangesOf(inserted->handle.get()), place);
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
    insert({place, std::move(handle), {}});
    return {};
}

QString Station::whyNotCreated(quint32 typeCode) const
{
    const ModuleHandle probe = m_plugin.own(m_exports.createObject(typeCode, QString()));
    if (!probe) {
        return typeProblem(typeCode);
    }
    IoMap in = m_exports.getInMap(probe.get());
    IoMap out = m_exports.getOutMap(probe.get());
    const Result<> room = m_memory.findRoom(in, out);
    return room ? tr("The plug-in cannot create a module of type %1.").arg(typeCode) : room.reason();
}

Result<> Station::paste(const QByteArray &state, Place place)
{
    const Result<> free = checkFree(place);
    return free ? addCopy(state, place, true) : free;
}

Result<> Station::addBlock(const QByteArray &block, qint32 &code)
{
    code = -1;
    const ModuleHandle handle = m_plugin.own(m_exports.recompile(block, QString(), &code));
    if (!handle) {
        const auto type = typeCodeOfBlock(block);
        return Failure{whyNotRebuilt(type.value_or(0), tr("The block is damaged."))};
    }
    const Place place = placeOf(handle.get());
    const Result<> free = checkFree(place);
    return free ? addCopy(m_exports.save(handle.get()), place, false) : free;
}

/// Adds the module of a state after setting its place and ranges. A state of double-word channels that were rebuilt
/// from a configuration block contains the range length of words.
Result<> Station::addCopy(const QByteArray &state, Place place, bool newAddresses)
{
    const Result<ModuleHandle> probe = read({place, 0, {}, state, {}}, QString());
    if (!probe) {
        return probe.failure();
    }
    IoMap in = m_exports.getInMap(probe->get());
    IoMap out = m_exports.getOutMap(probe->get());
    if (Result<> room = newAddresses ? m_memory.findRoom(in, out) : Result<>(); !room) {
        return room;
    }
    setPlace(probe->get(), place);
    Result<ModuleHandle> handle = restored({place, 0, {}, withRanges(m_exports.save(probe->get()), in, out), {}}, true);
    if (!handle) {
        return handle.failure();
    }
    insert({place, std::move(*handle), {}});
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
    }
    moved->place = to;
    if (next > moved) {
        std::rotate(moved, moved + 1, next);
    } else {
        std::rotate(next, moved, moved + 1);
    }
    emit moduleMoved(from, to);
    return {};
}

bool Station::configure(Place place, QWidget *parent)
{
    SimpleExtendPar *handle = at(*moduleAt(place)).handle.get();
    if (handle == nullptr) {
        return false;
    }
    const QByteArray before = m_exports.save(handle);
    m_memory.release(rangesOf(handle));
    m_exports.config(handle, m_memory.owner(), parent, false);
    m_memory.hold(rangesOf(handle), place);
    const bool changed = m_exports.save(handle) != before;
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
    m_modules.erase(m_modules.begin() + index);
    emit moduleRemoved(place);
    return module;
}

bool Station::put(const StoredModule &module, bool verified)
{
    Result<ModuleHandle> handle =
        module.unavailable.isEmpty() ? restored(module, verified) : Failure{module.unavailable};
    const bool isAvailable = static_cast<bool>(handle);
    StoredModule kept;
    if (!isAvailable) {
        kept = module;
        kept.unavailable = handle.reason();
    }
    insert({module.place, isAvailable ? std::move(*handle) : m_plugin.own(nullptr), std::move(kept)});
    return isAvailable;
}

/// The module of a saved state. Fails if it is of another place, or does not hold its addresses; the latter is checked
/// with the host only if @p verified.
Result<ModuleHandle> Station::restored(const StoredModule &module, bool verified) const
{
    Result<ModuleHandle> handle = read(module, m_memory.owner());
    std::vector<MemoryRange> ranges;
    Failure failure = handle.failure();
    if (handle && placeOf(handle->get()) != module.place) {
        const Place place = placeOf(handle->get());
        failure = {tr("Its saved state belongs to rack %1, slot %2.").arg(place.rack).arg(place.slot)};
    } else if (handle) {
        ranges = rangesOf(handle->get());
        const bool isShared = std::any_of(ranges.begin(), ranges.end(), [this](const MemoryRange &range) {
            return m_memory.holder(range).has_value();
        });
        if (!isShared && (!verified || m_memory.areClaimed(ranges))) {
            return handle;
        }
        failure = {tr("The lengths of its address ranges do not match its type.")};
    }
    handle = failure; // releases the module
    m_memory.settle();
    const Result<> free = m_memory.checkFree(ranges);
    return free ? failure : free.failure(); // the host's reason is more precise
}

/// The module of a saved state. The host may have refused its addresses.
Result<ModuleHandle> Station::read(const StoredModule &module, const QString &memoryOwner) const
{
    const bool isTooLong = module.state.size() > StoredModule::maximumStateSize;
    ModuleHandle handle = m_plugin.own(isTooLong ? nullptr : m_exports.restore(module.state, memoryOwner));
    if (handle) {
        return handle;
    }
    const auto type = isTooLong ? 0 : typeCodeOfState(module.state).value_or(module.typeCode);
    return Failure{whyNotRebuilt(type, tr("Its saved state is damaged."))};
}

/// Returns @p damaged unless the type itself is the reason. A @p typeCode of 0 is unknown.
QString Station::whyNotRebuilt(quint32 typeCode, const QString &damaged) const
{
    const bool isReason = typeCode != 0 && !m_plugin.own(m_exports.createObject(typeCode, QString()));
    return isReason ? typeProblem(typeCode) : damaged;
}

StoredModule Station::stored(int index) const
{
    const Module &module = at(index);
    if (!module.handle) {
        return module.kept;
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
