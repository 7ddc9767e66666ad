// The edits of a station as steps of an undo stack.
//
// A step is made first and pushed then, so that one that is refused leaves the stack as it was; the first redo,
// which pushing calls, does nothing.
#pragma once

#include "station.h"

#include <QCoreApplication>
#include <QUndoCommand>
#include <QVector>

class QUndoStack;

/// What a person can do to a station. The functions that can be refused return false, with the reason in @p error and
/// nothing changed or pushed.
class StationEdits {
    Q_DECLARE_TR_FUNCTIONS(StationEdits)
public:
    /// Both must outlive this object, and @p station the steps on the stack.
    StationEdits(Station &station, QUndoStack &stack) : m_station(station), m_stack(stack) {}

    bool add(quint32 typeCode, Place place, QString &error);
    /// Pastes a saved state (StoredModule::state), with addresses of its own.
    bool paste(const QByteArray &state, Place place, QString &error);
    /// A place that does not change is no step.
    bool move(Place from, Place to, QString &error);
    /// Removes the modules in one step.
    void remove(const QVector<Place> &places);
    /// Opens the properties dialog; what it changed is one step.
    void configure(Place place, QWidget *parent);
    /// Puts another saved state in place of a module's. Refused when the plug-in cannot restore it there.
    bool replaceState(Place place, const QByteArray &state, QString &error);
    bool setPlcType(quint32 type, QString &error);

private:
    void pushReplacement(std::vector<StoredModule> before, std::vector<StoredModule> after, const QString &text);
    StoredModule stored(Place place) const;
    QString nameAt(Place place) const;

    Station &m_station;
    QUndoStack &m_stack;
};
