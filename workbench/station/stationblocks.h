// A station from the configuration blocks that one was compiled into.
#pragma once

#include "station.h"

/// What there is to say of one block; error and unread are in the user's language.
struct BlockResult {
    int number = 0;  ///< from 1, in the order of the blocks
    int offset = 0;  ///< of its first byte
    qint32 code = 0; ///< the plug-in's result code, or -1 where it gave none
    QString error;   ///< why it is no module of the station; empty where it is
    QString unread;  ///< why the bytes behind it could not be read; empty where they could
};

/// The station of configuration blocks that stand one behind the other, under the smallest PLC type that holds it.
/// Blocks that cannot be rebuilt are left out and in @p results, as is one behind which nothing can be read. Null when
/// @p progress ended the work.
std::unique_ptr<Station> decompiled(const PluginLibrary &plugin, const QString &memoryOwner, const QByteArray &bytes,
                                    std::vector<BlockResult> &results, const Progress &progress = {});
