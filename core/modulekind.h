// The kind of each module type. The plug-in has the ranges of type codes only here.
#pragma once

#include "baseservices.h"

#include <QtGlobal>

#include <optional>

enum class ModuleFamily { Plain, Analog, Digital, WeighDword, WeighWord };

/// Area, unit and channel count of one direction of a module kind.
struct DirectionKind {
    VarArea area = VarArea::None;
    quint8 unit = 1;                                      ///< bytes per channel; 0 = one bit per channel
    qint32 (*channelCount)(quint32 moduleInfo) = nullptr; ///< asks the host; null = the kind has no such range
};

struct ModuleKind {
    ModuleFamily family = ModuleFamily::Plain;
    DirectionKind input;
    DirectionKind output;
    /// Bytes per channel of a module that recompile rebuilds. Intended: 2 for double-word weighing modules, where
    /// restore gives 4, because hosts rely on what each entry point reports.
    quint8 recompiledUnit{};
};

/// Returns the kind of a type code; codes outside all ranges are plain.
const ModuleKind &moduleKind(quint32 objId);

/// Returns the SignalFamily that all analog inputs of a type code have; std::nullopt if a block may give each input a
/// different one.
std::optional<quint8> fixedSignalFamily(quint32 objId);

/// Returns the SignalFamily of every analog input of a factory record.
quint8 factorySignalFamily(quint32 objId);
