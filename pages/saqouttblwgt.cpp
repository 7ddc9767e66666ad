#include "saqouttblwgt.h"

#include "basewidgets.h"
#include "lineedit.h"
#include "simpleextendpar.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QVBoxLayout>

namespace {

constexpr int stopValueMinimum = -32000; ///< raw units, the same for every output range
constexpr int stopValueMaximum = 32000;
constexpr int stopValueWidth = 50; ///< pixels, as long as the font is small enough
constexpr int bytesPerChannel = 2;

/// The width in which the longest value can be read.
int neededWidth(const LineEdit *edit)
{
    constexpr int textMargin = 2; // what the edit itself keeps free on either side of its text
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
    const int text = edit->fontMetrics().horizontalAdvance(QString::number(stopValueMinimum)) + 2 * textMargin + 1;
    return edit->style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(text, 0), edit).width();
}

/// The numbers that saving can convert.
QLocale plainNumbers()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(locale.numberOptions() | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

SAQOutTblWgt::SAQOutTblWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SAQOutTblWgt::initUI()
{
    QVBoxLayout *layout = newPageLayout();
    layout->addWidget(newDescription(
        tr("You can configure the value of each analog output on transition from RUN to STOP of the PLC.")));
    addDefaultsButton(layout);

    auto *group = new QGroupBox(tr("Values on transition from RUN to STOP"));
    group->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *channels = new QWidget;
    auto *grid = new QGridLayout(channels);
    const QString freezeText = tr("Freeze outputs in last state");
    const QString limits = QStringLiteral("%1~%2").arg(stopValueMinimum).arg(stopValueMaximum);
    auto *validator = new CustomIntValidator(stopValueMinimum, stopValueMaximum, this);
    validator->setLocale(plainNumbers());
    for (int channel = 0; channel < m_par->aqCount; ++channel) {
        auto *freeze = new QCheckBox(freezeText, channels);
        nameEditor(freeze, QStringLiteral("freeze"), channel, freezeText);
        auto *stopValue = new LineEdit(channels);
        stopValue->setValidator(validator);
        stopValue->setText(QStringLiteral("0"));
        stopValue->setToolTip(limits);
        nameEditor(stopValue, QStringLiteral("stopValue"), channel, group->title());
        grid->addWidget(freeze, channel, 0);
        grid->addItem(new QSpacerItem(10, 10, QSizePolicy::Expanding, QSizePolicy::Minimum), channel, 1);
        // The byte of the word within the module, whatever the module's address is.
        grid->addWidget(newLabel(QStringLiteral("AQW%1:").arg(bytesPerChannel * channel), stopValue), channel, 2);
        grid->addWidget(stopValue, channel, 3);
        m_freeze.append(freeze);
        m_stopValues.append(stopValue);
    }
    auto *groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(newRowArea(channels));
    layout->addWidget(group);
}

void SAQOutTblWgt::initConnect()
{
    DefaultsPage::initConnect();
    for (const QCheckBox *freeze : qAsConst(m_freeze)) {
        connect(freeze, &QCheckBox::toggled, this, &SAQOutTblWgt::slot_ckbFrzAna_toggled);
    }
}

void SAQOutTblWgt::fitToFont()
{
    if (m_stopValues.isEmpty()) {
        return;
    }
    const int width = qMax(stopValueWidth, neededWidth(m_stopValues.constFirst()));
    for (LineEdit *stopValue : qAsConst(m_stopValues)) {
        stopValue->setFixedWidth(width);
    }
}

void SAQOutTblWgt::initData(SimpleExtendPar *par)
{
    const int channels = qMin<int>(par->aqCount, m_freeze.size());
    for (int channel = 0; channel < channels; ++channel) {
        const AqOutTbl output = par->aqOutTbl.value(static_cast<quint8>(channel));
        m_freeze.at(channel)->setChecked(output.freezeLast == 1);
        m_stopValues.at(channel)->setText(QString::number(output.stopValue));
    }
}

bool SAQOutTblWgt::saveData()
{
    for (int channel = 0; channel < m_freeze.size(); ++channel) {
        AqOutTbl &output = m_par->aqOutTbl[static_cast<quint8>(channel)];
        output.freezeLast = m_freeze.at(channel)->isChecked() ? 1 : 0;
        output.stopValue = m_stopValues.at(channel)->text().toShort();
    }
    return true;
}

void SAQOutTblWgt::slot_ckbFrzAna_toggled(bool checked)
{
    // The slot is known by name and has no room for the channel, so that the sender has to tell it.
    const int channel = m_freeze.indexOf(qobject_cast<QCheckBox *>(sender()));
    if (channel >= 0) {
        m_stopValues.at(channel)->setEnabled(!checked);
    }
}
