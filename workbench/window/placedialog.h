// Asks for the rack and slot of a module.
#pragma once

#include "station.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QSpinBox;

class PlaceDialog : public QDialog {
    Q_OBJECT
public:
    /// @p station must outlive the dialog, @p index names the module to be moved.
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
