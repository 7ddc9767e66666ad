// The edits of a station as steps of an undo stack.
#pragma once

#include "station.h"

#include <QCoreApplication>
#include <QVector>

#include <functional>
#include <map>
#include <vector>

class QUndoStack;

/// What became of pasted modules.
struct PasteResult {
    Q_DECLARE_TR_FUNCTIONS(PasteResult)
public:
    int total = 0;
    int keptAddresses = 0;           ///< of the pasted ones
    QVector<Place> places;           ///< of the pasted modules
    std::map<QString, int> failures; ///< reasons, with the number of modules

    /// One sentence: how many of how many, and with which addresses.
    QString text() const;
    /// Success if every module was pasted.
    Result<> result() const;
};

/// The modules that pasteParameters() was called for.
struct ParameterPaste {
    int changed = 0;
    int same = 0;      ///< of a copied type, with these parameters already
    int otherType = 0; ///< left alone, because no module of their type was copied
    int unavailable = 0;
};

/// What a user can do to a station. An edit is executed first and pushed then, so an edit that fails changes neither
/// the station nor the stack.
class StationEdits {
    Q_DECLARE_TR_FUNCTIONS(StationEdits)
public:
    /// Both must outlive this object, and @p station the steps on the stack.
    StationEdits(Station &station, QUndoStack &stack) : m_station(station), m_stack(stack) {}

    Result<> add(quint32 typeCode, Place place);
    /// Pastes modules in one step: in their arrangement with the first one at @p at if all these slots are free, else
    /// into the free slots from @p at on. Addresses::Stored keeps the addresses of the modules where these are free,
    /// and pastes also unavailable modules. Leaves out modules that cannot be pasted.
    PasteResult paste(const std::vector<StoredModule> &modules, Place at, Station::Addresses addresses);
    /// Pushes no step if the place does not change.
    Result<> move(Place from, Place to) { return moveBy({from}, {to.rack - from.rack, to.slot - from.slot}); }
    /// Moves modules by @p by racks and slots in one step, or none of them.
    Result<> moveBy(QVector<Place> places, Place by);
    /// Removes the modules in one step. Pushes no step for an empty list.
    void remove(const QVector<Place> &places);
    /// Opens the properties dialog. All its changes are one step.
    void configure(Place place, QWidget *parent);
    Result<> setPlcType(quint32 type);
    /// Pushes no step if nothing changes.
    void setProperties(const ProjectProperties &properties);
    /// Gives the parameters of the channels of copied modules to the modules at these places, in one step. A module
    /// takes those of the first saved state of its type and keeps its name, comment, place and addresses; without such
    /// a state it does not change. Fails, and changes nothing, when the plug-in rejects a result.
    Result<ParameterPaste> pasteParameters(const QByteArrayList &states, const QVector<Place> &places);

private:
    void push(const QString &text, std::function<void()> undo, std::function<void()> redo);
    void pushReplacement(const std::vector<StoredModule> &before, const std::vector<StoredModule> &after,
                         const QString &text);
    Result<> exchange(const std::vector<StoredModule> &before, const std::vector<StoredModule> &after);
    std::vector<Place> targets(const std::vector<StoredModule> &modules, Place at) const;
    Result<bool> pasteOne(StoredModule module, Station::Addresses addresses);
    std::vector<StoredModule> stored(const QVector<Place> &places) const;
    StoredModule stored(Place place) const;
    QString nameAt(Place place) const;

    Station &m_station;
    QUndoStack &m_stack;
};
