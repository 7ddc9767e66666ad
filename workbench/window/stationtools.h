// The commands that answer questions about the station and edit many modules: channels, find, compare, report, paste
// parameters, project properties. Also the texts, icons and dialogs of the commands in general.
#pragma once

#include "catalog.h"
#include "stationdocument.h"

#include <QObject>

class ChannelView;
class FindDialog;
class QAction;
class QMainWindow;
class RackView;

namespace Ui {
class MainWindow;
}

class StationTools : public QObject {
    Q_OBJECT
public:
    /// All arguments must outlive this object. @p window, which owns it, must have its form and its views.
    StationTools(Ui::MainWindow &ui, StationDocument &document, const std::vector<CatalogEntry> &catalog,
                 RackView &racks, QMainWindow &window);

    /// Call when the document has another station.
    void showStation();
    /// Call after the texts of the form were set, and when the texts of undo and redo change.
    void updateToolTips();

signals:
    /// A short text for the status bar.
    void message(const QString &text);

private:
    void addChannels();
    void addIcons();
    void find();
    void compare();
    void report();
    void pasteParameters();
    void editProperties();
    void configure(Place place);
    void choose(Place place);

    Ui::MainWindow &m_ui;
    StationDocument &m_document;
    const std::vector<CatalogEntry> &m_catalog;
    RackView &m_racks;
    QMainWindow &m_window;
    ChannelView *m_channels;
    FindDialog *m_find = nullptr; ///< created by the first search
};
