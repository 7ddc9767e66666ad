// Digital output table page.
#pragma once

#include "parampage.h"

#include <QVector>

class QCheckBox;
class QGridLayout;

/// What the digital outputs do on the transition from RUN to STOP: keep their state or take the state of their box.
class SDQOutTblWgt : public RecordDefaultsPage {
    Q_OBJECT
public:
    Q_INVOKABLE SDQOutTblWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    bool saveData() override;

public slots:
    /// Enables the outputs unless the freeze box is checked. Freezing unchecks all outputs.
    void slot_chkFrzClicked();
    void slot_btnSelectAll();
    void slot_btnClearAll();

protected:
    void initUI() override;
    void initConnect() override;
    void fitToFont() override;

private:
    /// @p group becomes the parent of the check boxes.
    QGridLayout *newOutputGrid(QWidget *group);
    void setOutputsEnabled(bool enabled);
    void setOutputsChecked(bool checked);

    QCheckBox *m_freeze = nullptr;
    QPushButton *m_btnSelectAll = nullptr;
    QPushButton *m_btnClearAll = nullptr;
    QVector<QCheckBox *> m_outputs; ///< by output
    QVector<QLabel *> m_gridLabels; ///< bit numbers and byte names
};
