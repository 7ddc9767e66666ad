#include "saqouttblwgt.h"

#include "basewidgets.h"
#include "checkbox.h"
#include "lineedit.h"
#include "scrollareas.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QVBoxLayout>

namespace {

constexpr auto freezeField = channelField<fields::Switch, &AqOutTbl::freezeLast>(
    QT_TRANSLATE_NOOP("SAQOutTblWgt", "Freeze outputs in last state"), "freeze");
constexpr auto stopValueField = channelField<fields::NumberText, &AqOutTbl::stopValue>(
    QT_TRANSLATE_NOOP("SAQOutTblWgt", "Values on transition from RUN to STOP"), "stopValue", limits::stopValue);
constexpr int stopValueWidth = 50; ///< pixels, more if the font needs it
constexpr int bytesPerChannel = 2;

/// Returns the width, in pixels, that shows the longest value completely.
int neededWidth(const LineEdit *edit)
{
    constexpr int textMargin = 2; // of QLineEdit, on either side of the text
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
    const int text =
        edit->fontMetrics().horizontalAdvance(QString::number(limits::stopValue.minimum)) + 2 * textMargin + 1;
    return edit->style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(text, 0), edit).width();
}

/// Returns a locale that accepts only numbers that saveData() can convert.
QLocale plainNumbers()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(locale.numberOptions() | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

SAQOutTblWgt::SAQOutTblWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : RecordDefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SAQOutTblWgt::initUI()
{
    QVBoxLayout *layout = (new PageArea(this))->contentLayout();
    layout->addWidget(newDescription(
        tr("You can configure the value of each analog output on transition from RUN to STOP of the PLC.")));
    addDefaultsButton(layout);

    const QString freezeText = tr(freezeField.title);
    auto *group = new QGroupBox(tr(stopValueField.title));
    group->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *grid = new QGridLayout(group);
    grid->setAlignment(Qt::AlignTop);
    auto *validator = new CustomIntValidator(limits::stopValue.minimum, limits::stopValue.maximum, this);
    validator->setLocale(plainNumbers());
    for (int channel = 0; channel < m_par->aqCount; ++channel) {
        auto *freeze = new CheckBox(freezeText, group);
        registerEditor(freezeField.stem, channel, freeze, freezeText);
        m_editors.add(freezeField, channel, freeze);
        auto *stopValue = new LineEdit(group);
        stopValue->setValidator(validator);
        stopValue->setText(QStringLiteral("0"));
        stopValue->setToolTip(stopValueField.limitsText());
        registerEditor(stopValueField.stem, channel, stopValue, group->title());
        m_editors.add(stopValueField, channel, stopValue);
        grid->addWidget(freeze, channel, 0);
        grid->addItem(new QSpacerItem(10, 10, QSizePolicy::Expanding, QSizePolicy::Minimum), channel, 1);
        // The offset of the word in the module, independent of the module's address.
        grid->addWidget(newLabel(QStringLiteral("AQW%1:").arg(bytesPerChannel * channel), stopValue), channel, 2);
        grid->addWidget(stopValue, channel, 3);
    }
    layout->addWidget(group);
}

void SAQOutTblWgt::initConnect()
{
    RecordDefaultsPage::initConnect();
    for (int channel = 0; channel < m_editors.channelCount(); ++channel) {
        connect(m_editors.at<QCheckBox>(freezeField, channel), &QCheckBox::toggled, this,
                &SAQOutTblWgt::slot_ckbFrzAna_toggled);
    }
}

void SAQOutTblWgt::fitToFont()
{
    int width = 0;
    for (int channel = 0; channel < m_editors.channelCount(); ++channel) {
        auto *stopValue = m_editors.at<LineEdit>(stopValueField, channel);
        width = width == 0 ? qMax(stopValueWidth, neededWidth(stopValue)) : width;
        stopValue->setFixedWidth(width);
    }
}

void SAQOutTblWgt::initData(SimpleExtendPar *par)
{
    m_editors.show(par->aqOutTbl, par->aqCount);
}

bool SAQOutTblWgt::saveData()
{
    m_editors.store(m_par->aqOutTbl);
    return true;
}

void SAQOutTblWgt::slot_ckbFrzAna_toggled(bool checked)
{
    // The signature of the slot is fixed, so the channel is derived from sender().
    for (int channel = 0; channel < m_editors.channelCount(); ++channel) {
        if (m_editors.at(freezeField, channel) == sender()) {
            m_editors.at(stopValueField, channel)->setEnabled(!checked);
        }
    }
}
