// The colours of modules in the racks and in the memory map.
#pragma once

#include "catalog.h"
#include "station.h"

#include <QColor>

class QPalette;

/// True for a palette with light text on a dark background.
bool isDark(const QPalette &palette);
/// The hue depends on the family. The shade depends on the slot, so neighbours in the memory map differ. Contrasts with
/// the palette's base colour.
QColor moduleColor(CatalogFamily family, Place place, const QPalette &palette);
/// For refused drops and unavailable modules.
QColor refusalColor(const QPalette &palette);
/// For less important texts.
QColor fadedColor(const QPalette &palette);
