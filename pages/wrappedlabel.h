// A word-wrapped text that is never truncated.
#pragma once

#include <QLabel>

/// A label whose minimum height is the height that its text needs at the current width. Layouts respect
/// heightForWidth(), but windows, tabs and stacks ignore it when they shrink.
class WrappedLabel : public QLabel {
public:
    explicit WrappedLabel(const QString &text, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fitHeight();
};
