// Problems as a table: where and what.
#pragma once

#include "problems.h"

#include <QAbstractTableModel>

class ProblemModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setProblems(std::vector<Problem> problems);
    /// The row of an equal problem, or -1.
    int rowOf(const Problem &problem) const;
    const Problem &at(int row) const { return m_problems[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : 3; }
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<Problem> m_problems;
};
