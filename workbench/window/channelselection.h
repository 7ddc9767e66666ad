// The selected channels of a table, independent of rows.
#pragma once

#include "station.h"

#include <QMap>
#include <QModelIndex>
#include <QVector>

#include <optional>

class ChannelFilter;
class ChannelModel;
class QTableView;

/// Keeps the selection and the current channel when the model is reset, because an edit of many modules resets it. A
/// channel is identified by the place of its module, also after the module has moved.
class ChannelSelection : public QObject {
    Q_OBJECT
public:
    /// @p table shows @p model through @p filter and owns this object. All three must outlive it.
    ChannelSelection(QTableView &table, const ChannelModel &model, const ChannelFilter &filter);

    /// Selects no channel. Call before the model gets @p station, whose moves are followed.
    void begin(const Station *station);

private:
    struct Channel {
        Place place;
        int number = 0; ///< of the module's channels: inputs, then outputs
    };

    Channel channelOf(const QModelIndex &index) const;
    QModelIndex indexOf(const Channel &channel) const;
    void store();
    void restore();
    void follow(Place from, Place to);

    QTableView &m_table;
    const ChannelModel &m_model;
    const ChannelFilter &m_filter;
    QMap<int, QVector<int>> m_selected; ///< channels by the index of the place
    std::optional<Channel> m_current;
    int m_scrollValue = 0;
};
