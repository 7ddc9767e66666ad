// The functions of Station that create modules from stored bytes.
#include "catalog.h"
#include "statepatch.h"
#include "station.h"

#include <algorithm>
#include <tuple>
#include <utility>

Result<std::unique_ptr<Station>> Station::opened(const PluginLibrary &plugin, const QString &memoryOwner,
                                                 const Project &project, const Progress &progress)
{
    auto station = std::make_unique<Station>(plugin, memoryOwner);
    if (const Result<> set = station->setPlcType(project.plcType); !set) {
        return set.failure();
    }
    station->m_properties = project.properties;
    bool cancelled = false;
    const auto putAll = [&](bool verified) {
        station->m_modules.reserve(project.modules.size());
        return std::all_of(project.modules.begin(), project.modules.end(), [&](const StoredModule &module) {
            const bool available = station->putUnreserved(module, verified);
            cancelled = progress && !progress(station->count(), static_cast<int>(project.modules.size()));
            return !cancelled && (available || verified);
        });
    };
    // Fast path: verify the whole map once. If it is wrong, start again and verify each module.
    const bool isGood = putAll(false) && station->m_memory.lost().empty();
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
    station->m_memory.updateReserved();
    return station;
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

Result<> Station::paste(const QByteArray &state, Place place, Addresses addresses)
{
    const Result<> free = checkFree(place);
    return free ? addCopy(state, place, addresses) : free;
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
    return free ? addCopy(m_exports.save(handle.get()), place, Addresses::Stored) : free;
}

/// Adds the module of a state after setting its place and ranges. A state of double-word channels that were rebuilt
/// from a configuration block contains the range length of words.
Result<> Station::addCopy(const QByteArray &state, Place place, Addresses addresses)
{
    const Result<ModuleHandle> probe = read({place, 0, {}, state, {}}, QString());
    if (!probe) {
        return probe.failure();
    }
    IoMap in = m_exports.getInMap(probe->get());
    IoMap out = m_exports.getOutMap(probe->get());
    if (Result<> room = addresses == Addresses::New ? m_memory.findRoom(in, out) : Result<>(); !room) {
        return room;
    }
    setPlace(probe->get(), place);
    Result<ModuleHandle> handle = restored({place, 0, {}, withRanges(m_exports.save(probe->get()), in, out), {}}, true);
    if (!handle) {
        return handle.failure();
    }
    insert({place, std::move(*handle), {}, {}, {}});
    return {};
}

bool Station::put(const StoredModule &module)
{
    if (m_memory.hasReserved()) { // decoding the state takes time
        const auto [in, out] = rangesOfState(module.state);
        m_memory.yieldTo(memoryRanges(in, out));
    }
    const bool isAvailable = putUnreserved(module, true);
    m_memory.updateReserved();
    return isAvailable;
}

Result<> Station::checkAddresses(const QByteArray &state) const
{
    const auto [in, out] = rangesOfState(state);
    return m_memory.checkFree(memoryRanges(in, out));
}

bool Station::putUnreserved(const StoredModule &module, bool verified)
{
    Result<ModuleHandle> handle =
        module.unavailable.isEmpty() ? restored(module, verified) : Failure{module.unavailable};
    const bool isAvailable = static_cast<bool>(handle);
    StoredModule kept;
    IoMap in{};
    IoMap out{};
    if (!isAvailable) {
        kept = module;
        kept.unavailable = handle.reason();
        std::tie(in, out) = rangesOfState(module.state);
    }
    insert({module.place, isAvailable ? std::move(*handle) : m_plugin.own(nullptr), std::move(kept), in, out});
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
