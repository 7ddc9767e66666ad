#include "sdifilterwgt.h"

#include "choices.h"
#include "digitalbits.h"
#include "scrollareas.h"
#include "simpleextendpar.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr quint8 factoryCode = 5;

/// Rows are numbered from the first input of the module, independent of its address.
QString rowText(int row)
{
    const QString text = row % 2 == 0 ? QStringLiteral("I%1.0 - I%2.3") : QStringLiteral("I%1.4 - I%2.7");
    return text.arg(row / 2).arg(row / 2);
}

} // namespace

SDIFilterWgt::SDIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : RecordDefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SDIFilterWgt::initUI()
{
    auto *group = new QGroupBox(tr("Input Filter Delays"));
    auto *grid = new QGridLayout;
    grid->setAlignment(Qt::AlignTop);
    grid->setColumnStretch(1, 1);
    const QStringList delays = choices::digitalFilterDelays.texts();
    const int rowCount = (m_par->diCount + inputsPerFilterRow - 1) / inputsPerFilterRow;
    for (int row = 0; row < rowCount; ++row) {
        auto *filter = new QComboBox(group);
        filter->addItems(delays);
        filter->setCurrentIndex(factoryCode);
        registerEditor("filter", row, filter);
        describeEditor(filter, rowText(row) + QStringLiteral(", ") + group->title());
        auto *label = newLabel(rowText(row), filter);
        label->setObjectName(QStringLiteral("filterLabel_%1").arg(row));
        grid->addWidget(label, row, 0);
        grid->addWidget(filter, row, 1);
        m_filters.append(filter);
    }

    auto *groupLayout = new QVBoxLayout(group);
    groupLayout->setContentsMargins(50, 9, 50, 9);
    // The missing space in "signalis" is intended: the prescribed text has none.
    groupLayout->addWidget(newDescription(
        tr("You can select the time that the input must remain constant before the signalis caught by the PLC.")));
    groupLayout->addLayout(grid, 1);
    QVBoxLayout *layout = (new PageArea(this))->contentLayout();
    addDefaultsButton(layout);
    layout->addWidget(group);
}

void SDIFilterWgt::initData(SimpleExtendPar *par)
{
    if (par->diCount == 0) {
        return;
    }
    for (int row = 0; row < m_filters.size(); ++row) {
        // Rows beyond the end of a short filter stay unchanged. A code without a choice clears the selection.
        if (const std::optional<int> code = filterCode(par->diFilter, row)) {
            m_filters.at(row)->setCurrentIndex(*code);
        }
    }
}

bool SDIFilterWgt::saveData()
{
    if (m_par->diCount == 0) {
        return true;
    }
    QByteArray filter((m_filters.size() + 1) / 2, '\0');
    for (int row = 0; row < m_filters.size(); ++row) {
        const int selected = m_filters.at(row)->currentIndex();
        // Without a selection the stored code stays, because no choice shows it.
        const int code = selected < 0 ? filterCode(m_par->diFilter, row).value_or(0) : selected;
        filter[row / 2] = static_cast<char>(filter.at(row / 2) | code << filterShift(row));
    }
    m_par->diFilter = filter;
    return true;
}
