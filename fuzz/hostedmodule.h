// The modules and blocks of fuzz_exports, with what is expected of them.
#pragma once

#include "simpleextendexportfunc.h"
#include "target.h"

#include <memory>

namespace fuzz {

inline bool isSame(const IoMap &left, const IoMap &right)
{
    return left.area == right.area && left.start == right.start && left.count == right.count;
}

/// What the model expects of a module.
struct Expected {
    QString owner;
    qint32 rack = -1;
    qint32 slot = -1;
    QPoint position;
    bool isSound = true; ///< was created from the catalog or a block of such a module, and has a place that blocks keep
};

struct Module : Expected {
    std::unique_ptr<SimpleExtendPar, decltype(&releaseObject)> handle{nullptr, &releaseObject};
};

/// A block with the module that it was written from.
struct Block : Expected {
    QByteArray bytes;
    bool isState = false;
    IoMap input;
    IoMap output;
    QString name;
    QString comment;
};

inline QByteArray blockOf(SimpleExtendPar *module, bool isState)
{
    QByteArray block("before");
    QStringList list{QStringLiteral("x")};
    require(compile(module, block, list) == 0 && list.isEmpty() && block.startsWith("before"),
            "compile changes more than the end of the block");
    return isState ? save(module) : block.mid(6);
}

/// Writes the module twice.
inline Block writtenFrom(const Module &module, bool isState)
{
    SimpleExtendPar *const handle = module.handle.get();
    Block block;
    static_cast<Expected &>(block) = module;
    block.isState = isState;
    block.bytes = blockOf(handle, isState);
    require(blockOf(handle, isState) == block.bytes, "the same module gives another block");
    block.input = getInMap(handle);
    block.output = getOutMap(handle);
    block.name = getName(handle);
    block.comment = getComment(handle);
    return block;
}

} // namespace fuzz
