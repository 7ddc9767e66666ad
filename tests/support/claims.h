// What a station holds in the simulated host's memory, as text that a failure shows.
#pragma once

#include "simulatedbase.h"

#include <QStringList>

inline QString claimText(int area, int start, int length)
{
    return QStringLiteral("%1 %2+%3").arg(area).arg(start).arg(length);
}

/// Of each held range, in the order of the texts.
inline QStringList claims(const QString &owner)
{
    QStringList texts;
    for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(owner)) {
        texts += claimText(static_cast<int>(range.area), range.start, range.length);
    }
    texts.sort();
    return texts;
}
