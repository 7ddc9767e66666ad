// One area of the memory map: the ranges of its modules, with a ruler of addresses.
#pragma once

#include "baseservices.h"
#include "project.h"

#include <QColor>
#include <QSet>
#include <QWidget>

#include <optional>

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
    int barHeight() const;

signals:
    void moduleSelected(Place place);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QRect bar() const;
    QRectF rectOf(qint32 start, qint32 length) const;
    /// Index of the range at a point; -1 if the area is free there, std::nullopt outside the bar.
    std::optional<int> rangeAt(QPoint point) const;
    QString textAt(QPoint point) const;
    void paintTexts(QPainter &painter, const QRect &visible) const;
    void paintRanges(QPainter &painter, const QRect &visible) const;
    void paintRuler(QPainter &painter, const QRect &visible) const;
    void hover(std::optional<QPoint> point);
    void selectRange(int index);
    QString freeText() const;
    qint32 usedBytes() const;

    VarArea m_area;
    qint32 m_size = 0;
    QVector<Range> m_ranges;
    QSet<int> m_selected;
    std::optional<QPoint> m_mouse; ///< where the mouse is, if over the bar
};
