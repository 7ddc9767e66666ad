#include "memoryview.h"

#include "imagerangetext.h"
#include "modulecolors.h"
#include "simulatedbase.h"

#include <QMap>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int gap = 2; // px between the strips

} // namespace

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
    for (const VarArea area : memoryAreas) {
        auto *strip = new MemoryStrip(
            area, [this](Place place) { return describe(place); }, content);
        connect(strip, &MemoryStrip::moduleSelected, this, &MemoryView::moduleSelected);
        connect(strip, &MemoryStrip::propertiesRequested, this, &MemoryView::propertiesRequested);
        layout->addWidget(strip);
        m_strips.append(strip);
    }
    layout->addStretch();
    setWidget(content);
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &MemoryView::refreshChanged);
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
    const auto changes = [this](Place place) {
        m_changed.append(place);
        m_refresh.start(0);
    };
    for (const auto signal : {&Station::moduleAdded, &Station::moduleRemoved, &Station::moduleChanged}) {
        connect(m_station, signal, this, changes);
    }
    connect(m_station, &Station::moduleMoved, this, [=](Place from, Place to) {
        changes(from);
        changes(to);
    });
    connect(m_station, &Station::plcTypeChanged, this, &MemoryView::refresh);
    refresh();
}

QString MemoryView::describe(Place place) const
{
    const std::optional<int> index = m_station->moduleAt(place);
    const QString name = index ? m_station->module(*index).name : QString();
    return tr("%1 (rack %2, slot %3)").arg(name, QString::number(place.rack), QString::number(place.slot));
}

MemoryStrip::Range MemoryView::rangeAt(Place place, qint32 start, qint32 length) const
{
    const std::optional<int> index = m_station->moduleAt(place);
    if (!index) {
        return {start, length, {-1, -1}, palette().color(QPalette::Mid)};
    }
    const CatalogEntry *entry = findEntry(m_catalog, m_station->module(*index).typeCode);
    const CatalogFamily family = entry == nullptr ? CatalogFamily::Other : entry->family;
    return {start, length, place, moduleColor(family, place, palette())};
}

/// The host reports which ranges are claimed, the station which modules hold them.
void MemoryView::refresh()
{
    m_changed.clear();
    const StationMemory &memory = m_station->memory();
    QMap<VarArea, QVector<MemoryStrip::Range>> ranges;
    for (const auto &[area, start, length] : simulatedhost::claimedRanges(memory.owner())) {
        const Place holder = memory.holder({area, start, length}).value_or(Place{-1, -1});
        ranges[area].append(rangeAt(holder, start, length));
    }
    for (MemoryStrip *strip : qAsConst(m_strips)) {
        strip->setRanges(simulatedhost::areaSize(memory.owner(), strip->area()), ranges.value(strip->area()));
    }
    markSelection();
}

/// Shows the changes of an edit. After an edit of many modules, and if a change of one module can reserve or free
/// ranges of others, reading the whole map is faster or necessary.
void MemoryView::refreshChanged()
{
    constexpr int maximumSteps = 32;
    if (m_changed.size() > maximumSteps || m_station->unavailableCount() > 0) {
        refresh();
        return;
    }
    for (const Place place : qExchange(m_changed, {})) {
        QMap<VarArea, QVector<MemoryStrip::Range>> ranges;
        if (const std::optional<int> index = m_station->moduleAt(place)) {
            const ModuleSummary module = m_station->module(*index);
            for (const auto &[area, start, length] : memoryRanges(module.in, module.out)) {
                ranges[area].append(rangeAt(place, start, length));
            }
        }
        for (MemoryStrip *strip : qAsConst(m_strips)) {
            strip->replaceRanges(place, ranges.value(strip->area()));
        }
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
            ensureVisible(center.x(), center.y(), marked.width() / 2 + strip->barHeight(), marked.height());
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

QSize MemoryView::sizeHint() const
{
    return widget()->sizeHint() + QSize(0, horizontalScrollBar()->sizeHint().height() + 2 * frameWidth());
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
