#include "mainwindow.h"

#include "blockdecoder.h"
#include "blockresultsdialog.h"
#include "blockview.h"
#include "catalogview.h"
#include "filequestions.h"
#include "helpdock.h"
#include "memoryview.h"
#include "moduleclipboard.h"
#include "placedialog.h"
#include "projectfile.h"
#include "rackview.h"
#include "recentmenu.h"
#include "simulatedbase.h"
#include "simulatedhelp.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int messageTime = 6000;  // ms
constexpr int progressDelay = 400; // ms before a long work shows its progress
constexpr int shownProblems = 8;

QString settingsOwner()
{
    return QStringLiteral("simpleextend");
}

QString settingsName()
{
    return QStringLiteral("workbench");
}

QString shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

MainWindow::MainWindow(const PluginLibrary &plugin, std::vector<CatalogEntry> catalog, std::unique_ptr<Station> station)
    : m_plugin(plugin), m_catalog(std::move(catalog))
{
    setObjectName(QStringLiteral("mainWindow"));
    createViews();
    createFileCommands();
    createEditCommands();
    createModuleCommands();
    createViewCommands();
    createToolBar();
    connectViews();
    resize(1280, 800);
    showStation(std::move(station), QString());
    readSettings();
    retranslate();
    statusBar()->showMessage(tr("Plug-in: %1").arg(QFileInfo(plugin.fileName()).fileName()), messageTime);
}

MainWindow::~MainWindow()
{
    simulatedhost::setHelpListener({});
    m_undoStack.disconnect(this);
}

void MainWindow::translated(const char *source, const std::function<void(const QString &)> &show)
{
    m_texts.push_back({source, show});
}

template <typename Run>
QAction *MainWindow::command(const char *name, const char *text, const char *tip, const QKeySequence &shortcut, Run run)
{
    auto *action = new QAction(this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(shortcut);
    translated(text, [action](const QString &shownText) { action->setText(shownText); });
    translated(tip, [action](const QString &shownText) { action->setStatusTip(shownText); });
    connect(action, &QAction::triggered, this, run);
    return action;
}

QMenu *MainWindow::menu(const char *title)
{
    QMenu *menu = menuBar()->addMenu(QString());
    translated(title, [menu](const QString &text) { menu->setTitle(text); });
    return menu;
}

void MainWindow::dock(const char *name, const char *title, QWidget *content, Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(this);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(content);
    addDockWidget(area, dock);
    translated(title, [dock](const QString &text) { dock->setWindowTitle(text); });
    m_dockToggles.push_back(dock->toggleViewAction());
}

void MainWindow::createViews()
{
    m_rackView = new RackView(m_catalog, this);
    m_catalogView = new CatalogView(m_catalog, this);
    m_memoryView = new MemoryView(m_catalog, this);
    m_help = new HelpDock(this);
    m_summary = new QLabel(this);
    m_summary->setObjectName(QStringLiteral("stationSummary"));
    setCentralWidget(m_rackView);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    dock("catalogDock", QT_TR_NOOP("Catalog"), m_catalogView, Qt::LeftDockWidgetArea);
    dock("memoryDock", QT_TR_NOOP("Memory map"), m_memoryView, Qt::BottomDockWidgetArea);
    addDockWidget(Qt::RightDockWidgetArea, m_help);
    m_help->hide();
    statusBar()->addPermanentWidget(m_summary);
}

void MainWindow::createFileCommands()
{
    m_newAction = command("newAction", QT_TR_NOOP("&New"), QT_TR_NOOP("Begin an empty station"), QKeySequence::New,
                          &MainWindow::newStation);
    m_openAction = command("openAction", QT_TR_NOOP("&Open..."), QT_TR_NOOP("Open a project"), QKeySequence::Open,
                           &MainWindow::open);
    m_saveAction = command("saveAction", QT_TR_NOOP("&Save"), QT_TR_NOOP("Save the station to its project file"),
                           QKeySequence::Save, &MainWindow::save);
    QAction *saveAs = command("saveAsAction", QT_TR_NOOP("Save &As..."), QT_TR_NOOP("Save the station to another file"),
                              QKeySequence(QStringLiteral("Ctrl+Shift+S")), &MainWindow::saveAs);
    m_compileAction =
        command("compileAction", QT_TR_NOOP("&Compile..."), QT_TR_NOOP("Show the configuration blocks of all modules"),
                QKeySequence(Qt::Key_F7), &MainWindow::compile);
    QAction *decompile = command("decompileAction", QT_TR_NOOP("&Decompile..."),
                                 QT_TR_NOOP("Rebuild a station from a file of configuration blocks"),
                                 QKeySequence(QStringLiteral("Shift+F7")), &MainWindow::decompile);
    QAction *quit = command("quitAction", QT_TR_NOOP("&Quit"), QT_TR_NOOP("Close the workbench"),
                            QKeySequence(QStringLiteral("Ctrl+Q")), &QWidget::close);
    m_recent = new RecentMenu(this);
    m_recent->setObjectName(QStringLiteral("recentMenu"));
    translated(QT_TR_NOOP("&Recent Projects"), [this](const QString &text) { m_recent->setTitle(text); });
    connect(m_recent, &RecentMenu::fileChosen, this, &MainWindow::openRecent);

    QMenu *file = menu(QT_TR_NOOP("&File"));
    file->addActions({m_newAction, m_openAction});
    file->addMenu(m_recent);
    file->addActions({m_saveAction, saveAs});
    file->addSeparator();
    file->addActions({m_compileAction, decompile});
    file->addSeparator();
    file->addAction(quit);
}

void MainWindow::createEditCommands()
{
    m_undoAction = command("undoAction", QT_TR_NOOP("&Undo"), QT_TR_NOOP("Take the last step back"), QKeySequence::Undo,
                           &MainWindow::undo);
    m_redoAction = command("redoAction", QT_TR_NOOP("&Redo"), QT_TR_NOOP("Make a step again that was taken back"), {},
                           &MainWindow::redo);
    m_redoAction->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Y")), QKeySequence(QStringLiteral("Ctrl+Shift+Z"))});
    m_cutAction = command("cutAction", QT_TR_NOOP("Cu&t"), QT_TR_NOOP("Copy the selected modules and remove them"),
                          QKeySequence::Cut, &MainWindow::cut);
    m_copyAction =
        command("copyAction", QT_TR_NOOP("&Copy"), QT_TR_NOOP("Copy the selected modules and their parameters"),
                QKeySequence::Copy, &MainWindow::copy);
    m_pasteAction = command("pasteAction", QT_TR_NOOP("&Paste"),
                            QT_TR_NOOP("Place copies of modules from the current slot on, with addresses of their own"),
                            QKeySequence::Paste, &MainWindow::paste);
    m_removeAction = command("removeAction", QT_TR_NOOP("Re&move"),
                             QT_TR_NOOP("Remove the selected modules and free their addresses"), QKeySequence::Delete,
                             &MainWindow::removeModules);
    QMenu *edit = menu(QT_TR_NOOP("&Edit"));
    edit->addActions({m_undoAction, m_redoAction});
    edit->addSeparator();
    edit->addActions({m_cutAction, m_copyAction, m_pasteAction, m_removeAction});
}

void MainWindow::createModuleCommands()
{
    m_addAction = command("addAction", QT_TR_NOOP("P&lace from Catalog"),
                          QT_TR_NOOP("Place the catalog's current module in the current slot, or in the next free one"),
                          QKeySequence(Qt::Key_Insert), [this] {
                              if (const auto type = m_catalogView->currentType()) {
                                  addModule(*type);
                              }
                          });
    m_placeAction =
        command("placeAction", QT_TR_NOOP("&Move to..."), QT_TR_NOOP("Move the module to another rack or slot"),
                QKeySequence(Qt::Key_F2), &MainWindow::askForPlace);
    m_configureAction = command("configureAction", QT_TR_NOOP("P&roperties..."),
                                QT_TR_NOOP("Edit the parameters of the module"), {}, &MainWindow::configureModule);
    m_configureAction->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    QMenu *module = menu(QT_TR_NOOP("&Module"));
    module->addActions({m_addAction, m_placeAction, m_configureAction});
    module->addSeparator();

    QMenu *controllers = module->addMenu(QString());
    translated(QT_TR_NOOP("&Controller"), [controllers](const QString &text) { controllers->setTitle(text); });
    m_controllers = new QActionGroup(this);
    for (const simulatedhost::PlcType &type : simulatedhost::plcTypes()) {
        QAction *action = m_controllers->addAction(type.name);
        action->setCheckable(true);
        action->setData(type.id);
    }
    controllers->addActions(m_controllers->actions());
    connect(m_controllers, &QActionGroup::triggered, this,
            [this](const QAction *action) { setController(action->data().toUInt()); });

    // These keys mean other things in the catalog and its search field.
    const QList<QAction *> ofRacks{m_configureAction, m_placeAction, m_cutAction,
                                   m_copyAction,      m_pasteAction, m_removeAction};
    for (QAction *action : ofRacks) {
        action->setShortcutContext(Qt::WidgetShortcut);
    }
    m_rackView->addActions(ofRacks);
    m_rackView->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void MainWindow::createViewCommands()
{
    QMenu *view = menu(QT_TR_NOOP("&View"));
    for (QAction *toggle : m_dockToggles) {
        view->addAction(toggle);
    }
    view->addAction(m_help->toggleViewAction());
    view->addSeparator();
    view->addAction(command("zoomInAction", QT_TR_NOOP("Zoom &In"), QT_TR_NOOP("Show the memory map larger"),
                            QKeySequence::ZoomIn, [this] { m_memoryView->setZoom(m_memoryView->zoom() * 2); }));
    view->addAction(command("zoomOutAction", QT_TR_NOOP("Zoom &Out"), QT_TR_NOOP("Show the memory map smaller"),
                            QKeySequence::ZoomOut, [this] { m_memoryView->setZoom(m_memoryView->zoom() / 2); }));
    view->addSeparator();
    QMenu *languages = view->addMenu(QString());
    translated(QT_TR_NOOP("&Language"), [languages](const QString &text) { languages->setTitle(text); });
    m_languages = new QActionGroup(this);
    // Each language is called by its own name in every language.
    for (const auto &[language, name] : {std::pair(QLocale::English, QStringLiteral("English")),
                                         std::pair(QLocale::Chinese, QStringLiteral("中文"))}) {
        QAction *action = m_languages->addAction(name);
        action->setCheckable(true);
        action->setData(language);
    }
    languages->addActions(m_languages->actions());
    connect(m_languages, &QActionGroup::triggered, this,
            [this](const QAction *action) { setLanguage(static_cast<QLocale::Language>(action->data().toInt())); });

    m_helpAction = command("helpAction", QT_TR_NOOP("&Help on the Module"),
                           QT_TR_NOOP("Open the help page of the current module's family"), QKeySequence::HelpContents,
                           &MainWindow::showHelp);
    menu(QT_TR_NOOP("&Help"))->addAction(m_helpAction);
}

void MainWindow::createToolBar()
{
    const std::array<std::pair<QAction *, QStyle::StandardPixmap>, 7> icons{{
        {m_newAction, QStyle::SP_FileIcon},
        {m_openAction, QStyle::SP_DialogOpenButton},
        {m_saveAction, QStyle::SP_DialogSaveButton},
        {m_undoAction, QStyle::SP_ArrowBack},
        {m_redoAction, QStyle::SP_ArrowForward},
        {m_compileAction, QStyle::SP_ArrowDown},
        {m_configureAction, QStyle::SP_FileDialogDetailedView},
    }};
    for (const auto &[action, icon] : icons) {
        action->setIcon(style()->standardIcon(icon));
    }
    m_removeAction->setIcon(style()->standardIcon(QStyle::SP_TrashIcon));
    QToolBar *bar = addToolBar(QString());
    bar->setObjectName(QStringLiteral("toolBar"));
    translated(QT_TR_NOOP("Commands"), [bar](const QString &text) { bar->setWindowTitle(text); });
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(QSize(20, 20));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addActions({m_newAction, m_openAction, m_saveAction});
    bar->addSeparator();
    bar->addActions({m_undoAction, m_redoAction});
    bar->addSeparator();
    bar->addActions({m_configureAction, m_removeAction});
    bar->addSeparator();
    bar->addAction(m_compileAction);
}

void MainWindow::connectViews()
{
    connect(m_catalogView, &CatalogView::placeRequested, this, &MainWindow::addModule);
    connect(m_catalogView, &CatalogView::currentTypeChanged, this, &MainWindow::updateCommands);
    connect(m_rackView, &RackView::placeRequested, this, &MainWindow::addModuleAt);
    connect(m_rackView, &RackView::moveRequested, this, &MainWindow::moveModule);
    connect(m_rackView, &RackView::propertiesRequested, this, &MainWindow::configureModule);
    connect(m_rackView, &RackView::dropRefused, this,
            [this](const QString &reason) { statusBar()->showMessage(reason, messageTime); });
    connect(m_rackView, &RackView::selectionMoved, this, &MainWindow::updateCommands);
    connect(m_memoryView, &MemoryView::moduleSelected, m_rackView, &RackView::setCurrentPlace);
    connect(&m_undoStack, &QUndoStack::indexChanged, this, &MainWindow::updateCommands);
    connect(&m_undoStack, &QUndoStack::cleanChanged, this, &MainWindow::updateTitle);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &MainWindow::updateCommands);
    simulatedhost::setHelpListener([this](const QString &keyword) {
        m_help->showKeyword(keyword);
        m_help->show();
        m_help->raise();
    });
}

void MainWindow::setLanguage(QLocale::Language language)
{
    m_language.set(language);
    for (QAction *action : m_languages->actions()) {
        action->setChecked(action->data().toInt() == m_language.get());
    }
}

void MainWindow::retranslate()
{
    for (const Text &text : m_texts) {
        text.show(tr(text.source));
    }
    updateCommands();
    updateTitle();
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && m_station) {
        retranslate();
    }
}

void MainWindow::readSettings()
{
    const QSettings stored(settingsOwner(), settingsName());
    const auto language = stored.value(QStringLiteral("language"), QLocale::system().language()).toInt();
    setLanguage(static_cast<QLocale::Language>(language));
    m_recent->setFiles(stored.value(QStringLiteral("recentFiles")).toStringList());
    restoreGeometry(stored.value(QStringLiteral("geometry")).toByteArray());
    restoreState(stored.value(QStringLiteral("layout")).toByteArray());
}

void MainWindow::writeSettings() const
{
    QSettings stored(settingsOwner(), settingsName());
    stored.setValue(QStringLiteral("language"), m_language.get());
    stored.setValue(QStringLiteral("recentFiles"), m_recent->files());
    stored.setValue(QStringLiteral("geometry"), saveGeometry());
    stored.setValue(QStringLiteral("layout"), saveState());
}

template <typename Work>
auto MainWindow::withProgress(const QString &label, Work work)
{
    QProgressDialog dialog(label, tr("Cancel"), 0, 0, this);
    dialog.setObjectName(QStringLiteral("progressDialog"));
    dialog.setWindowTitle(tr("Module Workbench"));
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinimumDuration(progressDelay);
    return work([&dialog](int done, int total) {
        dialog.setMaximum(total);
        dialog.setValue(done);
        return !dialog.wasCanceled();
    });
}

void MainWindow::newStation()
{
    if (mayDiscard()) {
        showStation(std::make_unique<Station>(m_plugin, nextMemoryOwner()), QString());
    }
}

void MainWindow::open()
{
    if (!mayDiscard()) {
        return;
    }
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Project"), m_fileName, stationFilter());
    if (!path.isEmpty()) {
        openFile(path);
    }
}

void MainWindow::openRecent(const QString &path)
{
    if (mayDiscard() && !openFile(path) && !QFileInfo::exists(path)) {
        m_recent->remove(path);
    }
}

bool MainWindow::openFile(const QString &path)
{
    QString error;
    std::unique_ptr<Station> station =
        withProgress(tr("Opening %1...").arg(QFileInfo(path).fileName()), [&](const Progress &progress) {
            return openStation(m_plugin, nextMemoryOwner(), path, error, progress);
        });
    if (!station) {
        if (!error.isEmpty()) {
            showProblem(this, tr("%1 cannot be opened.").arg(shown(path)), error);
        }
        return false;
    }
    showStation(std::move(station), path);
    m_recent->add(path);
    statusBar()->showMessage(tr("Opened %1").arg(QFileInfo(path).fileName()), messageTime);
    showUnavailable();
    return true;
}

/// Says which modules are only bytes, and why.
void MainWindow::showUnavailable()
{
    QStringList lines;
    for (int i = 0; i < m_station->count() && lines.size() <= shownProblems; ++i) {
        const ModuleView module = m_station->module(i);
        if (!module.unavailable.isEmpty()) {
            lines +=
                lines.size() == shownProblems
                    ? QStringLiteral("...")
                    : tr("Rack %1, slot %2: %3").arg(module.place.rack).arg(module.place.slot).arg(module.unavailable);
        }
    }
    if (!lines.isEmpty()) {
        showProblem(this,
                    tr("%n module(s) cannot be restored. They stay in the project as they were stored.", nullptr,
                       m_station->unavailableCount()),
                    lines.join(QLatin1Char('\n')));
    }
}

bool MainWindow::save()
{
    return m_fileName.isEmpty() ? saveAs() : saveTo(m_fileName);
}

bool MainWindow::saveAs()
{
    const QString path =
        askForNewFile(this, tr("Save Project"), m_fileName, stationFilter(), QStringLiteral("station"));
    return !path.isEmpty() && saveTo(path);
}

bool MainWindow::saveTo(const QString &path)
{
    ProjectFile file(path);
    if (!file.write(m_station->project())) {
        showProblem(this, tr("%1 cannot be saved.").arg(shown(path)), file.errorString());
        return false;
    }
    m_fileName = path;
    m_undoStack.setClean();
    m_recent->add(path);
    updateTitle();
    statusBar()->showMessage(tr("Saved %1").arg(QFileInfo(path).fileName()), messageTime);
    return true;
}

void MainWindow::compile()
{
    const std::optional<QByteArray> blocks =
        withProgress(tr("Compiling..."), [this](const Progress &progress) { return m_station->compiled(progress); });
    if (!blocks) {
        return;
    }
    if (const int left = m_station->unavailableCount(); left != 0) {
        statusBar()->showMessage(tr("%n module(s) that are not available were left out", nullptr, left), messageTime);
    }
    const QFileInfo project(m_fileName);
    auto *view = new BlockView(
        *blocks, m_fileName.isEmpty() ? QString() : project.dir().filePath(project.completeBaseName() + ".blk"), this);
    view->show();
}

void MainWindow::decompile()
{
    if (!mayDiscard()) {
        return;
    }
    const QString path = QFileDialog::getOpenFileName(this, tr("Decompile Configuration Blocks"), {}, blockFilter());
    if (path.isEmpty()) {
        return;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > blockdecoder::maximumFileSize) {
        showProblem(this, tr("%1 cannot be read.").arg(shown(path)),
                    file.isOpen() ? tr("The file is too large for the blocks of a station.") : file.errorString());
        return;
    }
    std::vector<BlockResult> results;
    std::unique_ptr<Station> station = withProgress(tr("Decompiling..."), [&](const Progress &progress) {
        return decompiled(m_plugin, nextMemoryOwner(), file.readAll(), results, progress);
    });
    if (!station) {
        return;
    }
    const int count = station->count();
    if (count != 0) { // a file of something else does not cost the present station
        showStation(std::move(station), QString());
        m_undoStack.resetClean();
    }
    if (!results.empty()) {
        BlockResultsDialog(count, results, this).exec();
    }
}

void MainWindow::undo()
{
    m_undoStack.undo();
}

void MainWindow::redo()
{
    m_undoStack.redo();
}

void MainWindow::copy()
{
    QByteArrayList states;
    for (const Place place : m_rackView->selectedModules()) {
        states.append(m_station->stored(*m_station->moduleAt(place)).state);
    }
    copyToClipboard(states);
}

void MainWindow::cut()
{
    copy();
    removeModules();
}

void MainWindow::paste()
{
    const QByteArrayList states = clipboardModules();
    m_undoStack.beginMacro(tr("Paste %n module(s)", nullptr, states.size()));
    Place next = m_rackView->currentPlace();
    QString error;
    for (const QByteArray &state : states) {
        const std::optional<Place> place = freePlace(next);
        if (!place) {
            error = tr("Every slot of the station is taken.");
        }
        if (!place || !edits().paste(state, *place, error)) {
            break;
        }
        next = *place;
    }
    m_undoStack.endMacro();
    m_rackView->setCurrentPlace(next);
    if (!error.isEmpty()) {
        showProblem(this, tr("Not all modules can be pasted."), error);
    }
}

void MainWindow::removeModules()
{
    edits().remove(m_rackView->selectedModules());
}

void MainWindow::addModule(quint32 typeCode)
{
    if (const std::optional<Place> place = freePlace(m_rackView->currentPlace())) {
        addModuleAt(typeCode, *place);
    } else {
        showProblem(this, tr("No module can be added."), tr("Every slot of the station is taken."));
    }
}

void MainWindow::addModuleAt(quint32 typeCode, Place place)
{
    const CatalogEntry *entry = findEntry(m_catalog, typeCode);
    const QString name = entry == nullptr ? QString::number(typeCode) : entry->name;
    QString error;
    if (!edits().add(typeCode, place, error)) {
        showProblem(this, tr("%1 cannot be added.").arg(name), error);
        return;
    }
    m_rackView->setCurrentPlace(place);
    statusBar()->showMessage(
        tr("Added %1 in rack %2, slot %3").arg(name, QString::number(place.rack), QString::number(place.slot)),
        messageTime);
}

void MainWindow::moveModule(Place from, Place to)
{
    QString error;
    if (edits().move(from, to, error)) {
        m_rackView->setCurrentPlace(to);
    } else {
        showProblem(this, tr("The module cannot be moved."), error);
    }
}

void MainWindow::askForPlace()
{
    const std::optional<int> index = currentModule();
    if (!index) {
        return;
    }
    PlaceDialog dialog(*m_station, *index, this);
    if (dialog.exec() == QDialog::Accepted) {
        moveModule(m_rackView->currentPlace(), dialog.place());
    }
}

void MainWindow::configureModule()
{
    const std::optional<int> index = currentModule();
    if (!index) {
        return;
    }
    const ModuleView module = m_station->module(*index);
    if (!module.unavailable.isEmpty()) {
        showProblem(this, tr("\"%1\" has no properties while it is not available.").arg(module.name),
                    module.unavailable);
        return;
    }
    edits().configure(module.place, this);
}

void MainWindow::setController(quint32 type)
{
    QString error;
    if (!edits().setPlcType(type, error)) {
        showProblem(this, tr("The station cannot have this controller."), error);
    }
    updateCommands();
}

void MainWindow::showHelp()
{
    const std::optional<int> index = currentModule();
    const CatalogEntry *entry = index ? findEntry(m_catalog, m_station->module(*index).typeCode) : nullptr;
    m_help->showFamily(entry == nullptr ? CatalogFamily::Other : entry->family);
    m_help->show();
    m_help->raise();
}

std::optional<int> MainWindow::currentModule() const
{
    return m_station->moduleAt(m_rackView->currentPlace());
}

std::optional<Place> MainWindow::freePlace(Place wanted) const
{
    for (int index = wanted.index(); index < Place::count; ++index) {
        if (!m_station->moduleAt(Place::at(index))) {
            return Place::at(index);
        }
    }
    return m_station->firstFreePlace();
}

void MainWindow::showStation(std::unique_ptr<Station> station, const QString &fileName)
{
    m_undoStack.clear();
    const std::unique_ptr<Station> former = std::exchange(m_station, std::move(station));
    m_fileName = fileName;
    m_memoryView->show(m_station.get());
    m_rackView->show(m_station.get());
    connect(m_station.get(), &Station::plcTypeChanged, this, &MainWindow::updateCommands);
    updateCommands();
    updateTitle();
}

/// After another selection, and after a step that may have changed what is in the selected slots.
void MainWindow::updateCommands()
{
    if (!m_station) {
        return;
    }
    const QVector<Place> selected = m_rackView->selectedModules();
    m_memoryView->select(selected);
    for (QAction *action : {m_cutAction, m_copyAction, m_removeAction}) {
        action->setEnabled(!selected.isEmpty());
    }
    for (QAction *action : {m_placeAction, m_configureAction}) {
        action->setEnabled(currentModule().has_value());
    }
    m_addAction->setEnabled(m_catalogView->currentType().has_value());
    m_pasteAction->setEnabled(!clipboardModules().isEmpty());
    m_compileAction->setEnabled(m_station->count() != m_station->unavailableCount());
    m_undoAction->setEnabled(m_undoStack.canUndo());
    m_redoAction->setEnabled(m_undoStack.canRedo());
    m_undoAction->setToolTip(tr("Undo: %1").arg(m_undoStack.undoText()));
    m_redoAction->setToolTip(tr("Redo: %1").arg(m_undoStack.redoText()));
    QString controller;
    for (QAction *action : m_controllers->actions()) {
        action->setChecked(action->data().toUInt() == m_station->plcType());
        controller = action->isChecked() ? action->text() : controller;
    }
    m_summary->setText(tr("%n module(s), controller %1", nullptr, m_station->count()).arg(controller));
}

void MainWindow::updateTitle()
{
    setWindowTitle(tr("%1[*] - Module Workbench").arg(fileTitle()));
    setWindowModified(!m_undoStack.isClean());
}

QString MainWindow::fileTitle() const
{
    return m_fileName.isEmpty() ? tr("New station") : QFileInfo(m_fileName).fileName();
}

bool MainWindow::mayDiscard()
{
    if (m_undoStack.isClean()) {
        return true;
    }
    QMessageBox box(QMessageBox::Warning, tr("Unsaved Changes"), tr("Save the changes to \"%1\"?").arg(fileTitle()),
                    QMessageBox::NoButton, this);
    box.setObjectName(QStringLiteral("unsavedBox"));
    const QAbstractButton *const save = box.addButton(tr("&Save"), QMessageBox::AcceptRole);
    const QAbstractButton *const discard = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(tr("Cancel"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == discard || (box.clickedButton() == save && this->save());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayDiscard());
    if (event->isAccepted()) {
        writeSettings();
    }
}

/// Two stations exist for a moment while one replaces the other, so each has a key of its own.
QString MainWindow::nextMemoryOwner()
{
    return QStringLiteral("workbench-%1").arg(++m_stationNumber);
}
