// One station: its modules in racks and slots, as the plug-in's handles.
#pragma once

#include "baseservices.h"
#include "pluginlibrary.h"
#include "project.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

class QWidget;

/// Area, start and length in bytes.
using MemoryRange = std::tuple<VarArea, qint32, qint32>;

/// Told of every module that a long work is done with; false ends the work.
using Progress = std::function<bool(int done, int total)>;

/// What there is to see of one module.
struct ModuleView {
    Place place;
    quint32 typeCode = 0;
    QString name;
    QString comment;
    IoMap in;
    IoMap out;
    /// Why no handle stands for the module; comment and ranges are then empty. Empty for all others.
    QString unavailable;
};

/// Result of sending one module through both formats and back.
struct RoundTrip {
    int savedBytes = 0;
    int compiledBytes = 0;
    bool savedSame = false; ///< save, restore, save gives the same bytes
    /// Ranges of double-word channels that the rebuilt module counts as word channels, as the plug-in defines it.
    int rangeLengthsHalved = 0;
    bool compiledSame = false; ///< compile, recompile, compile gives the same bytes but for those range lengths

    bool isGood() const { return savedSame && compiledSame; }
};

/// Owns the modules of one station and the memory that they hold under the station's owner key. A module is named by
/// its place, or by its index in the order of places; indexes and places of modules that are passed in must be those
/// of a module. A module that the plug-in cannot restore stays as its stored bytes, without a handle: unavailable.
///
/// The edits here cannot be undone; StationEdits makes steps of them that can.
class Station : public QObject {
    Q_OBJECT
public:
    /// An empty station. @p plugin must outlive it; @p memoryOwner must be no other station's key.
    Station(const PluginLibrary &plugin, QString memoryOwner);
    ~Station() override;

    /// The station of a project; its unavailable modules say why they are. Null, with no memory left claimed, when
    /// the host lacks the PLC type or @p progress ended the work; @p error is empty in the latter case.
    static std::unique_ptr<Station> opened(const PluginLibrary &plugin, const QString &memoryOwner,
                                           const Project &project, QString &error, const Progress &progress = {});

    const QString &memoryOwner() const { return m_memoryOwner; }
    int count() const { return static_cast<int>(m_modules.size()); }
    int unavailableCount() const;
    ModuleView module(int index) const;
    /// Index of the module at @p place.
    std::optional<int> moduleAt(Place place) const;
    std::optional<Place> firstFreePlace() const;
    /// True when @p place exists and is free; else @p error says which of the two is wrong.
    bool isFree(Place place, QString &error) const;

    quint32 plcType() const;
    /// False, and why in @p error, when the host lacks that type or a module reaches beyond its areas.
    bool setPlcType(quint32 type, QString &error);
    /// Picks the smallest PLC type, but none below a new station's, that has room for all modules.
    void fitPlcType();

    /// Creates a module. False, and why in @p error, when the place is not free or the plug-in refuses.
    bool add(quint32 typeCode, Place place, QString &error);
    /// Adds a copy of a saved module, with addresses of its own. False, and why in @p error, when the place is not
    /// free, the state cannot be restored, or an area is full.
    bool paste(const QByteArray &state, Place place, QString &error);
    /// Adds a module of a configuration block at the block's own place and addresses. False, and why in @p error,
    /// when the plug-in refuses the block or the place or an address is not free; @p code (null is accepted)
    /// receives the plug-in's result code, or -1 where it gave none.
    bool addBlock(const QByteArray &block, qint32 *code, QString &error);
    /// Moves a module. False, and why in @p error, when @p to is not free.
    bool move(Place from, Place to, QString &error);
    /// Opens the plug-in's properties dialog; true when the module is another one afterwards. Does nothing for an
    /// unavailable module.
    bool configure(Place place, QWidget *parent);

    /// Removes a module, frees its addresses and returns what put() needs to bring it back.
    StoredModule take(Place place);
    /// Adds a module under its own addresses, in a place that must be free. One that says that it is unavailable
    /// stays so; one that cannot be restored becomes so. True when a handle stands for it.
    bool put(const StoredModule &module);

    StoredModule stored(int index) const;
    Project project() const;
    /// The configuration blocks of all available modules, one behind the other; nothing when @p progress ended it.
    std::optional<QByteArray> compiled(const Progress &progress = {}) const;
    /// Of an available module.
    RoundTrip roundTrip(int index) const;

signals:
    void moduleAdded(Place place);
    void moduleRemoved(Place place);
    void moduleMoved(Place from, Place to);
    /// Name, comment, ranges or parameters are others.
    void moduleChanged(Place place);
    void plcTypeChanged();

private:
    struct Module {
        Place place;
        ModuleHandle handle; ///< null: unavailable
        StoredModule kept;   ///< of an unavailable module
    };

    const Module &at(int index) const { return m_modules[static_cast<std::size_t>(index)]; }
    Place placeOf(SimpleExtendPar *handle) const;
    void setPlace(SimpleExtendPar *handle, Place place) const;
    void insert(Module module);
    bool put(const StoredModule &module, bool verified);
    ModuleHandle restored(const StoredModule &module, bool verified, QString &reason) const;
    ModuleHandle read(const StoredModule &module, const QString &memoryOwner, QString &reason) const;
    QString whyNotCreated(quint32 typeCode) const;
    QString whyNotRebuilt(quint32 typeCode, const QString &damaged) const;
    bool findRoom(IoMap &in, IoMap &out, QString &error) const;
    bool addCopy(const QByteArray &state, Place place, bool newAddresses, QString &error);
    void hold(SimpleExtendPar *handle);
    void letGo(SimpleExtendPar *handle);
    std::vector<MemoryRange> claimed() const;
    bool holdsItsMemory() const;
    void settleMemory() const;

    const PluginLibrary &m_plugin;
    const PluginExports &m_exports;
    QString m_memoryOwner;
    std::vector<Module> m_modules; ///< by rising place
    std::set<MemoryRange> m_held;  ///< by the modules
};
