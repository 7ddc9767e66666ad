// The check boxes of the pages.
#pragma once

#include <QCheckBox>
#include <QPainter>
#include <QStyleOptionButton>

/// A check box that is visible on a dark window, where the frames of some styles are darker than the window.
class CheckBox : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QCheckBox::paintEvent(event);
        QColor frame = palette().color(QPalette::WindowText);
        if (frame.lightness() <= palette().color(QPalette::Window).lightness()) {
            return;
        }
        frame.setAlphaF(0.6);
        QStyleOptionButton option;
        initStyleOption(&option);
        const QRect indicator = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
        QPainter painter(this);
        painter.setPen(frame);
        painter.drawRect(indicator.adjusted(0, 0, -1, -1));
    }
};
