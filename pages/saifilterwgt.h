// Analog input filter page.
#pragma once

#include "parampage.h"

#include <QVector>

class MSpinBoxDeadBand;
class QCheckBox;
class QComboBox;

/// Whether and how each analog input is averaged.
class SAIFilterWgt : public DefaultsPage {
    Q_OBJECT
public:
    SAIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Refuses the first deadband that is not a multiple of 16. The channels before it and the other two values of
    /// its own channel stay written.
    bool saveData() override;

public slots:
    void slot_btnSelectAll_clicked();
    void slot_btnCancelAll_clicked();

protected:
    void initUI() override;
    void initConnect() override;

private:
    struct Row {
        QCheckBox *filterOn;
        QComboBox *samples;
        MSpinBoxDeadBand *deadband;
    };

    QWidget *newChannelGrid();
    void setAllFiltered(bool filtered);

    QVector<Row> m_rows; ///< by channel
    QPushButton *m_btnSelectAll = nullptr;
    QPushButton *m_btnCancelAll = nullptr;
};
