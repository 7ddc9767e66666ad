// The note beside the dialog's buttons.
#pragma once

#include "wrappedlabel.h"

/// A blue text of one line, or of about two in a narrow window. If the window is too dark for blue, the label has a
/// white background.
class NoteLabel : public WrappedLabel {
public:
    explicit NoteLabel(const QString &text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_plainText;
};
