// The scroll area of a page, without frame and background, so that its contents look like a part of the page.
#pragma once

#include <QScrollArea>
#include <QVector>

class QGridLayout;
class QVBoxLayout;

/// The only scroll area of a page, which contains everything on it. The headings of the channels stay in view while
/// the channels scroll.
class PageArea : public QScrollArea {
    Q_OBJECT
public:
    /// Fills @p page, which has no layout yet.
    explicit PageArea(QWidget *page);

    QVBoxLayout *contentLayout() const { return m_contentLayout; }
    /// Keeps the first row of @p rows in view while the other rows scroll under it. @p rows is a layout of the contents
    /// and complete.
    void keepHeadings(QGridLayout *rows);
    /// Scrolls until @p editor, which is one of the contents, is visible and not under the headings.
    void showEditor(QWidget *editor);

    /// As wide as the contents need, because only the height of the page may scroll.
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// Returns the place of the headings in the unscrolled page.
    QRect headingRow() const;
    /// Returns how far the headings are below that place, in pixels.
    int headingOffset() const;
    void placeHeadings();

    QVBoxLayout *m_contentLayout;
    QGridLayout *m_rows = nullptr;
    QVector<QWidget *> m_headings;
    QVector<QWidget *> m_cells; ///< the widgets of the other rows
};
