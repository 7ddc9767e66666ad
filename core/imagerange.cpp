#include "imagerange.h"

namespace {

VarArea areaOf(const IoMap &range)
{
    return static_cast<VarArea>(range.area);
}

quint16 bitLength(const IoMap &range)
{
    return static_cast<quint16>(bytesOfChannels(0, range.count));
}

} // namespace

quint16 rangeLength(const IoMap &range)
{
    return static_cast<quint16>(bytesOfChannels(range.unit, range.count));
}

bool claimRange(const QString &owner, IoMap &range, qint32 length)
{
    if (length <= 0 || owner.isEmpty()) {
        return true;
    }
    range.start = static_cast<quint16>(autoMallocMemory(owner, areaOf(range), length));
    return range.start != static_cast<quint16>(noRoom);
}

bool confirmRange(const QString &owner, IoMap &range, VarArea wordArea)
{
    // Intended: only the area decides. Double words in the variable area are therefore confirmed with a length in
    // bits, which is shorter than what was claimed and what will be freed.
    const qint32 length = areaOf(range) == wordArea ? range.count * 2 : bitLength(range);
    if (length == 0 || owner.isEmpty()) {
        return true;
    }
    if (getMemory(owner, areaOf(range), range.start, length) == memoryHeld) {
        return true;
    }
    const qint32 start = autoMallocMemory(owner, areaOf(range), length);
    range.start = static_cast<quint16>(start);
    return start != noRoom;
}

void retakeRange(const QString &owner, const IoMap &range, quint8 length)
{
    if (!owner.isEmpty()) {
        getMemory(owner, areaOf(range), range.start, length);
    }
}

void freeRange(const QString &owner, const IoMap &range)
{
    const quint16 length = rangeLength(range);
    if (length != 0) {
        freeMemory(owner, areaOf(range), range.start, length);
    }
}
