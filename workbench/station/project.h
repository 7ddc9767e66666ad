// The content of a project file: a station without the plug-in.
#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>

#include <vector>

/// Where a module is. The limits are small because blocks store rack and slot as signed bytes, and a saved state
/// cannot contain a position byte of 128 or more.
struct Place {
    static constexpr int rackCount = 128;
    static constexpr int slotCount = 32;
    static constexpr int count = rackCount * slotCount;

    int rack = 0;
    int slot = 0;

    /// The inverse of index().
    static Place at(int index) { return {index / slotCount, index % slotCount}; }
    bool isValid() const { return rack >= 0 && rack < rackCount && slot >= 0 && slot < slotCount; }
    /// The order of modules in a station: slot by slot, rack by rack.
    int index() const { return rack * slotCount + slot; }
    bool operator==(const Place &other) const { return rack == other.rack && slot == other.slot; }
    bool operator!=(const Place &other) const { return !(*this == other); }
    bool operator<(const Place &other) const { return index() < other.index(); }
};
Q_DECLARE_METATYPE(Place)

/// A module as stored bytes.
struct StoredModule {
    static constexpr int maximumStateSize = 65536; ///< bytes; many times the size of any module

    Place place;
    quint32 typeCode = 0; ///< informative, as the name; the state decides
    QString name;
    QByteArray state;    ///< as the plug-in saved it
    QString unavailable; ///< why the plug-in could not restore it, in the user's language; empty if it could or has not
                         ///< tried yet; not part of a project file
};

/// What a user writes about a project.
struct ProjectProperties {
    QString title;
    QString author;
    QString revision;
    QString notes;

    bool operator==(const ProjectProperties &other) const
    {
        return title == other.title && author == other.author && revision == other.revision && notes == other.notes;
    }
};

struct Project {
    quint32 plcType = 0;
    std::vector<StoredModule> modules; ///< in ascending order of places, at most one per place
    ProjectProperties properties;
};
