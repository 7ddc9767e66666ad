// The table of a page with one row per channel.
#pragma once

#include <QStandardItem>
#include <QTableWidget>

#include <map>
#include <utility>

class ChoiceList;
class QComboBox;

/// A table of editors. The first column and the row headers show the channel numbers, from 0, and are read-only.
class ChannelTable : public QTableWidget {
public:
    enum ItemData { NoData, Codes };

    /// @p titles contains the titles of all columns, including the first.
    ChannelTable(int channels, const QStringList &titles, QWidget *parent = nullptr);

    /// Returns a combo box without a selection, for setEditor(). Its items are the texts of @p choices, with their
    /// codes as item data if @p itemData is Codes.
    QComboBox *newComboBox(const ChoiceList &choices, ItemData itemData);

    /// The table becomes the owner of @p editor, which should be created with viewport() as parent, because a change of
    /// the parent takes half as long as placing the editor.
    void setEditor(int channel, int column, QWidget *editor);

    /// Makes every column as wide as its title and its editors need. Only the editors of the channels @p samples are
    /// measured, because measuring an editor takes longer than building it. @p minimumWidths is by column, in pixels,
    /// and may have fewer elements than there are columns.
    void fitToContents(const QVector<int> &samples, const QVector<int> &minimumWidths = {});

protected:
    /// Keeps the selected channels at a right click on an editor, because the actions of its menu apply to them. An
    /// editor that ignores a button passes the event to the table.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;

private:
    /// Returns the items of a list. Those of every row are copies of them.
    const QStandardItem &itemsOf(const ChoiceList &choices, ItemData itemData);

    std::map<std::pair<const ChoiceList *, ItemData>, QStandardItem> m_items;
};
