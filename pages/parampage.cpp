#include "parampage.h"

#include "sidebutton.h"
#include "wrappedlabel.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

bool turnsWithWheel(const QWidget *control)
{
    return qobject_cast<const QAbstractSpinBox *>(control) != nullptr ||
           qobject_cast<const QComboBox *>(control) != nullptr;
}

/// The keyboard and a refusal do; the mouse finds what can be seen, and a window that comes back stays as it was.
bool leadsAnywhere(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
           reason == Qt::OtherFocusReason;
}

/// Scrolls the areas and tables around @p control so far that it can be seen.
void scrollIntoView(QWidget *control)
{
    for (QWidget *around = control->parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(around)) {
            area->ensureWidgetVisible(control);
        } else if (auto *view = qobject_cast<QAbstractItemView *>(around)) {
            view->scrollTo(view->indexAt(control->geometry().center()));
        }
    }
}

/// Asks for the width of its rows and for the height of a few of them.
class RowArea : public QScrollArea {
public:
    QSize minimumSizeHint() const override
    {
        constexpr int visibleLines = 6;
        return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(),
                qMin(widget()->sizeHint().height(), visibleLines * fontMetrics().lineSpacing())};
    }
    QSize sizeHint() const override { return minimumSizeHint(); }
};

/// Lets what lies below @p area show through, so that it looks like the page that it stands on.
void showSeamlessly(QScrollArea *area, QWidget *content)
{
    content->layout()->setContentsMargins({}); // those around the area suffice
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // it follows the focus of its editors
    area->setWidgetResizable(true);
    area->setWidget(content);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

} // namespace

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
    const auto controls = findChildren<QWidget *>();
    for (QWidget *control : controls) {
        if (turnsWithWheel(control)) {
            control->setFocusPolicy(Qt::StrongFocus);
        }
        const bool takesFocus = (control->focusPolicy() & Qt::TabFocus) != 0 && control->focusProxy() == nullptr;
        if (takesFocus) {
            control->installEventFilter(this);
        }
    }
    initConnect();
    initData(m_par);
}

bool ParamPage::eventFilter(QObject *watched, QEvent *event)
{
    auto *control = static_cast<QWidget *>(watched);
    // A wheel that passes over an editor while the page scrolls must not change its value.
    if (event->type() == QEvent::Wheel && turnsWithWheel(control) && !control->hasFocus()) {
        event->ignore(); // what is around the editor scrolls instead
        return true;
    }
    if (event->type() == QEvent::FocusIn && leadsAnywhere(static_cast<QFocusEvent *>(event)->reason())) {
        scrollIntoView(control);
    }
    return QWidget::eventFilter(watched, event);
}

void ParamPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange) {
        return;
    }
    const auto comboBoxes = findChildren<QComboBox *>();
    for (QComboBox *editor : comboBoxes) {
        editor->setMinimumSize(editor->sizeHint()); // its own minimum stays that of the font it had first
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

QPushButton *ParamPage::newDefaultsButton()
{
    m_btnDefault = newButton(tr("Defaults"), QStringLiteral("defaultsButton"));
    return m_btnDefault;
}

void ParamPage::addDefaultsButton(QBoxLayout *layout)
{
    layout->addWidget(newDefaultsButton(), 0, Qt::AlignRight);
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

void ParamPage::nameEditor(QWidget *editor, const QString &stem, int channel, const QString &column)
{
    const QString number = QString::number(channel);
    editor->setObjectName(stem + QLatin1Char('_') + number);
    describeEditor(editor, tr("Channel %1, %2").arg(number, column));
}

void ParamPage::describeEditor(QWidget *editor, const QString &name)
{
    editor->setAccessibleName(name);
    const QString limits = editor->toolTip();
    editor->setAccessibleDescription(limits.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, limits));
}

void ParamPage::storeSelection(const QComboBox *editor, quint8 &stored)
{
    if (editor->currentIndex() >= 0) {
        stored = static_cast<quint8>(editor->currentIndex());
    }
}

QVBoxLayout *ParamPage::newPageLayout()
{
    auto *content = new QWidget;
    auto *contentLayout = new QVBoxLayout(content);
    auto *area = new QScrollArea;
    showSeamlessly(area, content);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(area);
    return contentLayout;
}

QWidget *ParamPage::newRowArea(QWidget *rows)
{
    rows->layout()->setAlignment(Qt::AlignTop);
    auto *area = new RowArea;
    showSeamlessly(area, rows);
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
