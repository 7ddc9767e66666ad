#include "sweightparcfgwgt.h"

#include "channeltable.h"
#include "choices.h"
#include "decimalspinbox.h"
#include "simpleextendpar.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <array>
#include <type_traits>
#include <utility>

namespace {

constexpr int sensitivityWidth = 68; ///< pixels, at least
constexpr int greatestDepthWithoutFilter = 1;

/// A column of combo boxes, which have choices, or of spin boxes, which have limits.
struct WeighColumn {
    const char *title;
    const char *stem; ///< of the editors' object names
    void (*show)(const WeighColumn &column, QWidget *editor, const WeighChannelPar &weighing);
    void (*store)(const WeighColumn &column, const QWidget *editor, WeighChannelPar &weighing);
    const ChoiceList *choices = nullptr; ///< null = spin boxes
    quint8 withoutChoice{};              ///< what a combo box without a selection stores
    int minimum{};
    int maximum{};
    const char *toolTip = nullptr;
    int decimals{};
};

template <auto Field>
using FieldType = std::decay_t<decltype(std::declval<WeighChannelPar>().*Field)>;

/// A code without a choice leaves its combo box without a selection.
template <auto Field>
void showChoice(const WeighColumn &column, QWidget *editor, const WeighChannelPar &weighing)
{
    static_cast<QComboBox *>(editor)->setCurrentIndex(column.choices->indexOf(weighing.*Field));
}

template <auto Field>
void storeChoice(const WeighColumn &column, const QWidget *editor, WeighChannelPar &weighing)
{
    const QVariant code = static_cast<const QComboBox *>(editor)->currentData();
    weighing.*Field = static_cast<FieldType<Field>>(code.isValid() ? code.toInt() : column.withoutChoice);
}

template <auto Field>
void showNumber(const WeighColumn & /*column*/, QWidget *editor, const WeighChannelPar &weighing)
{
    if constexpr (std::is_floating_point_v<FieldType<Field>>) {
        static_cast<DecimalSpinBox *>(editor)->showStored(weighing.*Field);
    } else {
        static_cast<QSpinBox *>(editor)->setValue(weighing.*Field);
    }
}

template <auto Field>
void storeNumber(const WeighColumn & /*column*/, const QWidget *editor, WeighChannelPar &weighing)
{
    if constexpr (std::is_floating_point_v<FieldType<Field>>) {
        weighing.*Field = static_cast<const DecimalSpinBox *>(editor)->toStore();
    } else {
        weighing.*Field = static_cast<FieldType<Field>>(static_cast<const QSpinBox *>(editor)->value());
    }
}

template <auto Field>
constexpr WeighColumn choiceColumn(const char *title, const char *stem, const ChoiceList &choices,
                                   quint8 withoutChoice = 0)
{
    return {title, stem, showChoice<Field>, storeChoice<Field>, &choices, withoutChoice};
}

template <auto Field>
constexpr WeighColumn numberColumn(const char *title, const char *stem, int minimum, int maximum, const char *toolTip,
                                   int decimals = 0)
{
    return {title, stem, showNumber<Field>, storeNumber<Field>, nullptr, 0, minimum, maximum, toolTip, decimals};
}

using Par = WeighChannelPar;

/// All columns after the channel's, from left to right.
constexpr std::array weighColumns = {
    choiceColumn<&Par::enable>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Enable"), "enable", choices::enable, 255),
    numberColumn<&Par::sensitivity>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sensitivity"), "sensitivity", 0, 32,
                                    "0~32.0000", 4),
    choiceColumn<&Par::limitFreq>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Limit Freq"), "limitFreq",
                                  choices::limitFrequencies),
    numberColumn<&Par::filterDepth>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Filter Depth"), "filterDepth", 0, 2000,
                                    "0~2000"),
    numberColumn<&Par::subMax>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sub Max"), "subMax", 0, 2000, "0~2000"),
    numberColumn<&Par::subMin>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sub Min"), "subMin", 0, 2000, "0~2000"),
    choiceColumn<&Par::filterMode>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Filter Mode"), "filterMode",
                                   choices::filterModes),
    choiceColumn<&Par::sampleFreq>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sample Freq"), "sampleFreq",
                                   choices::sampleFrequencies),
    numberColumn<&Par::bootClear>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Boot Clear"), "bootClear", -99, 99, "-99~99"),
};
constexpr std::size_t filterDepthPlace = 3;

template <class SpinBox>
SpinBox *newSpinBox(const WeighColumn &column, QWidget *parent)
{
    auto *editor = new SpinBox(parent);
    editor->setRange(column.minimum, column.maximum);
    editor->setToolTip(QString::fromLatin1(column.toolTip));
    return editor;
}

QWidget *newEditor(const WeighColumn &column, ChannelTable *table)
{
    if (column.choices != nullptr) {
        return table->newComboBox(*column.choices, ChannelTable::Codes);
    }
    if (column.decimals == 0) {
        return newSpinBox<QSpinBox>(column, table->viewport());
    }
    auto *editor = newSpinBox<DecimalSpinBox>(column, table->viewport());
    editor->setDecimals(column.decimals);
    editor->setMinimumWidth(sensitivityWidth);
    return editor;
}

} // namespace

SWeightParCfgWgt::SWeightParCfgWgt(SimpleExtendPar *par, SimpleExtendPar * /*defaultPar*/, QWidget *parent)
    : ParamPage(par, parent)
{
    setUp();
}

void SWeightParCfgWgt::initUI()
{
    QStringList titles{tr("Channel")};
    for (const WeighColumn &column : weighColumns) {
        titles.append(tr(column.title));
    }
    m_table = new ChannelTable(m_par->weighCount, titles);
    m_table->setObjectName(QStringLiteral("weighTable"));
    m_table->verticalHeader()->hide();
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int channel = 0; channel < m_par->weighCount; ++channel) {
        Row row{};
        for (std::size_t i = 0; i < weighColumns.size(); ++i) {
            const int place = static_cast<int>(i) + 1;
            row.at(i) = newEditor(weighColumns.at(i), m_table);
            nameEditor(row.at(i), QString::fromLatin1(weighColumns.at(i).stem), channel, titles.at(place));
            m_table->setEditor(channel, place, row.at(i));
        }
        m_rows.append(row);
    }
    auto *layout = new QVBoxLayout(this);
    addDefaultsButton(layout);
    layout->addWidget(m_table);
}

void SWeightParCfgWgt::initConnect()
{
    connect(m_btnDefault, &QPushButton::clicked, this, &SWeightParCfgWgt::slot_btnDefault_clicked);
}

void SWeightParCfgWgt::fitToFont()
{
    m_table->fitToContents({0});
}

void SWeightParCfgWgt::initData(SimpleExtendPar *par)
{
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        showRow(m_rows.at(channel), par->weighPar.value(static_cast<quint8>(channel)));
    }
}

bool SWeightParCfgWgt::saveData()
{
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        const Row &row = m_rows.at(channel);
        const WeighChannelPar weighing = readRow(row);
        // Channel by channel on purpose: the channels before the refused one stay written. The filter mode plays
        // no part in the rule.
        if (weighing.filterDepth > greatestDepthWithoutFilter &&
            weighing.filterDepth <= weighing.subMax + weighing.subMin) {
            return refuse(row.at(filterDepthPlace), QMessageBox::Information,
                          tr("When filtering is enabled,\n"
                             "Filter Depth must be greater then the sum of Sub Max and Sub Min."));
        }
        m_par->weighPar[static_cast<quint8>(channel)] = weighing;
    }
    return true;
}

void SWeightParCfgWgt::slot_btnDefault_clicked()
{
    for (const Row &row : qAsConst(m_rows)) {
        showRow(row, WeighChannelPar{});
    }
}

void SWeightParCfgWgt::showRow(const Row &row, const WeighChannelPar &weighing)
{
    for (std::size_t i = 0; i < row.size(); ++i) {
        weighColumns.at(i).show(weighColumns.at(i), row.at(i), weighing);
    }
}

WeighChannelPar SWeightParCfgWgt::readRow(const Row &row)
{
    WeighChannelPar weighing;
    for (std::size_t i = 0; i < row.size(); ++i) {
        weighColumns.at(i).store(weighColumns.at(i), row.at(i), weighing);
    }
    return weighing;
}
