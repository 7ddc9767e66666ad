// Analog input filter page.
#pragma once

#include "channelfield.h"
#include "parampage.h"
#include "simpleextendpar.h"

class QGridLayout;

/// Whether and how each analog input is averaged.
class SAIFilterWgt : public RecordDefaultsPage {
    Q_OBJECT
public:
    Q_INVOKABLE SAIFilterWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Refuses the first deadband that is not a multiple of 16. The channels before it and the other two values of its
    /// channel stay written.
    bool saveData() override;

public slots:
    void slot_btnSelectAll_clicked();
    void slot_btnCancelAll_clicked();

protected:
    void initUI() override;
    void initConnect() override;

private:
    /// @p frame becomes the parent of the editors.
    QGridLayout *newChannelGrid(QWidget *frame);
    void setAllFiltered(bool filtered);

    ChannelEditors<AiFilter> m_editors;
    QPushButton *m_btnSelectAll = nullptr;
    QPushButton *m_btnCancelAll = nullptr;
};
