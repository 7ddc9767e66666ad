// Analog output table page.
#pragma once

#include "channelfield.h"
#include "parampage.h"
#include "simpleextendpar.h"

/// What each analog output does on the transition from RUN to STOP: keep its value or take the stop value.
class SAQOutTblWgt : public RecordDefaultsPage {
    Q_OBJECT
public:
    Q_INVOKABLE SAQOutTblWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Never refuses. A text that is not a 16-bit number is stored as 0.
    bool saveData() override;

public slots:
    /// Enables the stop value of the sender's channel if @p checked is false. No-op without a sender.
    void slot_ckbFrzAna_toggled(bool checked);

protected:
    void initUI() override;
    void initConnect() override;
    void fitToFont() override;

private:
    ChannelEditors<AqOutTbl> m_editors;
};
