// The sensitivity field of the weighing page.
#pragma once

#include <QDoubleSpinBox>

/// Accepts both "." and "," as the decimal sign in every locale, and no group separators. Shows ".".
///
/// Limits and decimals may change a stored value when it is shown. The stored value therefore stays until the field is
/// edited.
class DecimalSpinBox : public QDoubleSpinBox {
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE edit USER true)
public:
    explicit DecimalSpinBox(QWidget *parent = nullptr);

    /// Shows the value nearest to @p stored that the field can show; the minimum for NaN.
    void showStored(float stored);
    /// Returns the value of the last showStored(), bit by bit, until the user types or steps or another value is set;
    /// afterwards the shown value.
    float toStore() const;

    /// Sets the value as if the user had typed it, so it is stored even if it was shown before.
    void edit(double value);

    QValidator::State validate(QString &text, int &position) const override;
    double valueFromText(const QString &text) const override;

private:
    float m_stored = 0;
    bool m_isEdited = true;
};
