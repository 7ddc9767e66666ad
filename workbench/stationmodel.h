// The modules of a station as a table.
#pragma once

#include "catalog.h"

#include <QAbstractTableModel>
#include <QHash>

class Station;

class StationModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Rack, Slot, Type, Name, Input, Output, ColumnCount };

    StationModel(const std::vector<CatalogEntry> &catalog, QObject *parent);

    /// Shows @p station, or what changed in it. It must outlive the model or the next call; null shows nothing.
    void show(const Station *station);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString cell(int row, int column) const;
    QString toolTip(int row) const;

    const Station *m_station = nullptr;
    QHash<quint32, QString> m_orderNumbers; ///< by type code
};
