// The racks of a station, with a card for every module. Paints only the visible slots, so a large station is not
// slower.
#pragma once

#include "rackextent.h"
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
    /// The selected slots that contain a module, in the order of a station.
    QVector<Place> selectedModules() const;
    /// Selects these slots, makes @p current, or else the first one, current and scrolls to it. Does nothing without
    /// a slot.
    void selectPlaces(const QVector<Place> &places, std::optional<Place> current = {});
    /// Selects all modules, without the free slots.
    void selectAll() override;
    /// Shows all racks and slots, or only the used ones and one more.
    void setShowsAll(bool showsAll);
    /// Sets the size of the cards: steps from the size that the font needs. Limits the number of steps.
    void setZoom(int steps);
    int zoom() const { return m_zoom; }

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
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    class CardPainter;

    void fitToFont();
    void moveBy(int racks, int columns);

    void readExtent(const Station &station);
    void showExtent();

    RackModel *m_model;
    bool m_isDropWelcome = false; ///< where the drag is now
    RackExtent m_extent;
    bool m_showsAll = false;
    int m_zoom = 0;
    int m_shownRacks = Place::rackCount;
    int m_shownSlots = Place::slotCount;
};
