#include "channelmodel.h"

#include "channeladdress.h"
#include "reporttexts.h"

#include <QFont>

#include <algorithm>

namespace {

constexpr qint64 bitsOfArea = qint64{1} << 24; // more than any area has

qint64 addressOrder(const ChannelRow &channel)
{
    const qint64 bitsPerChannel = channel.range.unit == 0 ? 1 : 8 * channel.range.unit;
    return channel.range.area * bitsOfArea + qint64{8} * channel.range.start + channel.channel * bitsPerChannel;
}

} // namespace

void ChannelModel::setStation(const Station *station)
{
    beginResetModel();
    if (m_station) {
        m_station->disconnect(this);
    }
    m_station = station;
    m_channels = station == nullptr ? nullptr : std::make_unique<ChannelList>(*station);
    endResetModel();
    if (station == nullptr) {
        return;
    }
    connect(station, &Station::manyChangesBegin, this, [this] {
        beginResetModel();
        m_channels.reset();
    });
    connect(station, &Station::manyChangesEnd, this, [this] {
        m_channels = std::make_unique<ChannelList>(*m_station);
        endResetModel();
    });
    connect(station, &Station::moduleAdded, this, &ChannelModel::insert);
    connect(station, &Station::moduleRemoved, this, &ChannelModel::remove);
    connect(station, &Station::moduleChanged, this, &ChannelModel::update);
    connect(station, &Station::moduleMoved, this, &ChannelModel::move);
}

/// An edit of many modules deletes the list at its start and creates a new one at its end.
void ChannelModel::insert(Place place)
{
    if (!m_channels) {
        return;
    }
    const auto [first, count] = m_channels->rowsToInsert(place);
    if (count == 0) {
        m_channels->insert(place);
        return;
    }
    beginInsertRows({}, first, first + count - 1);
    m_channels->insert(place);
    endInsertRows();
}

void ChannelModel::remove(Place place)
{
    if (!m_channels) {
        return;
    }
    const auto [first, count] = m_channels->rowsOf(place);
    if (count == 0) {
        m_channels->remove(place);
        return;
    }
    beginRemoveRows({}, first, first + count - 1);
    m_channels->remove(place);
    endRemoveRows();
}

/// Keeps the rows, because views would deselect removed ones.
void ChannelModel::move(Place from, Place to)
{
    if (!m_channels) {
        return;
    }
    const auto [first, count] = m_channels->rowsOf(from);
    const int target = m_channels->rowsOf(to).first;
    const bool isMoved = count != 0 && beginMoveRows({}, first, first + count - 1, {}, target);
    m_channels->remove(from);
    m_channels->insert(to);
    if (isMoved) {
        endMoveRows();
    }
    emitChange(to);
}

/// The number of channels of a module does not change.
void ChannelModel::update(Place place)
{
    m_channels->remove(place);
    m_channels->insert(place);
    emitChange(place);
}

void ChannelModel::emitChange(Place place)
{
    if (const auto [first, count] = m_channels->rowsOf(place); count != 0) {
        emit dataChanged(index(first, 0), index(first + count - 1, ColumnCount - 1));
    }
}

void ChannelModel::retranslate()
{
    if (m_channels) {
        m_channels->clearTexts();
    }
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (rowCount() != 0) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    }
}

QStringList ChannelModel::cells(int row) const
{
    return csvCells(channel(row), parameters(row));
}

int ChannelModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_channels ? 0 : m_channels->count();
}

int ChannelModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ChannelModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const int row = index.row();
    if (role == Qt::FontRole) {
        const bool isBold = index.column() == Signal && parameters(row).isSignalChanged;
        QFont bold;
        bold.setBold(true);
        return isBold ? QVariant(bold) : QVariant();
    }
    if (role == Qt::ToolTipRole && index.column() == Settings) {
        return parameters(row).text();
    }
    if (role != Qt::DisplayRole && role != sortRole) {
        return {};
    }
    switch (index.column()) {
    case Rack:
        return channel(row).place.rack;
    case Slot:
        return channel(row).place.slot;
    case Module:
        return channel(row).module;
    case Channel:
        return channel(row).channel;
    case Address:
        return role == sortRole ? QVariant(addressOrder(channel(row))) : QVariant(channel(row).address());
    case Signal:
        return parameters(row).signal;
    default:
        return parameters(row).text();
    }
}

QVariant ChannelModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical || role != Qt::DisplayRole) {
        return {};
    }
    const QStringList titles{tr("Rack"),    tr("Slot"),   tr("Module"),  tr("Channel"),
                             tr("Address"), tr("Signal"), tr("Settings")};
    return titles.value(section);
}

ChannelFilter::ChannelFilter(ChannelModel &model, QObject *parent) : QSortFilterProxyModel(parent), m_model(model)
{
    setSourceModel(&model);
    setSortRole(ChannelModel::sortRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
}

void ChannelFilter::setText(const QString &text)
{
    m_words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    m_address = parseAddress(text) ? m_words.join(QString()) : QString();
    invalidateFilter();
}

void ChannelFilter::setChangedOnly(bool changedOnly)
{
    m_isChangedOnly = changedOnly;
    invalidateFilter();
}

bool ChannelFilter::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    if (m_isChangedOnly && !m_model.parameters(row).isChanged()) {
        return false;
    }
    if (m_words.isEmpty()) {
        return true;
    }
    const ChannelRow channel = m_model.channel(row);
    const QString address = channel.address();
    if (!m_address.isEmpty()) {
        return address.startsWith(m_address, Qt::CaseInsensitive) ||
               channel.module.contains(m_words.join(QLatin1Char(' ')), Qt::CaseInsensitive);
    }
    const ChannelParameters &parameters = m_model.parameters(row);
    const QStringList texts{channel.module, address, parameters.signal, parameters.text()};
    return std::all_of(m_words.begin(), m_words.end(), [&](const QString &word) {
        return std::any_of(texts.begin(), texts.end(),
                           [&](const QString &text) { return text.contains(word, Qt::CaseInsensitive); });
    });
}

/// Equal channels keep the order of the station, also those that a changed filter shows again.
bool ChannelFilter::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const auto isLess = [this](const QModelIndex &first, const QModelIndex &second) {
        return QSortFilterProxyModel::lessThan(first, second);
    };
    const bool isBefore = isLess(left, right);
    if (isBefore || isLess(right, left)) {
        return isBefore;
    }
    return sortOrder() == Qt::AscendingOrder ? left.row() < right.row() : left.row() > right.row();
}
