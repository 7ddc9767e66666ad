#include "saqouttypewgt.h"

#include "scrollareas.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr int headerHeight = 24; ///< pixels, more if the font needs it
constexpr int columnSpan = 2;
constexpr quint16 withoutChoice = 255;

using Field = ChannelField<AqOutType>;

/// All columns after the channel's, from left to right.
constexpr std::array columns = {
    channelField<&AqOutType::enable>(QT_TRANSLATE_NOOP("SAQOutTypeWgt", "Channel Enable"), "enable", choices::enable,
                                     withoutChoice),
    channelField<&AqOutType::range>(QT_TRANSLATE_NOOP("SAQOutTypeWgt", "Range"), "range", choices::outputRanges,
                                    withoutChoice),
};

} // namespace

SAQOutTypeWgt::SAQOutTypeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : RecordDefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SAQOutTypeWgt::initUI()
{
    auto *area = new PageArea(this);
    QVBoxLayout *layout = area->contentLayout();
    layout->addWidget(newDescription(tr("You can configure the value of each analog output type of the PLC.")));
    addDefaultsButton(layout);

    // The title of the output table page is intended here, although this page sets types.
    auto *group = new QGroupBox(tr("Values on transition from RUN to STOP"));
    group->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *grid = new QGridLayout(group);
    grid->addItem(new QSpacerItem(0, 0), 0, 0);
    for (const Field &field : columns) {
        auto *header = new QLabel(tr(field.title));
        grid->addWidget(header, 0, 1 + columnSpan * m_headers.size(), 1, columnSpan);
        m_headers.append(header);
    }
    for (int channel = 0; channel < m_par->aqCount; ++channel) {
        int column = 0;
        for (const Field &field : columns) {
            auto *editor = new QComboBox(group);
            editor->addItems(field.choices->texts());
            registerEditor(field.stem, channel, editor, m_headers.at(column)->text());
            m_editors.add(field, channel, editor);
            grid->addWidget(editor, channel + 1, 1 + columnSpan * column, 1, columnSpan);
            ++column;
        }
        grid->addWidget(newLabel(tr("Channel %1:").arg(channel), m_editors.at(columns.front(), channel)), channel + 1,
                        0);
    }
    grid->addItem(new QSpacerItem(10, 10, QSizePolicy::Minimum, QSizePolicy::Expanding), m_par->aqCount + 1, 0);
    layout->addWidget(group);
    area->keepHeadings(grid);
}

void SAQOutTypeWgt::fitToFont()
{
    for (QLabel *header : qAsConst(m_headers)) {
        header->setFixedHeight(qMax(headerHeight, header->sizeHint().height()));
    }
}

void SAQOutTypeWgt::initData(SimpleExtendPar *par)
{
    m_editors.show(par->aqOutType);
}

bool SAQOutTypeWgt::saveData()
{
    m_editors.store(m_par->aqOutType);
    return true;
}
