// The table of a page that has a row per channel.
#pragma once

#include <QStandardItem>
#include <QTableWidget>

#include <map>
#include <utility>

class ChoiceList;
class QComboBox;

/// Rows of editors. The first column and the row headers show the channel numbers, from 0, and are not edited.
class ChannelTable : public QTableWidget {
public:
    enum ItemData { NoData, Codes };

    /// @p titles are those of all columns, the first one included.
    ChannelTable(int channels, const QStringList &titles, QWidget *parent = nullptr);

    /// A combo box without a selection, for setEditor(). It offers the texts of @p choices, with their codes if
    /// @p itemData says so.
    QComboBox *newComboBox(const ChoiceList &choices, ItemData itemData);

    /// The table becomes the parent of @p editor, which had better be made with viewport() for a parent: moving it
    /// there costs half of what placing it does.
    void setEditor(int channel, int column, QWidget *editor);

    /// Makes every column as wide as its title and its editors need, and at least as wide as @p leastWidths says
    /// (by column, pixels; may be shorter than the columns). The editors of @p samples, channels, stand for those
    /// of all rows, since asking each would cost more than building it.
    void fitToContents(const QVector<int> &samples, const QVector<int> &leastWidths = {});

private:
    /// The items of a list, which those of every row are copies of.
    const QStandardItem &itemsOf(const ChoiceList &choices, ItemData itemData);

    std::map<std::pair<const ChoiceList *, ItemData>, QStandardItem> m_items;
};
