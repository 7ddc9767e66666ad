// One station: its modules as the plug-in's handles, in racks and slots.
#pragma once

#include "pluginlibrary.h"

#include <QByteArrayList>
#include <QCoreApplication>

#include <memory>
#include <optional>
#include <vector>

class QWidget;

/// Where a module sits. Small numbers only: a saved state cannot carry a position byte of 128 or more.
struct Place {
    static constexpr int rackCount = 16;
    static constexpr int slotCount = 8;

    int rack = 0;
    int slot = 0;

    bool isValid() const { return rack >= 0 && rack < rackCount && slot >= 0 && slot < slotCount; }
    int index() const { return rack * slotCount + slot; }
    bool operator==(const Place &other) const { return rack == other.rack && slot == other.slot; }
};

/// What the plug-in tells of one module.
struct ModuleView {
    Place place;
    quint32 typeCode = 0;
    QString name;
    QString comment;
    IoMap in;
    IoMap out;
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

/// Owns the modules of one station and the memory that they hold under the station's owner key. The modules are in
/// the order of their places. Indexes that are passed in must be valid.
class Station {
    Q_DECLARE_TR_FUNCTIONS(Station)
public:
    /// An empty station. @p plugin must outlive it; @p memoryOwner must be no other station's key.
    Station(const PluginLibrary &plugin, QString memoryOwner);

    /// A station of saved modules, or null, with no memory left claimed, when one of them is damaged, of a type
    /// that the catalog lacks, or in the way of another one; @p error then says which.
    static std::unique_ptr<Station> restored(const PluginLibrary &plugin, const QString &memoryOwner,
                                             const QByteArrayList &states, QString &error);

    const QString &memoryOwner() const { return m_memoryOwner; }
    int count() const { return static_cast<int>(m_modules.size()); }
    ModuleView module(int index) const;
    /// Index of the module at @p place.
    std::optional<int> moduleAt(Place place) const;

    /// Creates a module in the first free slot and returns its index; nothing, and why in @p error, when no slot is
    /// free or the plug-in refuses.
    std::optional<int> add(quint32 typeCode, QString &error);
    void remove(int index);
    /// Moves a module and returns its new index; nothing when the place is taken by another one or out of range.
    std::optional<int> place(int index, Place place);
    /// Opens the plug-in's properties dialog.
    void configure(int index, QWidget *parent);

    /// The saved state of every module.
    QByteArrayList states() const;
    /// The configuration blocks of all modules, one behind the other.
    QByteArray compiled() const;
    RoundTrip roundTrip(int index) const;

private:
    SimpleExtendPar *handle(int index) const { return m_modules[static_cast<std::size_t>(index)].get(); }
    Place placeOf(SimpleExtendPar *handle) const;
    int insert(ModuleHandle module);
    int insertAt(ModuleHandle module, Place place);
    bool addSaved(const QByteArray &state, QString &error);
    std::optional<int> firstUnheldModule() const;

    const PluginLibrary &m_plugin;
    const PluginExports &m_exports;
    QString m_memoryOwner;
    std::vector<ModuleHandle> m_modules;
};
