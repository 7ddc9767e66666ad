// Scroll areas without frame and background, so that their contents look like a part of the page.
#pragma once

class QVBoxLayout;
class QWidget;

/// Returns the layout for all contents of @p page, which scroll if they are larger than the page.
QVBoxLayout *newPageLayout(QWidget *page);

/// Returns an area for the rows of the channels, which stay at the top. It scrolls apart from the page, so that the
/// buttons below it stay in view. It becomes the owner of @p rows, which has its layout.
QWidget *newRowArea(QWidget *rows);
