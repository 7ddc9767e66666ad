// All channels of a station as a table.
#pragma once

#include "channellist.h"

#include <QAbstractTableModel>
#include <QPointer>
#include <QSortFilterProxyModel>

class ChannelModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Rack, Slot, Module, Channel, Address, Signal, Settings, ColumnCount };
    /// Numbers for numeric columns and addresses.
    static constexpr int sortRole = Qt::UserRole;

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows @p station, which must outlive the model or the next call; null: no channels.
    void setStation(const Station *station);
    void retranslate();

    ChannelRow channel(int row) const { return m_channels->at(row); }
    /// First row and number of rows of the module at @p place.
    std::pair<int, int> rowsOf(Place place) const { return m_channels->rowsOf(place); }
    const ChannelParameters &parameters(int row) const { return m_channels->parameters(row); }
    /// The cells of a row as stationCsv() has them.
    QStringList cells(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void insert(Place place);
    void remove(Place place);
    void move(Place from, Place to);
    void update(Place place);
    void emitChange(Place place);

    QPointer<const Station> m_station; // may be destroyed before the model
    std::unique_ptr<ChannelList> m_channels;
};

/// Sorts and filters the channels.
class ChannelFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    ChannelFilter(ChannelModel &model, QObject *parent);

    /// Shows the channels whose address begins with @p text if that is an address, else those that contain every word.
    void setText(const QString &text);
    void setChangedOnly(bool changedOnly);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    const ChannelModel &m_model;
    QStringList m_words;
    QString m_address; ///< without spaces; empty if the text is not an address
    bool m_isChangedOnly = false;
};
