// The debug lines that the persistence functions write, one per call, through the message logger.
#pragma once

#include "bytereader.h"

/// Which call a line belongs to. The values are printed and never change: filters of the host look for them.
enum class DiagnosticLine {
    Compile = 141,
    AnalogOutputRecord = 370,
    Recompile = 509,
    AnalogSection = 865,
    DigitalSection = 1047,
    Save = 1339,
    Restore = 1350
};

/// Writes time, source name, line number and the bytes that @p bytes still holds. Costs nothing but the question
/// where debug output of the default category is switched off.
void writeDiagnostic(DiagnosticLine line, const ByteReader &bytes);
