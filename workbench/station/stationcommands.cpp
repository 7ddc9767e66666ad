#include "stationcommands.h"

#include <QUndoStack>

#include <utility>

namespace {

/// Modules at some places give way to others at the same or other places.
class ReplaceModules : public QUndoCommand {
public:
    ReplaceModules(Station &station, std::vector<StoredModule> before, std::vector<StoredModule> after,
                   const QString &text)
        : QUndoCommand(text), m_station(station), m_before(std::move(before)), m_after(std::move(after))
    {
    }

    void undo() override { replace(m_after, m_before); }
    void redo() override
    {
        if (std::exchange(m_made, true)) {
            replace(m_before, m_after);
        }
    }

private:
    /// All go before the first comes, since it may need their addresses.
    void replace(const std::vector<StoredModule> &present, const std::vector<StoredModule> &wanted)
    {
        for (const StoredModule &module : present) {
            m_station.take(module.place);
        }
        for (const StoredModule &module : wanted) {
            m_station.put(module);
        }
    }

    Station &m_station;
    std::vector<StoredModule> m_before;
    std::vector<StoredModule> m_after;
    bool m_made = false;
};

class MoveModule : public QUndoCommand {
public:
    MoveModule(Station &station, Place from, Place to, const QString &text)
        : QUndoCommand(text), m_station(station), m_from(from), m_to(to)
    {
    }

    void undo() override { move(m_to, m_from); }
    void redo() override
    {
        if (std::exchange(m_made, true)) {
            move(m_from, m_to);
        }
    }

private:
    void move(Place from, Place to)
    {
        QString error;
        m_station.move(from, to, error);
    }

    Station &m_station;
    Place m_from;
    Place m_to;
    bool m_made = false;
};

class ChangePlcType : public QUndoCommand {
public:
    ChangePlcType(Station &station, quint32 from, quint32 to, const QString &text)
        : QUndoCommand(text), m_station(station), m_from(from), m_to(to)
    {
    }

    void undo() override { set(m_from); }
    void redo() override
    {
        if (std::exchange(m_made, true)) {
            set(m_to);
        }
    }

private:
    void set(quint32 type)
    {
        QString error;
        m_station.setPlcType(type, error);
    }

    Station &m_station;
    quint32 m_from;
    quint32 m_to;
    bool m_made = false;
};

} // namespace

StoredModule StationEdits::stored(Place place) const
{
    return m_station.stored(*m_station.moduleAt(place));
}

QString StationEdits::nameAt(Place place) const
{
    return m_station.module(*m_station.moduleAt(place)).name;
}

void StationEdits::pushReplacement(std::vector<StoredModule> before, std::vector<StoredModule> after,
                                   const QString &text)
{
    m_stack.push(new ReplaceModules(m_station, std::move(before), std::move(after), text));
}

bool StationEdits::add(quint32 typeCode, Place place, QString &error)
{
    if (!m_station.add(typeCode, place, error)) {
        return false;
    }
    pushReplacement({}, {stored(place)}, tr("Add %1").arg(nameAt(place)));
    return true;
}

bool StationEdits::paste(const QByteArray &state, Place place, QString &error)
{
    if (!m_station.paste(state, place, error)) {
        return false;
    }
    pushReplacement({}, {stored(place)}, tr("Paste %1").arg(nameAt(place)));
    return true;
}

bool StationEdits::move(Place from, Place to, QString &error)
{
    const StoredModule before = stored(from);
    if (!m_station.move(from, to, error)) {
        return false;
    }
    const QString text = tr("Move %1").arg(nameAt(to));
    if (!before.unavailable.isEmpty() && to != from) {
        pushReplacement({before}, {stored(to)}, text); // moving it back need not give its first bytes
    } else if (to != from) {
        m_stack.push(new MoveModule(m_station, from, to, text));
    }
    return true;
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
    pushReplacement(std::move(removed), {}, text);
}

void StationEdits::configure(Place place, QWidget *parent)
{
    const StoredModule before = stored(place);
    if (m_station.configure(place, parent)) {
        pushReplacement({before}, {stored(place)}, tr("Edit %1").arg(nameAt(place)));
    }
}

bool StationEdits::replaceState(Place place, const QByteArray &state, QString &error)
{
    const StoredModule before = m_station.take(place);
    StoredModule after = before;
    after.state = state;
    after.unavailable.clear();
    if (!m_station.put(after)) {
        error = m_station.take(place).unavailable;
        m_station.put(before);
        return false;
    }
    pushReplacement({before}, {stored(place)}, tr("Edit %1").arg(nameAt(place)));
    return true;
}

bool StationEdits::setPlcType(quint32 type, QString &error)
{
    const quint32 before = m_station.plcType();
    if (!m_station.setPlcType(type, error)) {
        return false;
    }
    if (type != before) {
        m_stack.push(new ChangePlcType(m_station, before, type, tr("Change the PLC type")));
    }
    return true;
}
