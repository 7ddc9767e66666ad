// The workbench's window: catalog, racks, memory map, help.
#pragma once

#include "catalog.h"
#include "language.h"
#include "stationblocks.h"
#include "stationcommands.h"

#include <QKeySequence>
#include <QMainWindow>
#include <QUndoStack>

#include <memory>

class CatalogView;
class HelpDock;
class MemoryView;
class QActionGroup;
class QLabel;
class RackView;
class RecentMenu;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// Shows @p station as a new one that was never saved. @p plugin must outlive the window.
    MainWindow(const PluginLibrary &plugin, std::vector<CatalogEntry> catalog, std::unique_ptr<Station> station);
    ~MainWindow() override;

    /// Opens a project file in place of the present station, which stays when the file is refused.
    bool openFile(const QString &path);
    /// English or Chinese, for the window, the plug-in and the host.
    void setLanguage(QLocale::Language language);

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// A text that is shown in the present language.
    struct Text {
        const char *source; ///< in this class's translation context
        std::function<void(const QString &text)> show;
    };

    void translated(const char *source, const std::function<void(const QString &text)> &show);
    template <typename Run>
    QAction *command(const char *name, const char *text, const char *tip, const QKeySequence &shortcut, Run run);
    QMenu *menu(const char *title);
    void dock(const char *name, const char *title, QWidget *content, Qt::DockWidgetArea area);
    void createViews();
    void createFileCommands();
    void createEditCommands();
    void createModuleCommands();
    void createViewCommands();
    void createToolBar();
    void connectViews();
    void retranslate();
    void readSettings();
    void writeSettings() const;

    void newStation();
    void open();
    void openRecent(const QString &path);
    bool save();
    bool saveAs();
    bool saveTo(const QString &path);
    void compile();
    void decompile();
    void undo();
    void redo();
    void copy();
    void cut();
    void paste();
    void removeModules();
    void addModule(quint32 typeCode);
    void addModuleAt(quint32 typeCode, Place place);
    void moveModule(Place from, Place to);
    void askForPlace();
    void configureModule();
    void setController(quint32 type);
    void showHelp();

    StationEdits edits() { return {*m_station, m_undoStack}; }
    /// Index of the module in the current slot.
    std::optional<int> currentModule() const;
    /// @p wanted when it is free, else the first free slot behind it, else the first one of all.
    std::optional<Place> freePlace(Place wanted) const;
    void showStation(std::unique_ptr<Station> station, const QString &fileName);
    void showUnavailable();
    void updateCommands();
    void updateTitle();
    /// Offers to save unsaved changes. False when the user would rather stay.
    bool mayDiscard();
    QString fileTitle() const;
    QString nextMemoryOwner();
    /// What @p work(progress) returns; a long one shows its progress and can be cancelled.
    template <typename Work>
    auto withProgress(const QString &label, Work work);

    const PluginLibrary &m_plugin;
    std::vector<CatalogEntry> m_catalog;
    InterfaceLanguage m_language;
    std::vector<Text> m_texts;
    std::unique_ptr<Station> m_station;
    QUndoStack m_undoStack;
    QString m_fileName; ///< empty for a station that was never saved
    int m_stationNumber = 0;

    CatalogView *m_catalogView = nullptr;
    RackView *m_rackView = nullptr;
    MemoryView *m_memoryView = nullptr;
    HelpDock *m_help = nullptr;
    QLabel *m_summary = nullptr;
    RecentMenu *m_recent = nullptr;
    QActionGroup *m_controllers = nullptr;
    QActionGroup *m_languages = nullptr;
    std::vector<QAction *> m_dockToggles;
    QAction *m_newAction = nullptr;
    QAction *m_openAction = nullptr;
    QAction *m_saveAction = nullptr;
    QAction *m_undoAction = nullptr;
    QAction *m_redoAction = nullptr;
    QAction *m_cutAction = nullptr;
    QAction *m_copyAction = nullptr;
    QAction *m_pasteAction = nullptr;
    QAction *m_removeAction = nullptr;
    QAction *m_addAction = nullptr;
    QAction *m_placeAction = nullptr;
    QAction *m_configureAction = nullptr;
    QAction *m_compileAction = nullptr;
    QAction *m_helpAction = nullptr;
};
