// Analog range page.
#pragma once

#include "parampage.h"
#include "simpleextendpar.h"

#include <QVector>

#include <array>

class ChannelTable;
class QComboBox;

/// Range, filter time and wiring of each analog input, with the editors of the channel's signal family.
class SAIRangeWgt : public DefaultsPage {
    Q_OBJECT
public:
    SAIRangeWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    /// Never refuses. A stored value that has no choice stays as it is until a choice is made.
    bool saveData() override;

public slots:
    /// Offers wire detection and direction of the sender's channel only where its range can tell a broken wire.
    void slot_inputRangeChange();

protected:
    void initUI() override;
    void initConnect() override;
    void fitToFont() override;

private:
    /// Editors of a channel by AiRangeByte, null where its signal family has none.
    using Row = std::array<QComboBox *, AiRangeByteCount>;

    int headerFamily() const;
    int channelFamily(int channel) const;
    Row newRow(int channel);
    static void showWireDetection(const Row &row);

    ChannelTable *m_table = nullptr;
    QVector<Row> m_rows; ///< by channel
};
