// Prints a station as a table.
#pragma once

class QTextStream;
class Station;

/// Prints one row per module: the lengths of its saved state and configuration block, and whether both survive a round
/// trip. Returns false if one of them does not, or if a module is unavailable.
bool printStation(QTextStream &out, const Station &station);
