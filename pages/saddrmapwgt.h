// Where the module's ranges lie in the station's memory.
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
    /// Moves the ranges in the host's memory map and writes their starts. When the host refuses, both the map and the
    /// starts are again what they were before.
    bool saveData() override;
    /// Reverts the starts that saveData() has written since the latest snapshot that is still open. A start that the
    /// host has changed since then stays.
    void discard() override;
    void rollBack() override;

public slots:
    void slot_editingInputFinished();
    void slot_editingOutputFinished();

protected:
    void initUI() override;
    void initConnect() override;
    /// The Enter key that ends editing does not reach the dialog's default button if the start was put back.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The controls of one range.
    struct Direction {
        QGroupBox *group = nullptr;
        MSpinBoxEx *start = nullptr;
        QSpinBox *length = nullptr;
        QComboBox *unit = nullptr;
        QLineEdit *end = nullptr;
        QLabel *memory = nullptr;
        int highestStart = 0;
        int acceptedStart = 0;
    };
    /// What saveData() has written to the start of a range.
    struct Change {
        bool isMade = false;
        quint16 before = 0;
        quint16 after = 0;

        void add(quint16 from, quint16 to);
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
    /// Accepts the start that is shown, or puts the last accepted one back and explains that at the field. Returns
    /// false in the latter case.
    static bool checkStart(Direction &direction);
    static void explainStart(const Direction &direction);
    static bool isUnitEven(const Direction &direction);
    static int rangeLength(const Direction &direction);
    static bool isMoved(const Direction &direction, const IoMap &range);
    qint32 move(const Direction &direction, IoMap &range, Change &change);
    bool takeBack(const Direction &refused, qint32 errorCode);
    void restoreSnapshot();

    Direction m_input;
    Direction m_output;
    /// The changes since each of the host's open snapshots, the latest last. The first snapshot is the one that
    /// config() takes before the dialog opens.
    QVector<Changes> m_snapshots{1};
};
