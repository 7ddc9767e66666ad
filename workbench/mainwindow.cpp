#include "mainwindow.h"

#include "memorymodel.h"
#include "placedialog.h"
#include "projectfile.h"
#include "simulatedhelp.h"
#include "stationmodel.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int messageTime = 6000; // ms
constexpr int typeCodeRole = Qt::UserRole;

/// A headed part of the window.
QWidget *panel(const QString &title, const std::vector<QWidget *> &contents)
{
    auto *widget = new QWidget;
    auto *layout = new QVBoxLayout(widget);
    auto *heading = new QLabel(title, widget);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    layout->addWidget(heading);
    for (QWidget *content : contents) {
        layout->addWidget(content);
    }
    return widget;
}

QTableView *tableView(QAbstractItemModel *model)
{
    auto *view = new QTableView;
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setAlternatingRowColors(true);
    view->setShowGrid(false);
    view->setTabKeyNavigation(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 6);
    view->horizontalHeader()->setHighlightSections(false);
    return view;
}

QString stationFilter()
{
    return MainWindow::tr("Station files (*.station);;All files (*)");
}

} // namespace

MainWindow::MainWindow(const PluginLibrary &plugin, std::vector<CatalogEntry> catalog, std::unique_ptr<Station> station)
    : m_plugin(plugin),
      m_catalog(std::move(catalog)),
      m_stationModel(new StationModel(m_catalog, this)),
      m_memoryModel(new MemoryModel(this))
{
    createFileCommands();
    createModuleCommands();
    auto *right = new QSplitter(Qt::Vertical);
    right->addWidget(createStationPanel());
    right->addWidget(createMemoryPanel());
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 2);
    right->setChildrenCollapsible(false);
    auto *center = new QSplitter(Qt::Horizontal, this);
    center->addWidget(createCatalogPanel());
    center->addWidget(right);
    center->setStretchFactor(0, 0);
    center->setStretchFactor(1, 1);
    center->setSizes({340, 760});
    center->setChildrenCollapsible(false);
    setCentralWidget(center);
    createMenus();
    createToolBar();
    resize(1100, 700);

    simulatedhost::setHelpListener(
        [this](const QString &keyword) { statusBar()->showMessage(tr("Help: %1").arg(keyword), messageTime); });
    showStation(std::move(station), QString());
    statusBar()->showMessage(tr("Plug-in: %1").arg(QFileInfo(plugin.fileName()).fileName()), messageTime);
}

MainWindow::~MainWindow()
{
    simulatedhost::setHelpListener({});
}

template <typename Run>
QAction *MainWindow::command(const QString &text, const QString &tip, const QKeySequence &shortcut, Run run)
{
    auto *action = new QAction(text, this);
    action->setStatusTip(tip);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void MainWindow::createFileCommands()
{
    m_newAction = command(tr("&New"), tr("Begin an empty station"), QKeySequence::New, &MainWindow::newStation);
    m_openAction = command(tr("&Open..."), tr("Open a station file"), QKeySequence::Open, &MainWindow::open);
    m_saveAction = command(tr("&Save"), tr("Save the station to its file"), QKeySequence::Save, &MainWindow::save);
    m_saveAsAction = command(tr("Save &As..."), tr("Save the station to another file"),
                             QKeySequence(QStringLiteral("Ctrl+Shift+S")), &MainWindow::saveAs);
    m_compileAction = command(tr("&Compile..."), tr("Write the configuration blocks of all modules to a file"),
                              QKeySequence(Qt::Key_F7), &MainWindow::compile);
    m_quitAction =
        command(tr("&Quit"), tr("Close the workbench"), QKeySequence(QStringLiteral("Ctrl+Q")), &QWidget::close);

    m_newAction->setIcon(style()->standardIcon(QStyle::SP_FileIcon));
    m_openAction->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    m_saveAction->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
    m_compileAction->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
}

void MainWindow::createModuleCommands()
{
    m_addAction = command(tr("&Add"), tr("Add the module that is selected in the catalog, in the first free slot"),
                          QKeySequence(Qt::Key_Insert), &MainWindow::addModule);
    m_placeAction = command(tr("&Place..."), tr("Move the selected module to another rack or slot"),
                            QKeySequence(Qt::Key_F2), &MainWindow::placeModule);
    m_configureAction = command(tr("P&roperties..."), tr("Edit the parameters of the selected module"),
                                QKeySequence(Qt::Key_Return), &MainWindow::configureModule);
    m_configureAction->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    m_removeAction = command(tr("&Remove"), tr("Remove the selected module and free its addresses"),
                             QKeySequence::Delete, &MainWindow::removeModule);
    // Return and Delete mean other things in the catalog and its filter.
    for (QAction *action : {m_configureAction, m_removeAction}) {
        action->setShortcutContext(Qt::WidgetShortcut);
    }

    m_addAction->setIcon(style()->standardIcon(QStyle::SP_ArrowRight));
    m_placeAction->setIcon(style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton));
    m_removeAction->setIcon(style()->standardIcon(QStyle::SP_TrashIcon));
    m_configureAction->setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
}

void MainWindow::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addActions({m_newAction, m_openAction, m_saveAction, m_saveAsAction});
    file->addSeparator();
    file->addAction(m_compileAction);
    file->addSeparator();
    file->addAction(m_quitAction);
    QMenu *module = menuBar()->addMenu(tr("&Module"));
    module->addActions({m_addAction, m_placeAction, m_configureAction});
    module->addSeparator();
    module->addAction(m_removeAction);
}

void MainWindow::createToolBar()
{
    QToolBar *bar = addToolBar(tr("Commands"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(QSize(20, 20));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addActions({m_newAction, m_openAction, m_saveAction});
    bar->addSeparator();
    bar->addAction(m_compileAction);
    bar->addSeparator();
    bar->addActions({m_addAction, m_placeAction, m_configureAction, m_removeAction});
}

QWidget *MainWindow::createCatalogPanel()
{
    auto *filter = new QLineEdit;
    filter->setPlaceholderText(tr("Filter by name or order number"));
    filter->setClearButtonEnabled(true);
    connect(filter, &QLineEdit::textChanged, this, &MainWindow::filterCatalog);

    m_catalogTree = new QTreeWidget;
    m_catalogTree->setHeaderLabels({tr("Module"), tr("Order number")});
    m_catalogTree->setRootIsDecorated(false);
    m_catalogTree->setAlternatingRowColors(true);
    for (const CatalogEntry &entry : m_catalog) {
        auto *item = new QTreeWidgetItem(m_catalogTree, {entry.name, entry.orderNumber});
        item->setData(0, typeCodeRole, entry.typeCode);
        for (int column = 0; column < m_catalogTree->columnCount(); ++column) {
            item->setToolTip(column, tr("Type %1; double click to add it").arg(entry.typeCode));
        }
    }
    m_catalogTree->header()->setStretchLastSection(false);
    m_catalogTree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_catalogTree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_catalogTree->setCurrentItem(m_catalogTree->topLevelItem(0));
    connect(m_catalogTree, &QTreeWidget::itemActivated, this, &MainWindow::addModule);
    connect(m_catalogTree, &QTreeWidget::currentItemChanged, this, &MainWindow::updateCommands);
    return panel(tr("Catalog"), {filter, m_catalogTree});
}

QWidget *MainWindow::createStationPanel()
{
    m_stationTable = tableView(m_stationModel);
    QHeaderView *header = m_stationTable->horizontalHeader();
    for (const int column : {StationModel::Rack, StationModel::Slot, StationModel::Type}) {
        header->resizeSection(column, 64);
    }
    header->setSectionResizeMode(StationModel::Name, QHeaderView::Stretch);
    for (const int column : {StationModel::Input, StationModel::Output}) {
        header->resizeSection(column, 130);
    }
    m_stationTable->addActions({m_configureAction, m_placeAction, m_removeAction});
    m_stationTable->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_stationTable, &QTableView::doubleClicked, this, &MainWindow::configureModule);
    connect(m_stationTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::updateCommands);
    return panel(tr("Station"), {m_stationTable});
}

QWidget *MainWindow::createMemoryPanel()
{
    auto *table = tableView(m_memoryModel);
    table->horizontalHeader()->setSectionResizeMode(MemoryModel::Module, QHeaderView::Stretch);
    m_memorySummary = new QLabel;
    m_memorySummary->setToolTip(tr("Bytes used and available in every memory area"));
    return panel(tr("Memory map"), {table, m_memorySummary});
}

void MainWindow::filterCatalog(const QString &text)
{
    for (int i = 0; i < m_catalogTree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = m_catalogTree->topLevelItem(i);
        item->setHidden(!item->text(0).contains(text, Qt::CaseInsensitive) &&
                        !item->text(1).contains(text, Qt::CaseInsensitive));
    }
    updateCommands();
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
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Station"), m_fileName, stationFilter());
    if (!path.isEmpty()) {
        openFile(path);
    }
}

bool MainWindow::openFile(const QString &path)
{
    QString error;
    ProjectFile file(path);
    const std::optional<Project> project = file.read();
    std::unique_ptr<Station> station;
    if (project) {
        station = Station::opened(m_plugin, nextMemoryOwner(), *project, error);
    } else {
        error = file.errorString();
    }
    if (!station) {
        showError(tr("%1 cannot be opened.").arg(QDir::toNativeSeparators(path)), error);
        return false;
    }
    showStation(std::move(station), path);
    statusBar()->showMessage(tr("Opened %1").arg(QFileInfo(path).fileName()), messageTime);
    return true;
}

bool MainWindow::save()
{
    return m_fileName.isEmpty() ? saveAs() : saveTo(m_fileName);
}

bool MainWindow::saveAs()
{
    const QString path = askForFile(tr("Save Station"), m_fileName, stationFilter(), QStringLiteral("station"));
    return !path.isEmpty() && saveTo(path);
}

/// The path of a file to be written; empty when the user cancels.
QString MainWindow::askForFile(const QString &title, const QString &present, const QString &filter,
                               const QString &suffix)
{
    QFileDialog dialog(this, title, present, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool MainWindow::saveTo(const QString &path)
{
    ProjectFile file(path);
    if (!file.write(m_station->project())) {
        showError(tr("%1 cannot be saved.").arg(QDir::toNativeSeparators(path)), file.errorString());
        return false;
    }
    m_undoStack.setClean();
    m_fileName = path;
    updateCommands();
    statusBar()->showMessage(tr("Saved %1").arg(QFileInfo(path).fileName()), messageTime);
    return true;
}

void MainWindow::compile()
{
    const QString path = askForFile(tr("Compile Station"), QString(), tr("Configuration blocks (*.blk);;All files (*)"),
                                    QStringLiteral("blk"));
    if (path.isEmpty()) {
        return;
    }
    QString error;
    const QByteArray block = *m_station->compiled();
    if (!writeFile(path, block, error)) {
        showError(tr("%1 cannot be written.").arg(QDir::toNativeSeparators(path)), error);
        return;
    }
    statusBar()->showMessage(tr("Compiled %n module(s) into %1: %2 bytes", nullptr, m_station->count())
                                 .arg(QFileInfo(path).fileName())
                                 .arg(block.size()),
                             messageTime);
}

void MainWindow::addModule()
{
    const QTreeWidgetItem *item = m_catalogTree->currentItem();
    if (item == nullptr || item->isHidden()) {
        return;
    }
    QString error = tr("Every slot of the station is taken.");
    const Place place = m_station->firstFreePlace().value_or(Place());
    if (!StationEdits(*m_station, m_undoStack).add(item->data(0, typeCodeRole).toUInt(), place, error)) {
        showError(tr("%1 cannot be added.").arg(item->text(0)), error);
        return;
    }
    refresh(*m_station->moduleAt(place));
    statusBar()->showMessage(tr("Added %1 in rack %2, slot %3").arg(item->text(0)).arg(place.rack).arg(place.slot),
                             messageTime);
}

void MainWindow::removeModule()
{
    const int index = selectedModule();
    if (index < 0) {
        return;
    }
    const ModuleView module = m_station->module(index);
    StationEdits(*m_station, m_undoStack).remove({module.place});
    refresh(std::min(index, m_station->count() - 1));
    statusBar()->showMessage(tr("Removed %1").arg(module.name), messageTime);
}

void MainWindow::placeModule()
{
    const int index = selectedModule();
    if (index < 0) {
        return;
    }
    PlaceDialog dialog(*m_station, index, this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    QString error;
    if (StationEdits(*m_station, m_undoStack).move(m_station->module(index).place, dialog.place(), error)) {
        refresh(*m_station->moduleAt(dialog.place()));
    } else {
        showError(tr("The module cannot be moved."), error);
    }
}

void MainWindow::configureModule()
{
    const int index = selectedModule();
    if (index < 0) {
        return;
    }
    StationEdits(*m_station, m_undoStack).configure(m_station->module(index).place, this);
    refresh(index);
}

void MainWindow::showStation(std::unique_ptr<Station> station, const QString &fileName)
{
    m_stationModel->show(station.get());
    m_memoryModel->show(station.get());
    m_undoStack.clear();
    m_station = std::move(station);
    m_fileName = fileName;
    refresh(0);
}

/// Shows the station as it is now, with the module at @p selectedRow selected.
void MainWindow::refresh(int selectedRow)
{
    m_stationModel->show(m_station.get());
    m_memoryModel->show(m_station.get());
    m_memorySummary->setText(m_memoryModel->summary());
    m_stationTable->selectRow(selectedRow);
    updateCommands();
}

void MainWindow::updateCommands()
{
    const bool selected = selectedModule() >= 0;
    for (QAction *action : {m_placeAction, m_configureAction, m_removeAction}) {
        action->setEnabled(selected);
    }
    const QTreeWidgetItem *item = m_catalogTree->currentItem();
    m_addAction->setEnabled(item != nullptr && !item->isHidden());
    m_compileAction->setEnabled(m_station && m_station->count() != 0);
    setWindowModified(!m_undoStack.isClean());
    const QString name = m_fileName.isEmpty() ? tr("New station") : QFileInfo(m_fileName).fileName();
    setWindowTitle(tr("%1[*] - Module Workbench").arg(name));
}

bool MainWindow::mayDiscard()
{
    if (!isWindowModified()) {
        return true;
    }
    const QString name = m_fileName.isEmpty() ? tr("the new station") : QFileInfo(m_fileName).fileName();
    const auto answer =
        QMessageBox::warning(this, tr("Unsaved Changes"), tr("Save the changes to %1?").arg(name),
                             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayDiscard());
}

void MainWindow::showError(const QString &text, const QString &reason)
{
    QMessageBox box(QMessageBox::Warning, tr("Module Workbench"), text, QMessageBox::Ok, this);
    box.setInformativeText(reason);
    box.exec();
}

/// Two stations exist for a moment while one replaces the other, so each has a key of its own.
QString MainWindow::nextMemoryOwner()
{
    return QStringLiteral("workbench-%1").arg(++m_stationNumber);
}

int MainWindow::selectedModule() const
{
    const QModelIndex current = m_stationTable->selectionModel()->currentIndex();
    return m_stationTable->selectionModel()->hasSelection() ? current.row() : -1;
}
