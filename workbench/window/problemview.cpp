#include "problemview.h"

#include "station.h"
#include "textfiledialog.h"
#include "wrappedcolumn.h"

#include <QEvent>
#include <QHeaderView>

#include <utility>

namespace {

constexpr int refreshDelay = 100; // ms

} // namespace

ProblemView::ProblemView(std::vector<Problem> descriptions, QWidget *parent)
    : QTreeView(parent), m_descriptions(std::move(descriptions)), m_model(new ProblemModel(this))
{
    setObjectName(QStringLiteral("problemView"));
    setModel(m_model);
    setRootIsDecorated(false);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    wrapLastColumn(*this);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(this, &QTreeView::activated, this, &ProblemView::showPlace);
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(refreshDelay);
    connect(&m_refresh, &QTimer::timeout, this, &ProblemView::refresh);
    retranslate();
}

void ProblemView::setStation(const Station *station)
{
    if (m_station != nullptr) {
        m_station->disconnect(this);
    }
    m_station = station;
    const auto later = [this] { m_refresh.start(); };
    for (const auto signal : {&Station::moduleAdded, &Station::moduleRemoved, &Station::moduleChanged}) {
        connect(m_station, signal, this, later);
    }
    connect(m_station, &Station::moduleMoved, this, later);
    connect(m_station, &Station::plcTypeChanged, this, later);
    refresh();
}

void ProblemView::setRecoveryProblem(const QString &reason)
{
    m_recoveryProblem = reason;
    refresh();
}

void ProblemView::refresh()
{
    std::vector<Problem> problems = problemsOf(*m_station);
    problems.insert(problems.end(), m_descriptions.begin(), m_descriptions.end());
    if (!m_recoveryProblem.isEmpty()) {
        problems.push_back({Problem::Kind::Recovery,
                            tr("Unsaved changes are lost if the program fails. Save often. %1").arg(m_recoveryProblem),
                            {},
                            {},
                            0});
    }
    const std::optional<Problem> selected =
        currentIndex().isValid() ? std::optional(m_model->at(currentIndex().row())) : std::nullopt;
    m_model->setProblems(std::move(problems));
    if (selected) {
        setCurrentIndex(m_model->index(m_model->rowOf(*selected), 0));
    }
    emit countChanged(count());
}

void ProblemView::showPlace(const QModelIndex &index)
{
    const Problem &problem = m_model->at(index.row());
    if (problem.place) {
        emit placeRequested(*problem.place);
    } else if (!problem.file.isEmpty()) {
        (new TextFileDialog(problem.file, problem.line, this))->show();
    }
}

void ProblemView::retranslate()
{
    setAccessibleName(tr("Problems"));
    if (m_station != nullptr) {
        refresh();
        emit m_model->headerDataChanged(Qt::Horizontal, 0, m_model->columnCount() - 1);
    }
}

void ProblemView::changeEvent(QEvent *event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}
