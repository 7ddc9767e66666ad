#include "memoryview.h"

#include "imagerangetext.h"
#include "modulecolors.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMap>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace {

constexpr int barHeight = 16;           // px
constexpr int gap = 2;                  // px between texts and bars
constexpr double minimumRangeWidth = 2; // px
constexpr std::array areas{VarArea::AnalogInput, VarArea::AnalogOutput, VarArea::DigitalInput, VarArea::DigitalOutput,
                           VarArea::Variable};

QString title(VarArea area)
{
    switch (area) {
    case VarArea::AnalogInput:
        return MemoryStrip::tr("Analog inputs");
    case VarArea::AnalogOutput:
        return MemoryStrip::tr("Analog outputs");
    case VarArea::DigitalInput:
        return MemoryStrip::tr("Digital inputs");
    case VarArea::DigitalOutput:
        return MemoryStrip::tr("Digital outputs");
    default:
        return MemoryStrip::tr("Variables");
    }
}

QString name(VarArea area)
{
    return areaName(static_cast<quint8>(area));
}

} // namespace

MemoryStrip::MemoryStrip(VarArea area, QWidget *parent) : QWidget(parent), m_area(area)
{
    setObjectName(QStringLiteral("memoryStrip_%1").arg(name(area)));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void MemoryStrip::setRanges(qint32 size, const QVector<Range> &ranges)
{
    m_size = size;
    m_ranges = ranges;
    retranslate();
}

void MemoryStrip::retranslate()
{
    setAccessibleName(QStringLiteral("%1, %2").arg(name(m_area), title(m_area)));
    setAccessibleDescription(freeText());
    update();
}

QString MemoryStrip::freeText() const
{
    qint32 free = m_size;
    qint32 longest = 0;
    qint32 next = 0;
    for (const Range &range : m_ranges) {
        free -= range.length;
        longest = std::max(longest, range.start - next);
        next = range.start + range.length;
    }
    longest = std::max(longest, m_size - next);
    return tr("%1 of %2 bytes free, longest gap %3")
        .arg(locale().toString(free), locale().toString(m_size), locale().toString(longest));
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

QSize MemoryStrip::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() + barHeight + 2 * gap};
}

QRect MemoryStrip::bar() const
{
    return {0, fontMetrics().height() + gap, width() - 1, barHeight};
}

QRectF MemoryStrip::rectOf(qint32 start, qint32 length) const
{
    const QRectF whole = bar().adjusted(1, 1, 0, 0); // inside its frame
    const double perByte = whole.width() / std::max(m_size, 1);
    return {whole.left() + start * perByte, whole.top(), std::max(length * perByte, minimumRangeWidth), whole.height()};
}

std::optional<int> MemoryStrip::rangeAt(QPoint point) const
{
    if (!bar().contains(point)) {
        return std::nullopt;
    }
    const auto *const next = std::find_if(m_ranges.cbegin(), m_ranges.cend(), [&](const Range &range) {
        return rectOf(range.start, range.length).right() > point.x();
    });
    const bool isInside = next != m_ranges.cend() && rectOf(next->start, next->length).left() <= point.x();
    return isInside ? static_cast<int>(next - m_ranges.cbegin()) : -1;
}

QString MemoryStrip::toolTipAt(QPoint point) const
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
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

void MemoryStrip::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QRect visible = visibleRegion().boundingRect();
    QRect texts(visible.left(), 0, visible.width(), fontMetrics().height());
    const QString area = tr("%1, %2: 0..%3").arg(name(m_area), title(m_area)).arg(std::max(m_size - 1, 0));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, area);
    painter.drawText(texts, Qt::AlignRight | Qt::AlignVCenter, freeText());

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
    painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
    for (const Range &range : m_ranges) {
        if (m_selected.contains(range.place.index())) {
            painter.drawRect(rectOf(range.start, range.length).adjusted(-1, 0, 0, 0));
        }
    }
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

MemoryView::MemoryView(const std::vector<CatalogEntry> &catalog, QWidget *parent)
    : QScrollArea(parent), m_catalog(catalog)
{
    setObjectName(QStringLiteral("memoryView"));
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(gap, gap, gap, gap);
    layout->setSpacing(gap);
    for (const VarArea area : areas) {
        auto *strip = new MemoryStrip(area, content);
        connect(strip, &MemoryStrip::moduleSelected, this, &MemoryView::moduleSelected);
        layout->addWidget(strip);
        m_strips.append(strip);
    }
    layout->addStretch();
    setWidget(content);
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &MemoryView::refresh);
    // The texts of the strips are drawn at the edges of the view.
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, content, QOverload<>::of(&QWidget::update));
    retranslate();
}

void MemoryView::setStation(const Station *station)
{
    if (m_station != nullptr) {
        m_station->disconnect(this);
    }
    m_station = station;
    const auto later = [this] { m_refresh.start(0); };
    for (const auto signal : {&Station::moduleAdded, &Station::moduleRemoved, &Station::moduleChanged}) {
        connect(m_station, signal, this, later);
    }
    connect(m_station, &Station::moduleMoved, this, later);
    connect(m_station, &Station::plcTypeChanged, this, later);
    refresh();
}

/// The host reports which ranges are claimed, the station which modules hold them.
void MemoryView::refresh()
{
    const StationMemory &memory = m_station->memory();
    QMap<VarArea, QVector<MemoryStrip::Range>> ranges;
    for (const auto &[area, start, length] : simulatedhost::claimedRanges(memory.owner())) {
        MemoryStrip::Range range{start, length, tr("Held by no module"), Place{-1, -1}, palette().color(QPalette::Mid)};
        if (const std::optional<Place> holder = memory.holder({area, start, length})) {
            const ModuleSummary module = m_station->module(*m_station->moduleAt(*holder));
            const CatalogEntry *entry = findEntry(m_catalog, module.typeCode);
            range.text = tr("%1 (rack %2, slot %3)")
                             .arg(module.name, QString::number(holder->rack), QString::number(holder->slot));
            range.place = *holder;
            range.color = moduleColor(entry == nullptr ? CatalogFamily::Other : entry->family, *holder, palette());
        }
        ranges[area].append(range);
    }
    for (MemoryStrip *strip : qAsConst(m_strips)) {
        strip->setRanges(simulatedhost::areaSize(memory.owner(), strip->area()), ranges.value(strip->area()));
    }
    markSelection();
}

void MemoryView::select(const QVector<Place> &places)
{
    m_selected.clear();
    for (const Place place : places) {
        m_selected.insert(place.index());
    }
    markSelection();
}

void MemoryView::markSelection()
{
    bool isShown = false;
    for (MemoryStrip *strip : qAsConst(m_strips)) {
        const QRect marked = strip->select(m_selected);
        if (!marked.isEmpty() && !isShown) {
            isShown = true;
            const QPoint center = strip->mapTo(widget(), marked.center());
            ensureVisible(center.x(), center.y(), marked.width() / 2 + barHeight, marked.height());
        }
    }
}

void MemoryView::setZoom(int zoom)
{
    m_zoom = std::clamp(zoom, 1, maximumZoom);
    fitStrips();
    markSelection();
}

void MemoryView::fitStrips()
{
    widget()->setMinimumWidth(viewport()->width() * m_zoom);
}

void MemoryView::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    fitStrips();
}

void MemoryView::wheelEvent(QWheelEvent *event)
{
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QScrollArea::wheelEvent(event);
        return;
    }
    setZoom(event->angleDelta().y() > 0 ? m_zoom * 2 : m_zoom / 2);
    event->accept();
}

void MemoryView::retranslate()
{
    setAccessibleName(tr("Memory map"));
    for (MemoryStrip *strip : qAsConst(m_strips)) {
        strip->retranslate();
    }
}

void MemoryView::changeEvent(QEvent *event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    } else if (event->type() == QEvent::PaletteChange && m_station != nullptr) {
        refresh();
    }
}
