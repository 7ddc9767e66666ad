// A word-wrapped text that is never cut.
#pragma once

#include <QLabel>

/// Layouts ask how high a wrapped text must be for a width, but windows, tabs and stacks do not keep to the answer
/// when they are made smaller. This label's least height follows its width.
class WrappedLabel : public QLabel {
public:
    explicit WrappedLabel(const QString &text, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fitHeight();
};
