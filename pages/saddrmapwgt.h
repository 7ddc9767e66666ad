// The Address page: where a module's ranges are in the memory of its station.
#pragma once

#include "iomap.h"
#include "parampage.h"

#include <QVector>

class MSpinBoxEx;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QSpinBox;

class SAddrMapWgt : public ParamPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SAddrMapWgt)
public:
    SAddrMapWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);
    ~SAddrMapWgt() override;

    void initData(SimpleExtendPar *par) override;
    /// Moves the ranges in the host's memory map and writes their starts. If the host refuses, both are rolled back.
    bool saveData() override;
    /// Reverts the starts that saveData() has written since the latest open snapshot. A start that the host has changed
    /// since then stays.
    void discard() override;
    void rollBack() override;

public slots:
    void slot_editingInputFinished();
    void slot_editingOutputFinished();

protected:
    void initUI() override;
    void initConnect() override;
    /// Keeps the Enter key from the dialog's default button if it ends the editing of a start that is not accepted.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The controls of one range and the values that they show.
    struct Direction {
        QGroupBox *group = nullptr;
        MSpinBoxEx *start = nullptr;
        QSpinBox *length = nullptr;
        QComboBox *unit = nullptr;
        QLineEdit *end = nullptr;
        QLabel *memory = nullptr;
        int unitCount = 0;
        int unitSize = 0; ///< bytes; 0 if choices::addressUnits does not contain it
        int highestStart = 0;
        int acceptedStart = 0;

        bool isUnitEven() const { return unitSize % 2 == 0; }
        /// Returns the bytes of the range modulo 256. This is intended, because existing projects rely on it.
        int byteCount() const { return static_cast<quint8>(unitSize * unitCount); }
    };
    /// The changes that saveData() has made to the start of a range.
    struct Change {
        bool isMade = false;
        quint16 before = 0;
        quint16 after = 0;

        void add(const Change &later);
        void revert(quint16 &start) const;
    };
    struct Changes {
        Change input;
        Change output;
    };

    static QGroupBox *newGroup(Direction &direction, const QString &title, const QString &stem);
    /// @p areaName is the host's name of the area, empty for an area without one.
    void showRange(Direction &direction, const IoMap &range, const QString &areaName);
    /// Accepts the shown start. Returns false if it is not allowed; the field then shows the last accepted start and a
    /// tool tip with the rule.
    static bool checkStart(Direction &direction);
    static void explainStart(const Direction &direction);
    static bool isMoved(const Direction &direction, const IoMap &range);
    qint32 moveRange(const Direction &direction, IoMap &range, Change &change);
    bool rejectStart(const Direction &direction, qint32 errorCode);
    void restoreSnapshot();

    Direction m_input;
    Direction m_output;
    /// The changes since each open snapshot of the host, the latest last. config() takes the first one before the
    /// dialog opens.
    QVector<Changes> m_snapshots{1};
};
