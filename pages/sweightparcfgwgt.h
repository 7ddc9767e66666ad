// Weighing parameter page.
#pragma once

#include "channelfield.h"
#include "parampage.h"
#include "simpleextendpar.h"

class ChannelTable;

/// All parameters of the weighing channels.
class SWeightParCfgWgt : public DefaultsPage {
    Q_OBJECT
public:
    /// @p defaultPar is not used, because a default-constructed WeighChannelPar holds the default values.
    Q_INVOKABLE SWeightParCfgWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Refuses the first channel whose filter depth is above 1 and not above the sum of Sub Max and Sub Min. The
    /// channels before it stay written.
    bool saveData() override;

protected:
    SimpleExtendPar *defaultRecord() override;
    void initUI() override;
    void fitToFont() override;

private:
    SimpleExtendPar m_defaults; ///< without entries, so every channel has the factory values
    ChannelTable *m_table = nullptr;
    ChannelEditors<WeighChannelPar> m_editors;
};
