#include "rackmodel.h"

#include "catalogview.h"
#include "imagerangetext.h"

#include <QDataStream>
#include <QMimeData>
#include <QTextDocument>
#include <QUuid>

#include <utility>

namespace {

/// The modules of dragged data, and how far a drop at @p to moves them.
std::pair<QVector<Place>, Place> moveOf(const QByteArray &data, Place to)
{
    QDataStream stream(data);
    int index = 0;
    stream >> index;
    const Place grabbed = Place::at(index);
    QVector<Place> places;
    while (!stream.atEnd()) {
        stream >> index;
        places.append(Place::at(index));
    }
    return {places, {to.rack - grabbed.rack, to.slot - grabbed.slot}};
}

} // namespace

RackModel::RackModel(const std::vector<CatalogEntry> &catalog, QObject *parent)
    : QAbstractTableModel(parent),
      m_catalog(catalog),
      m_moveMimeType(QStringLiteral("application/x-simpleextend-move-") + QUuid::createUuid().toString(QUuid::Id128))
{
}

void RackModel::setStation(const Station *station)
{
    beginResetModel();
    if (m_station != nullptr) {
        m_station->disconnect(this);
    }
    m_station = station;
    for (const auto signal : {&Station::moduleAdded, &Station::moduleRemoved, &Station::moduleChanged}) {
        connect(m_station, signal, this, &RackModel::emitChange);
    }
    connect(m_station, &Station::moduleMoved, this, [this](Place from, Place to) {
        emitChange(from);
        emitChange(to);
    });
    endResetModel();
}

void RackModel::emitChange(Place place)
{
    emit dataChanged(indexOf(place), indexOf(place));
}

void RackModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

std::optional<ModuleSummary> RackModel::moduleAt(const QModelIndex &index) const
{
    const std::optional<int> found = m_station == nullptr ? std::nullopt : m_station->moduleAt(placeOf(index));
    return found ? std::optional<ModuleSummary>(m_station->module(*found)) : std::nullopt;
}

bool RackModel::hasModule(const QModelIndex &index) const
{
    return m_station != nullptr && m_station->moduleAt(placeOf(index));
}

std::vector<Place> RackModel::modulePlaces() const
{
    std::vector<Place> places;
    for (int i = 0; m_station != nullptr && i < m_station->count(); ++i) {
        places.push_back(m_station->module(i).place);
    }
    return places;
}

int RackModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Place::rackCount;
}

int RackModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Place::slotCount;
}

QVariant RackModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)) {
        return {};
    }
    if (role == Qt::AccessibleTextRole) {
        return accessibleText(index);
    }
    const std::optional<ModuleSummary> module = moduleAt(index);
    if (!module) {
        return {};
    }
    // As HTML, because a long comment is wrapped only then, and tags in it would be formatted otherwise.
    return role == Qt::DisplayRole ? module->name : Qt::convertFromPlainText(toolTip(*module), Qt::WhiteSpaceNormal);
}

QVariant RackModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole) {
        return orientation == Qt::Vertical ? tr("Rack %1").arg(section) : tr("Slot %1").arg(section);
    }
    return {};
}

Qt::ItemFlags RackModel::flags(const QModelIndex &index) const
{
    return QAbstractTableModel::flags(index) | Qt::ItemIsDropEnabled |
           (hasModule(index) ? Qt::ItemIsDragEnabled : Qt::NoItemFlags);
}

QStringList RackModel::mimeTypes() const
{
    return {CatalogView::mimeType(), m_moveMimeType};
}

QMimeData *RackModel::mimeData(const QModelIndexList &indexes) const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << m_grabbed.index();
    for (const QModelIndex &index : indexes) {
        stream << placeOf(index).index();
    }
    auto *data = new QMimeData;
    data->setData(m_moveMimeType, bytes);
    return data;
}

bool RackModel::canMove(const QVector<Place> &places, Place by) const
{
    return m_station != nullptr && m_station->checkMove(places, by);
}

Result<> RackModel::checkDrop(const QMimeData &data, Place to) const
{
    if (!data.hasFormat(m_moveMimeType)) {
        return m_station->checkFree(to);
    }
    const auto [places, by] = moveOf(data.data(m_moveMimeType), to);
    return by == Place() ? Failure() : m_station->checkMove(places, by);
}

bool RackModel::canDropMimeData(const QMimeData *data, Qt::DropAction /*action*/, int /*row*/, int /*column*/,
                                const QModelIndex &parent) const
{
    const bool isModule = data->hasFormat(CatalogView::mimeType()) || data->hasFormat(m_moveMimeType);
    if (!isModule || !parent.isValid() || m_station == nullptr) {
        return false;
    }
    const Result<> possible = checkDrop(*data, placeOf(parent));
    if (!possible) {
        emit dropRefused(possible.reason());
    }
    return static_cast<bool>(possible);
}

bool RackModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                             const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent)) {
        return false;
    }
    if (data->hasFormat(m_moveMimeType)) {
        const auto [places, by] = moveOf(data->data(m_moveMimeType), placeOf(parent));
        emit moveRequested(places, by);
    } else {
        emit placeRequested(data->data(CatalogView::mimeType()).toUInt(), placeOf(parent));
    }
    return true;
}

QString RackModel::toolTip(const ModuleSummary &module) const
{
    const CatalogEntry *entry = entryOf(module.typeCode);
    QStringList lines{module.name, entry != nullptr
                                       ? tr("Type %1, order number %2").arg(module.typeCode).arg(entry->orderNumber)
                                       : tr("Type %1").arg(module.typeCode)};
    for (const QString &text : {rangeText(module.in), rangeText(module.out), module.comment}) {
        if (!text.isEmpty()) {
            lines += text;
        }
    }
    if (!module.unavailable.isEmpty()) {
        lines += tr("Not available: %1").arg(module.unavailable);
    }
    return lines.join(QLatin1Char('\n'));
}

QString RackModel::accessibleText(const QModelIndex &index) const
{
    const std::optional<ModuleSummary> module = moduleAt(index);
    const QString what = module ? toolTip(*module).replace(QLatin1Char('\n'), QLatin1String(", ")) : tr("free");
    return tr("Rack %1, slot %2: %3").arg(index.row()).arg(index.column()).arg(what);
}
