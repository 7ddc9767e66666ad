#include "basewidgets.h"

MLineEdit::MLineEdit(QWidget *parent) : QLineEdit(parent) {}

MComboBoxEx::MComboBoxEx(QWidget *parent) : QComboBox(parent) {}

MSpinBoxEx::MSpinBoxEx(QWidget *parent) : QSpinBox(parent) {}

MSpinBoxDeadBand::MSpinBoxDeadBand(QWidget *parent) : QSpinBox(parent) {}

CustomIntValidator::CustomIntValidator(int minimum, int maximum, QObject *parent)
    : QIntValidator(minimum, maximum, parent)
{
}
