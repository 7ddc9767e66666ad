#include "modulecommands.h"

#include "filequestions.h"
#include "moduleclipboard.h"
#include "placedialog.h"
#include "rackview.h"

ModuleCommands::ModuleCommands(StationDocument &document, RackView &racks, const std::vector<CatalogEntry> &catalog,
                               QWidget &window)
    : QObject(&window), m_document(document), m_racks(racks), m_catalog(catalog), m_window(window)
{
}

std::optional<int> ModuleCommands::currentModule() const
{
    return m_document.station().moduleAt(m_racks.currentPlace());
}

void ModuleCommands::add(quint32 typeCode)
{
    if (const std::optional<Place> place = m_document.station().freePlace(m_racks.currentPlace())) {
        addAt(typeCode, *place);
    } else {
        showFailure(&m_window, tr("No module can be added."), Failure{tr("Every slot of the station is taken.")});
    }
}

void ModuleCommands::addAt(quint32 typeCode, Place place)
{
    const CatalogEntry *entry = findEntry(m_catalog, typeCode);
    const QString name = entry == nullptr ? QString::number(typeCode) : entry->name;
    if (const Result<> added = m_document.edits().add(typeCode, place); !added) {
        showFailure(&m_window,
                    tr("%1 cannot be added to rack %2, slot %3.")
                        .arg(name, QString::number(place.rack), QString::number(place.slot)),
                    added);
        return;
    }
    m_racks.setCurrentPlace(place);
    emit message(
        tr("Added %1 in rack %2, slot %3").arg(name, QString::number(place.rack), QString::number(place.slot)));
}

void ModuleCommands::move(const QVector<Place> &places, Place by)
{
    if (const Result<> moved = m_document.edits().moveBy(places, by); !moved) {
        showFailure(&m_window, tr("%n module(s) cannot be moved.", nullptr, places.size()), moved);
        return;
    }
    QVector<Place> targets;
    for (const Place place : places) {
        targets.append({place.rack + by.rack, place.slot + by.slot});
    }
    m_racks.selectPlaces(targets);
    emit message(tr("%n module(s) moved", nullptr, places.size()));
}

void ModuleCommands::askForPlace()
{
    const std::optional<int> index = currentModule();
    if (!index) {
        return;
    }
    PlaceDialog dialog(m_document.station(), *index, &m_window);
    if (dialog.exec() == QDialog::Accepted) {
        const Place from = m_racks.currentPlace();
        const Place to = dialog.place();
        move({from}, {to.rack - from.rack, to.slot - from.slot});
    }
}

void ModuleCommands::configure()
{
    const std::optional<int> index = currentModule();
    if (!index) {
        return;
    }
    const ModuleSummary module = m_document.station().module(*index);
    if (!module.unavailable.isEmpty()) {
        showFailure(&m_window, tr("\"%1\" has no properties while it is not available.").arg(module.name),
                    Failure{module.unavailable});
        return;
    }
    m_document.edits().configure(module.place, &m_window);
}

/// Returns the number of modules.
int ModuleCommands::copySelected(bool areCut) const
{
    const Station &station = m_document.station();
    CopiedModules copied{areCut, {}};
    for (const Place place : m_racks.selectedModules()) {
        copied.modules.push_back(station.stored(*station.moduleAt(place)));
    }
    copyToClipboard(copied);
    return static_cast<int>(copied.modules.size());
}

void ModuleCommands::cut()
{
    const int count = copySelected(true);
    remove();
    emit message(tr("%n module(s) cut", nullptr, count));
}

void ModuleCommands::copy()
{
    const int count = copySelected(false);
    emit message(tr("%n module(s) copied", nullptr, count));
}

void ModuleCommands::paste()
{
    const CopiedModules copied = clipboardModules();
    if (copied.modules.empty()) {
        emit message(tr("The clipboard contains no modules that can be read."));
        return;
    }
    const PasteResult pasted = m_document.edits().paste(
        copied.modules, m_racks.currentPlace(), copied.areCut ? Station::Addresses::Stored : Station::Addresses::New);
    m_racks.selectPlaces(pasted.places);
    emit message(pasted.text());
    showFailure(&m_window, pasted.text(), pasted.result());
}

void ModuleCommands::remove()
{
    const QVector<Place> places = m_racks.selectedModules();
    m_document.edits().remove(places);
    emit message(tr("%n module(s) removed", nullptr, places.size()));
}

void ModuleCommands::step(void (QUndoStack::*run)(), const QString &text)
{
    QObject scope; // ends the connections
    QSet<int> present;
    QSet<int> left;
    const auto arrive = [&](Place place) { present.insert(place.index()); };
    const auto leave = [&](Place place) {
        present.remove(place.index());
        left.insert(place.index());
    };
    const Station *station = &m_document.station();
    connect(station, &Station::moduleAdded, &scope, arrive);
    connect(station, &Station::moduleChanged, &scope, arrive);
    connect(station, &Station::moduleRemoved, &scope, leave);
    connect(station, &Station::moduleMoved, &scope, [&](Place from, Place to) {
        leave(from);
        arrive(to);
    });
    (m_document.undoStack().*run)();
    QVector<Place> places;
    for (const int index : present.isEmpty() ? left : present) {
        places.append(Place::at(index));
    }
    std::sort(places.begin(), places.end());
    m_racks.selectPlaces(present.isEmpty() ? places.mid(0, 1) : places);
    emit message(text);
}
