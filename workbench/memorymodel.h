// The memory that a station's modules hold, as a table.
#pragma once

#include "simulatedbase.h"

#include <QAbstractTableModel>

class Station;

class MemoryModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Area, First, Last, Bytes, Module, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows what the host holds for the station now. It must outlive the model or the next call.
    void show(const Station *station);
    /// Used and available bytes of every area in one line.
    QString summary() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString moduleAt(const simulatedhost::ClaimedRange &range) const;

    const Station *m_station = nullptr;
    QVector<simulatedhost::ClaimedRange> m_ranges;
};
