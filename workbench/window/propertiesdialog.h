// Edits what a user writes about a project.
#pragma once

#include "project.h"

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;

class ProjectPropertiesDialog : public QDialog {
    Q_OBJECT
public:
    ProjectPropertiesDialog(const ProjectProperties &properties, QWidget *parent);

    ProjectProperties properties() const;

private:
    QLineEdit *m_title;
    QLineEdit *m_author;
    QLineEdit *m_revision;
    QPlainTextEdit *m_notes;
};
