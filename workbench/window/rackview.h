// The racks of a station with a card for every module. Paints what is visible only, so that its size costs nothing.
#pragma once

#include "rackmodel.h"

#include <QTableView>

class RackView : public QTableView {
    Q_OBJECT
public:
    /// @p catalog must outlive the view.
    RackView(const std::vector<CatalogEntry> &catalog, QWidget *parent);

    /// Follows @p station, which must outlive the view or the next call.
    void show(const Station *station);

    Place currentPlace() const { return RackModel::placeOf(currentIndex()); }
    /// Makes a slot current, selects it alone and brings it into view.
    void setCurrentPlace(Place place);
    /// The selected slots that have a module, in the order of a station.
    QVector<Place> selectedModules() const;

signals:
    /// Another slot is current, or others are selected.
    void selectionMoved();
    void propertiesRequested();
    /// A drop from the catalog on a free slot.
    void placeRequested(quint32 typeCode, Place place);
    /// A drag of a module, or a key, to a free slot.
    void moveRequested(Place from, Place to);
    /// Why nothing can be dropped where the mouse is.
    void dropRefused(const QString &reason);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void changeEvent(QEvent *event) override;

private:
    class CardPainter;

    void fitToFont();
    void setDropTarget(const QModelIndex &target);
    void moveBy(int racks, int slots_);

    RackModel *m_model;
    QPersistentModelIndex m_dropTarget; ///< slot under a drag
};
