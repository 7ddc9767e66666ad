#include "toolicons.h"

#include "modulecolors.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {

constexpr qreal gridSize = 24; // the coordinates below are pixels of an icon of this size
constexpr qreal lineWidth = 1.7;

/// Colours of one icon.
struct Inks {
    QColor line;
    QColor accent;
    QColor fill;
};

Inks inksFor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    const bool dark = isDark(palette);
    if (mode == QIcon::Disabled) {
        const QColor &gray = palette.color(QPalette::Disabled, QPalette::ButtonText);
        return {gray, gray, Qt::transparent};
    }
    return {palette.color(QPalette::ButtonText), dark ? QColor(0x6c, 0xb4, 0xf5) : QColor(0x1f, 0x6f, 0xc4),
            dark ? QColor(0x6c, 0xb4, 0xf5, 60) : QColor(0x1f, 0x6f, 0xc4, 40)};
}

class Drawing {
public:
    Drawing(QPainter &painter, const Inks &inks) : m_painter(painter), m_inks(inks) { line(); }

    void line() { pen(m_inks.line, Qt::NoBrush); }
    void accent() { pen(m_inks.accent, m_inks.fill); }
    void path(std::initializer_list<QPointF> points, bool isClosed = false)
    {
        const QPolygonF polygon{QVector<QPointF>(points)};
        if (isClosed) {
            m_painter.drawPolygon(polygon);
        } else {
            m_painter.drawPolyline(polygon);
        }
    }
    void box(const QRectF &rect) { m_painter.drawRoundedRect(rect, 1.5, 1.5); }
    void circle(QPointF center, qreal radius) { m_painter.drawEllipse(center, radius, radius); }
    /// A sheet of paper with a folded corner.
    void sheet(const QRectF &rect)
    {
        constexpr qreal fold = 4;
        path({rect.topLeft(), rect.topRight() - QPointF(fold, 0), rect.topRight() + QPointF(0, fold),
              rect.bottomRight(), rect.bottomLeft()},
             true);
        path({rect.topRight() - QPointF(fold, 0), rect.topRight() + QPointF(-fold, fold),
              rect.topRight() + QPointF(0, fold)});
    }
    /// An arrow that turns back to the left.
    void turn()
    {
        QPainterPath path(QPointF(5, 9));
        path.lineTo(14, 9);
        path.arcTo(QRectF(9, 9, 10, 10), 90, -180);
        path.lineTo(8, 19);
        m_painter.drawPath(path);
        this->path({{9, 5}, {5, 9}, {9, 13}});
    }

private:
    void pen(const QColor &color, const QBrush &brush)
    {
        m_painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.setBrush(brush);
    }

    QPainter &m_painter;
    const Inks &m_inks;
};

void draw(ToolIcon icon, QPainter &painter, const Inks &inks)
{
    Drawing drawing(painter, inks);
    switch (icon) {
    case ToolIcon::New:
        drawing.sheet({5, 3, 13, 18});
        drawing.accent();
        drawing.path({{16, 17}, {22, 17}});
        drawing.path({{19, 14}, {19, 20}});
        break;
    case ToolIcon::Open:
        drawing.path({{3, 19}, {3, 5}, {9, 5}, {11, 8}, {19, 8}, {19, 11}});
        drawing.accent();
        drawing.path({{3, 19}, {6.5, 11}, {22, 11}, {18.5, 19}}, true);
        break;
    case ToolIcon::Save:
        drawing.path({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}}, true);
        drawing.path({{8, 4}, {8, 9}, {15, 9}, {15, 4}});
        drawing.accent();
        drawing.box({7.5, 13, 9, 7});
        break;
    case ToolIcon::Redo:
        painter.translate(gridSize, 0);
        painter.scale(-1, 1);
        [[fallthrough]];
    case ToolIcon::Undo:
        drawing.turn();
        break;
    case ToolIcon::Copy:
        drawing.path({{15, 7}, {15, 3}, {4, 3}, {4, 16}, {8, 16}});
        drawing.accent();
        drawing.box({9, 8, 11, 13});
        break;
    case ToolIcon::Paste:
        drawing.path({{9, 5}, {5, 5}, {5, 21}, {9, 21}});
        drawing.path({{15, 5}, {19, 5}, {19, 8}});
        drawing.box({9, 3, 6, 4});
        drawing.accent();
        drawing.box({10, 10, 10, 11});
        break;
    case ToolIcon::Find:
        drawing.path({{15, 15}, {21, 21}});
        drawing.accent();
        drawing.circle({10, 10}, 6.5);
        break;
    case ToolIcon::Properties:
        drawing.path({{3, 6}, {21, 6}});
        drawing.path({{3, 12}, {21, 12}});
        drawing.path({{3, 18}, {21, 18}});
        painter.setBrush(QGuiApplication::palette().button());
        drawing.circle({15, 6}, 2.4);
        drawing.circle({8, 12}, 2.4);
        drawing.circle({17, 18}, 2.4);
        break;
    case ToolIcon::Remove:
        drawing.path({{4, 6}, {20, 6}});
        drawing.path({{9, 6}, {9, 3}, {15, 3}, {15, 6}});
        drawing.path({{6, 6}, {7, 21}, {17, 21}, {18, 6}});
        drawing.path({{10, 10}, {10.4, 17}});
        drawing.path({{14, 10}, {13.6, 17}});
        break;
    case ToolIcon::Compile:
        drawing.box({3, 3, 7, 7});
        drawing.box({14, 3, 7, 7});
        drawing.accent();
        drawing.path({{12, 12}, {12, 21}});
        drawing.path({{8, 17}, {12, 21}, {16, 17}});
        break;
    case ToolIcon::Report:
        drawing.sheet({5, 3, 14, 18});
        drawing.accent();
        drawing.path({{8, 11}, {16, 11}});
        drawing.path({{8, 14.5}, {16, 14.5}});
        drawing.path({{8, 18}, {13, 18}});
        break;
    }
}

class ToolIconEngine : public QIconEngine {
public:
    explicit ToolIconEngine(ToolIcon icon) : m_icon(icon) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / gridSize, rect.height() / gridSize);
        const Inks inks = inksFor(mode);
        draw(m_icon, *painter, inks);
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }
    QIconEngine *clone() const override { return new ToolIconEngine(m_icon); }

private:
    ToolIcon m_icon;
};

} // namespace

QIcon toolIcon(ToolIcon icon)
{
    return QIcon(new ToolIconEngine(icon));
}
