// Widgets of the host library basemodule.
#pragma once

#include "baseservices.h"

#include <QComboBox>
#include <QIntValidator>
#include <QLineEdit>
#include <QSpinBox>

class BASEMODULE_EXPORT MLineEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit MLineEdit(QWidget *parent = nullptr);
};

class BASEMODULE_EXPORT MComboBoxEx : public QComboBox {
    Q_OBJECT
public:
    explicit MComboBoxEx(QWidget *parent = nullptr);
};

class BASEMODULE_EXPORT MSpinBoxEx : public QSpinBox {
    Q_OBJECT
public:
    explicit MSpinBoxEx(QWidget *parent = nullptr);
};

class BASEMODULE_EXPORT MSpinBoxDeadBand : public QSpinBox {
    Q_OBJECT
public:
    explicit MSpinBoxDeadBand(QWidget *parent = nullptr);
};

class BASEMODULE_EXPORT CustomIntValidator : public QIntValidator {
    Q_OBJECT
public:
    CustomIntValidator(int minimum, int maximum, QObject *parent = nullptr);
};
