// The sensitivity field of the weighing page.
#pragma once

#include <QDoubleSpinBox>

/// Accepts both "." and "," as the decimal sign in every locale, and no group separators. Shows ".".
///
/// Limits and decimals may change a stored value when it is shown. The stored value therefore stays until the field is
/// edited.
class DecimalSpinBox : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit DecimalSpinBox(QWidget *parent = nullptr);

    /// Shows the value nearest to @p stored that the field can show; the minimum for NaN.
    void showStored(float stored);
    /// Returns the value of the last showStored(), bit by bit, until the user types or steps or another value is set;
    /// afterwards the shown value.
    float toStore() const;

    QValidator::State validate(QString &text, int &position) const override;
    double valueFromText(const QString &text) const override;

private:
    float m_stored = 0;
    bool m_isEdited = true;
};
