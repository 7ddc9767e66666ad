#include "saifilterwgt.h"

#include "basewidgets.h"
#include "checkbox.h"
#include "scrollareas.h"
#include "wrappedlabel.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int bytesPerChannel = 2;

using Field = ChannelField<AiFilter>;

constexpr Field filterOnField = channelField<fields::Switch, &AiFilter::filterOn>(
    QT_TRANSLATE_NOOP("SAIFilterWgt", "Whether to Filter"), "filterOn");
constexpr Field samplesField = channelField<&AiFilter::samples>(QT_TRANSLATE_NOOP("SAIFilterWgt", "Number of Samples"),
                                                                "samples", choices::sampleCounts);
constexpr Field deadbandField = channelField<fields::Number, &AiFilter::deadband>(
    QT_TRANSLATE_NOOP("SAIFilterWgt", "Deadband(16 - 4080, 0 = forbid)"), "deadband", limits::deadband);

} // namespace

SAIFilterWgt::SAIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : RecordDefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SAIFilterWgt::initUI()
{
    auto *area = new PageArea(this);
    QVBoxLayout *layout = area->contentLayout();
    // The missing space after "taken," is intended: the prescribed text has none.
    layout->addWidget(newDescription(
        tr("The analog value the PLC used is the average of the number of samples taken,if the Analog Input Filter is "
           "selected. If the actual analog value exceeds the average value by more than the deadband, the average "
           "will be replaced with the actual value.")));
    addDefaultsButton(layout);

    auto *frame = new QFrame;
    frame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *frameGrid = new QGridLayout(frame);
    frameGrid->setContentsMargins({});
    QGridLayout *channels = newChannelGrid(frame);
    frameGrid->addLayout(channels, 0, 0, 8, 4);
    area->keepHeadings(channels);
    m_btnSelectAll = newButton(tr("Select All"), QStringLiteral("selectAllButton"));
    m_btnCancelAll = newButton(tr("Clear All"), QStringLiteral("clearAllButton"));
    frameGrid->addWidget(m_btnSelectAll, 8, 1);
    frameGrid->addWidget(m_btnCancelAll, 8, 2);
    layout->addWidget(frame);
}

QGridLayout *SAIFilterWgt::newChannelGrid(QWidget *frame)
{
    auto *grid = new QGridLayout;
    QStringList titles;
    for (const Field *field : {&filterOnField, &samplesField, &deadbandField}) {
        titles.append(tr(field->title));
        grid->addWidget(new WrappedLabel(titles.last()), 0, titles.size() - 1);
        grid->setColumnStretch(titles.size() - 1, field == &deadbandField ? 3 : 2); // the longest title
    }
    const QStringList sampleCounts = choices::sampleCounts.texts();
    for (int channel = 0; channel < m_par->aiCount; ++channel) {
        int column = 0;
        const auto add = [&](const Field &field, QWidget *editor) {
            registerEditor(field.stem, channel, editor, titles.at(column));
            m_editors.add(field, channel, editor);
            grid->addWidget(editor, channel + 1, column++);
        };
        add(filterOnField, new CheckBox(QStringLiteral("AIW%1").arg(bytesPerChannel * channel), frame));
        auto *samples = new QComboBox(frame);
        samples->addItems(sampleCounts);
        add(samplesField, samples);
        auto *deadband = new MSpinBoxDeadBand(frame);
        deadband->setRange(limits::deadband.minimum, limits::deadband.maximum);
        deadband->setSingleStep(limits::deadband.step);
        add(deadbandField, deadband);
    }
    grid->addItem(new QSpacerItem(10, 10, QSizePolicy::Minimum, QSizePolicy::Expanding), m_par->aiCount + 2, 2);
    return grid;
}

void SAIFilterWgt::initConnect()
{
    RecordDefaultsPage::initConnect();
    connect(m_btnSelectAll, &QPushButton::clicked, this, &SAIFilterWgt::slot_btnSelectAll_clicked);
    connect(m_btnCancelAll, &QPushButton::clicked, this, &SAIFilterWgt::slot_btnCancelAll_clicked);
}

void SAIFilterWgt::initData(SimpleExtendPar *par)
{
    m_editors.show(par->aiFilter);
}

bool SAIFilterWgt::saveData()
{
    for (int channel = 0; channel < m_editors.channelCount(); ++channel) {
        AiFilter &filter = m_par->aiFilter[static_cast<quint8>(channel)];
        const quint16 storedDeadband = filter.deadband;
        m_editors.store(channel, filter);
        if (!limits::deadband.contains(filter.deadband)) {
            filter.deadband = storedDeadband; // intended: all values before the refused one stay written
            return refuse(m_editors.at(deadbandField, channel), QMessageBox::Warning,
                          tr("The value of deadband must be multiples of sixteen."));
        }
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
    for (int channel = 0; channel < m_editors.channelCount(); ++channel) {
        m_editors.at<QCheckBox>(filterOnField, channel)->setChecked(filtered);
    }
}
