#include "memorystrip.h"

#include "imagerangetext.h"

#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <QtMath>

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

MemoryStrip::MemoryStrip(VarArea area, std::function<QString(Place)> describe, QWidget *parent)
    : QWidget(parent), m_area(area), m_describe(std::move(describe))
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

void MemoryStrip::replaceRanges(Place place, const QVector<Range> &ranges)
{
    const auto isOld = [place](const Range &range) { return range.place == place; };
    auto *const end = std::remove_if(m_ranges.begin(), m_ranges.end(), isOld);
    if (end == m_ranges.end() && ranges.isEmpty()) {
        return;
    }
    m_ranges.erase(end, m_ranges.end());
    for (const Range &range : ranges) {
        auto *const next = std::upper_bound(m_ranges.begin(), m_ranges.end(), range,
                                            [](const Range &a, const Range &b) { return a.start < b.start; });
        m_ranges.insert(next, range);
    }
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
    return tr("%1 of %2 bytes free, longest gap %3").arg(m_size - usedBytes()).arg(m_size).arg(longest);
}

qint32 MemoryStrip::usedBytes() const
{
    return std::accumulate(m_ranges.begin(), m_ranges.end(), qint32{0},
                           [](qint32 sum, const Range &range) { return sum + range.length; });
}

const MemoryStrip::Range *MemoryStrip::firstSelected() const
{
    const auto *const found = std::find_if(
        m_ranges.begin(), m_ranges.end(), [&](const Range &range) { return m_selected.contains(range.place.index()); });
    return found == m_ranges.end() ? nullptr : found;
}

QRect MemoryStrip::select(const QSet<int> &places)
{
    const bool wasMarked = firstSelected() != nullptr;
    m_selected = places;
    const Range *const first = firstSelected();
    if (wasMarked || first != nullptr) { // painting a full strip takes long
        update();
    }
    return first == nullptr ? QRect() : rectOf(first->start, first->length).toAlignedRect();
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
        const QString holder = range.place.isValid() ? m_describe(range.place) : tr("Held by no module");
        return holder + QLatin1Char('\n') + text(range.start, range.start + range.length);
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

/// The colors of the visible part, a pixel high. Filling a rectangle for each of some thousand ranges takes longer.
QImage MemoryStrip::colors(const QRect &visible) const
{
    const double scale = devicePixelRatioF();
    const int width = qCeil(visible.width() * scale);
    QImage line(width, 1, QImage::Format_ARGB32_Premultiplied);
    line.fill(palette().color(QPalette::Base));
    auto *const pixels = reinterpret_cast<QRgb *>(line.scanLine(0));
    const QRectF whole = rectOf(0, m_size);
    const double perByte = whole.width() / std::max(m_size, 1);
    for (const Range &range : m_ranges) {
        const double left = whole.left() + range.start * perByte - visible.left();
        const int first = std::clamp(qRound(left * scale), 0, width);
        const double length = std::max(range.length * perByte, minimumRangeWidth);
        std::fill(pixels + first, pixels + std::clamp(qRound((left + length) * scale), first, width),
                  range.color.rgb());
    }
    return line;
}

void MemoryStrip::paintRanges(QPainter &painter, const QRect &visible) const
{
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.setBrush(palette().base());
    painter.drawRect(bar());
    painter.setBrush(Qt::NoBrush);
    painter.drawImage(QRectF(visible.left(), bar().top() + 1, visible.width(), bar().height() - 1), colors(visible));
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

/// The first click has selected the module.
void MemoryStrip::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rangeAt(event->pos()).value_or(-1) >= 0) {
        emit propertiesRequested();
    }
}

/// The left and right keys select the adjacent range. Enter opens the properties of its module.
void MemoryStrip::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && firstSelected() != nullptr) {
        emit propertiesRequested();
        return;
    }
    if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) {
        QWidget::keyPressEvent(event);
        return;
    }
    const Range *const current = firstSelected();
    const int step = event->key() == Qt::Key_Right ? 1 : -1;
    selectRange(current == nullptr ? 0 : static_cast<int>(current - m_ranges.constData()) + step);
}
