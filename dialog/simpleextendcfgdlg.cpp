#include "simpleextendcfgdlg.h"

#include "defaultbuilder.h"
#include "guarded.h"
#include "helpsharemodule.h"
#include "modulekind.h"
#include "notelabel.h"
#include "saddrmapwgt.h"
#include "saifilterwgt.h"
#include "sairangewgt.h"
#include "saqouttblwgt.h"
#include "saqouttypewgt.h"
#include "sdifilterwgt.h"
#include "sdqouttblwgt.h"
#include "sgeneralwgt.h"
#include "sidebutton.h"
#include "sweightparcfgwgt.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace {

constexpr int helpKeywordRole = Qt::UserRole + 11;
constexpr int initialWidth = 690;
constexpr int initialHeight = 440;
constexpr int treeIconSize = 24;

/// The texts for a module kind in the tree and in the help.
struct Heading {
    ModuleFamily family;
    SignalFamily signal; ///< distinguishes the temperature modules from the other analog modules
    const char *rootText;
    bool isTranslated;
    const char *helpTitle;
    const char16_t *localHelpTitle;
};

constexpr std::array headings = {
    Heading{ModuleFamily::Analog, Thermocouple, "TC", false, "TC/RTD Modules Properties", u"TC/RTD模块属性"},
    Heading{ModuleFamily::Analog, ResistanceThermometer, "RTD", false, "TC/RTD Modules Properties", u"TC/RTD模块属性"},
    Heading{ModuleFamily::Analog, VoltageCurrent, QT_TRANSLATE_NOOP("SimpleExtendcfgdlg", "Analog Module"), true,
            "Analog Modules Properties", u"模拟量模块属性"},
    Heading{ModuleFamily::Digital, VoltageCurrent, QT_TRANSLATE_NOOP("SimpleExtendcfgdlg", "Digital Module"), true,
            "Digital Modules Properties", u"数字量模块属性"},
    Heading{ModuleFamily::WeighDword, VoltageCurrent, QT_TRANSLATE_NOOP("SimpleExtendcfgdlg", "Weight Module"), true,
            "Weight Modules Properties", u"称重模块属性"},
    Heading{ModuleFamily::WeighWord, VoltageCurrent, QT_TRANSLATE_NOOP("SimpleExtendcfgdlg", "Weight Module"), true,
            "Weight Modules Properties", u"称重模块属性"},
};

/// Returns null for plain modules, whose tree has a root without text and whose help keyword is empty.
const Heading *headingOf(quint32 objId)
{
    const ModuleFamily family = moduleKind(objId).family;
    const quint8 signal = factorySignalFamily(objId);
    const auto *const found = std::find_if(headings.begin(), headings.end(), [=](const Heading &heading) {
        return heading.family == family && heading.signal == signal;
    });
    return found == headings.end() ? nullptr : found;
}

/// The order of the groups in the tree.
enum class TreePart { Common, Weighing, Inputs, Outputs };

/// A group of parameters that a module may have, and its page.
struct Group {
    TreePart part;
    VarArea area; ///< of the range that has the group; None for groups that are independent of the ranges
    ParamPage *(*newPage)(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *dialog);
    const char *treeText;
    const char *tabText = treeText;
};

template <typename Page>
ParamPage *newPage(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *dialog)
{
    return new Page(par, defaultPar, dialog);
}

/// The areas are the record's, because a plain module may have been given ranges that its type code does not imply.
bool hasGroup(const SimpleExtendPar &par, const Group &group)
{
    const ModuleFamily family = moduleKind(par.objId).family;
    const bool isWeighing = family == ModuleFamily::WeighDword || family == ModuleFamily::WeighWord;
    const IoMap &range = group.part == TreePart::Inputs ? par.inMap : par.outMap;
    switch (group.part) {
    case TreePart::Common:
        return true;
    case TreePart::Weighing:
        return family == ModuleFamily::WeighDword;
    default:
        return !isWeighing && range.count != 0 && range.area == static_cast<quint8>(group.area);
    }
}

} // namespace

SimpleExtendcfgdlg::SimpleExtendcfgdlg(SimpleExtendPar *par, QString memoryOwner, QWidget *parent, bool locked)
    : QDialog(parent), m_memoryOwner(std::move(memoryOwner)), m_par(par)
{
    initUI();
    initConnect();
    m_okButton->setEnabled(!locked);
}

SimpleExtendcfgdlg::~SimpleExtendcfgdlg()
{
    // The destructor does this, because the host may destroy the dialog while it is open. The caller rolls back only
    // the map of m_memoryOwner; ranges of another owner stay where OK has moved them.
    if (result() != Accepted && m_memoryOwner == m_par->memoryOwner) {
        for (ParamPage *const page : qAsConst(m_pages)) {
            page->discard();
        }
    }
}

void SimpleExtendcfgdlg::initUI()
{
    setObjectName(QStringLiteral("SimpleExtendcfgdlg"));
    setWindowIcon(QIcon(QStringLiteral(":/images/hwcnfg.png")));
    setWindowTitle(tr("Properties - %1").arg(m_par->objName));
    setWindowFlags(Qt::Window | Qt::WindowCloseButtonHint);
    resize(initialWidth, initialHeight);

    buildTree();
    m_stack = new QStackedWidget(this);
    m_stack->setObjectName(QStringLiteral("pageStack"));
    // Connected before and after the pages, so that the default record is built at most once per signal even if that
    // fails.
    connect(this, &SimpleExtendcfgdlg::signal_defaultAll, this,
            [this] { m_hasNoDefaults = slot_returnDefaultParam() == nullptr; });
    addGroups();
    connect(this, &SimpleExtendcfgdlg::signal_defaultAll, this, [this] { m_hasNoDefaults = false; });

    auto *panes = new QHBoxLayout;
    panes->addWidget(m_tree, 1);
    panes->addWidget(m_stack, 3);
    auto *layout = new QVBoxLayout;
    layout->addLayout(panes);
    layout->addLayout(newButtonRow());
    setLayout(layout);

    m_helpAction = new QAction(QStringLiteral("help"), this);
    m_helpAction->setObjectName(QStringLiteral("helpAction"));
    m_helpAction->setShortcut(QKeySequence(QStringLiteral("F1")));
    addAction(m_helpAction);
    fitToFont();
}

/// Keeps the tree as wide as its items.
void SimpleExtendcfgdlg::fitToFont()
{
    const QAbstractItemView *const items = m_tree;
    m_tree->setMinimumWidth(items->sizeHintForColumn(0) + 2 * m_tree->frameWidth());
}

void SimpleExtendcfgdlg::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_helpAction != nullptr) {
        fitToFont();
    }
}

void SimpleExtendcfgdlg::buildTree()
{
    m_tree = new QTreeWidget(this);
    m_tree->setObjectName(QStringLiteral("tree"));
    m_tree->setAccessibleName(tr("Parameter groups"));
    m_tree->setLineWidth(2);
    m_tree->setHeaderHidden(true);
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // fitToFont() makes it wide enough
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->setItemsExpandable(false); // a collapsed root could not be expanded again by the mouse
    m_tree->setRootIsDecorated(false);
    m_tree->setIconSize(QSize(treeIconSize, treeIconSize));

    auto *root = new QTreeWidgetItem(m_tree);
    if (const Heading *const heading = headingOf(m_par->objId); heading != nullptr) {
        m_helpKeyword =
            helpKeyWord(QString::fromLatin1(heading->helpTitle), QString::fromUtf16(heading->localHelpTitle));
        root->setText(0, heading->isTranslated ? tr(heading->rootText) : QString::fromLatin1(heading->rootText));
    }
    root->setIcon(0, QIcon(QStringLiteral(":/images/folder.png")));
    root->setData(0, Qt::UserRole, -1);
    root->setExpanded(true);
}

void SimpleExtendcfgdlg::addGroups()
{
    /// All groups, in the order in which OK saves their pages.
    static constexpr Group groups[] = {
        {TreePart::Common, VarArea::None, newPage<SGeneralWgt>, QT_TR_NOOP("General")},
        {TreePart::Common, VarArea::None, newPage<SAddrMapWgt>, QT_TR_NOOP("Address")},
        {TreePart::Inputs, VarArea::AnalogInput, newPage<SAIFilterWgt>, QT_TR_NOOP("Input Filter")},
        {TreePart::Inputs, VarArea::AnalogInput, newPage<SAIRangeWgt>, QT_TR_NOOP("Range Config"), QT_TR_NOOP("Range")},
        {TreePart::Outputs, VarArea::AnalogOutput, newPage<SAQOutTblWgt>, QT_TR_NOOP("Output Tables")},
        {TreePart::Outputs, VarArea::AnalogOutput, newPage<SAQOutTypeWgt>, QT_TR_NOOP("Output Type")},
        {TreePart::Inputs, VarArea::DigitalInput, newPage<SDIFilterWgt>, QT_TR_NOOP("Input Filter")},
        {TreePart::Outputs, VarArea::DigitalOutput, newPage<SDQOutTblWgt>, QT_TR_NOOP("Output Tables")},
        {TreePart::Weighing, VarArea::None, newPage<SWeightParCfgWgt>, QT_TR_NOOP("Weight Param")},
    };
    for (const TreePart part : {TreePart::Common, TreePart::Weighing, TreePart::Inputs, TreePart::Outputs}) {
        int saveOrder = 0;
        for (const Group &group : groups) {
            if (group.part == part && hasGroup(*m_par, group)) {
                ParamPage *const page = group.newPage(m_par, m_defaultPar.get(), this);
                m_pages.insert(saveOrder, page);
                connectPage(page);
                addItem(tr(group.treeText), tr(group.tabText), page);
            }
            ++saveOrder;
        }
    }
}

void SimpleExtendcfgdlg::connectPage(ParamPage *page)
{
    connect(this, &SimpleExtendcfgdlg::signal_saveData, page, [this, page] { callHost([page] { page->saveData(); }); });
    connect(page, &ParamPage::signal_refused, this, &SimpleExtendcfgdlg::showRefusal);
    if (auto *const defaultsPage = qobject_cast<DefaultsPage *>(page)) {
        connect(this, &SimpleExtendcfgdlg::signal_defaultAll, defaultsPage, &DefaultsPage::slot_btnDefault_clicked);
    }
    if (auto *const recordPage = qobject_cast<RecordDefaultsPage *>(page)) {
        connect(recordPage, &RecordDefaultsPage::signal_requestDefaultPar, this,
                &SimpleExtendcfgdlg::slot_returnDefaultParam);
    }
}

void SimpleExtendcfgdlg::addItem(const QString &treeText, const QString &tabText, ParamPage *page)
{
    auto *tab = new QTabWidget(this);
    tab->addTab(page, tabText);
    tab->tabBar()->setFocusPolicy(Qt::NoFocus); // a single tab cannot be changed
    auto *item = new QTreeWidgetItem(m_tree->topLevelItem(0), {treeText});
    item->setIcon(0, QIcon(QStringLiteral(":/images/itemconfig.png")));
    item->setData(0, helpKeywordRole, m_helpKeyword);
    m_pageOfItem.insert(item, tab);
    m_stack->insertWidget(0, tab);
}

QHBoxLayout *SimpleExtendcfgdlg::newButtonRow()
{
    auto *note = new NoteLabel(tr("Configuration must be downloaded before taking effect."));
    note->setObjectName(QStringLiteral("noteLabel"));

    auto *row = new QHBoxLayout;
    row->addWidget(note);
    row->addSpacerItem(new QSpacerItem(1, 1, QSizePolicy::Expanding, QSizePolicy::Minimum));
    const auto addButton = [row](QPushButton *button, const char *name) {
        button->setObjectName(QLatin1String(name));
        row->addWidget(button);
        return button;
    };
    m_okButton = addButton(new QPushButton(tr("OK")), "okButton");
    m_okButton->setDefault(true);
    m_cancelButton = addButton(new SideButton(tr("Cancel")), "cancelButton");
    m_defaultAllButton = addButton(new SideButton(tr("Default All")), "defaultAllButton");
    m_helpButton = addButton(new SideButton(tr("Help")), "helpButton");
    return row;
}

void SimpleExtendcfgdlg::initConnect()
{
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &SimpleExtendcfgdlg::raisePage);
    connect(m_okButton, &QPushButton::clicked, this, &SimpleExtendcfgdlg::slot_bttnOK);
    connect(m_cancelButton, &QPushButton::clicked, this, &SimpleExtendcfgdlg::reject);
    connect(m_helpButton, &QPushButton::clicked, this, &SimpleExtendcfgdlg::slot_startHelpSystem);
    connect(m_defaultAllButton, &QPushButton::clicked, this, &SimpleExtendcfgdlg::signal_defaultAll);
    connect(m_helpAction, &QAction::triggered, this, &SimpleExtendcfgdlg::slot_startHelpSystem);
    m_tree->setCurrentItem(m_tree->topLevelItem(0)->child(0));
}

void SimpleExtendcfgdlg::raisePage(QTreeWidgetItem *curItem, QTreeWidgetItem * /*preItem*/)
{
    if (QWidget *const page = m_pageOfItem.value(curItem); page != nullptr) {
        m_stack->setCurrentWidget(page);
    }
}

/// Runs @p call, which calls the host. If the host throws, rejects the dialog and restores the memory map and the
/// starts from before it was opened.
template <typename Call>
void SimpleExtendcfgdlg::callHost(Call &&call)
{
    const QPointer<SimpleExtendcfgdlg> self(this);
    if (completes(call) || self.isNull()) {
        return;
    }
    for (ParamPage *const page : qAsConst(m_pages)) {
        completes([page] { page->rollBack(); });
    }
    reject();
}

void SimpleExtendcfgdlg::slot_bttnOK()
{
    callHost([this] { savePages(); });
}

void SimpleExtendcfgdlg::savePages()
{
    const QPointer<SimpleExtendcfgdlg> self(this);
    m_firstRefused.clear();
    bool ok = true;
    for (ParamPage *const page : qAsConst(m_pages)) {
        ok = page->saveData() && ok; // every page is saved, even after a refusal
        if (self.isNull()) {
            return; // the host has destroyed the dialog while a page's message box was open
        }
    }
    if (ok) {
        accept();
    } else if (m_firstRefused != nullptr) {
        revealField(m_firstRefused);
    }
}

void SimpleExtendcfgdlg::showRefusal(QWidget *field)
{
    if (m_firstRefused == nullptr) {
        m_firstRefused = field;
    }
    revealField(field);
}

void SimpleExtendcfgdlg::revealField(QWidget *field)
{
    for (auto it = m_pageOfItem.cbegin(); it != m_pageOfItem.cend(); ++it) {
        if (it.value()->isAncestorOf(field)) {
            m_tree->setCurrentItem(it.key());
        }
    }
    field->setFocus(Qt::OtherFocusReason); // EditorGuard scrolls to it
    if (auto *spinBox = qobject_cast<QAbstractSpinBox *>(field)) {
        spinBox->selectAll();
    }
}

SimpleExtendPar *SimpleExtendcfgdlg::slot_returnDefaultParam()
{
    if (m_defaultPar == nullptr && !m_hasNoDefaults) {
        callHost([this] { m_defaultPar = buildDefault(m_par->objId, QString()); });
    }
    return m_defaultPar.get();
}

void SimpleExtendcfgdlg::slot_startHelpSystem()
{
    callHost([keyword = m_helpKeyword] { startHelpSys(keyword); });
}
