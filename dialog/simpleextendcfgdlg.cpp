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

/// What the dialog of a module kind is called in the tree and in the help.
struct Heading {
    ModuleFamily family;
    SignalFamily signal; ///< tells the temperature modules from the other analog ones
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

/// Null for plain modules, whose tree has an unlabelled root and whose help keyword is empty.
const Heading *headingOf(quint32 objId)
{
    const ModuleFamily family = moduleKind(objId).family;
    const quint8 signal = factorySignalFamily(objId);
    const auto *const found = std::find_if(headings.begin(), headings.end(), [=](const Heading &heading) {
        return heading.family == family && heading.signal == signal;
    });
    return found == headings.end() ? nullptr : found;
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
    // Here and not where the dialog is left, because the host may destroy it while it is open. The caller rolls back
    // the map of the owner that it named; ranges of another owner stay where OK has moved them.
    if (result() != Accepted && m_memoryOwner == m_par->memoryOwner) {
        for (ParamPage *const page : m_pages) {
            if (page != nullptr) {
                page->discard();
            }
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
    // Before the pages and after them: a default record that cannot be built is asked of the host once, not by each
    // page.
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
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // never narrower than its items, see fitToFont
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->setItemsExpandable(false); // the root has no mark that would unfold it again
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

/// The only place that decides which groups a module has. The areas are the record's, since a plain module may have
/// been given ranges that its type code knows nothing of.
void SimpleExtendcfgdlg::addGroups()
{
    addPage<SGeneralWgt>(GeneralPage, tr("General"), tr("General"));
    addPage<SAddrMapWgt>(AddressPage, tr("Address"), tr("Address"));

    const ModuleFamily family = moduleKind(m_par->objId).family;
    if (family == ModuleFamily::WeighDword) {
        addPage<SWeightParCfgWgt>(WeighingPage, tr("Weight Param"), tr("Weight Param"));
    }
    if (family == ModuleFamily::WeighDword || family == ModuleFamily::WeighWord) {
        return;
    }

    const auto areaOf = [](const IoMap &range) {
        return range.count == 0 ? VarArea::None : static_cast<VarArea>(range.area);
    };
    if (areaOf(m_par->inMap) == VarArea::AnalogInput) {
        addPage<SAIFilterWgt>(AnalogFilterPage, tr("Input Filter"), tr("Input Filter"));
        addPage<SAIRangeWgt>(AnalogRangePage, tr("Range Config"), tr("Range"));
    } else if (areaOf(m_par->inMap) == VarArea::DigitalInput) {
        addPage<SDIFilterWgt>(DigitalFilterPage, tr("Input Filter"), tr("Input Filter"));
    }
    if (areaOf(m_par->outMap) == VarArea::AnalogOutput) {
        addPage<SAQOutTblWgt>(AnalogOutputTablePage, tr("Output Tables"), tr("Output Tables"));
        addPage<SAQOutTypeWgt>(AnalogOutputTypePage, tr("Output Type"), tr("Output Type"));
    } else if (areaOf(m_par->outMap) == VarArea::DigitalOutput) {
        addPage<SDQOutTblWgt>(DigitalOutputTablePage, tr("Output Tables"), tr("Output Tables"));
    }
}

template <typename Page>
void SimpleExtendcfgdlg::addPage(PageIndex index, const QString &treeText, const QString &tabText)
{
    auto *page = new Page(m_par, m_defaultPar.get(), this);
    m_pages[index] = page;
    connect(this, &SimpleExtendcfgdlg::signal_saveData, page, [this, page] { callHost([page] { page->saveData(); }); });
    connect(page, &ParamPage::signal_refused, this, &SimpleExtendcfgdlg::showRefusal);
    if constexpr (std::is_base_of_v<DefaultsPage, Page>) {
        connect(page, &Page::signal_requestDefaultPar, this, &SimpleExtendcfgdlg::slot_returnDefaultParam);
    }
    if constexpr (!std::is_same_v<SAddrMapWgt, Page>) { // addresses have no default
        connect(this, &SimpleExtendcfgdlg::signal_defaultAll, page, &Page::slot_btnDefault_clicked);
    }

    auto *tab = new QTabWidget(this);
    tab->addTab(page, tabText);
    tab->tabBar()->setFocusPolicy(Qt::NoFocus); // with one tab there is nothing to choose
    addItem(treeText, tab);
}

void SimpleExtendcfgdlg::addItem(const QString &text, QWidget *page)
{
    auto *item = new QTreeWidgetItem(m_tree->topLevelItem(0), {text});
    item->setIcon(0, QIcon(QStringLiteral(":/images/itemconfig.png")));
    m_pageOfItem.insert(item, page);
    item->setData(0, helpKeywordRole, m_helpKeyword);
    m_stack->insertWidget(0, page);
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

/// Runs @p call, which calls the host. If the host throws, the dialog is rejected with the memory map and the starts
/// from before it was opened.
template <typename Call>
void SimpleExtendcfgdlg::callHost(Call &&call)
{
    const QPointer<SimpleExtendcfgdlg> self(this);
    if (completes(call) || self.isNull()) {
        return;
    }
    for (ParamPage *const page : m_pages) {
        completes([page] { page == nullptr ? void() : page->rollBack(); });
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
    for (ParamPage *const page : m_pages) {
        // Every page is saved, also after another one has refused.
        ok = (page == nullptr || page->saveData()) && ok;
        if (self.isNull()) {
            return; // the host has destroyed the dialog while a page's message was open
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
    field->setFocus(Qt::OtherFocusReason); // its page scrolls to it
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
