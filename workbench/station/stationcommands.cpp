#include "stationcommands.h"

#include "statepatch.h"

#include <QUndoCommand>
#include <QUndoStack>

#include <iterator>
#include <utility>

namespace {

/// A step that is executed before it is pushed, so the first redo, which pushing calls, does nothing.
class Step : public QUndoCommand {
public:
    Step(const QString &text, std::function<void()> undo, std::function<void()> redo)
        : QUndoCommand(text), m_undo(std::move(undo)), m_redo(std::move(redo))
    {
    }

    void undo() override { m_undo(); }
    void redo() override
    {
        if (std::exchange(m_isExecuted, true)) {
            m_redo();
        }
    }

private:
    std::function<void()> m_undo;
    std::function<void()> m_redo;
    bool m_isExecuted = false;
};

/// Announces an edit that adds, removes or moves @p count modules, while it exists. A replaced module counts twice.
class ManyChanges {
public:
    ManyChanges(Station &station, std::size_t count) : m_station(count > 1 ? &station : nullptr)
    {
        if (m_station != nullptr) {
            emit m_station->manyChangesBegin();
        }
    }
    ~ManyChanges()
    {
        if (m_station != nullptr) {
            emit m_station->manyChangesEnd();
        }
    }
    Q_DISABLE_COPY_MOVE(ManyChanges)

private:
    Station *m_station;
};

/// Takes modules, the last one first, because the modules after a taken one move up.
std::vector<StoredModule> takeAll(Station &station, QVector<Place> places)
{
    std::sort(places.begin(), places.end());
    std::vector<StoredModule> taken;
    taken.reserve(static_cast<std::size_t>(places.size()));
    std::transform(places.rbegin(), places.rend(), std::back_inserter(taken),
                   [&station](Place place) { return station.take(place); });
    std::reverse(taken.begin(), taken.end());
    return taken;
}

/// Takes all present modules before it puts the first wanted one, which may need their addresses.
void replace(Station &station, const std::vector<StoredModule> &present, const std::vector<StoredModule> &wanted)
{
    const ManyChanges changes(station, present.size() + wanted.size());
    QVector<Place> places;
    for (const StoredModule &module : present) {
        places.append(module.place);
    }
    takeAll(station, places);
    for (const StoredModule &module : wanted) {
        station.put(module);
    }
}

/// The place that @p place gets when @p from moves to @p to.
Place shifted(Place place, Place from, Place to)
{
    return {place.rack + to.rack - from.rack, place.slot + to.slot - from.slot};
}

/// Undoing and redoing restore states of the station that were possible, so they cannot fail.
void expectSuccess(const Result<> &result)
{
    Q_ASSERT_X(result, "StationEdits", qPrintable(result.reason()));
}

} // namespace

StoredModule StationEdits::stored(Place place) const
{
    return m_station.stored(*m_station.moduleAt(place));
}

std::vector<StoredModule> StationEdits::stored(const QVector<Place> &places) const
{
    std::vector<StoredModule> modules;
    for (const Place place : places) {
        modules.push_back(stored(place));
    }
    return modules;
}

QString StationEdits::nameAt(Place place) const
{
    return m_station.module(*m_station.moduleAt(place)).name;
}

void StationEdits::push(const QString &text, std::function<void()> undo, std::function<void()> redo)
{
    m_stack.push(new Step(text, std::move(undo), std::move(redo)));
}

void StationEdits::pushReplacement(const std::vector<StoredModule> &before, const std::vector<StoredModule> &after,
                                   const QString &text)
{
    push(
        text, [&station = m_station, before, after] { replace(station, after, before); },
        [&station = m_station, before, after] { replace(station, before, after); });
}

Result<> StationEdits::add(quint32 typeCode, Place place)
{
    Result<> result = m_station.add(typeCode, place);
    if (result) {
        pushReplacement({}, {stored(place)}, tr("Add %1").arg(nameAt(place)));
    }
    return result;
}

/// The slots for the copies; fewer than modules if the station ends before.
std::vector<Place> StationEdits::targets(const std::vector<StoredModule> &modules, Place at) const
{
    std::vector<Place> places;
    places.reserve(modules.size());
    for (const StoredModule &module : modules) {
        places.push_back(shifted(module.place, modules.front().place, at));
    }
    if (std::all_of(places.begin(), places.end(),
                    [this](Place place) { return static_cast<bool>(m_station.checkFree(place)); })) {
        return places;
    }
    places.clear();
    for (int i = std::max(at.index(), 0); i < Place::count && places.size() < modules.size(); ++i) {
        if (!m_station.moduleAt(Place::at(i))) {
            places.push_back(Place::at(i));
        }
    }
    return places;
}

PasteResult StationEdits::paste(const std::vector<StoredModule> &modules, Place at, Station::Addresses addresses)
{
    PasteResult result;
    result.total = static_cast<int>(modules.size());
    std::vector<StoredModule> copies = modules;
    const std::vector<Place> places = targets(modules, at);
    copies.resize(places.size());
    if (copies.size() < modules.size()) {
        result.failures[tr("No free slot follows. Paste them at an earlier slot.")] =
            static_cast<int>(modules.size() - copies.size());
    }
    for (std::size_t i = 0; i < copies.size(); ++i) {
        copies[i].place = places[i];
    }
    if (addresses == Station::Addresses::Stored) { // new addresses must not take those that later modules keep
        std::stable_partition(copies.begin(), copies.end(), [this](const StoredModule &module) {
            return static_cast<bool>(m_station.checkAddresses(module.state));
        });
    }
    {
        const ManyChanges changes(m_station, copies.size());
        for (const StoredModule &copy : copies) {
            const Result<bool> kept = pasteOne(copy, addresses);
            if (kept) {
                result.keptAddresses += *kept ? 1 : 0;
                result.places.append(copy.place);
            } else {
                ++result.failures[kept.reason()];
            }
        }
    }
    std::sort(result.places.begin(), result.places.end());
    if (!result.places.isEmpty()) {
        pushReplacement({}, stored(result.places),
                        result.places.size() == 1 ? tr("Paste %1").arg(nameAt(result.places.first()))
                                                  : tr("Paste %n module(s)", nullptr, result.places.size()));
    }
    return result;
}

/// Returns true if the module has its stored addresses.
Result<bool> StationEdits::pasteOne(StoredModule module, Station::Addresses addresses)
{
    if (addresses == Station::Addresses::Stored && !module.unavailable.isEmpty()) {
        module.state = withPlace(module.state, module.place);
        m_station.put(module);
        return true;
    }
    const bool keeps = addresses == Station::Addresses::Stored && m_station.checkAddresses(module.state);
    const Result<> pasted =
        m_station.paste(module.state, module.place, keeps ? Station::Addresses::Stored : Station::Addresses::New);
    return pasted ? Result<bool>(keeps) : pasted.failure();
}

QString PasteResult::text() const
{
    const int newAddresses = places.size() - keptAddresses;
    const QString count = tr("%1 of %n module(s) pasted", nullptr, total).arg(places.size());
    if (places.isEmpty()) {
        return tr("%1.").arg(count);
    }
    if (keptAddresses == 0) {
        return tr("%1, with new addresses.").arg(count);
    }
    return newAddresses == 0 ? tr("%1, with the former addresses.").arg(count)
                             : tr("%1: %2 with former addresses, %3 with new ones because the former are taken.")
                                   .arg(count, QString::number(keptAddresses), QString::number(newAddresses));
}

Result<> PasteResult::result() const
{
    if (failures.empty()) {
        return {};
    }
    QStringList lines;
    for (const auto &[reason, count] : failures) {
        lines += tr("%n module(s): %1", nullptr, count).arg(reason);
    }
    return Failure{lines.join(QLatin1Char('\n'))};
}

Result<> StationEdits::moveBy(QVector<Place> places, Place by)
{
    if (Result<> possible = m_station.checkMove(places, by); !possible || by == Place()) {
        return possible;
    }
    // A module moves into the slot of another moved one after that one has left it.
    const bool forward = by.index() > 0;
    std::sort(places.begin(), places.end(), [forward](Place a, Place b) { return forward ? b < a : a < b; });
    QVector<Place> targets;
    for (const Place place : qAsConst(places)) {
        targets.append({place.rack + by.rack, place.slot + by.slot});
    }
    const std::vector<StoredModule> before = stored(places);
    const auto moveAll = [&station = m_station](const QVector<Place> &from, const QVector<Place> &to) {
        const ManyChanges changes(station, static_cast<std::size_t>(from.size()));
        for (int i = 0; i < from.size(); ++i) {
            expectSuccess(station.move(from.at(i), to.at(i)));
        }
    };
    moveAll(places, targets);
    const QString text = places.size() == 1 ? tr("Move %1").arg(nameAt(targets.first()))
                                            : tr("Move %n module(s)", nullptr, places.size());
    if (std::any_of(before.begin(), before.end(), [](const auto &module) { return !module.unavailable.isEmpty(); })) {
        pushReplacement(before, stored(targets), text); // moving it back might not restore its original bytes
        return {};
    }
    QVector<Place> reversedPlaces(places.crbegin(), places.crend());
    QVector<Place> reversedTargets(targets.crbegin(), targets.crend());
    push(
        text, [=] { moveAll(reversedTargets, reversedPlaces); }, [=] { moveAll(places, targets); });
    return {};
}

void StationEdits::remove(const QVector<Place> &places)
{
    if (places.isEmpty()) {
        return;
    }
    const QString text = places.size() == 1 ? tr("Remove %1").arg(nameAt(places.first()))
                                            : tr("Remove %n module(s)", nullptr, places.size());
    const ManyChanges changes(m_station, static_cast<std::size_t>(places.size()));
    pushReplacement(takeAll(m_station, places), {}, text);
}

void StationEdits::configure(Place place, QWidget *parent)
{
    const StoredModule before = stored(place);
    if (m_station.configure(place, parent)) {
        pushReplacement({before}, {stored(place)}, tr("Edit %1").arg(nameAt(place)));
    }
}

/// Replaces each module by another one with its place and addresses. A failure changes nothing.
Result<> StationEdits::exchange(const std::vector<StoredModule> &before, const std::vector<StoredModule> &after)
{
    const ManyChanges changes(m_station, before.size() + after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        m_station.take(before[i].place);
        if (m_station.put(after[i])) {
            continue;
        }
        const QString reason = m_station.take(after[i].place).unavailable;
        m_station.put(before[i]);
        for (std::size_t undone = 0; undone < i; ++undone) {
            m_station.take(before[undone].place);
            m_station.put(before[undone]);
        }
        return Failure{reason};
    }
    return {};
}

void StationEdits::setProperties(const ProjectProperties &properties)
{
    const ProjectProperties before = m_station.properties();
    if (properties == before) {
        return;
    }
    m_station.setProperties(properties);
    push(
        tr("Edit the project properties"), [&station = m_station, before] { station.setProperties(before); },
        [&station = m_station, properties] { station.setProperties(properties); });
}

Result<> StationEdits::setPlcType(quint32 type)
{
    const quint32 before = m_station.plcType();
    Result<> result = m_station.setPlcType(type);
    if (result && type != before) {
        push(
            tr("Change the controller"), [&station = m_station, before] { expectSuccess(station.setPlcType(before)); },
            [&station = m_station, type] { expectSuccess(station.setPlcType(type)); });
    }
    return result;
}
