#include "stationcommands.h"

#include <QUndoCommand>
#include <QUndoStack>

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

/// Takes all present modules before it puts the first wanted one, which may need their addresses.
void replace(Station &station, const std::vector<StoredModule> &present, const std::vector<StoredModule> &wanted)
{
    for (const StoredModule &module : present) {
        station.take(module.place);
    }
    for (const StoredModule &module : wanted) {
        station.put(module);
    }
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

Result<> StationEdits::paste(const QByteArray &state, Place place)
{
    Result<> result = m_station.paste(state, place);
    if (result) {
        pushReplacement({}, {stored(place)}, tr("Paste %1").arg(nameAt(place)));
    }
    return result;
}

Result<> StationEdits::move(Place from, Place to)
{
    const StoredModule before = stored(from);
    Result<> result = m_station.move(from, to);
    if (!result || to == from) {
        return result;
    }
    const QString text = tr("Move %1").arg(nameAt(to));
    if (!before.unavailable.isEmpty()) {
        pushReplacement({before}, {stored(to)}, text); // moving it back might not restore its original bytes
        return result;
    }
    push(
        text, [&station = m_station, from, to] { expectSuccess(station.move(to, from)); },
        [&station = m_station, from, to] { expectSuccess(station.move(from, to)); });
    return result;
}

void StationEdits::remove(const QVector<Place> &places)
{
    if (places.isEmpty()) {
        return;
    }
    const QString text = places.size() == 1 ? tr("Remove %1").arg(nameAt(places.first()))
                                            : tr("Remove %n module(s)", nullptr, places.size());
    std::vector<StoredModule> removed;
    for (const Place place : places) {
        removed.push_back(m_station.take(place));
    }
    pushReplacement(removed, {}, text);
}

void StationEdits::configure(Place place, QWidget *parent)
{
    const StoredModule before = stored(place);
    if (m_station.configure(place, parent)) {
        pushReplacement({before}, {stored(place)}, tr("Edit %1").arg(nameAt(place)));
    }
}

Result<> StationEdits::replaceState(Place place, const QByteArray &state)
{
    const StoredModule before = m_station.take(place);
    StoredModule after = before;
    after.state = state;
    after.unavailable.clear();
    if (!m_station.put(after)) {
        Failure failure{m_station.take(place).unavailable};
        m_station.put(before);
        return failure;
    }
    pushReplacement({before}, {stored(place)}, tr("Edit %1").arg(nameAt(place)));
    return {};
}

Result<> StationEdits::setPlcType(quint32 type)
{
    const quint32 before = m_station.plcType();
    Result<> result = m_station.setPlcType(type);
    if (result && type != before) {
        push(
            tr("Change the PLC type"), [&station = m_station, before] { expectSuccess(station.setPlcType(before)); },
            [&station = m_station, type] { expectSuccess(station.setPlcType(type)); });
    }
    return result;
}
