// A host that records every memory call and answers as a test tells it. A program that includes this header (in one
// source file) takes these functions in place of basemodule's; everything else still comes from there.
#pragma once

#include "baseservices.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <utility>

/// Answers and record of the host's calls.
struct RecordingHost {
    QStringList calls; ///< such as "get plc 6 0 8"
    std::function<qint32(VarArea area, qint32 length)> allocate = [](VarArea, qint32) { return 0; };
    qint32 takeResult = 1;
    quint32 appVersion = 2300;
    int rendered = 0;             ///< blocks turned into text
    QHash<char, qint32> channels; ///< answers for 'I', 'Q' (points), 'i', 'q' (analog); else decoded from moduleInfo

    qint32 count(char kind, quint32 moduleInfo, int shift) const
    {
        return channels.value(kind, static_cast<qint32>((moduleInfo >> shift) & 0xFFU));
    }
    void note(const char *call, const QString &owner, VarArea area, const QList<qint32> &numbers)
    {
        QStringList words{QString::fromLatin1(call), owner, QString::number(static_cast<int>(area))};
        for (const qint32 number : numbers) {
            words << QString::number(number);
        }
        calls << words.join(QLatin1Char(' '));
    }
    QStringList takeCalls() { return std::exchange(calls, {}); }
};

inline RecordingHost &recordingHost()
{
    static RecordingHost host;
    return host;
}

qint32 getMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    recordingHost().note("get", owner, area, {start, length});
    return recordingHost().takeResult;
}

qint32 autoMallocMemory(const QString &owner, VarArea area, qint32 length)
{
    recordingHost().note("auto", owner, area, {length});
    return recordingHost().allocate(area, length);
}

bool freeMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    recordingHost().note("free", owner, area, {start, length});
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
