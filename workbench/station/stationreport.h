// The station as text, for a terminal.
#pragma once

class QTextStream;
class Station;

/// Prints one row per module with the lengths of its saved state and configuration block and whether both come
/// back the same from a round trip. False when one of them does not.
bool printStation(QTextStream &out, const Station &station);
