#include "dragpicture.h"

#include <QAbstractItemDelegate>
#include <QPainter>
#include <QTableView>

QPixmap dragPicture(const QTableView &view, int modules)
{
    constexpr qreal scale = 0.6;
    constexpr qreal opacity = 0.7;
    constexpr int padding = 5; // px beside the number
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.state &= ~QStyle::State_MouseOver; // marks the slot of a drop
    option.rect = QRect({}, view.visualRect(view.currentIndex()).size());
    const QRect whole({}, option.rect.size() * scale);
    QPixmap picture(whole.size() * view.devicePixelRatioF());
    picture.setDevicePixelRatio(view.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(opacity);
    painter.scale(scale, scale);
    view.itemDelegate()->paint(&painter, option, view.currentIndex());
    if (modules > 1) {
        painter.resetTransform();
        painter.setOpacity(1);
        const QString count = QString::number(modules);
        QRect badge({}, view.fontMetrics().size(Qt::TextSingleLine, count).grownBy({padding, 1, padding, 1}));
        badge.moveBottomRight(whole.bottomRight());
        painter.fillRect(badge, view.palette().highlight());
        painter.setPen(view.palette().color(QPalette::HighlightedText));
        painter.setFont(view.font());
        painter.drawText(badge, Qt::AlignCenter, count);
    }
    return picture;
}
