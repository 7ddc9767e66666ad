// The value field of the analog output table page.
#pragma once

#include <QLineEdit>

/// Keeps a user from typing 32768, the first number beyond 16 signed bits. Only that: everything else is left to
/// the validator and to the conversion on saving.
class LineEdit : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
