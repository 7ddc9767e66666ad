#include "problemmodel.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace {

QString kindText(Problem::Kind kind)
{
    switch (kind) {
    case Problem::Kind::Module:
        return ProblemModel::tr("Module");
    case Problem::Kind::Address:
        return ProblemModel::tr("Address");
    case Problem::Kind::Description:
        return ProblemModel::tr("Description file");
    case Problem::Kind::Recovery:
        break;
    }
    return ProblemModel::tr("Recovery copy");
}

} // namespace

void ProblemModel::setProblems(std::vector<Problem> problems)
{
    beginResetModel();
    m_problems = std::move(problems);
    endResetModel();
}

int ProblemModel::rowOf(const Problem &problem) const
{
    const auto found = std::find(m_problems.begin(), m_problems.end(), problem);
    return found == m_problems.end() ? -1 : static_cast<int>(found - m_problems.begin());
}

int ProblemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_problems.size());
}

QVariant ProblemModel::data(const QModelIndex &index, int role) const
{
    const Problem &problem = at(index.row());
    if (role == Qt::ToolTipRole) {
        return problem.file.isEmpty() ? problem.text
                                      : QDir::toNativeSeparators(problem.file) + QLatin1Char('\n') + problem.text;
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    return index.column() == 0 ? kindText(problem.kind) : index.column() == 1 ? whereText(problem) : problem.text;
}

QVariant ProblemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == 0 ? tr("Kind") : section == 1 ? tr("Where") : tr("Problem");
}
