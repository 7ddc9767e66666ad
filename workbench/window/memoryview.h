// The memory map of a station: one strip per area, with the ranges that its modules hold.
#pragma once

#include "catalog.h"
#include "simulatedbase.h"
#include "station.h"

#include <QScrollArea>
#include <QSet>
#include <QTimer>

class MemoryStrip;

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

signals:
    /// The user selected a range of the module at @p place.
    void moduleSelected(Place place);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void refresh();
    void markSelection();
    void retranslate();
    void fitStrips();

    const std::vector<CatalogEntry> &m_catalog;
    const Station *m_station = nullptr;
    QVector<MemoryStrip *> m_strips;
    QSet<int> m_selected; ///< Place::index() of each
    QTimer m_refresh;     ///< combines all changes of a step into one refresh
    int m_zoom = 1;
};

/// The strip of one area. Its accessible description states how much of the area is free.
class MemoryStrip : public QWidget {
    Q_OBJECT
public:
    struct Range {
        qint32 start;  ///< bytes
        qint32 length; ///< bytes
        QString text;
        Place place; ///< invalid for a range that no module holds
        QColor color;
    };

    MemoryStrip(VarArea area, QWidget *parent);

    VarArea area() const { return m_area; }
    /// @p size is the area's size in bytes. @p ranges must be in ascending order.
    void setRanges(qint32 size, const QVector<Range> &ranges);
    /// Marks the ranges of modules by Place::index(). Returns the first mark in pixels; an empty rectangle if there is
    /// none.
    QRect select(const QSet<int> &places);
    void retranslate();

    QSize sizeHint() const override;

signals:
    void moduleSelected(Place place);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QRect bar() const;
    QRectF rectOf(qint32 start, qint32 length) const;
    /// Index of the range at a point; -1 if the area is free there, std::nullopt outside the bar.
    std::optional<int> rangeAt(QPoint point) const;
    QString toolTipAt(QPoint point) const;
    void selectRange(int index);
    QString freeText() const;

    VarArea m_area;
    qint32 m_size = 0;
    QVector<Range> m_ranges;
    QSet<int> m_selected;
};
