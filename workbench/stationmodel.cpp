#include "stationmodel.h"

#include "imagerangetext.h"
#include "station.h"

namespace {

Qt::Alignment alignment(int column)
{
    return column <= StationModel::Type ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace

StationModel::StationModel(const std::vector<CatalogEntry> &catalog, QObject *parent) : QAbstractTableModel(parent)
{
    for (const CatalogEntry &entry : catalog) {
        m_orderNumbers.insert(entry.typeCode, entry.orderNumber);
    }
}

void StationModel::show(const Station *station)
{
    beginResetModel();
    m_station = station;
    endResetModel();
}

int StationModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || m_station == nullptr ? 0 : m_station->count();
}

int StationModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant StationModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return cell(index.row(), index.column());
    }
    if (role == Qt::ToolTipRole) {
        return toolTip(index.row());
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(alignment(index.column()));
    }
    return {};
}

QVariant StationModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(alignment(section));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case Rack:
        return tr("Rack");
    case Slot:
        return tr("Slot");
    case Type:
        return tr("Type");
    case Name:
        return tr("Name");
    case Input:
        return tr("Input range");
    case Output:
        return tr("Output range");
    default:
        return {};
    }
}

QString StationModel::cell(int row, int column) const
{
    const ModuleView module = m_station->module(row);
    switch (column) {
    case Rack:
        return QString::number(module.place.rack);
    case Slot:
        return QString::number(module.place.slot);
    case Type:
        return QString::number(module.typeCode);
    case Name:
        return module.name;
    case Input:
        return rangeText(module.in);
    case Output:
        return rangeText(module.out);
    default:
        return {};
    }
}

QString StationModel::toolTip(int row) const
{
    const ModuleView module = m_station->module(row);
    const QString text = tr("%1, order number %2").arg(module.name, m_orderNumbers.value(module.typeCode));
    return module.comment.isEmpty() ? text : text + QLatin1Char('\n') + module.comment;
}
