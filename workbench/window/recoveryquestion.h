// Offers at the start the stations that killed programs left unsaved.
#pragma once

class AutoRecovery;
class QString;
class QWidget;
class StationDocument;

/// Asks for each copy in @p folder whose owner does not run: recover, discard, or keep it for the next start. Returns
/// true if the user recovered one, which is then the document's station and in the copy of @p recovery.
bool offerUnsavedStations(StationDocument &document, AutoRecovery &recovery, const QString &folder, QWidget &window);
