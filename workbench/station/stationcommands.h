// The edits of a station as steps of an undo stack.
#pragma once

#include "station.h"

#include <QCoreApplication>
#include <QVector>

#include <functional>

class QUndoStack;

/// What a user can do to a station. An edit is executed first and pushed then, so an edit that fails changes neither
/// the station nor the stack.
class StationEdits {
    Q_DECLARE_TR_FUNCTIONS(StationEdits)
public:
    /// Both must outlive this object, and @p station the steps on the stack.
    StationEdits(Station &station, QUndoStack &stack) : m_station(station), m_stack(stack) {}

    Result<> add(quint32 typeCode, Place place);
    /// Pastes a saved state (StoredModule::state), with new addresses.
    Result<> paste(const QByteArray &state, Place place);
    /// Pushes no step if the place does not change.
    Result<> move(Place from, Place to);
    /// Removes the modules in one step. Pushes no step for an empty list.
    void remove(const QVector<Place> &places);
    /// Opens the properties dialog. All its changes are one step.
    void configure(Place place, QWidget *parent);
    /// Replaces the saved state of a module. Fails when the plug-in cannot restore the state at that place.
    Result<> replaceState(Place place, const QByteArray &state);
    Result<> setPlcType(quint32 type);

private:
    void push(const QString &text, std::function<void()> undo, std::function<void()> redo);
    void pushReplacement(const std::vector<StoredModule> &before, const std::vector<StoredModule> &after,
                         const QString &text);
    StoredModule stored(Place place) const;
    QString nameAt(Place place) const;

    Station &m_station;
    QUndoStack &m_stack;
};
