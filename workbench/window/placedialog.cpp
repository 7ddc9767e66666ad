#include "placedialog.h"

#include "windowsize.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace {

constexpr int widestCharacters = 80; // of a text with the name of a module, which a project does not limit

} // namespace

PlaceDialog::PlaceDialog(const Station &station, int index, QWidget *parent)
    : QDialog(parent),
      m_station(station),
      m_index(index),
      m_rack(new QSpinBox(this)),
      m_slot(new QSpinBox(this)),
      m_occupant(new QLabel(this))
{
    const ModuleSummary module = station.module(index);
    setObjectName(QStringLiteral("placeDialog"));
    m_rack->setObjectName(QStringLiteral("rackSpin"));
    m_slot->setObjectName(QStringLiteral("slotSpin"));
    m_occupant->setObjectName(QStringLiteral("occupantLabel"));
    m_occupant->setTextFormat(Qt::PlainText); // a name may contain a tag
    setWindowTitle(tr("Move %1").arg(titleText(module.name)));
    m_rack->setRange(0, Place::rackCount - 1);
    m_rack->setValue(module.place.rack);
    m_slot->setRange(0, Place::slotCount - 1);
    m_slot->setValue(module.place.slot);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setText(tr("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Rack:"), m_rack);
    form->addRow(tr("&Slot:"), m_slot);
    form->addRow(m_occupant);
    form->addRow(buttons);
    // Not a minimum of the label, because it would replace the width of the label's text.
    m_rack->setMinimumWidth(m_rack->fontMetrics().averageCharWidth() * 36);

    connect(m_rack, QOverload<int>::of(&QSpinBox::valueChanged), this, &PlaceDialog::showOccupant);
    connect(m_slot, QOverload<int>::of(&QSpinBox::valueChanged), this, &PlaceDialog::showOccupant);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showOccupant();
}

Place PlaceDialog::place() const
{
    return {m_rack->value(), m_slot->value()};
}

void PlaceDialog::showOccupant()
{
    const bool isPresentSlot = m_station.moduleAt(place()) == m_index;
    const Result<> free = m_station.checkFree(place());
    m_ok->setEnabled(free || isPresentSlot);
    const QString text = isPresentSlot ? tr("The module's present slot.")
                         : free        ? tr("This slot is free.")
                                       : free.reason();
    const int widest = widestCharacters * fontMetrics().averageCharWidth();
    m_occupant->setText(fontMetrics().elidedText(text, Qt::ElideRight, widest));
    m_occupant->setToolTip(text);
}
