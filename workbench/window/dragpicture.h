// What the mouse drags.
#pragma once

#include <QPixmap>

class QTableView;

/// The current card of @p view, small and half transparent, with the number of dragged modules if there are several.
QPixmap dragPicture(const QTableView &view, int modules);
