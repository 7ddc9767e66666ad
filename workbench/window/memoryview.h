// The memory map of a station: one strip per area, with the ranges that its modules hold.
#pragma once

#include "catalog.h"
#include "memorystrip.h"
#include "station.h"

#include <QScrollArea>
#include <QSet>
#include <QTimer>

class MemoryView : public QScrollArea {
    Q_OBJECT
public:
    static constexpr int maximumZoom = 64;

    /// @p catalog must outlive the view.
    MemoryView(const std::vector<CatalogEntry> &catalog, QWidget *parent);

    /// Shows @p station, which must outlive the view or the next call.
    void setStation(const Station *station);
    /// Marks the ranges of the modules at these places and scrolls to the first range.
    void select(const QVector<Place> &places);
    /// Makes the strips @p zoom times as long as the view is wide. The range of @p zoom is 1 to maximumZoom.
    void setZoom(int zoom);
    int zoom() const { return m_zoom; }

    /// Room for all strips and the scroll bar of a zoomed map.
    QSize sizeHint() const override;

signals:
    /// The user selected a range of the module at @p place.
    void moduleSelected(Place place);
    /// The user wants to see the properties of the selected module.
    void propertiesRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QString describe(Place place) const;
    MemoryStrip::Range rangeAt(Place place, qint32 start, qint32 length) const;
    void refresh();
    void refreshChanged();
    void markSelection();
    void retranslate();
    void fitStrips();

    const std::vector<CatalogEntry> &m_catalog;
    const Station *m_station = nullptr;
    QVector<MemoryStrip *> m_strips;
    QSet<int> m_selected;     ///< Place::index() of each
    QVector<Place> m_changed; ///< since the last refresh
    QTimer m_refresh;         ///< combines all changes of a step into one refresh
    int m_zoom = 1;
};
