#include "decimalspinbox.h"

#include <QLineEdit>

#include <cmath>

namespace {

QString withPoint(QString text)
{
    return text.replace(QLatin1Char(','), QLatin1Char('.'));
}

} // namespace

DecimalSpinBox::DecimalSpinBox(QWidget *parent) : QDoubleSpinBox(parent)
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(locale.numberOptions() | QLocale::RejectGroupSeparator);
    setLocale(locale);
    const auto setEdited = [this] { m_isEdited = true; };
    connect(lineEdit(), &QLineEdit::textEdited, this, setEdited);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, setEdited);
}

void DecimalSpinBox::showStored(float stored)
{
    setValue(std::isnan(stored) ? minimum() : static_cast<double>(stored));
    m_stored = stored;
    m_isEdited = false;
}

float DecimalSpinBox::toStore() const
{
    return m_isEdited ? static_cast<float>(value()) : m_stored;
}

void DecimalSpinBox::edit(double value)
{
    setValue(value);
    m_isEdited = true;
}

QValidator::State DecimalSpinBox::validate(QString &text, int &position) const
{
    QString withoutComma = withPoint(text); // a change of the text itself would clear the undo history
    return QDoubleSpinBox::validate(withoutComma, position);
}

double DecimalSpinBox::valueFromText(const QString &text) const
{
    return QDoubleSpinBox::valueFromText(withPoint(text));
}
