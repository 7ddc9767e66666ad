// The record of one module: catalog data, placement by the host, and parameters.
//
// Every channel hash is keyed by the channel number, which starts at 0. For a missing channel, operator[] inserts an
// entry of zeros (in weighPar one of factory values); value() returns the same entry without inserting it. Ranges of
// numbers are in fieldlimits.h, choices in choices.h, bit orders in digitalbits.h.
#pragma once

#include "iomap.h"

#include <QByteArray>
#include <QHash>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

/// The head of a record: one entry of a description file, and placement, name, comment and ranges.
struct ModuleMetInfo {
    QString memoryOwner; ///< station whose memory the module occupies; empty = none
    QString metVersion;
    qint32 needHwCnfgVersion = 2000; ///< minimum host version (getAppVerNum) for this entry
    QString objName;
    QString mlfb;      ///< order number
    quint32 objId = 0; ///< module type code
    quint32 parentObjId = 0;
    quint8 baseType = 0;
    quint8 numIOModules = 0;
    QVector<quint32> notSupported;
    QString objText;    ///< not used
    QString serverFile; ///< file name in the host's module component folder
    bool isCatEntry = false;
    quint32 moduleInfo = 0; ///< the host derives the channel counts from it
    std::array<quint8, 5> intSupported{};
    quint8 fwVersion = 0;
    std::array<quint8, 14> buffCnfg{};
    std::array<quint8, 9> syncCnfg{};
    bool softCtrlRemote = false;
    qint32 rackId = -1; ///< -1 = not placed
    qint32 slotId = -1; ///< -1 = not placed
    IoMap inMap;
    IoMap outMap;
    std::array<quint8, 5> intEnableTbl{};
    QString comment;
    QPoint position; ///< set and read by the host only
    bool supportGrpCnfg = false;
    bool sampPeriodGrpCnfg = false;
    QStringList sampPeriodList;
    std::array<quint8, 8> reservBytes{};
    qint32 supportEtherCAT = 0;
    qint32 supportRack = 4;
    bool supportCANopen = false;
    qint32 supportHSC = 0;
    QString metExtra; ///< not used
};

/// Input filter of an analog channel.
struct AiFilter {
    quint8 samples = 0;   ///< index in choices::sampleCounts
    quint16 deadband = 0; ///< limits::deadband
    quint8 filterOn = 0;  ///< 1 = filtered
};

/// The bytes of an AiRange. Each is the index of a choice.
enum AiRangeByte : quint8 {
    AiEnable,
    AiFilterTime,
    AiInputRange,
    AiOpenWire,
    AiDirection,
    AiTemperatureScale,
    AiColdJunction,
    AiWiringScheme,
    AiRangeByteCount
};
using AiRange = std::array<quint8, AiRangeByteCount>;

/// The behavior of an analog output on the transition from RUN to STOP.
struct AqOutTbl {
    quint8 freezeLast = 0; ///< 1 = keep the last value
    qint16 stopValue = 0;  ///< the value otherwise; limits::stopValue
};

/// Enable and range of an analog output. Each is the index of a choice.
struct AqOutType {
    quint8 enable = 0;
    quint8 range = 0;
};

/// Parameters of a weighing channel. The initial values are the factory values.
struct WeighChannelPar {
    quint8 enable = 1;        ///< index in choices::enable
    float sensitivity = 2.0F; ///< limits::sensitivity
    quint16 limitFreq = 4;    ///< code of choices::limitFrequencies
    quint16 filterDepth = 15; ///< limits::weighingFilterCount; above 1 it must exceed subMax + subMin
    quint16 subMax = 0;       ///< limits::weighingFilterCount
    quint16 subMin = 0;       ///< limits::weighingFilterCount
    quint8 filterMode = 0;    ///< index in choices::filterModes
    quint8 sampleFreq = 1;    ///< code of choices::sampleFrequencies
    qint16 bootClear = 0;     ///< limits::bootClear
};

/// Signal families of analog inputs, the values of aiKind.
enum SignalFamily : quint8 { VoltageCurrent = 0, Thermocouple = 1, ResistanceThermometer = 2 };

/// Values of dqMode.
enum DqMode : quint8 { DqFreezeLast = 1, DqUseTable = 2 };

/// One module. The host has it as an opaque handle. It owns all its data.
struct SimpleExtendPar : ModuleMetInfo {
    quint8 aiCount = 0;
    QHash<quint8, quint8> aiKind; ///< SignalFamily
    QHash<quint8, AiFilter> aiFilter;
    QHash<quint8, AiRange> aiRange;
    quint8 aqCount = 0;
    QHash<quint8, quint8> aqKind;
    QHash<quint8, AqOutTbl> aqOutTbl;
    QHash<quint8, AqOutType> aqOutType;
    quint8 diCount = 0;
    QByteArray diFilter; ///< a 4-bit code per four inputs: filterCode()
    quint8 dqCount = 0;
    quint8 dqMode = DqUseTable;
    QByteArray dqOutTbl; ///< one bit per output: outputState()
    quint8 weighCount = 0;
    QHash<quint8, WeighChannelPar> weighPar;
};
