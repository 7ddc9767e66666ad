// One station: its modules in racks and slots, as the plug-in's handles.
#pragma once

#include "pluginlibrary.h"
#include "roundtrip.h"
#include "stationmemory.h"

#include <QObject>
#include <QVector>

#include <functional>
#include <memory>

class QWidget;

/// Called after each module of a long operation. Returning false cancels the operation.
using Progress = std::function<bool(int done, int total)>;

/// What the program shows of a module.
struct ModuleSummary {
    Place place;
    quint32 typeCode = 0;
    QString name;
    QString comment;
    IoMap in;
    IoMap out;
    /// Why the module has no handle; the comment is then empty, and the ranges are those that its state stores. Empty
    /// for a module with a handle.
    QString unavailable;
};

/// Owns the modules of one station and the memory that they hold under the station's owner key. A module is identified
/// by its place, or by its index in the order of places. Indexes, and places that identify a module, must be valid. A
/// module that the plug-in cannot restore is unavailable: it stays as its stored bytes, without a handle. Its addresses
/// stay reserved.
///
/// A function that fails changes nothing. The edits here cannot be undone; StationEdits makes undoable steps of them.
class Station : public QObject {
    Q_OBJECT
public:
    /// Where the ranges of a copied module are.
    enum class Addresses { New, Stored };

    /// An empty station. @p plugin must outlive it. No other station may use the key @p memoryOwner.
    Station(const PluginLibrary &plugin, QString memoryOwner);
    ~Station() override;

    /// The station of a project, which may have unavailable modules. Fails, with no memory left claimed, when the host
    /// lacks the PLC type or @p progress cancels; the reason is empty in the latter case.
    static Result<std::unique_ptr<Station>> opened(const PluginLibrary &plugin, const QString &memoryOwner,
                                                   const Project &project, const Progress &progress = {});

    const PluginLibrary &plugin() const { return m_plugin; }
    const StationMemory &memory() const { return m_memory; }
    int count() const { return static_cast<int>(m_modules.size()); }
    int unavailableCount() const;
    /// In the order of places.
    std::vector<ModuleSummary> unavailableModules() const;
    ModuleSummary module(int index) const;
    /// The module's name with its place, for messages.
    QString describe(Place place) const;
    /// Index of the module at @p place; std::nullopt for a free or invalid place.
    std::optional<int> moduleAt(Place place) const;
    /// The first free place from @p wanted on, continued at the first rack; std::nullopt if every slot is taken.
    std::optional<Place> freePlace(Place wanted) const;
    /// Fails when @p place does not exist or is taken.
    Result<> checkFree(Place place) const;
    /// Fails when the modules at @p places cannot move together by @p by racks and slots.
    Result<> checkMove(const QVector<Place> &places, Place by) const;

    const ProjectProperties &properties() const { return m_properties; }
    void setProperties(const ProjectProperties &properties);

    quint32 plcType() const { return m_memory.plcType(); }
    /// Fails when the host lacks that type or a module uses an address outside its areas.
    Result<> setPlcType(quint32 type);
    static quint32 largestPlcType();
    void setLargestPlcType() { static_cast<void>(setPlcType(largestPlcType())); } // its areas hold every address
    /// Sets the smallest PLC type that has room for all modules, but none below the type of a new station.
    void fitPlcType();

    /// Creates a module. Fails when the place is not free or the plug-in refuses.
    Result<> add(quint32 typeCode, Place place);
    /// Adds a copy of a saved module. Fails when the place is not free, the state cannot be restored, an area is full,
    /// or the stored addresses are not free.
    Result<> paste(const QByteArray &state, Place place, Addresses addresses = Addresses::New);
    /// Adds a module of a configuration block at the place and the addresses that the block contains. Fails when the
    /// plug-in rejects the block, or the place or an address is not free. @p code receives the plug-in's result code,
    /// or -1 if the plug-in sets none.
    Result<> addBlock(const QByteArray &block, qint32 &code);
    /// Fails when @p to is not free.
    Result<> move(Place from, Place to);
    /// Opens the plug-in's properties dialog. Returns true if the module changed. Does nothing for an unavailable
    /// module.
    bool configure(Place place, QWidget *parent);

    /// Removes a module, frees its addresses and returns what put() needs to restore it.
    StoredModule take(Place place);
    /// Adds a module at its own addresses, in a place that must be free. Takes addresses that are reserved for an
    /// unavailable module. Returns false if the module is unavailable: because it is marked so, or because it cannot be
    /// restored.
    bool put(const StoredModule &module);
    /// Fails when addresses in a saved state are claimed by a module or reserved for one.
    Result<> checkAddresses(const QByteArray &state) const;

    /// While the properties dialog is open, its module is returned as it was before.
    StoredModule stored(int index) const;
    Project project() const;
    /// The concatenated configuration blocks of all available modules; std::nullopt when @p progress cancels.
    std::optional<QByteArray> compiled(const Progress &progress = {}) const;
    /// The module must be available.
    RoundTrip roundTrip(int index) const { return ::roundTrip(m_plugin, at(index).handle.get()); }

signals:
    void moduleAdded(Place place);
    void moduleRemoved(Place place);
    void moduleMoved(Place from, Place to);
    /// Name, comment, ranges or parameters have changed.
    void moduleChanged(Place place);
    void plcTypeChanged();
    void propertiesChanged();
    /// Before and after one edit emits the signals above several times: for several modules, or for one that is removed
    /// and added again. A view can then read the station once instead of following each signal. These calls are never
    /// nested.
    void manyChangesBegin();
    void manyChangesEnd();

private:
    struct Module {
        Place place;
        ModuleHandle handle; ///< null: unavailable
        StoredModule kept;   ///< of an unavailable module
        IoMap in;            ///< of an unavailable module
        IoMap out;           ///< of an unavailable module
    };

    const Module &at(int index) const { return m_modules[static_cast<std::size_t>(index)]; }
    /// Position of the module at @p place, or of the next one.
    std::vector<Module>::const_iterator lowerBound(Place place) const;
    Place placeOf(SimpleExtendPar *handle) const;
    void setPlace(SimpleExtendPar *handle, Place place) const;
    std::vector<MemoryRange> rangesOf(SimpleExtendPar *handle) const;
    void insert(Module module);
    bool putUnreserved(const StoredModule &module, bool verified);
    Result<ModuleHandle> restored(const StoredModule &module, bool verified) const;
    Result<ModuleHandle> read(const StoredModule &module, const QString &memoryOwner) const;
    QString whyNotCreated(quint32 typeCode) const;
    QString whyNotRebuilt(quint32 typeCode, const QString &damaged) const;
    Result<> addCopy(const QByteArray &state, Place place, Addresses addresses);

    const PluginLibrary &m_plugin;
    const PluginExports &m_exports;
    StationMemory m_memory;
    ProjectProperties m_properties;
    std::vector<Module> m_modules; ///< in ascending order of places
    std::optional<StoredModule> m_beforeDialog;
};
