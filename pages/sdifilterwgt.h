// Digital input filter page.
#pragma once

#include "parampage.h"

#include <QVector>

class QComboBox;

/// How long four digital inputs at a time must stay constant before a change of theirs counts.
class SDIFilterWgt : public DefaultsPage {
    Q_OBJECT
public:
    SDIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    bool saveData() override;

protected:
    void initUI() override;

private:
    QVector<QComboBox *> m_filters; ///< by row of four inputs
};
