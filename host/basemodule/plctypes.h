// The controllers of the simulated host and the sizes of their memory areas.
#pragma once

#include "baseservices.h"

#include <array>

struct AreaDescription {
    VarArea area;
    const char *rangeName; ///< as getPlcAddrRange knows it
    const char *title;     ///< as a reader knows it
    qint32 alignment;      ///< of the starts that the service chooses, in bytes
};

inline constexpr std::array<AreaDescription, 5> kAreas{{
    {VarArea::AnalogInput, "AIEx", "analog inputs", 2},
    {VarArea::AnalogOutput, "AQEx", "analog outputs", 2},
    {VarArea::DigitalInput, "IEx", "digital inputs", 1},
    {VarArea::DigitalOutput, "QEx", "digital outputs", 1},
    {VarArea::Variable, "V", "variables", 2},
}};

struct PlcDescription {
    quint32 id;
    quint32 version;
    const char *name;
    std::array<qint32, kAreas.size()> sizes; ///< bytes, in the order of kAreas
};

/// Controller of a station that was given none.
constexpr quint32 kDefaultPlcType = 2;

/// The largest holds a station of 2,000 modules of 8 channels or 32 points. No area exceeds 65536 bytes, the reach
/// of a module's 16-bit start; the byte-aligned ones stay below 65535, which means 'no room' as a start.
inline constexpr std::array<PlcDescription, 3> kPlcTypes{{
    {1, 100, "Compact", {512, 512, 128, 128, 8192}},
    {2, 100, "Standard", {2048, 2048, 1024, 1024, 16384}},
    {3, 200, "Large", {32768, 32768, 16384, 16384, 65536}},
}};

/// Null for an area that no controller has.
const AreaDescription *findArea(VarArea area);
/// Null for an unknown id.
const PlcDescription *findPlc(quint32 id);
/// Bytes of an area that is an element of kAreas.
qint32 sizeOf(const PlcDescription &plc, const AreaDescription &area);
