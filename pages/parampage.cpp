#include "parampage.h"

#include "editorguard.h"
#include "sidebutton.h"
#include "wrappedlabel.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPointer>

ParamPage::ParamPage(SimpleExtendPar *par, QWidget *parent) : QWidget(parent), m_par(par)
{
    if (parent != nullptr) {
        setWindowTitle(parent->windowTitle());
    }
}

void ParamPage::setUp()
{
    setObjectName(QString::fromLatin1(metaObject()->className()));
    initUI();
    fitToFont();
    new EditorGuard(this);
    initConnect();
    initData(m_par);
}

void ParamPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange) {
        return;
    }
    const auto comboBoxes = findChildren<QComboBox *>();
    for (QComboBox *editor : comboBoxes) {
        editor->setMinimumSize(editor->sizeHint()); // QComboBox keeps the minimum size of its first font
    }
    fitToFont();
}

bool ParamPage::refuse(QWidget *field, QMessageBox::Icon icon, const QString &text)
{
    emit signal_refused(field);
    // The host may destroy the page, and the box with it, while the box is open.
    const QPointer<QMessageBox> box = new QMessageBox(icon, windowTitle(), text, QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText); // the text may be the host's
    box->exec();
    delete box;
    return false;
}

QLabel *ParamPage::newDescription(const QString &text)
{
    auto *label = new WrappedLabel(text);
    label->setObjectName(QStringLiteral("descriptionLabel"));
    return label;
}

QPushButton *ParamPage::newButton(const QString &text, const QString &objectName)
{
    auto *button = new SideButton(text);
    button->setObjectName(objectName);
    return button;
}

QLabel *ParamPage::newLabel(const QString &text, QWidget *editor)
{
    auto *label = new QLabel(text);
    label->setBuddy(editor);
    return label;
}

void ParamPage::registerEditor(const char *stem, int channel, QWidget *editor)
{
    editor->setObjectName(QLatin1String(stem) + QLatin1Char('_') + QString::number(channel));
}

void ParamPage::registerEditor(const char *stem, int channel, QWidget *editor, const QString &title)
{
    registerEditor(stem, channel, editor);
    describeEditor(editor, tr("Channel %1, %2").arg(QString::number(channel), title));
}

void ParamPage::describeEditor(QWidget *editor, const QString &name)
{
    editor->setAccessibleName(name);
    const QString limits = editor->toolTip();
    editor->setAccessibleDescription(limits.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, limits));
}

void DefaultsPage::initConnect()
{
    connect(m_btnDefault, &QPushButton::clicked, this, &DefaultsPage::slot_btnDefault_clicked);
}

QPushButton *DefaultsPage::newDefaultsButton()
{
    m_btnDefault = newButton(tr("Defaults"), QStringLiteral("defaultsButton"));
    return m_btnDefault;
}

void DefaultsPage::addDefaultsButton(QBoxLayout *layout)
{
    layout->addWidget(newDefaultsButton(), 0, Qt::AlignRight);
}

RecordDefaultsPage::RecordDefaultsPage(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, parent), m_defaultPar(defaultPar)
{
}

void RecordDefaultsPage::slot_btnDefault_clicked()
{
    if (m_defaultPar == nullptr) {
        m_defaultPar = emit signal_requestDefaultPar();
    }
    if (m_defaultPar != nullptr) {
        initData(m_defaultPar);
    }
}
