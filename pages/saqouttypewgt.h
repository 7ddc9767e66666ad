// Analog output type page.
#pragma once

#include "parampage.h"

#include <QVector>

class QComboBox;

/// Switch and signal range of each analog output.
class SAQOutTypeWgt : public DefaultsPage {
    Q_OBJECT
public:
    SAQOutTypeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Never refuses. A box without a selection, which a stored value without a choice leaves, is saved as 255.
    bool saveData() override;

protected:
    void initUI() override;
    void fitToFont() override;

private:
    QVector<QLabel *> m_headers;
    QVector<QComboBox *> m_enable; ///< by channel
    QVector<QComboBox *> m_range;  ///< by channel
};
