#include "memorymodel.h"

#include "imagerangetext.h"
#include "station.h"

namespace {

Qt::Alignment alignment(int column)
{
    return column == MemoryModel::Module ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter;
}

} // namespace

void MemoryModel::show(const Station *station)
{
    beginResetModel();
    m_station = station;
    m_ranges = simulatedhost::claimedRanges(station->memoryOwner());
    endResetModel();
}

QString MemoryModel::summary() const
{
    QStringList parts;
    for (const VarArea area : {VarArea::AnalogInput, VarArea::AnalogOutput, VarArea::DigitalInput,
                               VarArea::DigitalOutput, VarArea::Variable}) {
        int used = 0;
        for (const simulatedhost::ClaimedRange &range : m_ranges) {
            used += range.area == area ? range.length : 0;
        }
        parts += QStringLiteral("%1 %2/%3")
                     .arg(areaName(static_cast<quint8>(area)))
                     .arg(used)
                     .arg(simulatedhost::areaSize(m_station->memoryOwner(), area));
    }
    return parts.join(QStringLiteral("   "));
}

int MemoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_ranges.size();
}

int MemoryModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MemoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(alignment(index.column()));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const simulatedhost::ClaimedRange &range = m_ranges.at(index.row());
    switch (index.column()) {
    case Area:
        return areaName(static_cast<quint8>(range.area));
    case First:
        return range.start;
    case Last:
        return range.start + range.length - 1;
    case Bytes:
        return range.length;
    default:
        return moduleAt(range);
    }
}

QVariant MemoryModel::headerData(int section, Qt::Orientation orientation, int role) const
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
    case Area:
        return tr("Area");
    case First:
        return tr("First byte");
    case Last:
        return tr("Last byte");
    case Bytes:
        return tr("Bytes");
    case Module:
        return tr("Held by");
    default:
        return {};
    }
}

/// The module whose range begins where @p range does.
QString MemoryModel::moduleAt(const simulatedhost::ClaimedRange &range) const
{
    const auto begins = [&](const IoMap &map) {
        return map.area == static_cast<quint8>(range.area) && map.start == range.start && rangeBytes(map) != 0;
    };
    for (int i = 0; i < m_station->count(); ++i) {
        const ModuleView module = m_station->module(i);
        if (begins(module.in) || begins(module.out)) {
            return tr("%1 (rack %2, slot %3)").arg(module.name).arg(module.place.rack).arg(module.place.slot);
        }
    }
    return {};
}
