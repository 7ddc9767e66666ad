// Rebuilds a station from its configuration blocks.
#pragma once

#include "station.h"

/// What is wrong with one block. The texts are in the user's language.
struct BlockResult {
    int number = 0;  ///< from 1, in the order of the blocks
    int offset = 0;  ///< of its first byte
    qint32 code = 0; ///< the plug-in's result code, or -1 if the plug-in set none
    QString error;   ///< why it is not a module of the station; empty if it is
    QString unread;  ///< why the bytes after it were not read; empty if they were
};

struct DecompiledStation {
    std::unique_ptr<Station> station; ///< null if the user cancelled
    std::vector<BlockResult> problems;
};

/// Rebuilds the modules of concatenated configuration blocks, with the smallest PLC type that has room for them. Blocks
/// that cannot be rebuilt are left out and reported, and so is a block whose end is unknown.
DecompiledStation decompiled(const PluginLibrary &plugin, const QString &memoryOwner, const QByteArray &bytes,
                             const Progress &progress = {});
