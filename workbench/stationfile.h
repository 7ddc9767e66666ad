// The file in which a station is kept: JSON text with a format name, a version, the saved state of every module as
// hexadecimal text, and a checksum over the states.
#pragma once

#include "station.h"

/// Replaces the file as a whole. False, and why in @p error, when that fails; an existing file is then unchanged.
bool writeFile(const QString &path, const QByteArray &bytes, QString &error);

/// As writeFile, with the states of a station's modules.
bool writeStationFile(const QString &path, const QByteArrayList &states, QString &error);

/// The station of a file. Null, with no memory left claimed and the reason in @p error, when the file cannot be read,
/// is no station file, of another version, too large or damaged, or when a module of it cannot be restored.
std::unique_ptr<Station> openStation(const PluginLibrary &plugin, const QString &memoryOwner, const QString &path,
                                     QString &error);
