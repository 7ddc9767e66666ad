// All channels of a station, in the order of its modules.
#pragma once

#include "channelreader.h"
#include "station.h"

/// One row of a list of channels.
struct ChannelRow {
    Place place;
    quint32 typeCode = 0;
    QString module; ///< its name
    bool isOutput = false;
    int channel = 0; ///< from 0
    IoMap range;     ///< that the channel belongs to

    QString address() const;
};

/// The channels of the available modules. Reads names and ranges when a module is inserted, and the parameters of a
/// module when they are requested for the first time.
class ChannelList {
public:
    /// Has all channels of @p station, which must outlive the list.
    explicit ChannelList(const Station &station);

    int count() const { return m_count; }
    /// @p row must be 0 to count() - 1, in both functions.
    ChannelRow at(int row) const;
    const ChannelParameters &parameters(int row) const;

    /// First row and number of rows of the module at @p place; no rows for a place without channels.
    std::pair<int, int> rowsOf(Place place) const;
    /// First row and number of rows that insert() will add for a module of the station.
    std::pair<int, int> rowsToInsert(Place place) const;
    void insert(Place place);
    void remove(Place place);
    /// Reads all parameters again, because the language has changed.
    void clearTexts();

private:
    struct Entry {
        Place place;
        quint32 typeCode = 0;
        QString name;
        IoMap in;
        IoMap out;
        int firstRow = 0;
        mutable std::shared_ptr<const ModuleChannels> channels; ///< null: not read yet

        int rows() const { return in.count + out.count; }
    };

    static Entry newEntry(const ModuleSummary &module);
    Entry entryAt(Place place) const;
    const Entry &entryOf(int row) const;
    std::vector<Entry>::iterator lowerBound(Place place);
    void renumber();

    const Station &m_station;
    mutable ChannelReader m_reader;
    std::vector<Entry> m_entries; ///< in ascending order of places
    int m_count = 0;
};
