// The commands that edit modules, with their questions, messages and failures.
#pragma once

#include "catalog.h"
#include "stationdocument.h"

class RackView;

class ModuleCommands : public QObject {
    Q_OBJECT
public:
    /// Dialogs appear over @p window, which owns this object. The other arguments must outlive it.
    ModuleCommands(StationDocument &document, RackView &racks, const std::vector<CatalogEntry> &catalog,
                   QWidget &window);

    /// Adds a module to the current slot, or to the next free one.
    void add(quint32 typeCode);
    void addAt(quint32 typeCode, Place place);
    void move(const QVector<Place> &places, Place by);
    /// Moves the current module to a place that the user enters.
    void askForPlace();
    /// Opens the properties of the current module.
    void configure();
    void cut();
    void copy();
    void paste();
    void remove();
    /// Shows and selects the modules that undoing or redoing changes.
    void undo() { step(&QUndoStack::undo, tr("Undone: %1").arg(m_document.undoStack().undoText())); }
    void redo() { step(&QUndoStack::redo, tr("Redone: %1").arg(m_document.undoStack().redoText())); }

signals:
    /// A short text for the status bar.
    void message(const QString &text);

private:
    /// Index of the module in the current slot.
    std::optional<int> currentModule() const;
    int copySelected(bool areCut) const;
    void step(void (QUndoStack::*run)(), const QString &text);

    StationDocument &m_document;
    RackView &m_racks;
    const std::vector<CatalogEntry> &m_catalog;
    QWidget &m_window;
};
