// Services of the host library basemodule: I/O memory, module catalog, byte conversions.
// Everything here may be called from the user-interface thread only.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#ifdef BASEMODULE_LIBRARY
#define BASEMODULE_EXPORT Q_DECL_EXPORT
#else
#define BASEMODULE_EXPORT Q_DECL_IMPORT
#endif

/// Memory areas of a station. A value read from a block may lie outside this list.
enum class VarArea : quint8 {
    None = 0,
    AnalogInput = 6,
    AnalogOutput = 7,
    DigitalInput = 129,
    DigitalOutput = 130,
    Variable = 132
};

/// Host components that live in folders of their own.
enum class HwcnfgComponent : qint32 { ModuleDescription = 6, ModuleComponent = 9 };

/// Controller of a station.
struct PlcTypeVersion {
    quint32 type;
    quint32 version;
};

// Memory service. The owner names the station; starts and lengths are bytes.

/// Takes the range at @p start. Returns 1 when it is held, else a code for getMemoryErrStrByErrCode.
BASEMODULE_EXPORT qint32 getMemory(const QString &owner, VarArea area, qint32 start, qint32 length);
/// Claims a free range. Returns its start, or -1 when the area has no room.
BASEMODULE_EXPORT qint32 autoMallocMemory(const QString &owner, VarArea area, qint32 length);
/// Gives a range back. Returns false, and changes nothing, when exactly this range is not held.
BASEMODULE_EXPORT bool freeMemory(const QString &owner, VarArea area, qint32 start, qint32 length);
/// Takes a snapshot of the owner's memory map; snapshots nest.
BASEMODULE_EXPORT void backupUsedMemory(const QString &owner);
/// Drops the latest snapshot and keeps the map as it is.
BASEMODULE_EXPORT void popBackupMemory(const QString &owner);
/// Returns the map to the latest snapshot and drops that snapshot.
BASEMODULE_EXPORT void restoreUsedMemory(const QString &owner);
/// Readable text for an error code of getMemory.
BASEMODULE_EXPORT QString getMemoryErrStrByErrCode(qint32 code);

// Catalog. Channel counts come from the moduleInfo value of a module description.

BASEMODULE_EXPORT qint32 getModuleDINum(quint32 moduleInfo);
BASEMODULE_EXPORT qint32 getModuleDQNum(quint32 moduleInfo);
BASEMODULE_EXPORT qint32 getModuleAINum(quint32 moduleInfo);
BASEMODULE_EXPORT qint32 getModuleAQNum(quint32 moduleInfo);
/// Absolute folder of a component, with a separator at its end.
BASEMODULE_EXPORT QString getHwcnfgComponentPath(HwcnfgComponent component);
/// Version number of the host application.
BASEMODULE_EXPORT quint32 getAppVerNum();
/// Controller of the station that @p owner names.
BASEMODULE_EXPORT PlcTypeVersion getPrjPlcTypeVersion(const QString &owner);
/// Size in bytes of an address range ("AIEx", "AQEx", "IEx", "QEx", "V") of a controller.
BASEMODULE_EXPORT quint32 getPlcAddrRange(quint32 plcType, quint32 plcVersion, const QString &rangeName);

// Byte conversions, most significant byte first.

BASEMODULE_EXPORT QByteArray intToByteArray(qint32 value);
BASEMODULE_EXPORT QByteArray shortToByteArray(qint16 value);
BASEMODULE_EXPORT QByteArray ushortToByteArray(quint16 value);
/// IEEE 754 single precision.
BASEMODULE_EXPORT QByteArray floatToByteArray(float value);
BASEMODULE_EXPORT qint32 byteArrayToInt(const QByteArray &bytes);
BASEMODULE_EXPORT float byteArrayToFloat(const QByteArray &bytes);
/// Hexadecimal text of @p data, @p separator between the bytes.
BASEMODULE_EXPORT QString byteArryDataToString(const QByteArray &data, const QString &separator);
