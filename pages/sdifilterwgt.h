// Digital input filter page.
#pragma once

#include "parampage.h"

#include <QVector>

class QComboBox;

/// How long a digital input must stay constant before its new state counts. Groups of four inputs share one delay.
class SDIFilterWgt : public RecordDefaultsPage {
    Q_OBJECT
public:
    Q_INVOKABLE SDIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    bool saveData() override;

protected:
    void initUI() override;

private:
    QVector<QComboBox *> m_filters; ///< by row of four inputs
};
