#include "memorystrip.h"

#include "imagerangetext.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr int gap = 3;                  // px around texts and bars
constexpr int tickLength = 3;           // px
constexpr double minimumRangeWidth = 2; // px
constexpr double rulerScale = 0.85;     // of the font

QString name(VarArea area)
{
    return areaName(static_cast<quint8>(area));
}

QFont rulerFont(QFont font)
{
    font.setPointSizeF(font.pointSizeF() * rulerScale);
    return font;
}

} // namespace

MemoryStrip::MemoryStrip(VarArea area, QWidget *parent) : QWidget(parent), m_area(area)
{
    setObjectName(QStringLiteral("memoryStrip_%1").arg(name(area)));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
}

void MemoryStrip::setRanges(qint32 size, const QVector<Range> &ranges)
{
    m_size = size;
    m_ranges = ranges;
    retranslate();
}

void MemoryStrip::retranslate()
{
    setAccessibleName(QStringLiteral("%1, %2").arg(name(m_area), areaTitle(m_area)));
    setAccessibleDescription(freeText());
    update();
}

QString MemoryStrip::freeText() const
{
    qint32 longest = 0;
    qint32 next = 0;
    for (const Range &range : m_ranges) {
        longest = std::max(longest, range.start - next);
        next = range.start + range.length;
    }
    longest = std::max(longest, m_size - next);
    return tr("%1 of %2 bytes free, longest gap %3")
        .arg(locale().toString(m_size - usedBytes()), locale().toString(m_size), locale().toString(longest));
}

qint32 MemoryStrip::usedBytes() const
{
    return std::accumulate(m_ranges.begin(), m_ranges.end(), qint32{0},
                           [](qint32 sum, const Range &range) { return sum + range.length; });
}

QRect MemoryStrip::select(const QSet<int> &places)
{
    m_selected = places;
    update();
    const auto *const first = std::find_if(m_ranges.cbegin(), m_ranges.cend(), [&](const Range &range) {
        return m_selected.contains(range.place.index());
    });
    return first == m_ranges.cend() ? QRect() : rectOf(first->start, first->length).toAlignedRect();
}

int MemoryStrip::barHeight() const
{
    return fontMetrics().height() * 4 / 5;
}

QSize MemoryStrip::sizeHint() const
{
    const QFontMetrics labels(rulerFont(font()));
    return {fontMetrics().averageCharWidth() * 60,
            fontMetrics().height() + gap + barHeight() + tickLength + labels.height() + gap};
}

QRect MemoryStrip::bar() const
{
    return {0, fontMetrics().height() + gap, width() - 1, barHeight()};
}

QRectF MemoryStrip::rectOf(qint32 start, qint32 length) const
{
    const QRectF whole = bar().adjusted(1, 1, 0, 0); // inside its frame
    const double perByte = whole.width() / std::max(m_size, 1);
    return {whole.left() + start * perByte, whole.top(), std::max(length * perByte, minimumRangeWidth), whole.height()};
}

std::optional<int> MemoryStrip::rangeAt(QPoint point) const
{
    if (!rect().contains(point) || point.y() < bar().top()) { // the ruler belongs to the bar
        return std::nullopt;
    }
    const auto *const next = std::find_if(m_ranges.cbegin(), m_ranges.cend(), [&](const Range &range) {
        return rectOf(range.start, range.length).right() > point.x();
    });
    const bool isInside = next != m_ranges.cend() && rectOf(next->start, next->length).left() <= point.x();
    return isInside ? static_cast<int>(next - m_ranges.cbegin()) : -1;
}

QString MemoryStrip::textAt(QPoint point) const
{
    const std::optional<int> found = rangeAt(point);
    if (!found) {
        return {};
    }
    const auto text = [this](qint32 first, qint32 end) {
        return tr("%1 %2..%3, %4 bytes").arg(name(m_area)).arg(first).arg(end - 1).arg(end - first);
    };
    if (*found >= 0) {
        const Range &range = m_ranges.at(*found);
        return range.text + QLatin1Char('\n') + text(range.start, range.start + range.length);
    }
    qint32 first = 0;
    qint32 end = m_size;
    for (const Range &range : m_ranges) {
        if (rectOf(range.start, range.length).left() > point.x()) {
            end = range.start;
            break;
        }
        first = range.start + range.length;
    }
    return tr("Free: %1").arg(text(first, end));
}

bool MemoryStrip::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), textAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

void MemoryStrip::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QRect visible = visibleRegion().boundingRect();
    paintTexts(painter, visible);
    paintRanges(painter, visible);
    paintRuler(painter, visible);
}

/// The area on the left; on the right the range under the mouse, else how much is used.
void MemoryStrip::paintTexts(QPainter &painter, const QRect &visible) const
{
    const QRect line(visible.left() + gap, 0, visible.width() - 2 * gap, fontMetrics().height());
    const QString area = tr("%1, %2: 0..%3").arg(name(m_area), areaTitle(m_area)).arg(std::max(m_size - 1, 0));
    const int percent = static_cast<int>(std::lround(100.0 * usedBytes() / std::max(m_size, 1)));
    const QString use = tr("%1% used, %2").arg(percent).arg(freeText());
    const QString text = m_mouse ? textAt(*m_mouse).replace(QLatin1Char('\n'), QLatin1String(": ")) : use;
    const int width = line.width() - fontMetrics().horizontalAdvance(area + QStringLiteral("    "));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, area);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter,
                     fontMetrics().elidedText(text, Qt::ElideRight, std::max(width, 0)));
}

void MemoryStrip::paintRanges(QPainter &painter, const QRect &visible) const
{
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.setBrush(palette().base());
    painter.drawRect(bar());
    painter.setBrush(Qt::NoBrush);
    for (const Range &range : m_ranges) {
        const QRectF rect = rectOf(range.start, range.length);
        if (rect.right() >= visible.left() && rect.left() <= visible.right()) {
            painter.fillRect(rect, range.color);
        }
    }
    // Marks are wider than their range, because a few bytes of many thousands would be invisible.
    const auto mark = [&](const Range &range, const QPen &pen) {
        painter.setPen(pen);
        painter.drawRect(rectOf(range.start, range.length).adjusted(-1, 0, 0, 0));
    };
    for (const Range &range : m_ranges) {
        if (m_selected.contains(range.place.index())) {
            mark(range, QPen(palette().color(QPalette::Highlight), 3));
        }
    }
    if (const int under = m_mouse ? rangeAt(*m_mouse).value_or(-1) : -1; under >= 0) {
        mark(m_ranges.at(under), QPen(palette().color(QPalette::WindowText), 1));
    }
}

/// Ticks at round addresses, as many as have room for their labels.
void MemoryStrip::paintRuler(QPainter &painter, const QRect &visible) const
{
    painter.setFont(rulerFont(font()));
    const QFontMetrics metrics = painter.fontMetrics();
    const int labelWidth = metrics.horizontalAdvance(QString::number(m_size)) + 3 * metrics.averageCharWidth();
    const double perByte = rectOf(0, 1000).width() / 1000;
    qint32 step = 8; // bytes; a module rarely has fewer
    while (step * perByte < labelWidth && step < m_size) {
        step *= 2;
    }
    const int top = bar().bottom() + 1;
    painter.setPen(palette().color(QPalette::WindowText));
    for (qint32 address = 0; address < m_size; address += step) {
        const int x = static_cast<int>(rectOf(address, 0).left());
        if (x < visible.left() - labelWidth || x > visible.right()) {
            continue;
        }
        painter.drawLine(x, top, x, top + tickLength);
        const QString label = QString::number(address);
        const int width = metrics.horizontalAdvance(label);
        const int left = std::clamp(x - width / 2, gap, std::max(this->width() - width - gap, gap));
        painter.drawText(left, top + tickLength + metrics.ascent(), label);
    }
}

void MemoryStrip::hover(std::optional<QPoint> point)
{
    m_mouse = point && rangeAt(*point) ? point : std::nullopt;
    update();
}

void MemoryStrip::mouseMoveEvent(QMouseEvent *event)
{
    hover(event->pos());
}

void MemoryStrip::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    hover(std::nullopt);
}

void MemoryStrip::selectRange(int index)
{
    if (index >= 0 && index < m_ranges.size() && m_ranges.at(index).place.isValid()) {
        emit moduleSelected(m_ranges.at(index).place);
    }
}

void MemoryStrip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        selectRange(rangeAt(event->pos()).value_or(-1));
    }
}

/// The left and right keys select the adjacent range.
void MemoryStrip::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) {
        QWidget::keyPressEvent(event);
        return;
    }
    const auto *const current = std::find_if(m_ranges.cbegin(), m_ranges.cend(), [&](const Range &range) {
        return m_selected.contains(range.place.index());
    });
    const int step = event->key() == Qt::Key_Right ? 1 : -1;
    selectRange(current == m_ranges.cend() ? 0 : static_cast<int>(current - m_ranges.cbegin()) + step);
}
