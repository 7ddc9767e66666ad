// The ranges that a station has claimed in the simulated host's memory, as texts.
#pragma once

#include "simulatedbase.h"

#include <QStringList>

inline QString claimText(int area, int start, int length)
{
    return QStringLiteral("%1 %2+%3").arg(area).arg(start).arg(length);
}

/// Returns the text of each claimed range, sorted.
inline QStringList claims(const QString &owner)
{
    QStringList texts;
    for (const simulatedhost::ClaimedRange &range : simulatedhost::claimedRanges(owner)) {
        texts += claimText(static_cast<int>(range.area), range.start, range.length);
    }
    texts.sort();
    return texts;
}
