// Analog output type page.
#pragma once

#include "channelfield.h"
#include "parampage.h"
#include "simpleextendpar.h"

/// Switch and signal range of each analog output.
class SAQOutTypeWgt : public RecordDefaultsPage {
    Q_OBJECT
public:
    Q_INVOKABLE SAQOutTypeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Never refuses. A stored value without a choice leaves its box without a selection, which is saved as 255.
    bool saveData() override;

protected:
    void initUI() override;
    void fitToFont() override;

private:
    QVector<QLabel *> m_headers;
    ChannelEditors<AqOutType> m_editors;
};
