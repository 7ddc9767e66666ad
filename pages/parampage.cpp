#include "parampage.h"

#include "channelactions.h"
#include "digitalbits.h"
#include "editorguard.h"
#include "sidebutton.h"
#include "simpleextendpar.h"
#include "wrappedlabel.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QVariant>

#include <memory>

namespace {

QString editorName(const char *stem, int channel)
{
    return QLatin1String(stem) + QLatin1Char('_') + QString::number(channel);
}

template <typename Entry>
void keepChannel(QHash<quint8, Entry> &entries, int channel)
{
    const auto found = entries.constFind(static_cast<quint8>(channel));
    entries = found == entries.constEnd() ? QHash<quint8, Entry>() : QHash<quint8, Entry>{{0, *found}};
}

/// Returns @p defaults for a module whose only channel is the given one of @p par. The page of one channel is built in
/// the same short time for every module.
SimpleExtendPar defaultsOfChannel(const SimpleExtendPar &defaults, const SimpleExtendPar &par, int channel)
{
    SimpleExtendPar one = defaults;
    one.aiKind = par.aiKind; // the kind decides which editors the channel has
    keepChannel(one.aiKind, channel);
    keepChannel(one.aiFilter, channel);
    keepChannel(one.aiRange, channel);
    keepChannel(one.aqOutTbl, channel);
    keepChannel(one.aqOutType, channel);
    keepChannel(one.weighPar, channel);
    const std::optional<int> code = filterCode(defaults.diFilter, channel);
    one.diFilter = code ? QByteArray(1, static_cast<char>(*code << filterShift(0))) : QByteArray();
    const bool isOn = outputState(defaults.dqOutTbl, channel).value_or(false);
    one.dqOutTbl = QByteArray(1, static_cast<char>(isOn ? outputMask(0) : 0));
    one.aiCount = one.aqCount = one.diCount = one.dqCount = one.weighCount = 1;
    return one;
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

void ParamPage::describeEditor(QWidget *editor, const QString &name)
{
    editor->setAccessibleName(name);
    const QString limits = editor->toolTip();
    editor->setAccessibleDescription(limits.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, limits));
}

QVariant DefaultsPage::defaultValue(const char *stem, int channel)
{
    const SimpleExtendPar *const defaults = defaultRecord();
    if (defaults == nullptr) {
        return {};
    }
    SimpleExtendPar one = defaultsOfChannel(*defaults, *m_par, channel);
    const std::unique_ptr<QObject> page(metaObject()->newInstance(
        Q_ARG(SimpleExtendPar *, &one), Q_ARG(SimpleExtendPar *, nullptr), Q_ARG(QWidget *, nullptr)));
    const auto *const editor = page->findChild<QWidget *>(editorName(stem, 0));
    return editor != nullptr ? editorValue(*editor) : QVariant();
}

void DefaultsPage::slot_btnDefault_clicked()
{
    if (SimpleExtendPar *const defaults = defaultRecord()) {
        initData(defaults);
    }
}

void DefaultsPage::registerEditor(const char *stem, int channel, QWidget *editor)
{
    editor->setObjectName(editorName(stem, channel));
    if (m_channelActions == nullptr) {
        m_channelActions = new ChannelActions(this);
    }
    m_channelActions->add(stem, channel, editor);
}

void DefaultsPage::registerEditor(const char *stem, int channel, QWidget *editor, const QString &title)
{
    registerEditor(stem, channel, editor);
    describeEditor(editor, ParamPage::tr("Channel %1, %2").arg(QString::number(channel), title));
}

void DefaultsPage::registerTable(QTableWidget *table)
{
    if (m_channelActions != nullptr) {
        m_channelActions->connectTable(table);
    }
}

void DefaultsPage::initConnect()
{
    connect(m_btnDefault, &QPushButton::clicked, this, &DefaultsPage::slot_btnDefault_clicked);
    if (m_channelActions != nullptr) {
        m_channelActions->watchEditors();
    }
}

void DefaultsPage::addDefaultsButton(QBoxLayout *layout)
{
    m_btnDefault = newButton(tr("Defaults"), QStringLiteral("defaultsButton"));
    layout->addWidget(m_btnDefault, 0, Qt::AlignRight);
}

RecordDefaultsPage::RecordDefaultsPage(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, parent), m_defaultPar(defaultPar)
{
}

SimpleExtendPar *RecordDefaultsPage::defaultRecord()
{
    if (m_defaultPar == nullptr) {
        m_defaultPar = emit signal_requestDefaultPar();
    }
    return m_defaultPar;
}
