// The workbench's window: catalog, station table, memory map.
#pragma once

#include "catalog.h"
#include "stationcommands.h"

#include <QKeySequence>
#include <QMainWindow>
#include <QUndoStack>

#include <memory>

class MemoryModel;
class QAction;
class QLabel;
class QTableView;
class QTreeWidget;
class StationModel;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// Shows @p station as a new one that was never saved. @p plugin must outlive the window.
    MainWindow(const PluginLibrary &plugin, std::vector<CatalogEntry> catalog, std::unique_ptr<Station> station);
    ~MainWindow() override;

    /// Opens a station file in place of the present station, which stays when the file is refused.
    bool openFile(const QString &path);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    template <typename Run>
    QAction *command(const QString &text, const QString &tip, const QKeySequence &shortcut, Run run);
    void createFileCommands();
    void createModuleCommands();
    void createMenus();
    void createToolBar();
    QWidget *createCatalogPanel();
    QWidget *createStationPanel();
    QWidget *createMemoryPanel();

    void newStation();
    void open();
    bool save();
    bool saveAs();
    void compile();
    void addModule();
    void removeModule();
    void placeModule();
    void configureModule();

    void filterCatalog(const QString &text);
    void showStation(std::unique_ptr<Station> station, const QString &fileName);
    void refresh(int selectedRow);
    void updateCommands();
    bool saveTo(const QString &path);
    QString askForFile(const QString &title, const QString &present, const QString &filter, const QString &suffix);
    /// Offers to save unsaved changes. False when the user would rather stay.
    bool mayDiscard();
    void showError(const QString &text, const QString &reason);
    QString nextMemoryOwner();
    /// Index of the selected module, or -1.
    int selectedModule() const;

    const PluginLibrary &m_plugin;
    std::vector<CatalogEntry> m_catalog;
    std::unique_ptr<Station> m_station;
    QUndoStack m_undoStack;
    QString m_fileName; ///< empty for a station that was never saved
    int m_stationNumber = 0;

    StationModel *m_stationModel;
    MemoryModel *m_memoryModel;
    QTreeWidget *m_catalogTree = nullptr;
    QTableView *m_stationTable = nullptr;
    QLabel *m_memorySummary = nullptr;
    QAction *m_newAction = nullptr;
    QAction *m_openAction = nullptr;
    QAction *m_saveAction = nullptr;
    QAction *m_saveAsAction = nullptr;
    QAction *m_compileAction = nullptr;
    QAction *m_quitAction = nullptr;
    QAction *m_addAction = nullptr;
    QAction *m_removeAction = nullptr;
    QAction *m_placeAction = nullptr;
    QAction *m_configureAction = nullptr;
};
