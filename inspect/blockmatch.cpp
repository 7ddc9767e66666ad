#include "blockmatch.h"

#include <QHash>

#include <deque>

namespace blockdecoder {

namespace {

/// Pairs every module of the left side that has no counterpart yet with the first free one of the right side that has
/// the same @p identity.
template <typename Identity>
void pairUp(const QVector<ModuleKey> &left, const QVector<ModuleKey> &right, QVector<std::optional<int>> &pairs,
            QVector<bool> &isTaken, Identity identity)
{
    QHash<QString, std::deque<int>> free;
    for (int i = 0; i < right.size(); ++i) {
        if (!isTaken.at(i)) {
            free[identity(right.at(i))].push_back(i);
        }
    }
    for (int i = 0; i < left.size(); ++i) {
        const auto candidates = pairs.at(i) ? free.end() : free.find(identity(left.at(i)));
        if (candidates != free.end() && !candidates->empty()) {
            pairs[i] = candidates->front();
            isTaken[candidates->front()] = true;
            candidates->pop_front();
        }
    }
}

} // namespace

QVector<MatchedModules> matchedModules(const QVector<ModuleKey> &left, const QVector<ModuleKey> &right)
{
    QVector<std::optional<int>> pairs(left.size());
    QVector<bool> isTaken(right.size(), false);
    pairUp(left, right, pairs, isTaken, [](const ModuleKey &key) -> QString {
        return QStringLiteral("%1 %2 %3").arg(key.rack).arg(key.slot).arg(key.typeCode);
    });
    pairUp(left, right, pairs, isTaken,
           [](const ModuleKey &key) -> QString { return QString::number(key.typeCode) + QLatin1Char(' ') + key.name; });
    pairUp(left, right, pairs, isTaken, [](const ModuleKey &key) -> QString { return QString::number(key.typeCode); });
    QVector<MatchedModules> matched;
    for (int i = 0; i < left.size(); ++i) {
        matched += {i, pairs.at(i)};
    }
    for (int i = 0; i < right.size(); ++i) {
        if (!isTaken.at(i)) {
            matched += {std::nullopt, i};
        }
    }
    return matched;
}

} // namespace blockdecoder
