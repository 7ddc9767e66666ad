// The main window: catalog, racks, memory map, problems, help.
#pragma once

#include "autorecovery.h"
#include "catalog.h"
#include "language.h"
#include "stationdocument.h"

#include <QMainWindow>

class CatalogView;
class FileCommands;
class MemoryView;
class ModuleCommands;
class ProblemView;
class QActionGroup;
class QLabel;
class QToolButton;
class RackView;
class StationTools;

namespace Ui {
class MainWindow;
}

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// Shows @p station as a new project that was never saved. @p plugin must outlive the window.
    MainWindow(const PluginLibrary &plugin, std::vector<CatalogEntry> catalog, std::unique_ptr<Station> station);
    ~MainWindow() override;

    /// See FileCommands::openFile().
    bool openFile(const QString &path);
    /// Offers stations that a killed program left unsaved. Returns true if the user recovered one.
    bool offerRecovery();
    /// Sets English or Chinese for the window, the plug-in and the host.
    void setLanguage(QLocale::Language language);

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void addViews();
    void addControllers();
    void connectDocks();
    void connectFileActions();
    void connectModuleActions();
    void connectViewActions();
    void connectViews();
    void retranslate();
    void readSettings();
    void writeSettings() const;

    void setController(quint32 type);
    void showHelp();

    /// Index of the module in the current slot.
    std::optional<int> currentModule() const;
    void showStation();
    void showMessage(const QString &text);
    void updateStation();
    void updateProblemCount(int count);
    void updateSelection();
    void updateCurrent();
    void updateTitle();

    const std::unique_ptr<Ui::MainWindow> m_ui;
    const std::vector<CatalogEntry> m_catalog;
    StationDocument m_document;
    AutoRecovery m_recovery;
    InterfaceLanguage m_language;
    FileCommands *m_files;
    CatalogView *m_catalogView;
    RackView *m_rackView;
    MemoryView *m_memoryView;
    ModuleCommands *m_modules;
    ProblemView *m_problems;
    QToolButton *m_problemCount;
    QLabel *m_summary;
    QActionGroup *m_controllers;
    StationTools *m_tools = nullptr;
};
