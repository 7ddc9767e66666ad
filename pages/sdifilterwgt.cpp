#include "sdifilterwgt.h"

#include "choices.h"
#include "simpleextendpar.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int inputsPerRow = 4;
constexpr quint8 factoryCode = 5;

/// Rows count from the first input of the module, whatever its address is.
QString rowText(int row)
{
    const QString text = row % 2 == 0 ? QStringLiteral("I%1.0 - I%2.3") : QStringLiteral("I%1.4 - I%2.7");
    return text.arg(row / 2).arg(row / 2);
}

/// The even row of a byte is its low half, the odd one its high half.
int rowShift(int row)
{
    return row % 2 * 4;
}

/// 0 beyond the end of @p filter.
int storedCode(const QByteArray &filter, int row)
{
    return row / 2 < filter.size() ? static_cast<quint8>(filter.at(row / 2)) >> rowShift(row) & 0x0F : 0;
}

} // namespace

SDIFilterWgt::SDIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SDIFilterWgt::initUI()
{
    auto *group = new QGroupBox(tr("Input Filter Delays"));
    auto *rows = new QWidget;
    auto *grid = new QGridLayout(rows);
    grid->setColumnStretch(1, 1);
    const QStringList delays = choices::digitalFilterDelays.texts();
    const int rowCount = (m_par->diCount + inputsPerRow - 1) / inputsPerRow;
    for (int row = 0; row < rowCount; ++row) {
        auto *filter = new QComboBox(rows);
        filter->addItems(delays);
        filter->setCurrentIndex(factoryCode);
        filter->setObjectName(QStringLiteral("filter_%1").arg(row));
        describeEditor(filter, rowText(row) + QStringLiteral(", ") + group->title());
        auto *label = newLabel(rowText(row), filter);
        label->setObjectName(QStringLiteral("filterLabel_%1").arg(row));
        grid->addWidget(label, row, 0);
        grid->addWidget(filter, row, 1);
        m_filters.append(filter);
    }

    auto *groupLayout = new QVBoxLayout(group);
    groupLayout->setContentsMargins(50, 9, 50, 9);
    // The missing blank is part of the text, which the translations know it by.
    groupLayout->addWidget(newDescription(
        tr("You can select the time that the input must remain constant before the signalis caught by the PLC.")));
    groupLayout->addWidget(newRowArea(rows), 1);
    addDefaultsButton(groupLayout);
    QVBoxLayout *layout = newPageLayout();
    layout->addWidget(group);
}

void SDIFilterWgt::initData(SimpleExtendPar *par)
{
    if (par->diCount == 0) {
        return;
    }
    // Rows beyond the end of a short filter keep the delay that they show.
    const int stored = qMin(m_filters.size(), par->diFilter.size() * 2);
    for (int row = 0; row < stored; ++row) {
        // A code above the last choice leaves its box without a selection.
        m_filters.at(row)->setCurrentIndex(storedCode(par->diFilter, row));
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
        // Without a selection the code that has no choice stays as it is stored.
        const int code = selected < 0 ? storedCode(m_par->diFilter, row) : selected;
        filter[row / 2] = static_cast<char>(filter.at(row / 2) | code << rowShift(row));
    }
    m_par->diFilter = filter;
    return true;
}
