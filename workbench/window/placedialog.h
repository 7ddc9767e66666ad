// Asks for the rack and the slot to which a module is moved.
#pragma once

#include "station.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QSpinBox;

class PlaceDialog : public QDialog {
    Q_OBJECT
public:
    /// @p station must outlive the dialog. @p index identifies the module.
    PlaceDialog(const Station &station, int index, QWidget *parent);

    Place place() const;

private:
    void showOccupant();

    const Station &m_station;
    int m_index;
    QSpinBox *m_rack;
    QSpinBox *m_slot;
    QLabel *m_occupant;
    QPushButton *m_ok;
};
