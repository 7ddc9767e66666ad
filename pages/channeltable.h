// The table of a page that has a row per channel.
#pragma once

#include <QTableWidget>

class ChoiceList;
class QComboBox;

/// Rows of editors. The first column and the row headers show the channel numbers, from 0, and are not edited.
class ChannelTable : public QTableWidget {
public:
    /// @p titles are those of all columns, the first one included.
    ChannelTable(int channels, const QStringList &titles, QWidget *parent = nullptr);

    /// A combo box with the texts of @p choices and no selection, for setEditor().
    QComboBox *newComboBox(const ChoiceList &choices);

    /// The table becomes the parent of @p editor, which best has viewport() for its parent from the outset: to move a
    /// widget costs half as much again as to place it.
    void setEditor(int channel, int column, QWidget *editor);

    /// Makes every column as wide as its title and its editors need, and at least as wide as @p leastWidths says
    /// (by column, pixels; may be shorter than the columns). The editors of @p samples, channels, stand for those
    /// of all rows, since asking each would cost more than building it.
    void fitToContents(const QVector<int> &samples, const QVector<int> &leastWidths = {});

private:
    QHash<const ChoiceList *, QStringList> m_texts; ///< of every list in use, made once for all rows
};
