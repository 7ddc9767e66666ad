// Measures how a dialog is painted: truncated texts, misplaced widgets, the place of painted text.
#pragma once

#include <QtWidgets>

namespace looks {

constexpr QSize largeWindow(1400, 900);

/// A text of a widget, the size that it needs and the size that it has.
struct Shown {
    QString text;
    QSize needed;
    QSize given;
};

/// Returns the size of the painted text, because the height of QFontMetrics does not include the Chinese fallback font.
inline QSize inkSize(const QFontMetrics &metrics, const QString &text)
{
    return {metrics.horizontalAdvance(text), metrics.tightBoundingRect(text).height()};
}

/// Returns the text and the sizes of a visible widget; an empty text for a widget that has none.
inline Shown shownOf(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        const QSize hint = label->sizeHint();
        return {label->text(), label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : hint,
                label->size()};
    }
    if (const auto *box = qobject_cast<const QComboBox *>(&widget)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        const QRect field =
            box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
        Shown shown{{}, {}, field.size()};
        for (int i = 0; i < box->count(); ++i) {
            shown.needed = shown.needed.expandedTo(inkSize(box->fontMetrics(), box->itemText(i)));
            shown.text += (i == 0 ? "" : "|") + box->itemText(i);
        }
        return shown;
    }
    if (const auto *edit = qobject_cast<const QLineEdit *>(&widget)) {
        constexpr int margins = 5; // of QLineEdit, and its cursor
        QStyleOptionFrame option;
        option.initFrom(edit);
        option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
        return {edit->text(), inkSize(edit->fontMetrics(), edit->text()) + QSize(margins, 0),
                edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit).size()};
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
        return {button->text(), button->minimumSizeHint(), button->size()};
    }
    if (const auto *group = qobject_cast<const QGroupBox *>(&widget)) {
        return {group->title(), {group->minimumSizeHint().width(), 0}, group->size()};
    }
    if (const auto *bar = qobject_cast<const QTabBar *>(&widget)) {
        return {bar->tabText(0), bar->sizeHint(), bar->size()};
    }
    if (const auto *tree = qobject_cast<const QTreeWidget *>(&widget)) {
        QStringList texts;
        for (const auto *item : tree->findItems({}, Qt::MatchContains | Qt::MatchRecursive)) {
            texts.append(item->text(0));
        }
        const QAbstractItemView *items = tree;
        return {texts.join('|'), {items->sizeHintForColumn(0), 0}, tree->viewport()->size()};
    }
    return {};
}

/// Returns the texts of all visible widgets, and the titles of tables.
inline QVector<Shown> shownTexts(const QWidget &dialog)
{
    QVector<Shown> shown;
    for (const auto *widget : dialog.findChildren<QWidget *>()) {
        shown.append(widget->isVisible() ? shownOf(*widget) : Shown());
    }
    for (const auto *table : dialog.findChildren<QTableWidget *>()) {
        for (int column = 0; column < table->columnCount(); ++column) {
            shown.append({table->horizontalHeaderItem(column)->text(),
                          {table->horizontalHeader()->sectionSizeHint(column), 0},
                          {table->columnWidth(column), 0}});
        }
    }
    return shown;
}

/// Returns the misplaced widgets: outside a parent that does not scroll, or over a sibling; labels that are not in
/// front of their buddies; areas that scroll although the window has room for them.
inline QString misplacedWidgets(const QWidget &dialog)
{
    QString misplaced;
    const bool hasRoom = dialog.height() >= largeWindow.height();
    for (const auto *widget : dialog.findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->isWindow()) {
            continue;
        }
        const auto note = [&](bool isWrong, const char *what, const QWidget *other) {
            if (isWrong) {
                QDebug(&misplaced) << widget << what << other << ';';
            }
        };
        const QWidget *const parent = widget->parentWidget();
        const bool scrolls = qobject_cast<const QAbstractScrollArea *>(parent->parentWidget()) != nullptr;
        note(!scrolls && !parent->rect().contains(widget->geometry()), "is not inside of", parent);
        const auto *const area = qobject_cast<const QAbstractScrollArea *>(widget);
        const bool canScroll = area != nullptr && area->verticalScrollBar()->maximum() > 0;
        note(hasRoom && canScroll && area->height() < dialog.height() / 2, "scrolls in the large", &dialog);
        const auto *const label = qobject_cast<const QLabel *>(widget);
        const QWidget *const buddy = label != nullptr ? label->buddy() : nullptr;
        const QRect led = buddy != nullptr ? buddy->geometry() : QRect();
        const bool isBefore = buddy == nullptr || led.left() > widget->geometry().right();
        const bool isBeside = buddy == nullptr || led.contains(led.left(), widget->geometry().center().y());
        note(!isBefore || !isBeside, "is not in front of", buddy);
        for (const QObject *child : parent->children()) {
            const auto *const other = qobject_cast<const QWidget *>(child);
            const bool counts = other > widget && other->isVisible() && (label == nullptr || !label->text().isEmpty());
            note(counts && other->geometry().intersects(widget->geometry()), "covers", other);
        }
    }
    return misplaced;
}

inline QString cutTexts(const QWidget &dialog)
{
    QString cut;
    for (const Shown &shown : shownTexts(dialog)) {
        if (shown.needed.width() > shown.given.width() || shown.needed.height() > shown.given.height()) {
            QDebug(&cut) << shown.text << "needs" << shown.needed << "has" << shown.given << ';';
        }
    }
    return cut;
}

/// Returns the place of the painted text inside of @p widget, in pixels of @p image.
inline QRect inkOf(const QImage &image, const QWidget &widget)
{
    constexpr int frame = 4; // of fields
    const QRect inside =
        QRect(widget.mapTo(widget.window(), QPoint()), widget.size()).adjusted(0, frame, -frame, -frame);
    const int background = qGray(image.pixel(inside.bottomRight()));
    QRect ink;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left() + frame; x <= inside.right(); ++x) {
            if (qAbs(qGray(image.pixel(x, y)) - background) > 100) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

} // namespace looks
