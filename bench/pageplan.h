// The editors of a page, with which a benchmark builds a plain page.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

#include <algorithm>
#include <functional>
#include <vector>

/// The editor or the text at one place of a page's grid or table.
struct Cell {
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;
    std::function<QWidget *(QWidget *parent)> newEditor; ///< empty for a table cell with text
};

template <class Widget>
QWidget *newWidget(QWidget *parent)
{
    return new Widget(parent);
}

/// Returns a function that creates plain editors like @p widget; an empty function if @p widget is not an editor.
inline std::function<QWidget *(QWidget *parent)> makerOf(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        return [text = label->text()](QWidget *parent) { return new QLabel(text, parent); };
    }
    if (const auto *box = qobject_cast<const QCheckBox *>(widget)) {
        return [text = box->text()](QWidget *parent) { return new QCheckBox(text, parent); };
    }
    if (const auto *box = qobject_cast<const QComboBox *>(widget)) {
        QStringList texts;
        for (int i = 0; i < box->count(); ++i) {
            texts.append(box->itemText(i));
        }
        return [texts](QWidget *parent) {
            auto *editor = new QComboBox(parent);
            editor->addItems(texts);
            return editor;
        };
    }
    if (qobject_cast<const QLineEdit *>(widget) != nullptr) {
        return newWidget<QLineEdit>;
    }
    if (qobject_cast<const QDoubleSpinBox *>(widget) != nullptr) {
        return newWidget<QDoubleSpinBox>;
    }
    return qobject_cast<const QSpinBox *>(widget) != nullptr ? newWidget<QSpinBox>
                                                             : std::function<QWidget *(QWidget *)>();
}

/// The editors of a page, taken from the page itself, so the plain page changes with it.
struct Plan {
    QStringList titles; ///< of a table's columns; empty for a grid
    int rows = 0;
    std::vector<Cell> cells;
};

inline Plan planOfTable(const QTableWidget &table)
{
    Plan plan;
    plan.rows = table.rowCount();
    for (int column = 0; column < table.columnCount(); ++column) {
        plan.titles.append(table.horizontalHeaderItem(column)->text());
        for (int row = 0; row < plan.rows; ++row) {
            plan.cells.push_back({row, column, 1, 1, makerOf(table.cellWidget(row, column))});
        }
    }
    return plan;
}

inline Plan planOfGrid(const QGridLayout &grid)
{
    Plan plan;
    for (int i = 0; i < grid.count(); ++i) {
        Cell cell;
        grid.getItemPosition(i, &cell.row, &cell.column, &cell.rowSpan, &cell.columnSpan);
        cell.newEditor = makerOf(grid.itemAt(i)->widget());
        if (cell.newEditor) {
            plan.cells.push_back(cell);
        }
    }
    return plan;
}

inline Plan planOf(const QWidget &page)
{
    if (const auto *table = page.findChild<QTableWidget *>()) {
        return planOfTable(*table);
    }
    Plan largest;
    const auto grids = page.findChildren<QGridLayout *>();
    for (const QGridLayout *grid : grids) {
        Plan plan = planOfGrid(*grid);
        if (plan.cells.size() > largest.cells.size()) {
            largest = std::move(plan);
        }
    }
    return largest;
}
