#include "sdqouttblwgt.h"

#include "checkbox.h"
#include "digitalbits.h"
#include "imagerange.h"
#include "scrollareas.h"
#include "simpleextendpar.h"
#include "wrappedlabel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr int labelSize = 14; ///< pixels, more if the font needs it

} // namespace

SDQOutTblWgt::SDQOutTblWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : RecordDefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SDQOutTblWgt::initUI()
{
    auto *group = new QGroupBox(tr("States on transition from RUN to STOP"));
    m_freeze = new CheckBox(tr("Freeze outputs in last state"));
    m_freeze->setObjectName(QStringLiteral("freezeCheck"));
    auto *explanation =
        new WrappedLabel(tr("Selected output will be ON when the PLC transitions from RUN to STOP mode."));

    auto *groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(newDescription(tr("You can configure the ON and OFF states of each digital output on "
                                             "Transition from RUN to STOP of the PLC.")));
    auto *freezeRow = new QHBoxLayout;
    freezeRow->addWidget(m_freeze);
    addDefaultsButton(freezeRow); // not in its own row, so that more outputs are visible
    groupLayout->addLayout(freezeRow);
    groupLayout->addWidget(explanation);
    QGridLayout *outputs = newOutputGrid(group);
    groupLayout->addLayout(outputs, 1);

    m_btnSelectAll = newButton(tr("Select All"), QStringLiteral("selectAllButton"));
    m_btnClearAll = newButton(tr("Clear All"), QStringLiteral("clearAllButton"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_btnSelectAll);
    buttons->addWidget(m_btnClearAll);
    buttons->addStretch();
    groupLayout->addLayout(buttons);
    auto *area = new PageArea(this);
    area->contentLayout()->addWidget(group);
    area->keepHeadings(outputs);
}

QGridLayout *SDQOutTblWgt::newOutputGrid(QWidget *group)
{
    auto *grid = new QGridLayout;
    grid->setAlignment(Qt::AlignTop);
    const auto addLabel = [this, grid](const QString &text, int row, int column) {
        auto *label = new QLabel(text);
        label->setAlignment(Qt::AlignCenter);
        grid->addWidget(label, row, column, Qt::AlignCenter);
        m_gridLabels.append(label);
        return label;
    };
    const int bits = qMin<int>(m_par->dqCount, outputsPerByte);
    for (int bit = 0; bit < bits; ++bit) {
        addLabel(QStringLiteral("%1").arg(bit), 0, bit + 1);
    }
    for (int output = 0; output < m_par->dqCount; ++output) {
        const int byte = output / outputsPerByte;
        const int bit = output % outputsPerByte;
        auto *box = new CheckBox(group);
        registerEditor("output", output, box);
        box->setAccessibleName(QStringLiteral("Q%1.%2").arg(byte).arg(bit));
        if (bit == 0) {
            addLabel(QStringLiteral("Q%1.x").arg(byte), byte + 1, 0)->setBuddy(box);
        }
        grid->addWidget(box, byte + 1, bit + 1, Qt::AlignCenter);
        m_outputs.append(box);
    }
    grid->setColumnStretch(outputsPerByte + 1, 1);
    return grid;
}

void SDQOutTblWgt::initConnect()
{
    RecordDefaultsPage::initConnect();
    connect(m_freeze, &QCheckBox::toggled, this, &SDQOutTblWgt::slot_chkFrzClicked);
    connect(m_btnSelectAll, &QPushButton::clicked, this, &SDQOutTblWgt::slot_btnSelectAll);
    connect(m_btnClearAll, &QPushButton::clicked, this, &SDQOutTblWgt::slot_btnClearAll);
}

void SDQOutTblWgt::fitToFont()
{
    for (QLabel *label : qAsConst(m_gridLabels)) {
        label->setFixedSize(label->sizeHint().expandedTo(QSize(labelSize, labelSize)));
    }
}

void SDQOutTblWgt::initData(SimpleExtendPar *par)
{
    if (par->dqMode != DqFreezeLast && par->dqMode != DqUseTable) {
        return;
    }
    const bool frozen = par->dqMode == DqFreezeLast;
    {
        // The boxes stay unchanged: only freezing by the user unchecks them.
        const QSignalBlocker blocker(m_freeze);
        m_freeze->setChecked(frozen);
    }
    setOutputsEnabled(!frozen);
    if (frozen) {
        return;
    }
    for (int output = 0; output < m_outputs.size(); ++output) {
        // Outputs beyond the end of a short table stay unchanged.
        if (const std::optional<bool> isOn = outputState(par->dqOutTbl, output)) {
            m_outputs.at(output)->setChecked(*isOn);
        }
    }
}

bool SDQOutTblWgt::saveData()
{
    if (m_par->dqCount == 0) {
        return true;
    }
    const bool frozen = m_freeze->isChecked();
    QByteArray table(bitTableSize(m_par->dqCount), '\0');
    for (int output = 0; output < m_outputs.size() && !frozen; ++output) {
        const int byte = output / outputsPerByte;
        const int mask = m_outputs.at(output)->isChecked() ? outputMask(output) : 0;
        table[byte] = static_cast<char>(table.at(byte) | mask);
    }
    m_par->dqMode = frozen ? DqFreezeLast : DqUseTable;
    m_par->dqOutTbl = table;
    return true;
}

void SDQOutTblWgt::slot_chkFrzClicked()
{
    const bool frozen = m_freeze->isChecked();
    if (frozen) {
        setOutputsChecked(false);
    }
    setOutputsEnabled(!frozen);
}

void SDQOutTblWgt::slot_btnSelectAll()
{
    setOutputsChecked(true);
}

void SDQOutTblWgt::slot_btnClearAll()
{
    setOutputsChecked(false);
}

void SDQOutTblWgt::setOutputsEnabled(bool enabled)
{
    for (QCheckBox *output : qAsConst(m_outputs)) {
        output->setEnabled(enabled);
    }
    m_btnSelectAll->setEnabled(enabled);
    m_btnClearAll->setEnabled(enabled);
}

void SDQOutTblWgt::setOutputsChecked(bool checked)
{
    for (QCheckBox *output : qAsConst(m_outputs)) {
        output->setChecked(checked);
    }
}
