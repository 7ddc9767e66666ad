// Lists the blocks of a file that could not be rebuilt or read, and why.
#pragma once

#include "stationblocks.h"

#include <QDialog>

class BlockResultsDialog : public QDialog {
    Q_OBJECT
public:
    /// @p moduleCount modules were rebuilt.
    BlockResultsDialog(int moduleCount, const std::vector<BlockResult> &results, QWidget *parent);
};
