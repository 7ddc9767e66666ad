// Weighing parameter page.
#pragma once

#include "parampage.h"

#include <QVector>

#include <array>

class ChannelTable;
struct WeighChannelPar;

/// All parameters of the weighing channels.
class SWeightParCfgWgt : public ParamPage {
    Q_OBJECT
public:
    /// @p defaultPar is not used: a newly made channel holds the defaults.
    SWeightParCfgWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Refuses the first channel whose filter depth does not exceed the counts left out of it. The channels before
    /// it stay written.
    bool saveData() override;

public slots:
    void slot_btnDefault_clicked();

protected:
    void initUI() override;
    void initConnect() override;
    void fitToFont() override;

private:
    static constexpr int editorCount = 9;
    using Row = std::array<QWidget *, editorCount>; ///< editors of a channel from left to right

    static void showRow(const Row &row, const WeighChannelPar &weighing);
    static WeighChannelPar readRow(const Row &row);

    ChannelTable *m_table = nullptr;
    QVector<Row> m_rows; ///< by channel
};
