// Shows the differences between the station and another project.
#pragma once

#include "projectcompare.h"

#include <QDialog>

class QTreeWidget;

/// Deletes itself when it is closed.
class CompareDialog : public QDialog {
    Q_OBJECT
public:
    /// @p left is the present station with the title @p leftName.
    CompareDialog(const Project &left, const QString &leftName, const Project &right, const QString &rightName,
                  QWidget *parent);

signals:
    /// The user double-clicked a difference of the module at @p place of the station.
    void moduleChosen(Place place);

private:
    void addDifference(const ProjectDifference &difference);
    void copy() const;

    QVector<ProjectDifference> m_differences;
    QString m_leftName;
    QString m_rightName;
    QTreeWidget *m_list;
};
