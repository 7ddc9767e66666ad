// The table of a page that has a row per channel.
#pragma once

#include <QTableWidget>

/// Rows of editors. The first column shows the channel numbers, from 0, and is not edited.
class ChannelTable : public QTableWidget {
public:
    /// @p titles are those of all columns, the first one included.
    ChannelTable(int channels, const QStringList &titles, QWidget *parent = nullptr);

    /// The table becomes the parent of @p editor.
    void setEditor(int channel, int column, QWidget *editor);

    /// Makes every column as wide as its title and its editors need, and at least as wide as @p leastWidths says
    /// (by column, pixels; may be shorter than the columns). The editors of @p samples, channels, stand for those
    /// of all rows, since asking each would cost more than building it.
    void fitToContents(const QVector<int> &samples, const QVector<int> &leastWidths = {});
};
