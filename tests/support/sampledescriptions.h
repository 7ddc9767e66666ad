// Description files to measure with.
//
// A program that includes this header (in one source file) takes the host functions below in place of basemodule's:
// they cost nothing, so that a look-up is the plug-in's work.
#pragma once

#include "baseservices.h"
#include "metreader.h"
#include "plainreader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>

#include <benchmark/benchmark.h>

namespace sampledescriptions {

constexpr quint32 hostVersion = 2300;

/// The host's component folders, in a temporary folder.
class Folder {
public:
    Folder()
    {
        QDir(m_folder.path()).mkpath(QStringLiteral("6"));
        QDir(m_folder.path()).mkpath(QStringLiteral("9"));
        descriptions = m_folder.filePath(QStringLiteral("6/"));
        components = m_folder.filePath(QStringLiteral("9/"));
        write(components % QStringLiteral("ai8_ui.cmp"), "component");
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }

    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(path));
        }
    }

    QString descriptions;
    QString components;

private:
    QTemporaryDir m_folder;
};

inline Folder &folder()
{
    static Folder theFolder;
    return theFolder;
}

/// What stands in an entry but its start, its end and its type code: every other key once, in 40 lines with these. A
/// ";" begins a comment in an INI file too.
inline const QByteArray &entryLines()
{
    static const QByteArray lines = "; Eight inputs and eight outputs for voltages and currents.\n"
                                    ";\n"
                                    "; What the catalog shows\n"
                                    "MetVersion=1.0\n"
                                    "NeedHwCnfgVersion=2000\n"
                                    "ObjName=Analog Module 8 x U/I in, 8 x U/I out\n"
                                    "MLFB=SX-AM16-UI\n"
                                    "ParentObjID=3000\n"
                                    "BaseType=1\n"
                                    "NumIOModules=1\n"
                                    "NotSupported=3552,3553,3554\n"
                                    "ServerFile=ai8_ui.cmp\n"
                                    "IsCatEntry=1\n"
                                    "\n"
                                    "; What the controller gets\n"
                                    "ModuleInfo=08080000\n"
                                    "IntSupported=01,02,00,00,00\n"
                                    "IntEnableTbl=01,00,00,00,00\n"
                                    "FwVersion=1.0\n"
                                    "BuffCnfg=01,00,00,10,00,00,00,00,00,00,00,00,00,00\n"
                                    "SyncCnfg=00,00,00,00,00,00,00,00,00\n"
                                    "ReservBytes=00,00,00,00,00,00,00,00\n"
                                    "\n"
                                    "; Sampling of groups\n"
                                    "SupportGrpCnfg=1\n"
                                    "SampPeriodGrpCnfg=1\n"
                                    "SampPeriodList=5ms,10ms,50ms,100ms\n"
                                    "\n"
                                    "; Where the module can stand\n"
                                    "; and what it cannot do there\n"
                                    "SupportEtherCAT=1\n"
                                    "SupportCANopen=1\n"
                                    "supportRack=4\n"
                                    "SupportHSC=0\n"
                                    "softCtrlRemote=0\n"
                                    "\n"
                                    ";\n";
    return lines;
}

inline QByteArray descriptionEntry(quint32 typeCode)
{
    return "[MODULE START]\n" + entryLines() + "ObjID=" + QByteArray::number(typeCode, 16) + "\n[END]\n";
}

/// The same as a section of an INI file.
inline QByteArray iniSection(const QByteArray &name, quint32 typeCode)
{
    return "[" + name + "]\n" + entryLines() + "ObjID=" + QByteArray::number(typeCode, 16) + "\n\n";
}

/// A look-up as anyone would write it.
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

} // namespace sampledescriptions

QString getHwcnfgComponentPath(HwcnfgComponent component)
{
    return component == HwcnfgComponent::ModuleDescription ? sampledescriptions::folder().descriptions
                                                           : sampledescriptions::folder().components;
}

quint32 getAppVerNum()
{
    return sampledescriptions::hostVersion;
}
