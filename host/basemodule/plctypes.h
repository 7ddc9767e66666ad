// The controllers of the simulated host and the sizes of their memory areas.
#pragma once

#include "baseservices.h"

#include <array>

struct PlcDescription {
    quint32 id;
    quint32 version;
    const char *name;
    qint32 analogBytes;   ///< size of the analog inputs and of the analog outputs
    qint32 digitalBytes;  ///< size of the digital inputs and of the digital outputs
    qint32 variableBytes; ///< size of the variables
};

struct AreaDescription {
    VarArea area;
    const char *rangeName;         ///< the name that getPlcAddrRange uses
    const char *title;             ///< the name in messages
    qint32 alignment;              ///< of the starts that autoMallocMemory returns, in bytes
    qint32 PlcDescription::*bytes; ///< size of the area
};

/// The largest controller has room for a station of 2,000 modules of 8 channels or 32 points. No area exceeds 65536
/// bytes, because a module's start has 16 bits. The byte-aligned areas stay below 65535, because this start means
/// "no room".
inline constexpr std::array<PlcDescription, 3> plcDescriptions{{
    {1, 100, "Compact", 512, 128, 8192},
    {2, 100, "Standard", 2048, 1024, 16384},
    {3, 200, "Large", 32768, 16384, 65536},
}};

/// The controller of a station until setPlcType selects another one.
constexpr quint32 defaultPlcType = 2;

/// Returns null for an area that no controller has.
const AreaDescription *findArea(VarArea area);
/// Returns null for an unknown id.
const PlcDescription *findPlc(quint32 id);
