#include "channellist.h"

#include "channeladdress.h"

#include <algorithm>

QString ChannelRow::address() const
{
    return channelAddress(range, channel);
}

ChannelList::ChannelList(const Station &station) : m_station(station), m_reader(station.plugin())
{
    m_entries.reserve(static_cast<std::size_t>(station.count()));
    for (int i = 0; i < station.count(); ++i) {
        m_entries.push_back(newEntry(station.module(i)));
    }
    renumber();
}

/// The ranges of an unavailable module are bytes, whose channels are not known.
ChannelList::Entry ChannelList::newEntry(const ModuleSummary &module)
{
    const bool isAvailable = module.unavailable.isEmpty();
    return {module.place,
            module.typeCode,
            module.name,
            isAvailable ? module.in : IoMap(),
            isAvailable ? module.out : IoMap(),
            0,
            nullptr};
}

ChannelList::Entry ChannelList::entryAt(Place place) const
{
    return newEntry(m_station.module(*m_station.moduleAt(place)));
}

void ChannelList::renumber()
{
    m_count = 0;
    for (Entry &entry : m_entries) {
        entry.firstRow = m_count;
        m_count += entry.rows();
    }
}

std::vector<ChannelList::Entry>::iterator ChannelList::lowerBound(Place place)
{
    return std::lower_bound(m_entries.begin(), m_entries.end(), place.index(),
                            [](const Entry &entry, int index) { return entry.place.index() < index; });
}

/// The last entry that begins at or before the row has it, because entries without rows begin where the next one does.
const ChannelList::Entry &ChannelList::entryOf(int row) const
{
    const auto next = std::upper_bound(m_entries.begin(), m_entries.end(), row,
                                       [](int wanted, const Entry &entry) { return wanted < entry.firstRow; });
    return *(next - 1);
}

ChannelRow ChannelList::at(int row) const
{
    const Entry &entry = entryOf(row);
    const int number = row - entry.firstRow;
    const bool isOutput = number >= entry.in.count;
    return {entry.place,
            entry.typeCode,
            entry.name,
            isOutput,
            isOutput ? number - entry.in.count : number,
            isOutput ? entry.out : entry.in};
}

const ChannelParameters &ChannelList::parameters(int row) const
{
    const Entry &entry = entryOf(row);
    if (!entry.channels) {
        const QByteArray state = m_station.stored(*m_station.moduleAt(entry.place)).state;
        entry.channels = m_reader.read(entry.typeCode, state, entry.in, entry.out);
    }
    const int number = row - entry.firstRow;
    return number < entry.in.count ? entry.channels->inputs.at(number)
                                   : entry.channels->outputs.at(number - entry.in.count);
}

std::pair<int, int> ChannelList::rowsOf(Place place) const
{
    const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), place.index(),
                                        [](const Entry &entry, int index) { return entry.place.index() < index; });
    if (found == m_entries.end() || found->place != place) {
        return {found == m_entries.end() ? m_count : found->firstRow, 0};
    }
    return {found->firstRow, found->rows()};
}

std::pair<int, int> ChannelList::rowsToInsert(Place place) const
{
    return {rowsOf(place).first, entryAt(place).rows()};
}

void ChannelList::insert(Place place)
{
    m_entries.insert(lowerBound(place), entryAt(place));
    renumber();
}

void ChannelList::remove(Place place)
{
    const auto found = lowerBound(place);
    if (found != m_entries.end() && found->place == place) {
        m_entries.erase(found);
        renumber();
    }
}

void ChannelList::clearTexts()
{
    m_reader.clear();
    for (Entry &entry : m_entries) {
        entry.channels.reset();
    }
}
