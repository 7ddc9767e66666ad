#include "channelselection.h"

#include "channelmodel.h"

#include <QScrollBar>
#include <QTableView>

#include <algorithm>

ChannelSelection::ChannelSelection(QTableView &table, const ChannelModel &model, const ChannelFilter &filter)
    : QObject(&table), m_table(table), m_model(model), m_filter(filter)
{
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, &ChannelSelection::store);
    connect(&filter, &QAbstractItemModel::modelReset, this, &ChannelSelection::restore);
}

void ChannelSelection::begin(const Station *station)
{
    m_table.selectionModel()->clear();
    m_selected.clear();
    m_current.reset();
    connect(station, &Station::moduleMoved, this, &ChannelSelection::follow);
}

ChannelSelection::Channel ChannelSelection::channelOf(const QModelIndex &index) const
{
    const int row = m_filter.mapToSource(index).row();
    const Place place = m_model.channel(row).place;
    return {place, row - m_model.rowsOf(place).first};
}

/// Invalid if the module is gone or a filter hides the channel.
QModelIndex ChannelSelection::indexOf(const Channel &channel) const
{
    const auto [first, count] = m_model.rowsOf(channel.place);
    return channel.number < count ? m_filter.mapFromSource(m_model.index(first + channel.number, 0)) : QModelIndex();
}

/// A model without rows keeps what was selected before, so undo and a view that is shown again restore it.
void ChannelSelection::store()
{
    if (m_model.rowCount() == 0) {
        return;
    }
    m_selected.clear();
    for (const QModelIndex &index : m_table.selectionModel()->selectedRows()) {
        const auto [place, number] = channelOf(index);
        m_selected[place.index()].append(number);
    }
    m_scrollValue = m_table.verticalScrollBar()->value();
    const QModelIndex current = m_table.currentIndex();
    m_current = current.isValid() ? std::optional<Channel>(channelOf(current)) : std::nullopt;
}

void ChannelSelection::restore()
{
    if (m_model.rowCount() == 0) {
        return;
    }
    QVector<int> rows;
    for (auto each = m_selected.cbegin(); each != m_selected.cend(); ++each) {
        for (const int number : each.value()) {
            if (const QModelIndex index = indexOf({Place::at(each.key()), number}); index.isValid()) {
                rows.append(index.row());
            }
        }
    }
    std::sort(rows.begin(), rows.end());
    QItemSelection selection;
    for (const int row : qAsConst(rows)) {
        const QModelIndex index = m_filter.index(row, 0);
        const bool continues = !selection.isEmpty() && selection.last().bottom() + 1 == row;
        if (continues) { // long runs keep the selection small
            selection.last() = QItemSelectionRange(selection.last().topLeft(), index);
        } else {
            selection.append(QItemSelectionRange(index));
        }
    }
    QItemSelectionModel &model = *m_table.selectionModel();
    model.select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (m_current) {
        model.setCurrentIndex(indexOf(*m_current), QItemSelectionModel::NoUpdate);
        m_table.verticalScrollBar()->setValue(m_scrollValue); // the table has scrolled to the current channel
    }
}

/// A module moves to a place that is free, so its channels replace no others.
void ChannelSelection::follow(Place from, Place to)
{
    if (m_selected.contains(from.index())) {
        m_selected[to.index()] = m_selected.take(from.index());
    }
    if (m_current && m_current->place == from) {
        m_current->place = to;
    }
}
