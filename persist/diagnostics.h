// The debug lines of the persistence functions, one per call. The message logger writes them.
#pragma once

#include <QByteArray>
#include <QLoggingCategory>

/// The call that a line belongs to. The values are printed and never change, because filters of the host search for
/// them.
enum class DiagnosticLine {
    Compile = 141,
    AnalogOutputRecord = 370,
    Recompile = 509,
    AnalogSection = 865,
    DigitalSection = 1047,
    Save = 1339,
    Restore = 1350
};

/// Writes time, source name, line number and @p bytes.
void printDiagnostic(DiagnosticLine line, const QByteArray &bytes);

/// Calls printDiagnostic() if debug output of the default category is on. Otherwise it costs only this check.
/// @p bytes is any contiguous container of char.
template <typename Bytes>
void writeDiagnostic(DiagnosticLine line, const Bytes &bytes)
{
    if (QLoggingCategory::defaultCategory()->isDebugEnabled()) {
        printDiagnostic(line, QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size())));
    }
}
