#include "propertiesdialog.h"

#include "windowsize.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

constexpr int maximumLine = 200; // characters

QLineEdit *lineEdit(const char *objectName, const QString &text)
{
    auto *edit = new QLineEdit(text);
    edit->setObjectName(QLatin1String(objectName));
    edit->setMaxLength(maximumLine);
    return edit;
}

} // namespace

ProjectPropertiesDialog::ProjectPropertiesDialog(const ProjectProperties &properties, QWidget *parent)
    : QDialog(parent),
      m_title(lineEdit("titleEdit", properties.title)),
      m_author(lineEdit("authorEdit", properties.author)),
      m_revision(lineEdit("revisionEdit", properties.revision)),
      m_notes(new QPlainTextEdit(properties.notes))
{
    setObjectName(QStringLiteral("projectPropertiesDialog"));
    setWindowTitle(tr("Project Properties"));
    m_notes->setObjectName(QStringLiteral("notesEdit"));
    m_notes->setTabChangesFocus(true);
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Title:"), m_title);
    form->addRow(tr("&Author:"), m_author);
    form->addRow(tr("&Revision:"), m_revision);
    form->addRow(tr("&Notes:"), m_notes);
    form->addRow(buttons);
    resizeToFit(*this, {fontMetrics().averageCharWidth() * 70, fontMetrics().height() * 18});
}

ProjectProperties ProjectPropertiesDialog::properties() const
{
    return {m_title->text(), m_author->text(), m_revision->text(), m_notes->toPlainText()};
}
