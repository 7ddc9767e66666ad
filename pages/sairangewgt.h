// Analog range page.
#pragma once

#include "parampage.h"
#include "simpleextendpar.h"

#include <QVector>

#include <array>

class ChannelTable;
class QComboBox;

/// Range, filter time and wiring of each analog input, with the editors of the channel's signal family.
class SAIRangeWgt : public RecordDefaultsPage {
    Q_OBJECT
public:
    Q_INVOKABLE SAIRangeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Never refuses. A stored value without a choice stays until the user selects one.
    bool saveData() override;

public slots:
    /// Enables wire detection and direction of the sender's channel only if a broken wire can be detected in its range.
    /// Without a sender the first channel is updated.
    void slot_inputRangeChange();

protected:
    void initUI() override;
    void initConnect() override;
    void fitToFont() override;

private:
    /// The editors of a channel by AiRangeByte; null if its signal family does not have the byte.
    using Row = std::array<QComboBox *, AiRangeByteCount>;

    quint8 headerFamily() const;
    quint8 channelFamily(int channel) const;
    Row newRow(int channel);
    static void showWireDetection(const Row &row);

    ChannelTable *m_table = nullptr;
    QVector<Row> m_rows; ///< by channel
};
