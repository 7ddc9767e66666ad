// The values of a description file as texts: "field=value" for each member that a key sets.
#pragma once

#include "simpleextendpar.h"

template <typename Bytes>
QString hex(const Bytes &bytes)
{
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(bytes.data()), int(bytes.size())).toHex());
}

inline QStringList fieldsOf(const ModuleMetInfo &info)
{
    QStringList unsupported;
    for (const quint32 code : info.notSupported) {
        unsupported << QString::number(code, 16);
    }
    const auto number = [](auto value) { return QString::number(value); };
    return {
        "metVersion=" + info.metVersion,
        "needHwCnfgVersion=" + number(info.needHwCnfgVersion),
        "objName=" + info.objName,
        "mlfb=" + info.mlfb,
        "objId=" + number(info.objId),
        "parentObjId=" + number(info.parentObjId),
        "baseType=" + number(info.baseType),
        "numIOModules=" + number(info.numIOModules),
        "notSupported=" + unsupported.join('|'),
        "serverFile=" + info.serverFile,
        "isCatEntry=" + number(int(info.isCatEntry)),
        "moduleInfo=" + number(info.moduleInfo),
        "intSupported=" + hex(info.intSupported),
        "fwVersion=" + number(info.fwVersion),
        "buffCnfg=" + hex(info.buffCnfg),
        "syncCnfg=" + hex(info.syncCnfg),
        "softCtrlRemote=" + number(int(info.softCtrlRemote)),
        "rackId=" + number(info.rackId),
        "slotId=" + number(info.slotId),
        "intEnableTbl=" + hex(info.intEnableTbl),
        "supportGrpCnfg=" + number(int(info.supportGrpCnfg)),
        "sampPeriodGrpCnfg=" + number(int(info.sampPeriodGrpCnfg)),
        "sampPeriodList=" + info.sampPeriodList.join('|'),
        "reservBytes=" + hex(info.reservBytes),
        "supportEtherCAT=" + number(info.supportEtherCAT),
        "supportRack=" + number(info.supportRack),
        "supportCANopen=" + number(int(info.supportCANopen)),
        "supportHSC=" + number(info.supportHSC),
    };
}
