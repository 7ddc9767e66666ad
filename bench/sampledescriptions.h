// Description files for benchmarks.
//
// A program that includes this header (in one source file) replaces these host functions of basemodule. The ones below
// take no time, so the time of a lookup is the plug-in's.
#pragma once

#include "baseservices.h"
#include "catalogfolder.h"
#include "metreader.h"
#include "plainreader.h"

#include <QFile>
#include <QTextCodec>

namespace sampledescriptions {

constexpr quint32 hostVersion = 2300;

/// The catalog of the program, whose encoding is UTF-8 on every machine.
inline CatalogFolder &catalog()
{
    static CatalogFolder theCatalog;
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return theCatalog;
}

/// Returns the lines of an entry without start, end and type code, which make 40 lines with these. Each other key
/// occurs once. A ";" also begins a comment in an INI file.
inline const QByteArray &entryLines()
{
    static const QByteArray lines = R"(; Eight inputs and eight outputs for voltages and currents.
;
; For the catalog
MetVersion=1.0
NeedHwCnfgVersion=2000
ObjName=Analog Module 8 x U/I in, 8 x U/I out
MLFB=SX-AM16-UI
ParentObjID=3000
BaseType=1
NumIOModules=1
NotSupported=3552,3553,3554
ServerFile=module.cmp
IsCatEntry=1

; For the controller
ModuleInfo=08080000
IntSupported=01,02,00,00,00
IntEnableTbl=01,00,00,00,00
FwVersion=1.0
BuffCnfg=01,00,00,10,00,00,00,00,00,00,00,00,00,00
SyncCnfg=00,00,00,00,00,00,00,00,00
ReservBytes=00,00,00,00,00,00,00,00

; Sampling of groups
SupportGrpCnfg=1
SampPeriodGrpCnfg=1
SampPeriodList=5ms,10ms,50ms,100ms

; Possible places of the module
; and its restrictions there
SupportEtherCAT=1
SupportCANopen=1
supportRack=4
SupportHSC=0
softCtrlRemote=0

;
)";
    return lines;
}

inline QByteArray descriptionEntry(quint32 typeCode)
{
    return "[MODULE START]\n" + entryLines() + "ObjID=" + QByteArray::number(typeCode, 16) + "\n[END]\n";
}

/// Returns the same as a section of an INI file.
inline QByteArray iniSection(const QByteArray &name, quint32 typeCode)
{
    return "[" + name + "]\n" + entryLines() + "ObjID=" + QByteArray::number(typeCode, 16) + "\n\n";
}

/// A simple lookup. Returns the index of the entry, or -1.
inline qint32 lookUpPlainly(quint32 typeCode, ModuleMetInfo &destination)
{
    QFile file(metFilePath(typeCode));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    QTextStream stream(&file);
    const QVector<ModuleMetInfo> entries = plainreader::read(stream);
    const int index = plainreader::choose(entries, typeCode, hostVersion);
    if (index >= 0) {
        destination = entries.at(index);
    }
    return index;
}

/// Opens and reads the file without any use of its content. Empty if that is not possible.
inline QByteArray readDescription(quint32 typeCode)
{
    QFile file(metFilePath(typeCode));
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.readAll() : QByteArray();
}

} // namespace sampledescriptions

QString getHwcnfgComponentPath(HwcnfgComponent component)
{
    static const QString descriptions = sampledescriptions::catalog().path(QStringLiteral("6/"));
    static const QString components = sampledescriptions::catalog().path(QStringLiteral("9/"));
    return component == HwcnfgComponent::ModuleDescription ? descriptions : components;
}

quint32 getAppVerNum()
{
    return sampledescriptions::hostVersion;
}
