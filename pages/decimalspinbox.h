// The sensitivity field of the weighing page.
#pragma once

#include <QDoubleSpinBox>

/// Accepts both "." and "," as the decimal sign in every locale, and no group separators. Shows ".".
///
/// Its limits and decimals may change a stored value when it is shown, so the stored value is kept until the field is
/// edited.
class DecimalSpinBox : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit DecimalSpinBox(QWidget *parent = nullptr);

    /// Shows @p stored, or the nearest value that the field can show; the minimum for NaN.
    void showStored(float stored);
    /// Returns the bits of the last showStored() until the user types, steps or another value is set; afterwards the
    /// value that is shown.
    float toStore() const;

    QValidator::State validate(QString &text, int &position) const override;
    double valueFromText(const QString &text) const override;

private:
    float m_stored = 0;
    bool m_isEdited = true;
};
