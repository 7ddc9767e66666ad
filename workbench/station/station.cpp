#include "station.h"

#include "blockdecoder.h"
#include "catalog.h"
#include "imagerangetext.h"
#include "simulatedbase.h"

#include <QPoint>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace {

constexpr qint32 memoryHeld = 1;
constexpr qint32 noRoom = -1;

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

VarArea areaOf(const IoMap &range)
{
    return static_cast<VarArea>(range.area);
}

/// Those of a module's two ranges that take memory; none of a null handle.
std::vector<MemoryRange> rangesOf(const PluginExports &exports, SimpleExtendPar *handle)
{
    std::vector<MemoryRange> ranges;
    if (handle == nullptr) {
        return ranges;
    }
    for (const IoMap &range : {exports.getInMap(handle), exports.getOutMap(handle)}) {
        if (rangeBytes(range) != 0) {
            ranges.emplace_back(areaOf(range), range.start, rangeBytes(range));
        }
    }
    return ranges;
}

qint32 take(const QString &owner, const MemoryRange &range)
{
    const auto &[area, start, length] = range;
    return getMemory(owner, area, start, length);
}

bool giveBack(const QString &owner, const MemoryRange &range)
{
    const auto &[area, start, length] = range;
    return freeMemory(owner, area, start, length);
}

/// Whether all ranges could be taken at this moment; else the host's words for the first that could not.
bool areFree(const QString &owner, const std::vector<MemoryRange> &ranges, QString &reason)
{
    std::vector<MemoryRange> taken;
    for (const MemoryRange &range : ranges) {
        const qint32 code = take(owner, range);
        if (code != memoryHeld) {
            reason = getMemoryErrStrByErrCode(code);
            break;
        }
        taken.push_back(range);
    }
    std::for_each(taken.begin(), taken.end(), [&](const MemoryRange &range) { giveBack(owner, range); });
    return taken.size() == ranges.size();
}

/// A restored module does not tell whether the host gave it its addresses. Giving a range back and taking it again
/// does: one that was refused, or taken with another length, is not there to be given back.
bool areHeld(const QString &owner, const std::vector<MemoryRange> &ranges)
{
    return std::all_of(ranges.begin(), ranges.end(), [&](const MemoryRange &range) {
        return giveBack(owner, range) && take(owner, range) == memoryHeld;
    });
}

/// The type code that a block begins with.
std::optional<quint32> typeCodeIn(const blockdecoder::DecodedBlock &decoded)
{
    const blockdecoder::Field *type = decoded.find(QStringLiteral("header.objId"));
    return type == nullptr ? std::nullopt : std::optional<quint32>(type->value.toUInt());
}

/// Why the plug-in creates no module of the type even without an owner.
QString whyNoType(quint32 typeCode)
{
    const QString problem = catalogProblem(typeCode);
    return problem.isEmpty()
               ? Station::tr("The description file of type %1 is damaged or meant for a newer host.").arg(typeCode)
               : problem;
}

/// Fields of a saved state's header that become others; those that the state lacks, or that are not read, stay out.
class StatePatch {
public:
    explicit StatePatch(const QByteArray &state)
        : m_state(state), m_decoded(blockdecoder::decodeSavedState(state))
    {
    }

    /// Writes @p bytes from the field @p name on.
    void write(const QString &name, const QByteArray &bytes)
    {
        if (const blockdecoder::Field *field = m_decoded.find(QStringLiteral("header.") + name)) {
            m_state.replace(field->offset, bytes.size(), bytes);
        }
    }
    void writeRange(const QString &name, const IoMap &range)
    {
        write(name + QStringLiteral(".area"), QByteArray(1, static_cast<char>(range.area)) +
                                                  ushortToByteArray(range.start) +
                                                  static_cast<char>(rangeBytes(range)));
    }
    void writePlace(Place place)
    {
        write(QStringLiteral("rackId"), QByteArray(1, static_cast<char>(place.rack)));
        write(QStringLiteral("slotId"), QByteArray(1, static_cast<char>(place.slot)));
        write(QStringLiteral("positionX"), intToByteArray(place.slot));
        write(QStringLiteral("positionY"), intToByteArray(place.rack));
    }

    const QByteArray &state() const { return m_state; }

private:
    QByteArray m_state;
    blockdecoder::DecodedBlock m_decoded;
};

} // namespace

Station::Station(const PluginLibrary &plugin, QString memoryOwner)
    : m_plugin(plugin), m_exports(plugin.exports()), m_memoryOwner(std::move(memoryOwner))
{
}

Station::~Station() = default;

std::unique_ptr<Station> Station::opened(const PluginLibrary &plugin, const QString &memoryOwner,
                                         const Project &project, QString &error, const Progress &progress)
{
    error.clear();
    auto station = std::make_unique<Station>(plugin, memoryOwner);
    if (!station->setPlcType(project.plcType, error)) {
        return nullptr;
    }
    bool ended = false;
    const auto putAll = [&](bool verified) {
        station->m_modules.reserve(project.modules.size());
        return std::all_of(project.modules.begin(), project.modules.end(), [&](const StoredModule &module) {
            const bool available = station->put(module, verified);
            ended = progress && !progress(station->count(), static_cast<int>(project.modules.size()));
            return !ended && (available || verified);
        });
    };
    // One look at the whole map does where nothing is wrong; else each module has to tell by itself.
    const bool good = putAll(false) && station->holdsItsMemory();
    if (!good && !ended) {
        station->m_modules.clear();
        station->m_held.clear();
        station->settleMemory();
        putAll(true);
    }
    station->settleMemory();
    return ended ? nullptr : std::move(station);
}

/// What the host says that the station's modules hold, in rising order.
std::vector<MemoryRange> Station::claimed() const
{
    std::vector<MemoryRange> ranges;
    for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(m_memoryOwner)) {
        ranges.emplace_back(range.area, range.start, range.length);
    }
    return ranges;
}

bool Station::holdsItsMemory() const
{
    const std::vector<MemoryRange> present = claimed();
    return std::includes(present.begin(), present.end(), m_held.begin(), m_held.end());
}

/// Makes the host's map what the modules hold. A refused module can leave ranges claimed, and when it goes it gives
/// back those that it shares with another one.
void Station::settleMemory() const
{
    const std::vector<MemoryRange> present = claimed();
    std::vector<MemoryRange> strays;
    std::set_difference(present.begin(), present.end(), m_held.begin(), m_held.end(), std::back_inserter(strays));
    std::for_each(strays.begin(), strays.end(), [this](const MemoryRange &range) { giveBack(m_memoryOwner, range); });
    std::vector<MemoryRange> lost;
    std::set_difference(m_held.begin(), m_held.end(), present.begin(), present.end(), std::back_inserter(lost));
    std::for_each(lost.begin(), lost.end(), [this](const MemoryRange &range) { ::take(m_memoryOwner, range); });
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

ModuleView Station::module(int index) const
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

std::optional<int> Station::moduleAt(Place place) const
{
    const auto found =
        std::lower_bound(m_modules.begin(), m_modules.end(), place.index(),
                         [](const Module &module, int placeIndex) { return module.place.index() < placeIndex; });
    if (found == m_modules.end() || found->place != place) {
        return std::nullopt;
    }
    return static_cast<int>(found - m_modules.begin());
}

std::optional<Place> Station::firstFreePlace() const
{
    int first = 0; // of the places at which the modules so far leave a gap, or the end
    for (int count = Station::count(); count > 0;) {
        const int half = count / 2;
        const bool full = at(first + half).place.index() == first + half;
        first += full ? half + 1 : 0;
        count = full ? count - half - 1 : half;
    }
    return first < Place::count ? std::optional<Place>(Place::at(first)) : std::nullopt;
}

bool Station::isFree(Place place, QString &error) const
{
    if (!place.isValid()) {
        error = tr("There is no slot %2 in a rack %1: racks end at %3, slots at %4.")
                    .arg(place.rack)
                    .arg(place.slot)
                    .arg(Place::rackCount - 1)
                    .arg(Place::slotCount - 1);
        return false;
    }
    if (const std::optional<int> occupant = moduleAt(place)) {
        error = tr("Rack %1, slot %2 is taken by \"%3\".").arg(place.rack).arg(place.slot).arg(module(*occupant).name);
        return false;
    }
    return true;
}

quint32 Station::plcType() const
{
    return getPrjPlcTypeVersion(m_memoryOwner).type;
}

bool Station::setPlcType(quint32 type, QString &error)
{
    const quint32 before = plcType();
    if (type == before) {
        return true;
    }
    if (!simulatedhost::setPlcType(m_memoryOwner, type)) {
        error = tr("The host has no PLC type %1.").arg(type);
        return false;
    }
    for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(m_memoryOwner)) {
        const qint32 size = simulatedhost::areaSize(m_memoryOwner, range.area);
        if (range.start + range.length > size) {
            simulatedhost::setPlcType(m_memoryOwner, before);
            error = tr("A module holds the address %1 in the area %2, which would have %3 bytes.")
                        .arg(range.start + range.length - 1)
                        .arg(areaName(static_cast<quint8>(range.area)))
                        .arg(size);
            return false;
        }
    }
    emit plcTypeChanged();
    return true;
}

void Station::fitPlcType()
{
    const quint32 ofNewStation = getPrjPlcTypeVersion(QString()).type;
    const QVector<simulatedhost::PlcType> types = simulatedhost::plcTypes();
    const auto *type =
        std::find_if(types.begin(), types.end(), [&](const auto &known) { return known.id == ofNewStation; });
    QString ignored;
    while (type != types.end() && !setPlcType(type->id, ignored)) {
        ++type;
    }
}

void Station::insert(Module module)
{
    const Place place = module.place;
    const auto next =
        std::upper_bound(m_modules.begin(), m_modules.end(), place.index(),
                         [](int placeIndex, const Module &other) { return placeIndex < other.place.index(); });
    const auto inserted = m_modules.insert(next, std::move(module));
    hold(inserted->handle.get());
    emit moduleAdded(place);
}

bool Station::add(quint32 typeCode, Place place, QString &error)
{
    if (!isFree(place, error)) {
        return false;
    }
    ModuleHandle handle = m_plugin.own(m_exports.createObject(typeCode, m_memoryOwner));
    if (!handle) {
        settleMemory(); // a module that finds no room for its outputs leaves its inputs claimed
        error = whyNotCreated(typeCode);
        return false;
    }
    setPlace(handle.get(), place);
    insert({place, std::move(handle), {}});
    return true;
}

QString Station::whyNotCreated(quint32 typeCode) const
{
    const ModuleHandle probe = m_plugin.own(m_exports.createObject(typeCode, QString()));
    if (!probe) {
        return whyNoType(typeCode);
    }
    IoMap in = m_exports.getInMap(probe.get());
    IoMap out = m_exports.getOutMap(probe.get());
    QString error = tr("The plug-in creates no module of type %1.").arg(typeCode);
    findRoom(in, out, error);
    return error;
}

/// Sets the starts of two ranges that the host would give to a new module. False when an area is full.
bool Station::findRoom(IoMap &in, IoMap &out, QString &error) const
{
    std::vector<MemoryRange> taken;
    bool found = true;
    for (IoMap *range : {&in, &out}) {
        const int length = rangeBytes(*range);
        if (length == 0) {
            continue;
        }
        const qint32 start = autoMallocMemory(m_memoryOwner, areaOf(*range), length);
        if (start == noRoom) {
            error = tr("The area %1 has no room for %n more byte(s).", nullptr, length).arg(areaName(range->area));
            found = false;
            break;
        }
        range->start = static_cast<quint16>(start);
        taken.emplace_back(areaOf(*range), start, length);
    }
    std::for_each(taken.begin(), taken.end(), [this](const MemoryRange &range) { giveBack(m_memoryOwner, range); });
    return found;
}

bool Station::paste(const QByteArray &state, Place place, QString &error)
{
    return isFree(place, error) && addCopy(state, place, true, error);
}

bool Station::addBlock(const QByteArray &block, qint32 *code, QString &error)
{
    qint32 result = -1;
    const ModuleHandle handle = m_plugin.own(m_exports.recompile(block, QString(), &result));
    if (code != nullptr) {
        *code = result;
    }
    if (!handle) {
        const auto type = typeCodeIn(blockdecoder::decodeConfiguration(block).constFirst());
        error = whyNotRebuilt(type.value_or(0), tr("The block is damaged."));
        return false;
    }
    const Place place = placeOf(handle.get());
    return isFree(place, error) && addCopy(m_exports.save(handle.get()), place, false, error);
}

/// Adds the module of a state that says other addresses or lengths than it shall have: double-word channels that come
/// from a configuration block are saved with the length of words.
bool Station::addCopy(const QByteArray &state, Place place, bool newAddresses, QString &error)
{
    const ModuleHandle probe = read({place, 0, {}, state, {}}, QString(), error);
    if (!probe) {
        return false;
    }
    IoMap in = m_exports.getInMap(probe.get());
    IoMap out = m_exports.getOutMap(probe.get());
    if (newAddresses && !findRoom(in, out, error)) {
        return false;
    }
    setPlace(probe.get(), place);
    StatePatch patch(m_exports.save(probe.get()));
    patch.writeRange(QStringLiteral("inMap"), in);
    patch.writeRange(QStringLiteral("outMap"), out);
    StoredModule module;
    module.place = place;
    module.state = patch.state();
    ModuleHandle handle = restored(module, true, error);
    if (!handle) {
        return false;
    }
    insert({place, std::move(handle), {}});
    return true;
}

bool Station::move(Place from, Place to, QString &error)
{
    const int index = *moduleAt(from);
    if (to == from) {
        return true;
    }
    if (!isFree(to, error)) {
        return false;
    }
    const auto moved = m_modules.begin() + index;
    const auto isBefore = [](const Module &module, int placeIndex) { return module.place.index() < placeIndex; };
    const auto next = std::lower_bound(m_modules.begin(), m_modules.end(), to.index(), isBefore);
    if (moved->handle) {
        setPlace(moved->handle.get(), to);
    } else {
        StatePatch patch(moved->kept.state);
        patch.writePlace(to);
        moved->kept.state = patch.state();
        moved->kept.place = to;
    }
    moved->place = to;
    if (next > moved) {
        std::rotate(moved, moved + 1, next);
    } else {
        std::rotate(next, moved, moved + 1);
    }
    emit moduleMoved(from, to);
    return true;
}

bool Station::configure(Place place, QWidget *parent)
{
    SimpleExtendPar *handle = at(*moduleAt(place)).handle.get();
    if (handle == nullptr) {
        return false;
    }
    const QByteArray before = m_exports.save(handle);
    letGo(handle);
    m_exports.config(handle, m_memoryOwner, parent, false);
    hold(handle);
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
    letGo(at(index).handle.get());
    m_modules.erase(m_modules.begin() + index);
    emit moduleRemoved(place);
    return module;
}

bool Station::put(const StoredModule &module)
{
    return put(module, true);
}

bool Station::put(const StoredModule &module, bool verified)
{
    StoredModule kept = module;
    ModuleHandle handle = m_plugin.own(nullptr);
    if (kept.unavailable.isEmpty()) {
        handle = restored(module, verified, kept.unavailable);
    }
    const bool available = handle != nullptr;
    insert({module.place, std::move(handle), available ? StoredModule() : kept});
    return available;
}

void Station::hold(SimpleExtendPar *handle)
{
    for (const MemoryRange &range : rangesOf(m_exports, handle)) {
        m_held.insert(range);
    }
}

void Station::letGo(SimpleExtendPar *handle)
{
    for (const MemoryRange &range : rangesOf(m_exports, handle)) {
        m_held.erase(range);
    }
}

/// The module of a saved state, holding its addresses as far as that is @p verified, or null.
ModuleHandle Station::restored(const StoredModule &module, bool verified, QString &reason) const
{
    ModuleHandle handle = read(module, m_memoryOwner, reason);
    std::vector<MemoryRange> ranges;
    if (handle && placeOf(handle.get()) == module.place) {
        ranges = rangesOf(m_exports, handle.get());
        const bool isShared = std::any_of(ranges.begin(), ranges.end(),
                                          [this](const MemoryRange &range) { return m_held.count(range) != 0; });
        if (!isShared && (!verified || areHeld(m_memoryOwner, ranges))) {
            return handle;
        }
        reason = tr("The lengths of its address ranges are not those of its type.");
    } else if (handle) {
        const Place place = placeOf(handle.get());
        reason = tr("Its saved state belongs into rack %1, slot %2.").arg(place.rack).arg(place.slot);
    }
    handle.reset();
    settleMemory();
    areFree(m_memoryOwner, ranges, reason); // where it is not, the host says more
    return handle;
}

/// The module of a saved state, or null. It may have been refused its addresses.
ModuleHandle Station::read(const StoredModule &module, const QString &memoryOwner, QString &reason) const
{
    const bool isTooLong = module.state.size() > StoredModule::largestState;
    ModuleHandle handle = m_plugin.own(isTooLong ? nullptr : m_exports.restore(module.state, memoryOwner));
    if (!handle) {
        const quint32 type =
            isTooLong ? 0 : typeCodeIn(blockdecoder::decodeSavedState(module.state)).value_or(module.typeCode);
        reason = whyNotRebuilt(type, tr("Its saved state is damaged."));
    }
    return handle;
}

/// @p damaged unless the type itself is the reason; a @p typeCode of 0 is unknown.
QString Station::whyNotRebuilt(quint32 typeCode, const QString &damaged) const
{
    const bool isReason = typeCode != 0 && !m_plugin.own(m_exports.createObject(typeCode, QString()));
    return isReason ? whyNoType(typeCode) : damaged;
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

RoundTrip Station::roundTrip(int index) const
{
    SimpleExtendPar *handle = at(index).handle.get();
    const QByteArray saved = m_exports.save(handle);
    const QByteArray compiled = compiledBlock(m_exports, handle);
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
