#include "sweightparcfgwgt.h"

#include "channeltable.h"
#include "choices.h"
#include "simpleextendpar.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <array>
#include <type_traits>

namespace {

constexpr int sensitivityWidth = 68; ///< pixels, at least
constexpr int greatestDepthWithoutFilter = 1;

template <auto Field>
double valueOf(const WeighChannelPar &weighing)
{
    return weighing.*Field;
}

template <auto Field>
void storeIn(WeighChannelPar &weighing, double value)
{
    weighing.*Field = static_cast<std::decay_t<decltype(weighing.*Field)>>(value);
}

/// A column of combo boxes, which have choices, or of spin boxes, which have limits. A double holds the values of
/// every field exactly.
struct WeighColumn {
    const char *title;
    const char *stem; ///< of the editors' object names
    double (*value)(const WeighChannelPar &weighing);
    void (*store)(WeighChannelPar &weighing, double value);
    const ChoiceList *choices = nullptr; ///< null = spin boxes
    quint8 withoutChoice{};              ///< what a combo box without a selection stores
    int minimum{};
    int maximum{};
    const char *toolTip = nullptr;
    int decimals{};
};

template <auto Field>
constexpr WeighColumn choiceColumn(const char *title, const char *stem, const ChoiceList &choices,
                                   quint8 withoutChoice = 0)
{
    return {title, stem, valueOf<Field>, storeIn<Field>, &choices, withoutChoice};
}

template <auto Field>
constexpr WeighColumn numberColumn(const char *title, const char *stem, int minimum, int maximum, const char *toolTip,
                                   int decimals = 0)
{
    return {title, stem, valueOf<Field>, storeIn<Field>, nullptr, 0, minimum, maximum, toolTip, decimals};
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
    auto *editor = newSpinBox<QDoubleSpinBox>(column, table->viewport());
    editor->setDecimals(column.decimals);
    editor->setMinimumWidth(sensitivityWidth);
    return editor;
}

/// A code without a choice leaves its combo box without a selection.
void showValue(const WeighColumn &column, QWidget *editor, double value)
{
    if (column.choices != nullptr) {
        static_cast<QComboBox *>(editor)->setCurrentIndex(column.choices->indexOf(static_cast<int>(value)));
    } else if (column.decimals == 0) {
        static_cast<QSpinBox *>(editor)->setValue(static_cast<int>(value));
    } else {
        static_cast<QDoubleSpinBox *>(editor)->setValue(value);
    }
}

double shownValue(const WeighColumn &column, const QWidget *editor)
{
    if (column.choices != nullptr) {
        const QVariant code = static_cast<const QComboBox *>(editor)->currentData();
        return code.isValid() ? code.toInt() : column.withoutChoice;
    }
    return column.decimals == 0 ? static_cast<const QSpinBox *>(editor)->value()
                                : static_cast<const QDoubleSpinBox *>(editor)->value();
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
        showValue(weighColumns.at(i), row.at(i), weighColumns.at(i).value(weighing));
    }
}

WeighChannelPar SWeightParCfgWgt::readRow(const Row &row)
{
    WeighChannelPar weighing;
    for (std::size_t i = 0; i < row.size(); ++i) {
        weighColumns.at(i).store(weighing, shownValue(weighColumns.at(i), row.at(i)));
    }
    return weighing;
}
