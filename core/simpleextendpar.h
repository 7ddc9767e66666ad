// The record of one module: what the description file says, where the host placed it, its parameters.
//
// Every channel hash is keyed by the channel number from 0. operator[] of a missing channel inserts an
// all-zero entry (a factory entry in weighPar); value() reads the same without inserting.
#pragma once

#include "iomap.h"

#include <QByteArray>
#include <QHash>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

/// Head of a record: one entry of a module description file plus placement, name, comment and ranges.
struct ModuleMetInfo {
    QString memoryOwner; ///< station whose memory the module occupies; empty = claims nothing
    QString metVersion;
    qint32 needHwCnfgVersion = 2000; ///< lowest host version (getAppVerNum) that may use the entry
    QString objName;
    QString mlfb;      ///< order number
    quint32 objId = 0; ///< module type code
    quint32 parentObjId = 0;
    quint8 baseType = 0;
    quint8 numIOModules = 0;
    QVector<quint32> notSupported;
    QString objText;    ///< carried only
    QString serverFile; ///< file name in the host's module component folder
    bool isCatEntry = false;
    quint32 moduleInfo = 0; ///< what the host derives the channel counts from
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
    QPoint position; ///< opaque, the host's
    bool supportGrpCnfg = false;
    bool sampPeriodGrpCnfg = false;
    QStringList sampPeriodList;
    std::array<quint8, 8> reservBytes{};
    qint32 supportEtherCAT = 0;
    qint32 supportRack = 4;
    bool supportCANopen = false;
    qint32 supportHSC = 0;
    QString metExtra; ///< carried only
};

/// Input filter of an analog channel.
struct AiFilter {
    quint8 samples = 0;   ///< index of the choice (2, 4, ... 256 samples)
    quint16 deadband = 0; ///< raw analog units: 0 or a multiple of 16 up to 4080
    quint8 filterOn = 0;  ///< 1 = filtered
};

/// Bytes of an AiRange; each holds the index of a choice.
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

/// What an analog output does on the transition from RUN to STOP.
struct AqOutTbl {
    quint8 freezeLast = 0; ///< 1 = keep the last value
    qint16 stopValue = 0;  ///< else this, in raw units
};

/// Enable and range of an analog output; each the index of a choice.
struct AqOutType {
    quint8 enable = 0;
    quint8 range = 0;
};

/// Parameters of a weighing channel; the initial values are the factory values.
struct WeighChannelPar {
    quint8 enable = 1;        ///< index of the choice: 0 disabled, 1 enabled
    float sensitivity = 2.0F; ///< 0 to 32
    quint16 limitFreq = 4;    ///< code, 1 to 14
    quint16 filterDepth = 15; ///< 0 to 2000; above 1 it must exceed subMax + subMin
    quint16 subMax = 0;       ///< 0 to 2000
    quint16 subMin = 0;       ///< 0 to 2000
    quint8 filterMode = 0;    ///< code, 0 or 1
    quint8 sampleFreq = 1;    ///< code, 1 to 6
    qint16 bootClear = 0;     ///< -99 to 99
};

/// Signal families of analog inputs, the values of aiKind.
enum SignalFamily : quint8 { VoltageCurrent = 0, Thermocouple = 1, ResistanceThermometer = 2 };

/// Values of dqMode.
enum DqMode : quint8 { DqFreezeLast = 1, DqUseTable = 2 };

/// One module; handed to the host as the opaque handle. Owns all its data.
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
    QByteArray diFilter; ///< a 4-bit code per four inputs, the lower four inputs in the low half
    quint8 dqCount = 0;
    quint8 dqMode = DqUseTable;
    QByteArray dqOutTbl; ///< one bit per output, the first output of a byte in its highest bit
    quint8 weighCount = 0;
    QHash<quint8, WeighChannelPar> weighPar;
};
