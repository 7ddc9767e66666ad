// The debug lines that the persistence functions write, one per call, through the message logger.
#pragma once

#include "bytereader.h"

#include <QLoggingCategory>

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

/// Writes time, source name, line number and the bytes that @p bytes still holds.
void printDiagnostic(DiagnosticLine line, const ByteReader &bytes);

/// The same where debug output of the default category is switched on; elsewhere it costs nothing but the question.
inline void writeDiagnostic(DiagnosticLine line, const ByteReader &bytes)
{
    if (QLoggingCategory::defaultCategory()->isDebugEnabled()) {
        printDiagnostic(line, bytes);
    }
}
