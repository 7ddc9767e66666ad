#include "sairangewgt.h"

#include "channeltable.h"
#include "choices.h"
#include "modulekind.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int familyCount = 3;
constexpr quint32 voltageCurrentModule = 13395;
constexpr int channelColumnWidth = 60; ///< pixels

struct RangeColumn {
    const char *title;
    const char *stem; ///< of the editors' object names
    AiRangeByte byte;
    int width;                                           ///< pixels, as long as title and editors need no more
    std::array<const ChoiceList *, familyCount> choices; ///< by signal family; null = the family has no such column
};

/// All columns after the channel's, in their order from left to right.
constexpr std::array<RangeColumn, AiRangeByteCount> rangeColumns = {{
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Enable"),
     "enable",
     AiEnable,
     80,
     {&choices::enable, &choices::enable, &choices::enable}},
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Filter Time"),
     "filterTime",
     AiFilterTime,
     80,
     {&choices::filterTimes, &choices::temperatureFilterTimes, &choices::temperatureFilterTimes}},
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Input Range"),
     "inputRange",
     AiInputRange,
     150,
     {&choices::inputRanges, &choices::thermocoupleRanges, &choices::resistanceRanges}},
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Open Wire Detect"),
     "openWire",
     AiOpenWire,
     130,
     {&choices::openWire, &choices::enable, &choices::enable}},
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Direction"),
     "direction",
     AiDirection,
     80,
     {&choices::directions, &choices::directions, &choices::directions}},
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Cold Junction"),
     "coldJunction",
     AiColdJunction,
     130,
     {nullptr, &choices::enable, nullptr}},
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Wiring Scheme"),
     "wiringScheme",
     AiWiringScheme,
     130,
     {nullptr, nullptr, &choices::wiringSchemes}},
    {QT_TRANSLATE_NOOP("SAIRangeWgt", "Temperature Scale"),
     "temperatureScale",
     AiTemperatureScale,
     130,
     {nullptr, &choices::temperatureScales, &choices::temperatureScales}},
}};

enum WireDetection { WireDetectionOn = 1, WireDetectionInvalid = 2 };

/// Position of "4~20mA" among the voltage and current ranges.
constexpr int liveZeroRange = 3;

/// False for what only a damaged or foreign record holds; such a channel is shown without editors.
bool isFamily(int family)
{
    return family < familyCount;
}

/// The columns of a signal family after the channel's, from left to right.
QVector<const RangeColumn *> columnsOf(int family)
{
    QVector<const RangeColumn *> columns;
    if (!isFamily(family)) {
        return columns;
    }
    for (const RangeColumn &column : rangeColumns) {
        if (column.choices.at(static_cast<std::size_t>(family)) != nullptr) {
            columns.append(&column);
        }
    }
    return columns;
}

} // namespace

SAIRangeWgt::SAIRangeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, defaultPar, parent)
{
    setUp();
}

int SAIRangeWgt::channelFamily(int channel) const
{
    return m_par->aiKind.value(static_cast<quint8>(channel));
}

/// Where the type code says nothing about the columns, the first channel does.
int SAIRangeWgt::headerFamily() const
{
    const int family = factorySignalFamily(m_par->objId);
    if (family != VoltageCurrent || m_par->objId == voltageCurrentModule || !isFamily(channelFamily(0))) {
        return family;
    }
    return channelFamily(0);
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

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newDescription(tr("You can adjust the range parameters.")));
    addDefaultsButton(layout);
    layout->addWidget(m_table);
}

SAIRangeWgt::Row SAIRangeWgt::newRow(int channel)
{
    Row row{};
    const int family = channelFamily(channel);
    const QVector<const RangeColumn *> columns = columnsOf(family);
    for (int i = 0; i < columns.size(); ++i) {
        const RangeColumn &column = *columns.at(i);
        QComboBox *editor =
            m_table->newComboBox(*column.choices.at(static_cast<std::size_t>(family)), ChannelTable::NoData);
        nameEditor(editor, QString::fromLatin1(column.stem), channel, tr(column.title));
        if (i + 1 < m_table->columnCount()) {
            m_table->setEditor(channel, i + 1, editor);
        } else {
            // A channel of another family than the header's may have more columns than the table. Its hidden editors
            // still load default values and save.
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
    DefaultsPage::initConnect();
    for (const Row &row : qAsConst(m_rows)) {
        if (row[AiInputRange] != nullptr) {
            connect(row[AiInputRange], QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                    &SAIRangeWgt::slot_inputRangeChange);
        }
    }
}

void SAIRangeWgt::fitToFont()
{
    QVector<int> widths{channelColumnWidth};
    for (const RangeColumn *column : columnsOf(headerFamily())) {
        widths.append(column->width);
    }
    QVector<int> samples; // the first channel of each family
    std::array<bool, familyCount> sampled{};
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        const int family = channelFamily(channel);
        if (isFamily(family) && !std::exchange(sampled.at(static_cast<std::size_t>(family)), true)) {
            samples.append(channel);
        }
    }
    m_table->fitToContents(samples, widths);
}

void SAIRangeWgt::initData(SimpleExtendPar *par)
{
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        const Row &row = m_rows.at(channel);
        const AiRange range = par->aiRange.value(static_cast<quint8>(channel));
        if (row[AiInputRange] == nullptr) {
            continue;
        }
        // The range comes first, because its change sets and disables Open Wire Detect.
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
    // The slot is known by name and has no room for the channel, so that the sender has to tell it. Without one
    // the first channel is meant.
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
    // Only a range with a live zero has a current at which the wire must be broken.
    const bool offered = row[AiInputRange]->currentIndex() == liveZeroRange;
    row[AiOpenWire]->setCurrentIndex(offered ? WireDetectionOn : WireDetectionInvalid);
    row[AiOpenWire]->setEnabled(offered);
    row[AiDirection]->setEnabled(offered);
}
