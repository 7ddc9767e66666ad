// Lists the problems of the station and the catalog. A double click leads to the place of a problem.
#pragma once

#include "problemmodel.h"

#include <QTimer>
#include <QTreeView>

class ProblemView : public QTreeView {
    Q_OBJECT
public:
    /// @p descriptions are the problems of the catalog, which do not change.
    ProblemView(std::vector<Problem> descriptions, QWidget *parent);

    /// Follows @p station, which must outlive the view or the next call.
    void setStation(const Station *station);
    /// Why no recovery copy can be written; empty if it can.
    void setRecoveryProblem(const QString &reason);
    int count() const { return m_model->rowCount(); }

signals:
    void countChanged(int count);
    /// The user wants to see the module at @p place.
    void placeRequested(Place place);

protected:
    void changeEvent(QEvent *event) override;

private:
    void refresh();
    void showPlace(const QModelIndex &index);
    void retranslate();

    const std::vector<Problem> m_descriptions;
    ProblemModel *m_model;
    const Station *m_station = nullptr;
    QString m_recoveryProblem;
    QTimer m_refresh; ///< one refresh for many changes
};
