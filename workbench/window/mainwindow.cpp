#include "mainwindow.h"

#include "catalogview.h"
#include "filecommands.h"
#include "filequestions.h"
#include "helpdialog.h"
#include "memoryview.h"
#include "moduleclipboard.h"
#include "modulecommands.h"
#include "problemview.h"
#include "rackview.h"
#include "recoveryquestion.h"
#include "simulatedbase.h"
#include "simulatedhelp.h"
#include "stationtools.h"
#include "ui_mainwindow.h"
#include "windowsize.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QSettings>
#include <QTimer>
#include <QToolButton>

#include <utility>

namespace {

constexpr int messageTime = 6000; // ms

QSettings settings()
{
    return QSettings(QStringLiteral("simpleextend"), QStringLiteral("workbench"));
}

/// The file that a drop opens; empty if it opens none.
QString droppedFile(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return FileCommands::canOpen(path) ? path : QString();
}

} // namespace

MainWindow::MainWindow(const PluginLibrary &plugin, std::vector<CatalogEntry> catalog, std::unique_ptr<Station> station)
    : m_ui(std::make_unique<Ui::MainWindow>()),
      m_catalog(std::move(catalog)),
      m_document(plugin, std::move(station)),
      m_recovery(m_document),
      m_files(new FileCommands(m_document, *this)),
      m_catalogView(new CatalogView(m_catalog, this)),
      m_rackView(new RackView(m_catalog, this)),
      m_memoryView(new MemoryView(m_catalog, this)),
      m_modules(new ModuleCommands(m_document, *m_rackView, m_catalog, *this)),
      m_problems(new ProblemView(ignoredDescriptions(plugin), this)),
      m_problemCount(new QToolButton(this)),
      m_summary(new QLabel(this)),
      m_controllers(new QActionGroup(this))
{
    m_ui->setupUi(this);
    setAcceptDrops(true);
    addViews();
    m_tools = new StationTools(*m_ui, m_document, m_catalog, *m_rackView, *this);
    addControllers();
    connectDocks();
    connectFileActions();
    connectModuleActions();
    connectViewActions();
    connectViews();
    showStation();
    readSettings();
    retranslate();
    showMessage(tr("Plug-in: %1").arg(QFileInfo(plugin.fileName()).fileName()));
}

MainWindow::~MainWindow()
{
    simulatedhost::setHelpListener({});
    m_document.undoStack().disconnect(); // its destructor emits signals
}

void MainWindow::addViews()
{
    setCentralWidget(m_rackView);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    m_ui->catalogDock->setWidget(m_catalogView);
    m_ui->memoryDock->setWidget(m_memoryView);
    m_ui->helpDock->hide();
    m_summary->setObjectName(QStringLiteral("stationSummary"));
    statusBar()->addPermanentWidget(m_problemCount);
    statusBar()->addPermanentWidget(m_summary);
    m_problemCount->setObjectName(QStringLiteral("problemCount"));
    m_problemCount->setAutoRaise(true);
    m_problemCount->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_ui->problemDock->setWidget(m_problems);
    tabifyDockWidget(m_ui->problemDock, m_ui->memoryDock);
    m_ui->viewMenu->insertActions(m_ui->viewMenu->actions().constFirst(),
                                  {m_ui->catalogDock->toggleViewAction(), m_ui->memoryDock->toggleViewAction(),
                                   m_ui->problemDock->toggleViewAction(), m_ui->helpDock->toggleViewAction()});
    m_rackView->addActions({m_ui->configureAction, m_ui->addAction, m_ui->placeAction, m_ui->cutAction,
                            m_ui->copyAction, m_ui->pasteAction, m_ui->removeAction});
    m_rackView->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void MainWindow::addControllers()
{
    for (const simulatedhost::PlcType &type : simulatedhost::plcTypes()) {
        QAction *action = m_controllers->addAction(type.name);
        action->setCheckable(true);
        action->setData(type.id);
    }
    m_ui->controllerMenu->addActions(m_controllers->actions());
    connect(m_controllers, &QActionGroup::triggered, this,
            [this](const QAction *action) { setController(action->data().toUInt()); });
}

/// Disables the content of a dock that another tab covers, because the Tab key would reach it there. A dock that the
/// menu shows comes to the front.
void MainWindow::connectDocks()
{
    for (QDockWidget *dock : findChildren<QDockWidget *>()) {
        connect(dock, &QDockWidget::visibilityChanged, dock->widget(), &QWidget::setEnabled);
        connect(dock->toggleViewAction(), &QAction::triggered, dock, [dock](bool isShown) {
            if (isShown) {
                dock->raise();
            }
        });
    }
}

void MainWindow::connectFileActions()
{
    connect(m_ui->newAction, &QAction::triggered, m_files, &FileCommands::create);
    connect(m_ui->openAction, &QAction::triggered, m_files, &FileCommands::open);
    connect(m_ui->saveAction, &QAction::triggered, m_files, &FileCommands::save);
    connect(m_ui->saveAsAction, &QAction::triggered, m_files, &FileCommands::saveAs);
    connect(m_ui->compileAction, &QAction::triggered, m_files,
            [this] { m_files->compile(m_rackView->currentPlace()); });
    connect(m_ui->decompileAction, &QAction::triggered, m_files, &FileCommands::decompile);
    connect(m_ui->recentMenu, &RecentMenu::fileChosen, m_files, &FileCommands::openRecent);
    connect(m_files, &FileCommands::fileUsed, m_ui->recentMenu, &RecentMenu::add);
    connect(m_files, &FileCommands::fileMissing, m_ui->recentMenu, &RecentMenu::remove);
    connect(m_ui->recentMenu, &RecentMenu::filesChanged, this,
            [](const QStringList &files) { settings().setValue(QStringLiteral("recentFiles"), files); });
    connect(m_files, &FileCommands::message, this, &MainWindow::showMessage);
    connect(m_ui->quitAction, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::connectModuleActions()
{
    QUndoStack &undoStack = m_document.undoStack();
    connect(m_ui->undoAction, &QAction::triggered, m_modules, &ModuleCommands::undo);
    connect(m_ui->redoAction, &QAction::triggered, m_modules, &ModuleCommands::redo);
    connect(&undoStack, &QUndoStack::indexChanged, statusBar(), &QStatusBar::clearMessage); // an earlier edit's
    connect(m_modules, &ModuleCommands::message, this, &MainWindow::showMessage);
    connect(&undoStack, &QUndoStack::canUndoChanged, m_ui->undoAction, &QAction::setEnabled);
    connect(&undoStack, &QUndoStack::canRedoChanged, m_ui->redoAction, &QAction::setEnabled);
    m_ui->undoAction->setEnabled(false);
    m_ui->redoAction->setEnabled(false);
    m_ui->redoAction->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Y")), QKeySequence(QStringLiteral("Ctrl+Shift+Z"))});
    m_ui->configureAction->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});

    connect(m_ui->cutAction, &QAction::triggered, m_modules, &ModuleCommands::cut);
    connect(m_ui->removeAction, &QAction::triggered, m_modules, &ModuleCommands::remove);
    connect(m_ui->copyAction, &QAction::triggered, m_modules, &ModuleCommands::copy);
    connect(m_ui->pasteAction, &QAction::triggered, m_modules, &ModuleCommands::paste);
    connect(m_ui->placeAction, &QAction::triggered, m_modules, &ModuleCommands::askForPlace);
    connect(m_ui->configureAction, &QAction::triggered, m_modules, &ModuleCommands::configure);
    connect(m_ui->addAction, &QAction::triggered, m_catalogView, &CatalogView::requestPlace);
    const auto updatePaste = [this] { m_ui->pasteAction->setEnabled(clipboardHasModules()); };
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, updatePaste);
    updatePaste();
}

void MainWindow::connectViewActions()
{
    connect(m_ui->zoomInAction, &QAction::triggered, this, [this] { m_memoryView->setZoom(m_memoryView->zoom() * 2); });
    connect(m_ui->zoomOutAction, &QAction::triggered, this,
            [this] { m_memoryView->setZoom(m_memoryView->zoom() / 2); });
    connect(m_ui->helpAction, &QAction::triggered, this, &MainWindow::showHelp);
    m_ui->englishAction->setData(QLocale::English);
    m_ui->chineseAction->setData(QLocale::Chinese);
    connect(m_ui->languages, &QActionGroup::triggered, this,
            [this](const QAction *action) { setLanguage(static_cast<QLocale::Language>(action->data().toInt())); });
}

void MainWindow::connectViews()
{
    connect(m_catalogView, &CatalogView::placeRequested, m_modules, &ModuleCommands::add);
    const auto updateAdd = [this] { m_ui->addAction->setEnabled(m_catalogView->currentType().has_value()); };
    connect(m_catalogView, &CatalogView::currentTypeChanged, this, updateAdd);
    updateAdd();
    connect(m_rackView, &RackView::placeRequested, m_modules, &ModuleCommands::addAt);
    connect(m_rackView, &RackView::moveRequested, m_modules, &ModuleCommands::move);
    connect(m_rackView, &RackView::propertiesRequested, m_modules, &ModuleCommands::configure);
    connect(m_rackView, &RackView::dropRefused, this, &MainWindow::showMessage);
    connect(m_rackView->selectionModel(), &QItemSelectionModel::selectionChanged, this, &MainWindow::updateSelection);
    connect(m_rackView->selectionModel(), &QItemSelectionModel::currentChanged, this, &MainWindow::updateCurrent);
    connect(m_tools, &StationTools::message, this, &MainWindow::showMessage);
    connect(m_memoryView, &MemoryView::moduleSelected, m_rackView, &RackView::setCurrentPlace);
    connect(m_memoryView, &MemoryView::propertiesRequested, m_modules, &ModuleCommands::configure);
    connect(&m_document, &StationDocument::stationReplaced, this, &MainWindow::showStation);
    connect(&m_document, &StationDocument::stationReplaced, statusBar(), &QStatusBar::clearMessage);
    connect(&m_document, &StationDocument::fileNameChanged, this, &MainWindow::updateTitle);
    connect(&m_document.undoStack(), &QUndoStack::cleanChanged, this, &MainWindow::updateTitle);
    connect(&m_document.undoStack(), &QUndoStack::indexChanged, this, &MainWindow::updateStation);
    connect(m_problemCount, &QToolButton::clicked, this, [this] {
        m_ui->problemDock->show();
        m_ui->problemDock->raise();
    });
    connect(m_problems, &ProblemView::placeRequested, m_rackView, &RackView::setCurrentPlace);
    connect(m_problems, &ProblemView::countChanged, this, &MainWindow::updateProblemCount);
    connect(&m_recovery, &AutoRecovery::problemChanged, m_problems, &ProblemView::setRecoveryProblem);
    simulatedhost::setHelpListener([this](const QString &keyword) {
        if (QWidget *dialog = QApplication::activeModalWidget()) { // it blocks the dock
            HelpDialog::showFor(*dialog, keyword);
            return;
        }
        m_ui->helpDock->browser().showKeyword(keyword);
        m_ui->helpDock->show();
        m_ui->helpDock->raise();
    });
}

bool MainWindow::offerRecovery()
{
    const bool isRecovered = offerUnsavedStations(m_document, m_recovery, RecoveryCopy::defaultFolder(), *this);
    if (isRecovered) {
        showMessage(tr("The unsaved changes are recovered. Save them to keep them."));
    }
    return isRecovered;
}

bool MainWindow::openFile(const QString &path)
{
    return m_files->openFile(path);
}

void MainWindow::setLanguage(QLocale::Language language)
{
    m_language.set(language);
    for (QAction *action : m_ui->languages->actions()) {
        action->setChecked(action->data().toInt() == m_language.get());
    }
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}

void MainWindow::retranslate()
{
    m_ui->retranslateUi(this);
    updateStation();
    updateTitle();
    updateProblemCount(m_problems->count());
}

void MainWindow::readSettings()
{
    const QSettings stored = settings();
    const auto language = stored.value(QStringLiteral("language"), QLocale::system().language()).toInt();
    setLanguage(static_cast<QLocale::Language>(language));
    m_ui->recentMenu->setFiles(stored.value(QStringLiteral("recentFiles")).toStringList());
    restoreGeometry(stored.value(QStringLiteral("geometry")).toByteArray());
    restoreState(stored.value(QStringLiteral("layout")).toByteArray());
    m_rackView->setZoom(stored.value(QStringLiteral("cardZoom")).toInt());
    resizeToFit(*this, size());
}

void MainWindow::writeSettings() const
{
    QSettings stored = settings();
    stored.setValue(QStringLiteral("language"), m_language.get());
    stored.setValue(QStringLiteral("geometry"), saveGeometry());
    stored.setValue(QStringLiteral("layout"), saveState());
    stored.setValue(QStringLiteral("cardZoom"), m_rackView->zoom());
}

void MainWindow::setController(quint32 type)
{
    showFailure(this, tr("The station cannot have this controller."), m_document.edits().setPlcType(type));
    updateStation(); // also checks the present controller again after a failure
}

void MainWindow::showHelp()
{
    const std::optional<int> index = currentModule();
    const CatalogEntry *entry = index ? findEntry(m_catalog, m_document.station().module(*index).typeCode) : nullptr;
    m_ui->helpDock->browser().showFamily(entry == nullptr ? CatalogFamily::Other : entry->family);
    m_ui->helpDock->show();
    m_ui->helpDock->raise();
}

std::optional<int> MainWindow::currentModule() const
{
    return m_document.station().moduleAt(m_rackView->currentPlace());
}

void MainWindow::showMessage(const QString &text)
{
    statusBar()->showMessage(text, messageTime);
}

void MainWindow::showStation()
{
    m_memoryView->setStation(&m_document.station());
    m_rackView->setStation(&m_document.station());
    m_problems->setStation(&m_document.station());
    m_tools->showStation();
    connect(&m_document.station(), &Station::plcTypeChanged, this, &MainWindow::updateStation);
    updateStation();
}

/// Call after every change of the station, which may also change the modules in the selected slots.
void MainWindow::updateStation()
{
    const Station &station = m_document.station();
    m_ui->compileAction->setEnabled(station.count() != station.unavailableCount());
    m_tools->updateToolTips();
    QString controller;
    for (QAction *action : m_controllers->actions()) {
        action->setChecked(action->data().toUInt() == station.plcType());
        controller = action->isChecked() ? action->text() : controller;
    }
    m_summary->setText(tr("%n module(s), controller %1", nullptr, station.count()).arg(controller));
    updateSelection();
    updateCurrent();
}

void MainWindow::updateProblemCount(int count)
{
    m_problemCount->setToolTip(tr("Show the list of problems"));
    m_problemCount->setText(count == 0 ? tr("No problems") : tr("%n problem(s)", nullptr, count));
    m_problemCount->setIcon(count == 0 ? QIcon() : style()->standardIcon(QStyle::SP_MessageBoxWarning));
}

void MainWindow::updateSelection()
{
    const QVector<Place> selected = m_rackView->selectedModules();
    m_memoryView->select(selected);
    for (QAction *action : {m_ui->cutAction, m_ui->copyAction, m_ui->removeAction}) {
        action->setEnabled(!selected.isEmpty());
    }
}

void MainWindow::updateCurrent()
{
    for (QAction *action : {m_ui->placeAction, m_ui->configureAction}) {
        action->setEnabled(currentModule().has_value());
    }
}

void MainWindow::updateTitle()
{
    setWindowTitle(tr("%1[*] - Module Workbench").arg(titleText(m_files->fileTitle())));
    setWindowModified(m_document.isModified());
}

/// Never moves the file, whatever the file manager proposes.
void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (QApplication::activeModalWidget() == nullptr && !droppedFile(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

/// Opens the file later, because the file manager waits for the end of the event, and the user may be asked first.
void MainWindow::dropEvent(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QTimer::singleShot(0, m_files, [this, path = droppedFile(*event->mimeData())] {
        activateWindow();
        m_files->openDropped(path);
    });
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_files->mayDiscard());
    if (event->isAccepted()) {
        writeSettings();
    }
}
