// A simple reader of description files: lines from a text stream, keys by QString::startsWith, values by the
// conversions of QString. Tests compare the reader's results with it, benchmarks the reader's time.
#pragma once

#include "simpleextendpar.h"

#include <QTextStream>

#include <algorithm>

namespace plainreader {

using Set = void (*)(ModuleMetInfo &entry, const QString &value);

struct Key {
    const char *name;
    Set set;
};

template <typename Bytes>
void setBytes(Bytes &bytes, const QString &value)
{
    const QStringList items = value.split(QLatin1Char(','));
    for (int i = 0; i < items.size() && i < static_cast<int>(bytes.size()); ++i) {
        bytes[static_cast<std::size_t>(i)] = static_cast<quint8>(items.at(i).toUInt(nullptr, 16));
    }
}

constexpr Key keys[] = {
    {"MetVersion", [](auto &entry, const auto &value) { entry.metVersion = value; }},
    {"NeedHwCnfgVersion",
     [](auto &entry, const auto &value) { entry.needHwCnfgVersion = static_cast<qint32>(value.toUInt()); }},
    {"ObjName", [](auto &entry, const auto &value) { entry.objName = value; }},
    {"MLFB", [](auto &entry, const auto &value) { entry.mlfb = value; }},
    {"ObjID", [](auto &entry, const auto &value) { entry.objId = value.toUInt(nullptr, 16); }},
    {"ParentObjID", [](auto &entry, const auto &value) { entry.parentObjId = value.toUInt(nullptr, 16); }},
    {"BaseType", [](auto &entry, const auto &value) { entry.baseType = static_cast<quint8>(value.toUInt()); }},
    {"NumIOModules", [](auto &entry, const auto &value) { entry.numIOModules = static_cast<quint8>(value.toUInt()); }},
    {"NotSupported",
     [](auto &entry, const auto &value) {
         const QStringList items = value.split(QLatin1Char(','));
         for (const QString &item : items) {
             entry.notSupported.append(item.toUInt(nullptr, 16));
         }
     }},
    {"ServerFile", [](auto &entry, const auto &value) { entry.serverFile = value; }},
    {"IsCatEntry", [](auto &entry, const auto &value) { entry.isCatEntry = value.toUInt() != 0; }},
    {"ModuleInfo", [](auto &entry, const auto &value) { entry.moduleInfo = value.toUInt(nullptr, 16); }},
    {"IntSupported", [](auto &entry, const auto &value) { setBytes(entry.intSupported, value); }},
    {"IntEnableTbl", [](auto &entry, const auto &value) { setBytes(entry.intEnableTbl, value); }},
    {"FwVersion",
     [](auto &entry, const auto &value) {
         entry.fwVersion = static_cast<quint8>(QString(value).remove(QLatin1Char('.')).toUInt());
     }},
    {"BuffCnfg", [](auto &entry, const auto &value) { setBytes(entry.buffCnfg, value); }},
    {"SyncCnfg", [](auto &entry, const auto &value) { setBytes(entry.syncCnfg, value); }},
    {"SupportGrpCnfg", [](auto &entry, const auto &value) { entry.supportGrpCnfg = value.toUInt() != 0; }},
    {"SampPeriodGrpCnfg", [](auto &entry, const auto &value) { entry.sampPeriodGrpCnfg = value.toUInt() != 0; }},
    {"SampPeriodList", [](auto &entry, const auto &value) { entry.sampPeriodList += value.split(QLatin1Char(',')); }},
    {"ReservBytes", [](auto &entry, const auto &value) { setBytes(entry.reservBytes, value); }},
    {"SupportEtherCAT",
     [](auto &entry, const auto &value) { entry.supportEtherCAT = static_cast<qint32>(value.toUInt()); }},
    {"SupportCANopen", [](auto &entry, const auto &value) { entry.supportCANopen = value.toUInt() != 0; }},
    {"supportRack", [](auto &entry, const auto &value) { entry.supportRack = static_cast<qint32>(value.toUInt()); }},
    {"SupportHSC", [](auto &entry, const auto &value) { entry.supportHSC = static_cast<qint32>(value.toUInt()); }},
    {"softCtrlRemote", [](auto &entry, const auto &value) { entry.softCtrlRemote = value.toUInt() != 0; }},
};

/// Returns the initial values of an entry, which keeps some values of the entry before.
inline ModuleMetInfo startAfter(const ModuleMetInfo &before)
{
    ModuleMetInfo entry;
    entry.supportGrpCnfg = before.supportGrpCnfg;
    entry.sampPeriodGrpCnfg = before.sampPeriodGrpCnfg;
    entry.sampPeriodList = before.sampPeriodList;
    entry.reservBytes = before.reservBytes;
    entry.supportEtherCAT = before.supportEtherCAT;
    entry.supportRack = before.supportRack;
    return entry;
}

/// Returns all entries of a file.
inline QVector<ModuleMetInfo> read(QTextStream &stream)
{
    QVector<ModuleMetInfo> entries;
    ModuleMetInfo entry;
    while (!stream.atEnd()) {
        const QString line = stream.readLine();
        const auto begins = [&line](const char *prefix) {
            return line.startsWith(QLatin1String(prefix), Qt::CaseInsensitive);
        };
        if (line.simplified().startsWith(QLatin1Char(';'))) {
            continue;
        }
        if (begins("[MODULE START]")) {
            entry = startAfter(entry);
            continue;
        }
        const auto *key = std::find_if(std::begin(keys), std::end(keys),
                                       [&](const Key &candidate) { return begins(candidate.name); });
        if (key != std::end(keys)) {
            key->set(entry, line.mid(line.indexOf(QLatin1Char('=')) + 1).simplified());
        } else if (begins("[END]")) {
            entries.append(entry);
        }
    }
    return entries;
}

/// Returns the index of the entry that a lookup finds; -1 if it finds none.
inline int choose(const QVector<ModuleMetInfo> &entries, quint32 typeCode, quint32 hostVersion)
{
    for (int index = 0; index < entries.size(); ++index) {
        if (static_cast<quint32>(entries.at(index).needHwCnfgVersion) > hostVersion) {
            return -1;
        }
        if (entries.at(index).objId == typeCode) {
            return index;
        }
    }
    return -1;
}

} // namespace plainreader
