#include "saifilterwgt.h"

#include "basewidgets.h"
#include "choices.h"
#include "simpleextendpar.h"
#include "wrappedlabel.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int deadbandMaximum = 4080; ///< raw analog units, as the step
constexpr int deadbandStep = 16;
constexpr int bytesPerChannel = 2;

} // namespace

SAIFilterWgt::SAIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SAIFilterWgt::initUI()
{
    QVBoxLayout *layout = newPageLayout();
    // The missing blank after "taken," is part of the text, which the translations know it by.
    layout->addWidget(newDescription(
        tr("The analog value the PLC used is the average of the number of samples taken,if the Analog Input Filter is "
           "selected. If the actual analog value exceeds the average value by more than the deadband, the average "
           "will be replaced with the actual value.")));
    addDefaultsButton(layout);

    auto *frame = new QFrame;
    frame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *frameGrid = new QGridLayout(frame);
    frameGrid->setContentsMargins({});
    frameGrid->addWidget(newRowArea(newChannelGrid()), 0, 0, 8, 4);
    m_btnSelectAll = newButton(tr("Select All"), QStringLiteral("selectAllButton"));
    m_btnCancelAll = newButton(tr("Clear All"), QStringLiteral("clearAllButton"));
    frameGrid->addWidget(m_btnSelectAll, 8, 1);
    frameGrid->addWidget(m_btnCancelAll, 8, 2);
    layout->addWidget(frame);
}

QWidget *SAIFilterWgt::newChannelGrid()
{
    auto *channels = new QWidget;
    auto *grid = new QGridLayout(channels);
    const QStringList titles = {tr("Whether to Filter"), tr("Number of Samples"),
                                tr("Deadband(16 - 4080, 0 = forbid)")};
    for (int column = 0; column < titles.size(); ++column) {
        grid->addWidget(new WrappedLabel(titles.at(column)), 0, column);
        grid->setColumnStretch(column, 1);
    }
    const QStringList sampleCounts = choices::sampleCounts.texts();
    for (int channel = 0; channel < m_par->aiCount; ++channel) {
        const Row row{new QCheckBox(QStringLiteral("AIW%1").arg(bytesPerChannel * channel), channels),
                      new QComboBox(channels), new MSpinBoxDeadBand(channels)};
        nameEditor(row.filterOn, QStringLiteral("filterOn"), channel, titles.at(0));
        nameEditor(row.samples, QStringLiteral("samples"), channel, titles.at(1));
        nameEditor(row.deadband, QStringLiteral("deadband"), channel, titles.at(2));
        row.samples->addItems(sampleCounts);
        row.deadband->setRange(0, deadbandMaximum);
        row.deadband->setSingleStep(deadbandStep);
        grid->addWidget(row.filterOn, channel + 1, 0);
        grid->addWidget(row.samples, channel + 1, 1);
        grid->addWidget(row.deadband, channel + 1, 2);
        m_rows.append(row);
    }
    grid->addItem(new QSpacerItem(10, 10, QSizePolicy::Minimum, QSizePolicy::Expanding), m_par->aiCount + 2, 2);
    return channels;
}

void SAIFilterWgt::initConnect()
{
    DefaultsPage::initConnect();
    connect(m_btnSelectAll, &QPushButton::clicked, this, &SAIFilterWgt::slot_btnSelectAll_clicked);
    connect(m_btnCancelAll, &QPushButton::clicked, this, &SAIFilterWgt::slot_btnCancelAll_clicked);
}

void SAIFilterWgt::initData(SimpleExtendPar *par)
{
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        const Row &row = m_rows.at(channel);
        const AiFilter filter = par->aiFilter.value(static_cast<quint8>(channel));
        row.filterOn->setChecked(filter.filterOn == 1);
        row.samples->setCurrentIndex(filter.samples);
        row.deadband->setValue(filter.deadband);
    }
}

bool SAIFilterWgt::saveData()
{
    for (int channel = 0; channel < m_rows.size(); ++channel) {
        const Row &row = m_rows.at(channel);
        AiFilter &filter = m_par->aiFilter[static_cast<quint8>(channel)];
        filter.filterOn = row.filterOn->isChecked() ? 1 : 0;
        storeSelection(row.samples, filter.samples);
        // Channel by channel on purpose: what stands before the refused value stays written.
        if (row.deadband->value() % deadbandStep != 0) {
            return refuse(row.deadband, QMessageBox::Warning,
                          tr("The value of deadband must be multiples of sixteen."));
        }
        filter.deadband = static_cast<quint16>(row.deadband->value());
    }
    return true;
}

void SAIFilterWgt::slot_btnSelectAll_clicked()
{
    setAllFiltered(true);
}

void SAIFilterWgt::slot_btnCancelAll_clicked()
{
    setAllFiltered(false);
}

void SAIFilterWgt::setAllFiltered(bool filtered)
{
    for (const Row &row : qAsConst(m_rows)) {
        row.filterOn->setChecked(filtered);
    }
}
