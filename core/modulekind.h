// What a module type code means: the only place that knows the code ranges.
#pragma once

#include "baseservices.h"

#include <QtGlobal>

enum class ModuleFamily { Plain, Analog, Digital, WeighDword, WeighWord };

/// Where one direction of a module kind lives and how many channels it has.
struct DirectionKind {
    VarArea area = VarArea::None;
    quint8 unit = 1;                                      ///< bytes per channel; 0 = one bit per channel
    qint32 (*channelCount)(quint32 moduleInfo) = nullptr; ///< host query; null = the kind has no such range
};

struct ModuleKind {
    ModuleFamily family = ModuleFamily::Plain;
    DirectionKind input;
    DirectionKind output;
    /// Bytes per channel of a module that recompile rebuilds; 2 where restore gives 4 (double-word weighing).
    /// The two differ on purpose: hosts rely on what each entry point reports.
    quint8 recompiledUnit{};
};

/// The kind of a type code; every code has one, codes outside all ranges are plain.
const ModuleKind &moduleKind(quint32 objId);

/// Signal family (SignalFamily) that the factory gives to every analog input of a type code.
quint8 factorySignalFamily(quint32 objId);
