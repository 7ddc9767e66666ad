// Tells which blocks of a file are not in the station that was made of it, and why.
#pragma once

#include "stationblocks.h"

#include <QDialog>

class BlockResultsDialog : public QDialog {
    Q_OBJECT
public:
    /// @p moduleCount modules were rebuilt.
    BlockResultsDialog(int moduleCount, const std::vector<BlockResult> &results, QWidget *parent);
};
