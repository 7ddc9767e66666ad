#include "parampage.h"

#include "wrappedlabel.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include <algorithm>

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
    // A wheel that passes over an editor while the page scrolls must not change its value.
    const auto guardWheel = [this](QWidget *editor) {
        editor->setFocusPolicy(Qt::StrongFocus);
        editor->installEventFilter(this);
    };
    const auto spinBoxes = findChildren<QAbstractSpinBox *>();
    const auto comboBoxes = findChildren<QComboBox *>();
    std::for_each(spinBoxes.begin(), spinBoxes.end(), guardWheel);
    std::for_each(comboBoxes.begin(), comboBoxes.end(), guardWheel);
    initConnect();
    initData(m_par);
}

bool ParamPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget *>(watched)->hasFocus()) {
        return QWidget::eventFilter(watched, event);
    }
    event->ignore(); // what is around the editor scrolls instead
    return true;
}

bool ParamPage::refuse(QWidget *field, QMessageBox::Icon icon, const QString &text)
{
    emit signal_refused(field);
    QMessageBox box(icon, windowTitle(), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // the text may be the host's
    box.exec();
    return false;
}

QLabel *ParamPage::newDescription(const QString &text)
{
    auto *label = new WrappedLabel(text);
    label->setObjectName(QStringLiteral("descriptionLabel"));
    return label;
}

QPushButton *ParamPage::newDefaultsButton()
{
    m_btnDefault = new QPushButton(tr("Defaults"));
    m_btnDefault->setObjectName(QStringLiteral("defaultsButton"));
    return m_btnDefault;
}

QLabel *ParamPage::newLabel(const QString &text, QWidget *editor)
{
    auto *label = new QLabel(text);
    label->setBuddy(editor);
    return label;
}

void ParamPage::nameEditor(QWidget *editor, const QString &stem, int channel, const QString &column)
{
    editor->setObjectName(QStringLiteral("%1_%2").arg(stem).arg(channel));
    editor->setAccessibleName(tr("Channel %1, %2").arg(channel).arg(column));
}

QScrollArea *ParamPage::newScrollArea(QWidget *content)
{
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    // What lies below shows through, so that the area looks like the page that it stands on.
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return area;
}

DefaultsPage::DefaultsPage(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : ParamPage(par, parent), m_defaultPar(defaultPar)
{
}

void DefaultsPage::initConnect()
{
    connect(m_btnDefault, &QPushButton::clicked, this, &DefaultsPage::slot_btnDefault_clicked);
}

void DefaultsPage::slot_btnDefault_clicked()
{
    if (m_defaultPar == nullptr) {
        m_defaultPar = emit signal_requestDefaultPar();
    }
    if (m_defaultPar != nullptr) {
        initData(m_defaultPar);
    }
}
