// Analog output table page.
#pragma once

#include "parampage.h"

#include <QVector>

class LineEdit;
class QCheckBox;

/// What each analog output does on the transition from RUN to STOP: keep its value or take the one given here.
class SAQOutTblWgt : public DefaultsPage {
    Q_OBJECT
public:
    SAQOutTblWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Never refuses; a text that is no 16-bit number counts as 0.
    bool saveData() override;

public slots:
    /// Enables the value of the sender's channel unless the channel is frozen; nothing without a sender.
    void slot_ckbFrzAna_toggled(bool checked);

protected:
    void initUI() override;
    void initConnect() override;
    void fitToFont() override;

private:
    QVector<QCheckBox *> m_freeze;    ///< by channel
    QVector<LineEdit *> m_stopValues; ///< by channel
};
