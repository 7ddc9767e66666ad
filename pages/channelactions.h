// Changes one parameter of many channels, and moves the keyboard focus from channel to channel.
#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

#include <vector>

class DefaultsPage;
class QAction;
class QKeyEvent;
class QPoint;
class QTableWidget;
class QVariant;
class QWidget;

/// Actions for the editors of a page with channels. The editors of one parameter form a column.
///
/// The page owns the actions, which have shortcuts while the focus is in the page. They are also in the context menus
/// of the editors. They act on the editor with the focus, or on the last one if the focus is in the page's table, where
/// the user selects channels. Each other editor changes as if the user had edited it; a disabled editor, or one
/// that does not offer the value, stays unchanged. A tool tip shows the result.
class ChannelActions : public QObject {
    Q_OBJECT
public:
    /// @p page owns the object and must have its table, if any, when connectTable() is called.
    explicit ChannelActions(DefaultsPage *page);

    /// Adds the editor of @p channel to the column @p stem, a string literal. The channels of a column are added in
    /// ascending order. @p editor must live as long as the page.
    void add(const char *stem, int channel, QWidget *editor);

    /// Starts to handle the menus and keys of all editors. Called once, when they are in their layout, because they
    /// receive many events before.
    void watchEditors();

    /// Restricts "Apply to All Channels" to the selected rows of @p table while two or more are selected.
    void connectTable(QTableWidget *table);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Cell {
        int channel;
        QWidget *editor;
    };
    using Cells = QVector<Cell>;
    struct Column {
        const char *stem;
        Cells cells; ///< by channel; a channel may have no such editor
    };
    /// Where an editor is; column is null for other widgets.
    struct Place {
        const Column *column = nullptr;
        int index = -1;
    };

    QAction *newAction(const char *name, const QString &text, const QString &shortcut, void (ChannelActions::*run)());
    Place placeOf(const QWidget *editor) const;
    Place currentPlace() const;
    QVector<int> selectedChannels() const;
    void nameApplyAction();

    void apply();
    void fillDown();
    void reset();
    void give(const Cells &cells, QWidget *source);
    void showMenu(QWidget *editor, const QPoint &place);
    bool moveFocus(const QWidget *editor, const QKeyEvent &key);

    DefaultsPage *m_page;
    std::vector<Column> m_columns;
    std::vector<QAction *> m_actions; ///< in the order of the context menu
    QTableWidget *m_table = nullptr;
    QPointer<QWidget> m_lastEditor; ///< the last one that had the focus
};

/// Returns the value of an editor: the text of a combo box or line edit, the number of a spin box, or the state of a
/// check box. Invalid if a combo box has no selection or the text is not acceptable.
QVariant editorValue(const QWidget &editor);
