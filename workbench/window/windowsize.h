// Sizes of windows.
#pragma once

#include <QSize>

class QWidget;

/// Resizes a window to @p size, but not beyond the screen.
void resizeToFit(QWidget &window, QSize size);
