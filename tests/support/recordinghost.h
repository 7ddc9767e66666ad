// A host that records each memory call and returns what a test sets. A program that includes this header, in one source
// file only, calls these functions instead of those of basemodule. All other functions are those of basemodule.
#pragma once

#include "baseservices.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <utility>

/// The results and the record of the host's calls.
struct RecordingHost {
    QStringList calls; ///< such as "get plc 6 0 8"
    std::function<qint32(VarArea area, qint32 length)> allocate = [](VarArea, qint32) { return 0; };
    qint32 takeResult = 1;
    quint32 appVersion = 2300;
    int rendered = 0; ///< blocks converted to text
    /// Channel counts by 'I', 'Q' (points) and 'i', 'q' (analog); a missing one is decoded from moduleInfo.
    QHash<char, qint32> channels;

    qint32 count(char kind, quint32 moduleInfo, int shift) const
    {
        return channels.value(kind, static_cast<qint32>((moduleInfo >> shift) & 0xFFU));
    }
    template <typename... Numbers>
    void note(const char *call, const QString &owner, VarArea area, Numbers... numbers)
    {
        calls << QStringList{call, owner, QString::number(int(area)), QString::number(numbers)...}.join(' ');
    }
    /// Returns the calls since the last takeCalls().
    QStringList takeCalls() { return std::exchange(calls, {}); }
};

inline RecordingHost &recordingHost()
{
    static RecordingHost host;
    return host;
}

qint32 getMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    recordingHost().note("get", owner, area, start, length);
    return recordingHost().takeResult;
}

qint32 autoMallocMemory(const QString &owner, VarArea area, qint32 length)
{
    recordingHost().note("auto", owner, area, length);
    return recordingHost().allocate(area, length);
}

bool freeMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    recordingHost().note("free", owner, area, start, length);
    return true;
}

void backupUsedMemory(const QString &owner)
{
    recordingHost().calls << QStringLiteral("backup ") + owner;
}

void popBackupMemory(const QString &owner)
{
    recordingHost().calls << QStringLiteral("pop ") + owner;
}

void restoreUsedMemory(const QString &owner)
{
    recordingHost().calls << QStringLiteral("restore ") + owner;
}

qint32 getModuleDINum(quint32 moduleInfo)
{
    return recordingHost().count('I', moduleInfo, 0);
}

qint32 getModuleDQNum(quint32 moduleInfo)
{
    return recordingHost().count('Q', moduleInfo, 8);
}

qint32 getModuleAINum(quint32 moduleInfo)
{
    return recordingHost().count('i', moduleInfo, 16);
}

qint32 getModuleAQNum(quint32 moduleInfo)
{
    return recordingHost().count('q', moduleInfo, 24);
}

quint32 getAppVerNum()
{
    return recordingHost().appVersion;
}

QString byteArryDataToString(const QByteArray &data, const QString &separator)
{
    ++recordingHost().rendered;
    return QString::fromLatin1(data.toHex()) + separator;
}
