#include "sairangewgt.h"

#include "channeltable.h"
#include "choices.h"
#include "modulekind.h"

#include <QComboBox>
#include <QLabel>
#include <QMap>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr std::size_t familyCount = ResistanceThermometer + 1;
constexpr int minimumChannelColumnWidth = 60; ///< pixels

struct RangeColumn {
    const char *title; ///< English
    const char *stem;  ///< of the editors' object names
    AiRangeByte byte;
    int minimumWidth;                                    ///< pixels
    std::array<const ChoiceList *, familyCount> choices; ///< by SignalFamily; null = the family has no such column
};

constexpr RangeColumn column(const char *title, const char *stem, AiRangeByte byte, int minimumWidth,
                             const ChoiceList *voltageCurrent, const ChoiceList *thermocouple,
                             const ChoiceList *resistance)
{
    return {title, stem, byte, minimumWidth, {voltageCurrent, thermocouple, resistance}};
}

/// All columns after the channel's, from left to right.
constexpr std::array rangeColumns = {
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Enable"), "enable", AiEnable, 80, &choices::enable, &choices::enable,
           &choices::enable),
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Filter Time"), "filterTime", AiFilterTime, 80, &choices::filterTimes,
           &choices::temperatureFilterTimes, &choices::temperatureFilterTimes),
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Input Range"), "inputRange", AiInputRange, 150, &choices::inputRanges,
           &choices::thermocoupleRanges, &choices::resistanceRanges),
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Open Wire Detect"), "openWire", AiOpenWire, 130, &choices::openWire,
           &choices::enable, &choices::enable),
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Direction"), "direction", AiDirection, 80, &choices::directions,
           &choices::directions, &choices::directions),
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Cold Junction"), "coldJunction", AiColdJunction, 130, nullptr,
           &choices::enable, nullptr),
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Wiring Scheme"), "wiringScheme", AiWiringScheme, 130, nullptr, nullptr,
           &choices::wiringSchemes),
    column(QT_TRANSLATE_NOOP("SAIRangeWgt", "Temperature Scale"), "temperatureScale", AiTemperatureScale, 130, nullptr,
           &choices::temperatureScales, &choices::temperatureScales),
};

enum WireDetection { WireDetectionOn = 1, WireDetectionInvalid = 2 };

/// Position of "4~20mA" in choices::inputRanges.
constexpr int liveZeroRange = 3;

/// Returns false for a value that only a damaged or foreign record contains. Such a channel has no editors.
bool isFamily(quint8 family)
{
    return family < familyCount;
}

/// Returns the columns of a signal family after the channel's, from left to right.
QVector<const RangeColumn *> columnsOf(quint8 family)
{
    QVector<const RangeColumn *> columns;
    for (const RangeColumn &column : rangeColumns) {
        if (isFamily(family) && column.choices.at(family) != nullptr) {
            columns.append(&column);
        }
    }
    return columns;
}

/// Stores the position of the choice. Without a selection the stored value stays, because no choice shows it.
void storeSelection(const QComboBox *editor, quint8 &stored)
{
    if (editor->currentIndex() >= 0) {
        stored = static_cast<quint8>(editor->currentIndex());
    }
}

} // namespace

SAIRangeWgt::SAIRangeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : RecordDefaultsPage(par, defaultPar, parent)
{
    setUp();
}

quint8 SAIRangeWgt::channelFamily(int channel) const
{
    return m_par->aiKind.value(static_cast<quint8>(channel));
}

/// Returns the family that the table has columns for: that of the type code if it is fixed, else that of the first
/// channel.
quint8 SAIRangeWgt::headerFamily() const
{
    const quint8 first = isFamily(channelFamily(0)) ? channelFamily(0) : quint8{VoltageCurrent};
    return fixedSignalFamily(m_par->objId).value_or(first);
}

void SAIRangeWgt::initUI()
{
    QStringList titles{tr("Channel")};
    for (const RangeColumn *column : columnsOf(headerFamily())) {
        titles.append(tr(column->title));
    }
    m_table = new ChannelTable(m_par->aiCount, titles);
    m_table->setObjectName(QStringLiteral("rangeTable"));
    for (int channel = 0; channel < m_par->aiCount; ++channel) {
        m_rows.append(newRow(channel));
    }
    registerTable(m_table);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newDescription(tr("You can adjust the range parameters.")));
    addDefaultsButton(layout);
    layout->addWidget(m_table);
}

SAIRangeWgt::Row SAIRangeWgt::newRow(int channel)
{
    Row row{};
    const quint8 family = channelFamily(channel);
    const QVector<const RangeColumn *> columns = columnsOf(family);
    for (int i = 0; i < columns.size(); ++i) {
        const RangeColumn &column = *columns.at(i);
        QComboBox *editor = m_table->newComboBox(*column.choices.at(family), ChannelTable::NoData);
        registerEditor(column.stem, channel, editor, tr(column.title));
        if (i + 1 < m_table->columnCount()) {
            m_table->setEditor(channel, i + 1, editor);
        } else {
            // A channel whose family differs from the header's may have more columns than the table. Its hidden
            // editors still show default values and are saved.
            editor->hide();
        }
        row.at(column.byte) = editor;
    }
    if (family == ResistanceThermometer) {
        row[AiOpenWire]->setCurrentIndex(WireDetectionOn);
        row[AiOpenWire]->setEnabled(false);
    }
    return row;
}

void SAIRangeWgt::initConnect()
{
    RecordDefaultsPage::initConnect();
    for (const Row &row : qAsConst(m_rows)) {
        if (row[AiInputRange] != nullptr) {
            connect(row[AiInputRange], QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                    &SAIRangeWgt::slot_inputRangeChange);
        }
    }
}

void SAIRangeWgt::fitToFont()
{
    QVector<int> widths{minimumChannelColumnWidth};
    for (const RangeColumn *column : columnsOf(headerFamily())) {
        widths.append(column->minimumWidth);
    }
    QMap<quint8, int> firstChannels; // by signal family
    for (int channel = m_rows.size() - 1; channel >= 0; --channel) {
        firstChannels[channelFamily(channel)] = channel;
    }
    m_table->fitToContents(firstChannels.values().toVector(), widths);
}

void SAIRangeWgt::initData(SimpleExtendPar *par)
{
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        const Row &row = m_rows.at(channel);
        const AiRange range = par->aiRange.value(static_cast<quint8>(channel));
        if (row[AiInputRange] == nullptr) {
            continue;
        }
        // First the range, because its change sets and disables Open Wire Detect.
        row[AiInputRange]->setCurrentIndex(range[AiInputRange]);
        for (std::size_t byte = 0; byte < row.size(); ++byte) {
            const bool isFixed = byte == AiOpenWire && !row[AiOpenWire]->isEnabledTo(m_table);
            if (row.at(byte) != nullptr && !isFixed) {
                row.at(byte)->setCurrentIndex(range.at(byte));
            }
        }
    }
}

bool SAIRangeWgt::saveData()
{
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        if (!isFamily(channelFamily(channel))) {
            continue;
        }
        const Row &row = m_rows.at(channel);
        AiRange &range = m_par->aiRange[static_cast<quint8>(channel)];
        for (std::size_t byte = 0; byte < row.size(); ++byte) {
            if (row.at(byte) != nullptr) {
                storeSelection(row.at(byte), range.at(byte));
            }
        }
    }
    return true;
}

void SAIRangeWgt::slot_inputRangeChange()
{
    // The signature of the slot is fixed, so the channel is derived from sender().
    const auto *const inputRange = sender();
    const auto *const found = std::find_if(m_rows.cbegin(), m_rows.cend(), [inputRange](const Row &row) {
        return inputRange != nullptr && row[AiInputRange] == inputRange;
    });
    const int channel = found == m_rows.cend() ? 0 : static_cast<int>(found - m_rows.cbegin());
    if (channel < m_rows.size() && channelFamily(channel) == VoltageCurrent) {
        showWireDetection(m_rows.at(channel));
    }
}

void SAIRangeWgt::showWireDetection(const Row &row)
{
    // 4-20 mA is the only range with a live zero, so only there can a broken wire be detected.
    const bool offered = row[AiInputRange]->currentIndex() == liveZeroRange;
    row[AiOpenWire]->setCurrentIndex(offered ? WireDetectionOn : WireDetectionInvalid);
    row[AiOpenWire]->setEnabled(offered);
    row[AiDirection]->setEnabled(offered);
}
