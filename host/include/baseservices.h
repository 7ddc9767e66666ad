// Services of the host library basemodule: I/O memory, module catalog, byte conversions.
// Call all functions on the user-interface thread.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#ifdef BASEMODULE_LIBRARY
#define BASEMODULE_EXPORT Q_DECL_EXPORT
#else
#define BASEMODULE_EXPORT Q_DECL_IMPORT
#endif

/// Memory areas of a station. A value that was read from a block may be any other number.
enum class VarArea : quint8 {
    None = 0,
    AnalogInput = 6,
    AnalogOutput = 7,
    DigitalInput = 129,
    DigitalOutput = 130,
    Variable = 132
};

/// Host components, each in a separate folder.
enum class HwcnfgComponent : qint32 { ModuleDescription = 6, ModuleComponent = 9 };

/// Controller of a station.
struct PlcTypeVersion {
    quint32 type;
    quint32 version;
};

// Memory service. The owner is the station's key; starts and lengths are in bytes.

/// Claims the range at @p start. Returns 1 if it is now claimed, else a code for getMemoryErrStrByErrCode.
BASEMODULE_EXPORT qint32 getMemory(const QString &owner, VarArea area, qint32 start, qint32 length);
/// Claims a free range. Returns its start, or -1 if the area has no room.
BASEMODULE_EXPORT qint32 autoMallocMemory(const QString &owner, VarArea area, qint32 length);
/// Frees a range. Returns false and changes nothing unless exactly this range is claimed.
BASEMODULE_EXPORT bool freeMemory(const QString &owner, VarArea area, qint32 start, qint32 length);
/// Pushes a snapshot of the owner's memory map on the owner's stack of snapshots.
BASEMODULE_EXPORT void backupUsedMemory(const QString &owner);
/// Drops the latest snapshot. The map does not change.
BASEMODULE_EXPORT void popBackupMemory(const QString &owner);
/// Restores the map from the latest snapshot and drops the snapshot.
BASEMODULE_EXPORT void restoreUsedMemory(const QString &owner);
/// Returns a text for an error code of getMemory.
BASEMODULE_EXPORT QString getMemoryErrStrByErrCode(qint32 code);

// Catalog. The channel counts are derived from the moduleInfo value of a module description.

BASEMODULE_EXPORT qint32 getModuleDINum(quint32 moduleInfo);
BASEMODULE_EXPORT qint32 getModuleDQNum(quint32 moduleInfo);
BASEMODULE_EXPORT qint32 getModuleAINum(quint32 moduleInfo);
BASEMODULE_EXPORT qint32 getModuleAQNum(quint32 moduleInfo);
/// Returns the absolute folder of a component, with a separator at its end.
BASEMODULE_EXPORT QString getHwcnfgComponentPath(HwcnfgComponent component);
/// Returns the version number of the host application.
BASEMODULE_EXPORT quint32 getAppVerNum();
/// Returns the controller of the owner's station.
BASEMODULE_EXPORT PlcTypeVersion getPrjPlcTypeVersion(const QString &owner);
/// Returns the size in bytes of an address range ("AIEx", "AQEx", "IEx", "QEx" or "V") of a controller.
BASEMODULE_EXPORT quint32 getPlcAddrRange(quint32 plcType, quint32 plcVersion, const QString &rangeName);

// Byte conversions, most significant byte first.

BASEMODULE_EXPORT QByteArray intToByteArray(qint32 value);
BASEMODULE_EXPORT QByteArray shortToByteArray(qint16 value);
BASEMODULE_EXPORT QByteArray ushortToByteArray(quint16 value);
/// IEEE 754 single precision.
BASEMODULE_EXPORT QByteArray floatToByteArray(float value);
BASEMODULE_EXPORT qint32 byteArrayToInt(const QByteArray &bytes);
BASEMODULE_EXPORT float byteArrayToFloat(const QByteArray &bytes);
/// Returns @p data as hexadecimal digits, with @p separator between the bytes.
BASEMODULE_EXPORT QString byteArryDataToString(const QByteArray &data, const QString &separator);
