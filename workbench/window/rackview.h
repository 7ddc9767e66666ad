// The racks of a station, with a card for every module. Paints only the visible slots, so a large station is not
// slower.
#pragma once

#include "rackmodel.h"

#include <QTableView>

class RackView : public QTableView {
    Q_OBJECT
public:
    /// @p catalog must outlive the view.
    RackView(const std::vector<CatalogEntry> &catalog, QWidget *parent);

    /// Shows @p station, which must outlive the view or the next call.
    void setStation(const Station *station);

    Place currentPlace() const { return RackModel::placeOf(currentIndex()); }
    /// Makes a slot current, selects only this slot and scrolls to it.
    void setCurrentPlace(Place place);
    /// Selects slots, makes the first one current and scrolls to it. Does nothing for an empty list.
    void selectPlaces(const QVector<Place> &places);
    /// The selected slots that contain a module, in the order of a station.
    QVector<Place> selectedModules() const;

signals:
    void propertiesRequested();
    /// See RackModel for the three signals below. Keys request moves too.
    void placeRequested(quint32 typeCode, Place place);
    void moveRequested(const QVector<Place> &places, Place by);
    void dropRefused(const QString &reason);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    class CardPainter;

    void fitToFont();
    void moveBy(int racks, int columns);

    RackModel *m_model;
    bool m_isDropWelcome = false; ///< where the drag is now
};
