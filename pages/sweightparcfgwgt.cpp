#include "sweightparcfgwgt.h"

#include "channeltable.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr int minimumSensitivityWidth = 68; ///< pixels
constexpr int maximumDepthWithoutFilter = 1;

using Par = WeighChannelPar;
using Field = ChannelField<Par>;

constexpr Field filterDepthField = channelField<fields::Number, &Par::filterDepth>(
    QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Filter Depth"), "filterDepth", limits::weighingFilterCount);

/// All columns after the channel's, from left to right.
constexpr std::array columns = {
    channelField<&Par::enable>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Enable"), "enable", choices::enable, 255),
    channelField<fields::Decimal, &Par::sensitivity>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sensitivity"),
                                                     "sensitivity", limits::sensitivity, 4),
    channelField<&Par::limitFreq>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Limit Freq"), "limitFreq",
                                  choices::limitFrequencies, 0),
    filterDepthField,
    channelField<fields::Number, &Par::subMax>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sub Max"), "subMax",
                                               limits::weighingFilterCount),
    channelField<fields::Number, &Par::subMin>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sub Min"), "subMin",
                                               limits::weighingFilterCount),
    channelField<&Par::filterMode>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Filter Mode"), "filterMode",
                                   choices::filterModes, 0),
    channelField<&Par::sampleFreq>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Sample Freq"), "sampleFreq",
                                   choices::sampleFrequencies, 0),
    channelField<fields::Number, &Par::bootClear>(QT_TRANSLATE_NOOP("SWeightParCfgWgt", "Boot Clear"), "bootClear",
                                                  limits::bootClear),
};

template <typename SpinBox>
SpinBox *newSpinBox(const Field &field, QWidget *parent)
{
    auto *editor = new SpinBox(parent);
    editor->setRange(field.limits.minimum, field.limits.maximum);
    editor->setToolTip(field.limitsText());
    return editor;
}

QWidget *newEditor(const Field &field, ChannelTable *table)
{
    if (field.choices != nullptr) {
        return table->newComboBox(*field.choices, ChannelTable::Codes);
    }
    if (field.decimals == 0) {
        return newSpinBox<QSpinBox>(field, table->viewport());
    }
    auto *editor = newSpinBox<DecimalSpinBox>(field, table->viewport());
    editor->setDecimals(field.decimals);
    editor->setMinimumWidth(minimumSensitivityWidth);
    return editor;
}

/// The filter mode is not part of the rule.
bool isFilterDepthAllowed(const WeighChannelPar &weighing)
{
    return weighing.filterDepth <= maximumDepthWithoutFilter ||
           weighing.filterDepth > weighing.subMax + weighing.subMin;
}

} // namespace

SWeightParCfgWgt::SWeightParCfgWgt(SimpleExtendPar *par, SimpleExtendPar * /*defaultPar*/, QWidget *parent)
    : DefaultsPage(par, parent)
{
    setUp();
}

void SWeightParCfgWgt::initUI()
{
    QStringList titles{tr("Channel")};
    for (const Field &field : columns) {
        titles.append(tr(field.title));
    }
    m_table = new ChannelTable(m_par->weighCount, titles);
    m_table->setObjectName(QStringLiteral("weighTable"));
    m_table->verticalHeader()->hide();
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int channel = 0; channel < m_par->weighCount; ++channel) {
        int place = 1;
        for (const Field &field : columns) {
            QWidget *editor = newEditor(field, m_table);
            registerEditor(field.stem, channel, editor, titles.at(place));
            m_editors.add(field, channel, editor);
            m_table->setEditor(channel, place, editor);
            ++place;
        }
    }
    registerTable(m_table);
    auto *layout = new QVBoxLayout(this);
    addDefaultsButton(layout);
    layout->addWidget(m_table);
}

void SWeightParCfgWgt::fitToFont()
{
    m_table->fitToContents({0});
}

void SWeightParCfgWgt::initData(SimpleExtendPar *par)
{
    m_editors.show(par->weighPar);
}

SimpleExtendPar *SWeightParCfgWgt::defaultRecord()
{
    return &m_defaults;
}

bool SWeightParCfgWgt::saveData()
{
    for (int channel = 0; channel < m_editors.channelCount(); ++channel) {
        WeighChannelPar weighing;
        m_editors.store(channel, weighing);
        if (!isFilterDepthAllowed(weighing)) {
            return refuse(m_editors.at(filterDepthField, channel), QMessageBox::Information,
                          tr("When filtering is enabled,\n"
                             "Filter Depth must be greater then the sum of Sub Max and Sub Min."));
        }
        m_par->weighPar[static_cast<quint8>(channel)] = weighing; // intended: the channels before a refused one stay
    }
    return true;
}
