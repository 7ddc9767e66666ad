// Hand-written blocks, one per module kind and format: reference of the tests and seeds of the fuzz targets.
#pragma once

#include "blockbuilder.h"

#include <QStringList>
#include <QVector>

#include <algorithm>

namespace blockbuilder {

/// A hand-written block, and the values and claims that result from reading it.
struct Golden {
    const char *name;
    quint32 objId;
    quint32 moduleInfo;
    int unit;          ///< bytes per channel; 0 = bits
    QByteArray ranges; ///< their bytes in both formats
    QStringList claims;
    QByteArrayList sections;
    QString tail;
};

inline const QVector<Golden> &goldens()
{
    static const QVector<Golden> rows = [] {
        QVector<Golden> made;
        const auto row = [&made](const char *name, quint32 objId, quint32 moduleInfo, int unit, const char *ranges,
                                 const QStringList &claims, const QByteArrayList &sections, const char *tail) {
            made.append({name, objId, moduleInfo, unit, hex(ranges), claims, sections, QString::fromLatin1(tail)});
        };
        row("voltage/current with output", 13395, 0x01010000, 2, "06 0110 02  07 0220 02",
            {"get plc 6 272 2", "get plc 7 544 2"},
            {hex("00000016 00 25 0000 01  000B 00 00 01 05 0140 01 02 03 04 05"),
             hex("00000012 00 26 0000 01  0007 00 00 01 FFFE 01 03")},
            "ai 1 0:0,1,5,320/0102030405000000 aq 1 0:0,1,-2,1,3");
        row("thermocouple", 13396, 0x00010000, 2, "06 0110 02  07 0000 00", {"get plc 6 272 2", "get plc 7 0 0"},
            {hex("00000018 00 25 0000 01  000D 01 00 01 05 0140 01 02 03 07 05 04 06")},
            "ai 1 0:1,1,5,320/0102030405060700 aq 0");
        row("resistance thermometer", 13397, 0x00010000, 2, "06 0110 02  07 0000 00",
            {"get plc 6 272 2", "get plc 7 0 0"},
            {hex("00000018 00 25 0000 01  000D 02 00 01 05 0140 01 02 03 08 05 04 06")},
            "ai 1 0:2,1,5,320/0102030405060008 aq 0");
        row("digital", 13650, 0x00000810, 0, "81 0003 02  82 0004 01", {"get plc 129 3 2", "get plc 130 4 1"},
            {hex("0000000B 01 12 0000 10 5561"), hex("0000000B 00 05 0000 08 01 81")}, "di 16 5561 dq 8,1 81");
        row("weighing, double words", 14418, 0x00010000, 4, "84 0008 04  84 0000 00",
            {"get plc 132 8 4", "get plc 132 0 0"},
            {hex("00000019 00 29 0000 01  00 01 40000000 04 000F 0102 0304 00 01 9D")},
            "weigh 1 0:1,2,4,15,258,772,0,1,-99");
        row("weighing, words", 14419, 0x00010000, 2, "06 0008 02  07 0000 00", {"get plc 6 8 2", "get plc 7 0 0"}, {},
            "weigh 0");
        row("plain", 100, 0, 1, "00 0000 00  00 0000 00", {}, {}, "");
        return made;
    }();
    return rows;
}

/// Sections with what no writer produces, too: channels twice, sections twice, an unknown family.
inline const QVector<Golden> &odds()
{
    static const QVector<Golden> rows = [] {
        QVector<Golden> made;
        const auto row = [&made](quint32 objId, const QByteArrayList &sections) {
            made.append({"odd sections", objId, 0x01010808, 0, hex("06 0110 02  82 0220 01"), {}, sections, {}});
        };
        row(13395, {hex("00000016 00 25 0000 01  000B 00 07 01 05 0140 01 02 03 02 01"),
                    hex("0000003C 00 25 0000 04  000D 01 00 01 05 0140 01 02 08 01 00 00 01"
                        "000D 02 01 00 07 0011 01 04 13 01 01 01 01  000B 00 00 01 05 0000 01 04 03 02 01"
                        "0006 09 02 01 05 0140"),
                    hex("0000001B 00 26 0000 02  0007 00 00 01 FFFE 01 03  0007 00 01 00 8000 00 04")});
        row(13650, {hex("0000000B 00 05 0000 08 01 81"), hex("0000000B 01 12 0000 0C 5071"),
                    hex("0000000C 00 05 0000 10 02 81FF")});
        row(14418, {hex("00000029 00 29 0000 02  00 01 40000000 04 000F 0102 0304 00 01 9D"
                        "03 00 7FC00000 00 07D1 0000 0000 02 06 64")});
        row(14419, {});
        row(100, {});
        return made;
    }();
    return rows;
}
inline const Golden &odd(quint32 objId)
{
    return *std::find_if(odds().begin(), odds().end(), [objId](const Golden &each) { return each.objId == objId; });
}

/// Returns the header without its frame.
inline QByteArray headerFields(const Golden &golden, bool saved)
{
    return be32(golden.objId) + hex("01 FE 03 4EC3A9") + (saved ? hex("01 63 01020304 00000005") : QByteArray()) +
           be32(golden.moduleInfo) + hex("0C  B00102030405060708090A0B0CB1  500000000000000051") + golden.ranges +
           hex("01 01020304E5  0000000000000000");
}

/// Returns the saved state of the module, or its configuration block.
inline QByteArray goldenBlock(const Golden &golden, bool saved)
{
    return block(header(headerFields(golden, saved)), golden.sections);
}

} // namespace blockbuilder
