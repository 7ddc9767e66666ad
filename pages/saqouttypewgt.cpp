#include "saqouttypewgt.h"

#include "choices.h"
#include "simpleextendpar.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int headerHeight = 24; ///< pixels, as long as the font is small enough

/// -1, no selection, becomes 255.
quint8 storedPosition(const QComboBox *editor)
{
    return static_cast<quint8>(editor->currentIndex());
}

} // namespace

SAQOutTypeWgt::SAQOutTypeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SAQOutTypeWgt::initUI()
{
    QVBoxLayout *layout = newPageLayout();
    layout->addWidget(newDescription(tr("You can configure the value of each analog output type of the PLC.")));
    addDefaultsButton(layout);

    // The title is that of the output table page on purpose, although this page sets types.
    auto *group = new QGroupBox(tr("Values on transition from RUN to STOP"));
    group->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *channels = new QWidget;
    auto *grid = new QGridLayout(channels);
    m_headers = {new QLabel(tr("Channel Enable")), new QLabel(tr("Range"))};
    grid->addItem(new QSpacerItem(0, 0), 0, 0);
    grid->addWidget(m_headers.at(0), 0, 1, 1, 2);
    grid->addWidget(m_headers.at(1), 0, 3, 1, 2);
    const QStringList enableTexts = choices::enable.texts();
    const QStringList rangeTexts = choices::outputRanges.texts();
    for (int channel = 0; channel < m_par->aqCount; ++channel) {
        auto *enable = new QComboBox(channels);
        enable->addItems(enableTexts);
        nameEditor(enable, QStringLiteral("enable"), channel, m_headers.at(0)->text());
        auto *range = new QComboBox(channels);
        range->addItems(rangeTexts);
        range->setCurrentIndex(-1);
        nameEditor(range, QStringLiteral("range"), channel, m_headers.at(1)->text());
        grid->addWidget(newLabel(tr("Channel %1:").arg(channel), enable), channel + 1, 0);
        grid->addWidget(enable, channel + 1, 1, 1, 2);
        grid->addWidget(range, channel + 1, 3, 1, 2);
        m_enable.append(enable);
        m_range.append(range);
    }
    grid->addItem(new QSpacerItem(10, 10, QSizePolicy::Minimum, QSizePolicy::Expanding), m_par->aqCount + 1, 0);
    auto *groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(newRowArea(channels));
    layout->addWidget(group);
}

void SAQOutTypeWgt::fitToFont()
{
    for (QLabel *header : qAsConst(m_headers)) {
        header->setFixedHeight(qMax(headerHeight, header->sizeHint().height()));
    }
}

void SAQOutTypeWgt::initData(SimpleExtendPar *par)
{
    for (int channel = 0; channel < m_enable.size(); ++channel) {
        const AqOutType type = par->aqOutType.value(static_cast<quint8>(channel));
        m_enable.at(channel)->setCurrentIndex(type.enable);
        m_range.at(channel)->setCurrentIndex(type.range);
    }
}

bool SAQOutTypeWgt::saveData()
{
    for (int channel = 0; channel < m_enable.size(); ++channel) {
        AqOutType &type = m_par->aqOutType[static_cast<quint8>(channel)];
        type.enable = storedPosition(m_enable.at(channel));
        type.range = storedPosition(m_range.at(channel));
    }
    return true;
}
