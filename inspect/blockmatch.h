// Finds the modules of two stations that correspond to each other.
#pragma once

#include <QString>
#include <QVector>

#include <optional>

namespace blockdecoder {

/// What identifies a module.
struct ModuleKey {
    qint64 rack = 0;
    qint64 slot = 0;
    qint64 typeCode = 0;
    QString name; ///< decides between several modules of a type that have moved
};

/// Positions of two modules that correspond; one of them is std::nullopt for a module without a counterpart.
struct MatchedModules {
    std::optional<int> left;
    std::optional<int> right;
};

/// Matches modules of the same rack, slot and type, then the others of the same type: first those of the same name,
/// then in their order. Returns every module once: those of @p left in their order, then the rest of @p right.
QVector<MatchedModules> matchedModules(const QVector<ModuleKey> &left, const QVector<ModuleKey> &right);

} // namespace blockdecoder
