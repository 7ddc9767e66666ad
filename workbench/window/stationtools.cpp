#include "stationtools.h"

#include "actiontexts.h"
#include "channelview.h"
#include "comparedialog.h"
#include "filequestions.h"
#include "finddialog.h"
#include "helpdialogs.h"
#include "moduleclipboard.h"
#include "projectfile.h"
#include "propertiesdialog.h"
#include "rackview.h"
#include "reportdialog.h"
#include "toolicons.h"
#include "ui_mainwindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

StationTools::StationTools(Ui::MainWindow &ui, StationDocument &document, const std::vector<CatalogEntry> &catalog,
                           RackView &racks, QMainWindow &window)
    : QObject(&window),
      m_ui(ui),
      m_document(document),
      m_catalog(catalog),
      m_racks(racks),
      m_window(window),
      m_channels(new ChannelView(&window))
{
    addChannels();
    addIcons();
    racks.addAction(ui.pasteParametersAction);
    connect(ui.findAction, &QAction::triggered, this, &StationTools::find);
    connect(ui.compareAction, &QAction::triggered, this, &StationTools::compare);
    connect(ui.reportAction, &QAction::triggered, this, &StationTools::report);
    connect(ui.pasteParametersAction, &QAction::triggered, this, &StationTools::pasteParameters);
    connect(ui.projectPropertiesAction, &QAction::triggered, this, &StationTools::editProperties);
    connect(ui.allSlotsAction, &QAction::toggled, &racks, &RackView::setShowsAll);
    connect(ui.largerCardsAction, &QAction::triggered, &racks, [&racks] { racks.setZoom(racks.zoom() + 1); });
    connect(ui.smallerCardsAction, &QAction::triggered, &racks, [&racks] { racks.setZoom(racks.zoom() - 1); });
    connect(ui.shortcutsAction, &QAction::triggered, this, [this] { showShortcuts(*m_ui.menuBar, &m_window); });
    connect(ui.aboutAction, &QAction::triggered, this,
            [this] { showAbout(m_document.station().plugin().fileName(), &m_window); });
    const auto updatePaste = [this] { m_ui.pasteParametersAction->setEnabled(clipboardHasModules()); };
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, updatePaste);
    updatePaste();
}

void StationTools::addChannels()
{
    m_ui.channelDock->setWidget(m_channels);
    m_window.tabifyDockWidget(m_ui.memoryDock, m_ui.channelDock);
    m_ui.memoryDock->raise();
    m_ui.viewMenu->insertAction(m_ui.memoryDock->toggleViewAction(), m_ui.channelDock->toggleViewAction());
    // A dock under another tab counts as visible, so the dock decides and not the view.
    connect(m_ui.channelDock, &QDockWidget::visibilityChanged, m_channels, &ChannelView::setActive);
    connect(m_channels, &ChannelView::propertiesRequested, this, &StationTools::configure);
}

void StationTools::addIcons()
{
    for (const auto &[action, icon] :
         {std::pair(m_ui.newAction, ToolIcon::New), std::pair(m_ui.openAction, ToolIcon::Open),
          std::pair(m_ui.saveAction, ToolIcon::Save), std::pair(m_ui.undoAction, ToolIcon::Undo),
          std::pair(m_ui.redoAction, ToolIcon::Redo), std::pair(m_ui.copyAction, ToolIcon::Copy),
          std::pair(m_ui.pasteAction, ToolIcon::Paste), std::pair(m_ui.findAction, ToolIcon::Find),
          std::pair(m_ui.configureAction, ToolIcon::Properties), std::pair(m_ui.removeAction, ToolIcon::Remove),
          std::pair(m_ui.reportAction, ToolIcon::Report), std::pair(m_ui.compileAction, ToolIcon::Compile)}) {
        action->setIcon(toolIcon(icon));
    }
}

void StationTools::showStation()
{
    m_channels->setStation(&m_document.station());
}

void StationTools::updateToolTips()
{
    for (QAction *action : m_ui.toolBar->actions()) {
        QString tip = plainText(*action);
        action->setIconText(tip);
        const QUndoStack &stack = m_document.undoStack();
        const QString step = action == m_ui.undoAction   ? stack.undoText()
                             : action == m_ui.redoAction ? stack.redoText()
                                                         : QString();
        if (!step.isEmpty()) {
            tip += QStringLiteral(": ") + step;
        }
        if (const QString keys = shortcutsText(*action); !keys.isEmpty()) {
            tip += QStringLiteral(" (%1)").arg(keys);
        }
        action->setToolTip(tip);
    }
}

void StationTools::choose(Place place)
{
    if (!m_document.station().moduleAt(place)) {
        emit message(tr("Rack %1, slot %2 has no module any more.").arg(place.rack).arg(place.slot));
        return;
    }
    m_racks.setCurrentPlace(place);
    m_racks.setFocus(Qt::OtherFocusReason);
    m_window.activateWindow();
}

void StationTools::configure(Place place)
{
    m_racks.setCurrentPlace(place);
    m_ui.configureAction->trigger();
}

void StationTools::find()
{
    if (m_find == nullptr) {
        m_find = new FindDialog(m_document, m_catalog, &m_window);
        connect(m_find, &FindDialog::moduleChosen, this, &StationTools::choose);
    }
    m_find->start();
}

void StationTools::compare()
{
    const QString path =
        QFileDialog::getOpenFileName(&m_window, tr("Compare with Project"), m_document.fileName(), stationFilter());
    if (path.isEmpty()) {
        return;
    }
    const Result<Project> other = ProjectFile(path).read();
    if (!other) {
        showFailure(&m_window, tr("%1 cannot be opened.").arg(QDir::toNativeSeparators(path)), other);
        return;
    }
    auto *dialog = new CompareDialog(m_document.station().project(), tr("This station"), *other,
                                     QFileInfo(path).fileName(), &m_window);
    connect(dialog, &CompareDialog::moduleChosen, this, &StationTools::choose);
    dialog->show();
}

void StationTools::report()
{
    showReport(m_document.station(), m_catalog, {m_document.fileName(), QDateTime::currentDateTime()}, &m_window);
}

void StationTools::pasteParameters()
{
    QByteArrayList states;
    for (const StoredModule &module : clipboardModules().modules) {
        states.append(module.state);
    }
    const QVector<Place> selected = m_racks.selectedModules();
    if (states.isEmpty() || selected.isEmpty()) {
        emit message(tr("Copy a module, then select the modules that are to get its parameters."));
        return;
    }
    const Place current = m_racks.currentPlace();
    const Result<ParameterPaste> pasted = m_document.edits().pasteParameters(states, selected);
    if (!pasted) {
        showFailure(&m_window, tr("The parameters cannot be pasted."), pasted);
        return;
    }
    m_racks.selectPlaces(selected, current);
    QStringList texts{tr("Parameters pasted to %n module(s)", nullptr, pasted->changed)};
    if (pasted->same != 0) {
        texts += tr("%n had them already", nullptr, pasted->same);
    }
    if (pasted->otherType != 0) {
        texts += tr("%n of another type left alone", nullptr, pasted->otherType);
    }
    if (pasted->unavailable != 0) {
        texts += tr("%n not available", nullptr, pasted->unavailable);
    }
    emit message(texts.join(QStringLiteral("; ")));
}

void StationTools::editProperties()
{
    ProjectPropertiesDialog dialog(m_document.station().properties(), &m_window);
    if (dialog.exec() == QDialog::Accepted) {
        m_document.edits().setProperties(dialog.properties());
    }
}
