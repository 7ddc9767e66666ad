// One area of the memory map: the ranges of its modules, with a ruler of addresses.
#pragma once

#include "baseservices.h"
#include "project.h"

#include <QColor>
#include <QSet>
#include <QWidget>

#include <functional>
#include <optional>

/// The strip of one area. Its accessible description states how much of the area is free.
class MemoryStrip : public QWidget {
    Q_OBJECT
public:
    struct Range {
        qint32 start;  ///< bytes
        qint32 length; ///< bytes
        Place place;   ///< invalid for a range that no module holds
        QColor color;
    };

    /// @p describe returns the text for the module at a place.
    MemoryStrip(VarArea area, std::function<QString(Place)> describe, QWidget *parent);

    VarArea area() const { return m_area; }
    /// @p size is the area's size in bytes. @p ranges must be in ascending order.
    void setRanges(qint32 size, const QVector<Range> &ranges);
    /// Replaces the ranges of the module at @p place. This is faster than setRanges() for a strip of many ranges.
    void replaceRanges(Place place, const QVector<Range> &ranges);
    /// Marks the ranges of modules by Place::index(). Returns the first mark in pixels; an empty rectangle if there is
    /// none.
    QRect select(const QSet<int> &places);
    void retranslate();

    QSize sizeHint() const override;
    int barHeight() const;

signals:
    void moduleSelected(Place place);
    /// The user wants to see the properties of the selected module.
    void propertiesRequested();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QRect bar() const;
    /// Null if no range is marked.
    const Range *firstSelected() const;
    QRectF rectOf(qint32 start, qint32 length) const;
    /// Index of the range at a point; -1 if the area is free there, std::nullopt outside the bar.
    std::optional<int> rangeAt(QPoint point) const;
    QString textAt(QPoint point) const;
    void paintTexts(QPainter &painter, const QRect &visible) const;
    QImage colors(const QRect &visible) const;
    void paintRanges(QPainter &painter, const QRect &visible) const;
    void paintRuler(QPainter &painter, const QRect &visible) const;
    void hover(std::optional<QPoint> point);
    void selectRange(int index);
    QString freeText() const;
    qint32 usedBytes() const;

    VarArea m_area;
    std::function<QString(Place)> m_describe;
    qint32 m_size = 0;
    QVector<Range> m_ranges;
    QSet<int> m_selected;
    std::optional<QPoint> m_mouse; ///< where the mouse is, if over the bar
};
