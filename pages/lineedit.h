// The value field of the analog output table page.
#pragma once

#include <QLineEdit>

/// Ignores the key that would complete 32768, the first number above the 16-bit range. The validator and the conversion
/// on saving handle all other texts.
class LineEdit : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
