// The slots of a station as a table: racks are rows, slots are columns. Handles drag and drop of modules.
#pragma once

#include "catalog.h"
#include "station.h"

#include <QAbstractTableModel>

class RackModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// @p catalog must outlive the model.
    RackModel(const std::vector<CatalogEntry> &catalog, QObject *parent);

    /// Shows @p station, which must outlive the model or the next call.
    void setStation(const Station *station);

    QModelIndex indexOf(Place place) const { return index(place.rack, place.slot); }
    static Place placeOf(const QModelIndex &index) { return {index.row(), index.column()}; }
    /// std::nullopt for a free slot.
    std::optional<ModuleSummary> moduleAt(const QModelIndex &index) const;
    bool hasModule(const QModelIndex &index) const;
    /// See Station::checkMove().
    bool canMove(const QVector<Place> &places, Place by) const;
    /// In ascending order.
    std::vector<Place> modulePlaces() const;
    const std::vector<CatalogEntry> &catalog() const { return m_catalog; }
    /// Null for a type that the catalog lacks.
    const CatalogEntry *entryOf(quint32 typeCode) const { return findEntry(m_catalog, typeCode); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override;
    /// The place that the user grabs. A drop moves this one to the slot of the drop, and the other dragged modules with
    /// it.
    void setGrabbed(Place place) { m_grabbed = place; }
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

    /// Updates the translated texts.
    void retranslate();

signals:
    /// A module type was dropped from the catalog on a free slot.
    void placeRequested(quint32 typeCode, Place place);
    /// Modules were dropped on slots where they can be.
    void moveRequested(const QVector<Place> &places, Place by);
    /// A drag is over a slot where it cannot be dropped. The view emits an empty reason where it can be dropped.
    void dropRefused(const QString &reason) const;

private:
    void emitChange(Place place);
    Result<> checkDrop(const QMimeData &data, Place to) const;
    QString toolTip(const ModuleSummary &module) const;
    QString accessibleText(const QModelIndex &index) const;

    const std::vector<CatalogEntry> &m_catalog;
    const Station *m_station = nullptr;
    Place m_grabbed;
    /// Type of the data of dragged modules. Unique, because a place has no meaning in another window.
    const QString m_moveMimeType;
};
