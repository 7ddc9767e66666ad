// The colours by which a module is recognised in the racks and in the memory map.
#pragma once

#include "catalog.h"
#include "station.h"

#include <QColor>

class QPalette;

/// True for a palette with light text on a dark ground.
bool isDark(const QPalette &palette);
/// Hue by family; the shade changes from slot to slot, so that neighbours in the memory map differ. Stands out from the
/// palette's base colour.
QColor moduleColor(CatalogFamily family, Place place, const QPalette &palette);
/// For what is refused.
QColor refusalColor(const QPalette &palette);
