// The slots of a station as a table: racks are rows, slots are columns.
#pragma once

#include "catalog.h"
#include "station.h"

#include <QAbstractTableModel>

class RackModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// @p catalog must outlive the model.
    RackModel(const std::vector<CatalogEntry> &catalog, QObject *parent);

    /// Follows @p station, which must outlive the model or the next call.
    void show(const Station *station);

    QModelIndex indexOf(Place place) const { return index(place.rack, place.slot); }
    static Place placeOf(const QModelIndex &index) { return {index.row(), index.column()}; }
    /// Nothing for a free slot.
    std::optional<ModuleView> moduleAt(const QModelIndex &index) const;
    /// Null for a type that the catalog lacks.
    const CatalogEntry *entryOf(quint32 typeCode) const { return findEntry(m_catalog, typeCode); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// Speaks the new language.
    void retranslate();

private:
    void tellChange(Place place);
    QString toolTip(const ModuleView &module) const;
    QString spokenText(const QModelIndex &index) const;

    const std::vector<CatalogEntry> &m_catalog;
    const Station *m_station = nullptr;
};
