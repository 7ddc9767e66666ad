#include "rackview.h"

#include "dragpicture.h"
#include "imagerangetext.h"
#include "modulecolors.h"
#include "numberheader.h"

#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace {

constexpr int margin = 3;             // px around a card
constexpr int padding = 6;            // px inside a card
constexpr int stripeHeight = 5;       // px of a card's colour at its top
constexpr int cardLines = 4;          // order number, name, input, output
constexpr int minimumCharacters = 20; // in a line of a card; at most twice as many
constexpr int cornerRadius = 4;       // px

} // namespace

/// Paints a slot: a card, or the outline of a free slot.
class RackView::CardPainter : public QStyledItemDelegate {
public:
    explicit CardPainter(RackView &view) : QStyledItemDelegate(&view), m_view(view) {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QRectF card = QRectF(option.rect).adjusted(margin, margin, -margin, -margin);
        const std::optional<ModuleSummary> module = m_view.m_model->moduleAt(index);
        painter->fillRect(option.rect, option.palette.base()); // over the selection that the view has painted
        painter->setPen(Qt::NoPen);
        painter->setBrush(option.palette.base());
        painter->drawRoundedRect(card, cornerRadius, cornerRadius);
        if (module) {
            paintCard(*painter, card, option.palette, *module);
        }
        paintOutline(*painter, card, option, module.has_value(), index == m_view.currentIndex());
        if (m_view.state() == DraggingState && (option.state & QStyle::State_MouseOver) != 0) {
            paintDrop(*painter, card, option.palette, m_view.m_isDropWelcome);
        }
        painter->restore();
    }

private:
    void paintCard(QPainter &painter, const QRectF &card, const QPalette &palette, const ModuleSummary &module) const
    {
        const CatalogEntry *entry = m_view.m_model->entryOf(module.typeCode);
        const bool isAvailable = module.unavailable.isEmpty();
        const QColor color =
            moduleColor(entry == nullptr ? CatalogFamily::Other : entry->family, module.place, palette);
        QPainterPath shape;
        shape.addRoundedRect(card, cornerRadius, cornerRadius);
        painter.setClipPath(shape, Qt::IntersectClip);
        painter.fillRect(QRectF(card.topLeft(), QSizeF(card.width(), stripeHeight)), color);
        if (!isAvailable) {
            painter.fillRect(card, QBrush(refusalColor(palette), Qt::BDiagPattern));
            painter.fillRect(card.adjusted(padding / 2.0, stripeHeight, -padding / 2.0, -padding / 2.0),
                             palette.base());
        }
        QRectF line = card.adjusted(padding, stripeHeight + margin, -padding, 0);
        line.setHeight(m_view.fontMetrics().height());
        const auto write = [&](const QString &text, const QColor &ink) {
            painter.setPen(ink);
            painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                             painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(line.width())));
            line.translate(0, line.height());
        };
        QFont font = m_view.font();
        font.setBold(true);
        painter.setFont(font);
        write(module.name, palette.color(QPalette::Text));
        painter.setFont(m_view.font());
        const QString type = entry == nullptr ? RackModel::tr("Type %1").arg(module.typeCode) : entry->orderNumber;
        if (isAvailable) {
            write(type, fadedColor(palette));
        } else {
            write(RackView::tr("%1, not available").arg(type), refusalColor(palette));
        }
        for (const QString &range : {rangeText(module.in), rangeText(module.out)}) {
            if (!range.isEmpty()) {
                write(range, palette.color(QPalette::Text));
            }
        }
    }

    /// A selected card has a tint and a thick edge, the current slot a second, inner edge. Free slots stay quiet.
    void paintOutline(QPainter &painter, const QRectF &card, const QStyleOptionViewItem &option, bool isTaken,
                      bool isCurrent) const
    {
        const bool isSelected = isTaken && (option.state & QStyle::State_Selected) != 0;
        const QColor highlight = option.palette.color(QPalette::Highlight);
        painter.setClipping(false);
        painter.setBrush(Qt::NoBrush);
        if (isSelected) {
            QColor tint = highlight;
            tint.setAlpha(40);
            painter.setBrush(tint);
        }
        painter.setPen(QPen(isSelected ? highlight : option.palette.color(QPalette::Mid), isSelected ? 2.5 : 1,
                            isTaken ? Qt::SolidLine : Qt::DotLine));
        painter.drawRoundedRect(card, cornerRadius, cornerRadius);
        if (isCurrent) {
            constexpr qreal inset = 2.5;
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(option.palette.color(m_view.hasFocus() ? QPalette::Text : QPalette::Mid), 1.2));
            painter.drawRoundedRect(card.adjusted(inset, inset, -inset, -inset), cornerRadius, cornerRadius);
        }
    }

    static void paintDrop(QPainter &painter, const QRectF &card, const QPalette &palette, bool isWelcome)
    {
        QColor color = isWelcome ? palette.color(QPalette::Highlight) : refusalColor(palette);
        painter.setPen(QPen(color, 3));
        color.setAlpha(70);
        painter.setBrush(color);
        painter.drawRoundedRect(card, cornerRadius, cornerRadius);
        if (!isWelcome) {
            painter.drawLine(card.topLeft(), card.bottomRight());
            painter.drawLine(card.bottomLeft(), card.topRight());
        }
    }

    const RackView &m_view;
};

RackView::RackView(const std::vector<CatalogEntry> &catalog, QWidget *parent)
    : QTableView(parent), m_model(new RackModel(catalog, this))
{
    setObjectName(QStringLiteral("rackView"));
    setHorizontalHeader(new NumberHeader(Qt::Horizontal, this));
    setVerticalHeader(new NumberHeader(Qt::Vertical, this));
    setModel(m_model);
    setItemDelegate(new CardPainter(*this));
    setShowGrid(false);
    setSelectionMode(ExtendedSelection);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setDragDropMode(DragDrop);
    setDragDropOverwriteMode(true);
    setDropIndicatorShown(false);
    for (QHeaderView *header : {horizontalHeader(), verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setHighlightSections(true);
        header->setSectionsClickable(false);
    }
    connect(m_model, &RackModel::placeRequested, this, &RackView::placeRequested);
    connect(m_model, &RackModel::moveRequested, this, &RackView::moveRequested);
    connect(m_model, &RackModel::dropRefused, this, &RackView::dropRefused);
    fitToFont();
    setAccessibleName(tr("Racks"));
}

/// A card has room for the longest name of the catalog.
void RackView::fitToFont()
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int narrowest = minimumCharacters * metrics.horizontalAdvance(QLatin1Char('x'));
    int width = narrowest;
    for (const CatalogEntry &entry : m_model->catalog()) {
        width = std::max(width, metrics.horizontalAdvance(entry.name) + 1);
    }
    horizontalHeader()->setDefaultSectionSize(std::min(width, 2 * narrowest) + 2 * (margin + padding));
    const int cardHeight = fontMetrics().height() * cardLines + stripeHeight + 3 * margin + padding;
    verticalHeader()->setDefaultSectionSize(cardHeight);
    setMinimumHeight(cardHeight + horizontalHeader()->sizeHint().height() + horizontalScrollBar()->sizeHint().height());
}

void RackView::setStation(const Station *station)
{
    m_model->setStation(station);
    readExtent(*station);
    setCurrentPlace({});
}

void RackView::readExtent(const Station &station)
{
    m_extent.clear();
    for (int i = 0; i < station.count(); ++i) {
        m_extent.add(station.module(i).place);
    }
    const auto add = [this](Place place) {
        m_extent.add(place);
        showExtent();
    };
    const auto remove = [this](Place place) {
        m_extent.remove(place);
        showExtent();
    };
    connect(&station, &Station::moduleAdded, this, add);
    connect(&station, &Station::moduleRemoved, this, remove);
    connect(&station, &Station::moduleMoved, this, [=](Place from, Place to) {
        remove(from);
        add(to);
    });
    showExtent();
}

void RackView::showExtent()
{
    const int racks = m_showsAll ? Place::rackCount : m_extent.racks();
    const int slotCount = m_showsAll ? Place::slotCount : m_extent.slotCount();
    const bool changes = m_shownRacks != racks || m_shownSlots != slotCount;
    for (; m_shownRacks != racks; m_shownRacks += m_shownRacks < racks ? 1 : -1) {
        const bool grows = m_shownRacks < racks;
        setRowHidden(grows ? m_shownRacks : m_shownRacks - 1, !grows);
    }
    for (; m_shownSlots != slotCount; m_shownSlots += m_shownSlots < slotCount ? 1 : -1) {
        const bool grows = m_shownSlots < slotCount;
        setColumnHidden(grows ? m_shownSlots : m_shownSlots - 1, !grows);
    }
    if (changes) {
        updateGeometries(); // at once, because the caller may scroll to a slot that was hidden
    }
}

void RackView::setShowsAll(bool showsAll)
{
    m_showsAll = showsAll;
    showExtent();
}

void RackView::setZoom(int steps)
{
    constexpr int maximumSteps = 6;
    constexpr qreal perStep = 1.15;
    m_zoom = std::clamp(steps, -maximumSteps, maximumSteps);
    QFont font = parentWidget() == nullptr ? QFont() : parentWidget()->font();
    font.setPointSizeF(font.pointSizeF() * std::pow(perStep, m_zoom));
    setFont(font);
    scrollTo(currentIndex());
}

void RackView::wheelEvent(QWheelEvent *event)
{
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QTableView::wheelEvent(event);
        return;
    }
    setZoom(m_zoom + (event->angleDelta().y() > 0 ? 1 : -1));
    event->accept();
}

void RackView::setCurrentPlace(Place place)
{
    selectPlaces({place}, place);
}

void RackView::selectPlaces(const QVector<Place> &places, std::optional<Place> current)
{
    if (!current && places.isEmpty()) {
        return;
    }
    const Place shown = current ? *current : places.first();
    m_extent.require(shown);
    showExtent();
    selectionModel()->setCurrentIndex(m_model->indexOf(shown), QItemSelectionModel::NoUpdate);
    QItemSelection selection;
    for (const Place place : places) {
        const bool continues = !selection.isEmpty() && selection.last().bottom() == place.rack &&
                               selection.last().right() + 1 == place.slot;
        const QModelIndex index = m_model->indexOf(place);
        if (continues) { // long runs keep the selection small
            selection.last() = QItemSelectionRange(selection.last().topLeft(), index);
        } else {
            selection.append(QItemSelectionRange(index));
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    scrollTo(currentIndex());
}

void RackView::selectAll()
{
    const std::vector<Place> all = m_model->modulePlaces();
    selectPlaces(QVector<Place>(all.begin(), all.end()), currentPlace());
}

QVector<Place> RackView::selectedModules() const
{
    QVector<Place> places;
    for (const QModelIndex &index : selectionModel()->selectedIndexes()) {
        if (m_model->hasModule(index)) {
            places.append(RackModel::placeOf(index));
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

/// Requests to move the selected modules to the next free slots in a direction.
void RackView::moveBy(int racks, int columns)
{
    const QVector<Place> places = selectedModules();
    for (int steps = 1; steps < Place::rackCount && !places.isEmpty(); ++steps) {
        if (const Place by{racks * steps, columns * steps}; m_model->canMove(places, by)) {
            emit moveRequested(places, by);
            return;
        }
    }
}

void RackView::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() == Qt::ControlModifier) {
        switch (event->key()) {
        case Qt::Key_Left:
            return moveBy(0, -1);
        case Qt::Key_Right:
            return moveBy(0, 1);
        case Qt::Key_Up:
            return moveBy(-1, 0);
        case Qt::Key_Down:
            return moveBy(1, 0);
        case Qt::Key_Home: // the base class would move the current slot and leave the selection
        case Qt::Key_End:
            return setCurrentPlace(
                RackModel::placeOf(moveCursor(event->key() == Qt::Key_Home ? MoveHome : MoveEnd, Qt::ControlModifier)));
        default:
            break;
        }
    }
    QTableView::keyPressEvent(event);
}

void RackView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid()) {
        emit propertiesRequested();
    }
}

/// Unlike the base class shows the modules beside the pointer, because their picture would hide the slot below it.
void RackView::startDrag(Qt::DropActions supportedActions)
{
    m_model->setGrabbed(currentPlace());
    QModelIndexList modules;
    for (const Place place : selectedModules()) {
        modules += m_model->indexOf(place);
    }
    if (modules.isEmpty()) {
        return;
    }
    auto *drag = new QDrag(this);
    drag->setMimeData(m_model->mimeData(modules));
    drag->setPixmap(dragPicture(*this, modules.size()));
    drag->setHotSpot({-14, -10});
    drag->exec(supportedActions);
    viewport()->update(); // without the mark of a drag that was cancelled
}

/// Unlike the base class allows modules to move into slots that they leave themselves.
void RackView::dragMoveEvent(QDragMoveEvent *event)
{
    QTableView::dragMoveEvent(event);
    m_isDropWelcome = m_model->canDropMimeData(event->mimeData(), event->dropAction(), -1, -1, indexAt(event->pos()));
    event->setAccepted(m_isDropWelcome);
    if (m_isDropWelcome) {
        emit dropRefused(QString()); // the reason at an earlier slot does not apply any more
    }
    viewport()->update();
}

void RackView::dropEvent(QDropEvent *event)
{
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    event->setAccepted(m_model->dropMimeData(event->mimeData(), event->dropAction(), -1, -1, indexAt(event->pos())));
}

void RackView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fitToFont();
    } else if (event->type() == QEvent::LanguageChange) {
        setAccessibleName(tr("Racks"));
        m_model->retranslate();
    }
}
