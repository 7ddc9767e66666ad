// Long texts in the last column of a list.
#pragma once

class QTreeView;

/// Wraps the texts of the last column of @p view, also after its width changes. The view keeps the space between its
/// columns. Call it once, when the view has its model.
void wrapLastColumn(QTreeView &view);
