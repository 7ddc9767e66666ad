// Sizes and titles of windows.
#pragma once

#include <QSize>

class QString;
class QWidget;

/// Resizes a window to @p size, but not beyond the screen.
void resizeToFit(QWidget &window, QSize size);
/// A text for a window title that shows it unchanged. Qt replaces "[*]" in a title.
QString titleText(const QString &text);
