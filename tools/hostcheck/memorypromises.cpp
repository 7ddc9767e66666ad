#include "hostfunctions.h"
#include "promises.h"

#include <limits>
#include <utility>

namespace {

constexpr qint32 claimed = 1;
constexpr qint32 noRoom = -1;
constexpr qint32 maximumStart = 0xFFFE;  // a module stores 16 bits, and 65535 is noRoom
constexpr qint32 longestRange = 255 * 4; // channels of a module, bytes of a double word
constexpr qint32 addressCount = 0x10000; // no area is larger

struct Range {
    qint32 start;
    qint32 length;

    qint32 end() const { return start + length; }
    bool overlaps(const Range &other) const { return start < other.end() && other.start < end(); }
    QString text() const { return QStringLiteral("%1..%2").arg(start).arg(end() - 1); }
};

struct Area {
    VarArea area;
    const char *name; ///< as getPlcAddrRange uses it
    bool isOfBits;
};

constexpr Area areas[] = {{VarArea::AnalogInput, "AIEx", false},
                          {VarArea::AnalogOutput, "AQEx", false},
                          {VarArea::DigitalInput, "IEx", true},
                          {VarArea::DigitalOutput, "QEx", true},
                          {VarArea::Variable, "V", false}};

/// One area of one owner's memory. A failed expectation throws BrokenPromise.
class Memory {
public:
    Memory(QString owner, const Area &area) : m_owner(std::move(owner)), m_area(area) {}

    const Area &area() const { return m_area; }
    void expect(bool isKept, const QString &text) const
    {
        ::expect(isKept, QStringLiteral("%1: %2").arg(QLatin1String(m_area.name), text));
    }

    qint32 take(const Range &range) const { return host::getMemory(m_owner, m_area.area, range.start, range.length); }
    qint32 allocate(qint32 length) const { return host::autoMallocMemory(m_owner, m_area.area, length); }
    void release(const Range &range) const { host::freeMemory(m_owner, m_area.area, range.start, range.length); }

    /// Claims the lowest free range. The addresses above it are free, because the owner's memory was unused.
    Range claim(qint32 length) const
    {
        Range range{0, length};
        qint32 code = take(range);
        const qint32 firstCode = code;
        while (code != claimed && range.end() + length <= addressCount) {
            range.start += length;
            code = take(range);
        }
        expect(code == claimed, QStringLiteral("getMemory returned 1 for no range of %1 bytes, but %2 for 0..%3")
                                    .arg(QString::number(length), QString::number(firstCode))
                                    .arg(length - 1));
        return range;
    }
    Range allocated(qint32 length) const
    {
        const qint32 start = allocate(length);
        expect(start >= 0 && start <= maximumStart,
               QStringLiteral("autoMallocMemory of %1 bytes returned %2").arg(length).arg(start));
        return {start, length};
    }

    /// Claims a range, takes a snapshot, then claims a second range and releases the first. Returns both.
    std::pair<Range, Range> changeAfterSnapshot() const
    {
        const Range earlier = claim(8);
        host::backupUsedMemory(m_owner);
        const Range later = claim(8);
        release(earlier);
        return {earlier, later};
    }

    void expectClaimed(const Range &range, const QString &when) const
    {
        for (qint32 start = range.start; start < range.end(); ++start) {
            expect(take({start, 1}) != claimed,
                   QStringLiteral("address %1 is free %2").arg(QString::number(start), when));
        }
    }
    /// Claims the range.
    void expectFree(const Range &range, const QString &when) const
    {
        const qint32 code = take(range);
        expect(code == claimed,
               QStringLiteral("getMemory returned %1 for %2 %3").arg(QString::number(code), range.text(), when));
    }

private:
    QString m_owner;
    Area m_area;
};

template <typename Check>
void inEachArea(const QString &owner, Check &&check)
{
    for (const Area &area : areas) {
        check(Memory(owner, area));
    }
}

void checkClaim(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        for (const qint32 length : {1, 2, 8, 64}) {
            memory.claim(length);
        }
    });
}

void checkClaimRefusal(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        const QString refused = QStringLiteral("getMemory returned 1 for %1, although %2 was claimed");
        const Range mine = memory.claim(16);
        for (const Range &wanted : {mine, Range{mine.start, 1}, Range{mine.end() - 1, 1}, Range{mine.start + 4, 4},
                                    Range{mine.start + 8, 16}, Range{mine.start, 32}}) {
            memory.expect(memory.take(wanted) != claimed, refused.arg(wanted.text(), mine.text()));
        }
        memory.expectFree({mine.end(), 8}, QStringLiteral("after it had refused a range that contained them"));
    });
}

void checkAreaSize(const Owners &owners)
{
    const PlcTypeVersion plc = host::getPrjPlcTypeVersion(owners.station);
    inEachArea(owners.station, [&plc](const Memory &memory) {
        const quint32 found = host::getPlcAddrRange(plc.type, plc.version, QString::fromLatin1(memory.area().name));
        const auto maximum = static_cast<quint32>(memory.area().isOfBits ? addressCount - 1 : addressCount);
        memory.expect(found >= 1 && found <= maximum,
                      QStringLiteral("getPlcAddrRange returned %1, not 1 to %2").arg(found).arg(maximum));
        const auto size = static_cast<qint32>(found);
        for (const Range &wanted : {Range{size, 1}, Range{size - 1, 2}, Range{size - 1, longestRange},
                                    Range{maximumStart + 1, longestRange}}) {
            memory.expect(
                memory.take(wanted) != claimed,
                QStringLiteral("getMemory returned 1 for %1 of %2 bytes").arg(wanted.text(), QString::number(size)));
        }
        memory.expectFree({size - 1, 1}, QStringLiteral("at the end of %1 bytes").arg(size));
    });
}

void checkAllocate(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        const QString overlap = QStringLiteral("autoMallocMemory returned the start of %1, which overlaps %2");
        QVector<Range> earlier{memory.claim(8)};
        for (const qint32 length : {8, 1, 30}) {
            const Range range = memory.allocated(length);
            for (const Range &other : qAsConst(earlier)) {
                memory.expect(!range.overlaps(other), overlap.arg(range.text(), other.text()));
            }
            memory.expectClaimed(range, QStringLiteral("after autoMallocMemory returned the start of ") + range.text());
            earlier.append(range);
        }
    });
}

void checkNoRoom(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        const QString returned = QStringLiteral("autoMallocMemory of %1 bytes returned %2 instead of -1");
        for (const qint32 length : {addressCount + 1, std::numeric_limits<qint32>::max()}) {
            const qint32 start = memory.allocate(length);
            memory.expect(start == noRoom, returned.arg(length).arg(start));
        }
        qint32 start = 0;
        for (qint32 rest = addressCount; start >= 0 && rest >= 0; rest -= longestRange) {
            start = memory.allocate(longestRange);
            memory.expect(start <= maximumStart, returned.arg(longestRange).arg(start));
        }
        memory.expect(start == noRoom, returned.arg(longestRange).arg(start) + QStringLiteral(" in a full area"));
    });
}

void checkRelease(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        const QString after = QStringLiteral("after freeMemory of ");
        const Range neighbour = memory.claim(8);
        for (const Range &range : {memory.claim(8), memory.allocated(8), memory.allocated(2)}) {
            memory.release(range);
            memory.expectFree(range, after + range.text());
            memory.expectClaimed(neighbour, after + range.text());
        }
    });
}

void checkReleaseExact(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        const Range first = memory.claim(16);
        const Range second = memory.claim(16);
        for (const Range &wrong :
             {Range{first.start, 8}, Range{first.start + 8, 8}, Range{first.start, 0}, Range{first.start, 17},
              Range{first.start, second.end() - first.start}, Range{second.start, longestRange}}) {
            memory.release(wrong);
            const QString when =
                QStringLiteral("after freeMemory of %1 bytes at %2").arg(wrong.length).arg(wrong.start);
            memory.expectClaimed(first, when);
            memory.expectClaimed(second, when);
        }
    });
}

void checkSnapshotDrop(const Owners &owners)
{
    const QString after = QStringLiteral("after popBackupMemory");
    inEachArea(owners.station, [&](const Memory &memory) {
        const auto [earlier, later] = memory.changeAfterSnapshot();
        host::popBackupMemory(owners.station);
        memory.expectClaimed(later, after);
        memory.expectFree(earlier, after);
    });
}

void checkSnapshotRestore(const Owners &owners)
{
    const QString after = QStringLiteral("after restoreUsedMemory");
    inEachArea(owners.station, [&](const Memory &memory) {
        const auto [earlier, later] = memory.changeAfterSnapshot();
        host::restoreUsedMemory(owners.station);
        memory.expectClaimed(earlier, after);
        memory.expectFree(later, after);
        memory.release(earlier);
        memory.expectFree(earlier, QStringLiteral("after restoreUsedMemory and freeMemory"));
    });
}

void checkSnapshotNesting(const Owners &owners)
{
    inEachArea(owners.station, [&](const Memory &memory) {
        const Range first = memory.claim(8);
        host::backupUsedMemory(owners.station); // of a dialog that was closed with OK: stays open
        const Range second = memory.claim(8);
        host::backupUsedMemory(owners.station); // of the next dialog
        const Range third = memory.claim(8);
        host::backupUsedMemory(owners.station); // of its Address page, which drops it
        const Range fourth = memory.claim(8);
        host::popBackupMemory(owners.station);
        memory.expectClaimed(fourth, QStringLiteral("after the third snapshot was dropped"));
        host::restoreUsedMemory(owners.station);
        QString when = QStringLiteral("after the second of three snapshots was restored");
        memory.expectClaimed(second, when);
        memory.expectFree(third, when);
        memory.expectFree(fourth, when);
        host::restoreUsedMemory(owners.station);
        when = QStringLiteral("after the first of three snapshots was restored");
        memory.expectClaimed(first, when);
        for (const Range &range : {second, third, fourth}) {
            memory.expectFree(range, when);
        }
    });
}

void checkErrorText(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        for (const Range &refused : {memory.claim(8), Range{maximumStart, longestRange}}) {
            const qint32 code = memory.take(refused);
            memory.expect(!host::getMemoryErrStrByErrCode(code).trimmed().isEmpty(),
                          QStringLiteral("getMemoryErrStrByErrCode(%1) returned no text").arg(code));
        }
    });
}

void checkUnknownArea(const Owners &owners)
{
    inEachArea(owners.station, [&](const Memory &memory) {
        const Range range = memory.claim(8);
        for (const int number : {0, 1, 128, 131, 133, 255}) {
            const auto area = static_cast<VarArea>(number);
            host::getMemory(owners.station, area, range.end(), range.length);
            host::autoMallocMemory(owners.station, area, range.length);
            host::freeMemory(owners.station, area, range.start, range.length);
            memory.expectClaimed(range, QStringLiteral("after freeMemory of area %1").arg(number));
        }
        memory.expectFree({range.end(), range.length}, QStringLiteral("after claims in unknown areas"));
    });
}

void checkEmptyRange(const Owners &owners)
{
    inEachArea(owners.station, [](const Memory &memory) {
        const Range range = memory.claim(8);
        for (const Range &empty : {Range{range.start, 0}, Range{range.end(), 0}, Range{maximumStart + 1, 0}}) {
            memory.take(empty);
        }
        memory.expectClaimed(range, QStringLiteral("after getMemory of 0 bytes"));
        memory.expectFree({range.end(), 8}, QStringLiteral("after getMemory of 0 bytes"));
    });
}

void checkSeparateOwners(const Owners &owners)
{
    inEachArea(owners.station, [&](const Memory &memory) {
        const Memory otherMemory(owners.other, memory.area());
        const Range range = memory.claim(8);
        host::backupUsedMemory(owners.station);
        otherMemory.expectFree(range, QStringLiteral("although only another owner had claimed them"));
        host::restoreUsedMemory(owners.station);
        otherMemory.expectClaimed(range, QStringLiteral("after the snapshot of another owner was restored"));
        otherMemory.release(range);
        memory.expectClaimed(range, QStringLiteral("after freeMemory of another owner"));
    });
}

void checkEmptyOwner(const Owners &owners)
{
    const QString nobody;
    inEachArea(owners.station, [&](const Memory &memory) {
        const Memory nobodys(nobody, memory.area());
        const Range earlier = memory.claim(8);
        host::backupUsedMemory(nobody);
        const Range later = memory.claim(8);
        nobodys.release(earlier);
        nobodys.take(earlier);
        const PlcTypeVersion plc = host::getPrjPlcTypeVersion(nobody);
        host::getPlcAddrRange(plc.type, plc.version, QString::fromLatin1(memory.area().name));
        host::restoreUsedMemory(nobody);
        host::backupUsedMemory(nobody);
        host::popBackupMemory(nobody);
        for (const Range &range : {earlier, later}) {
            memory.expectClaimed(range, QStringLiteral("after calls with an empty owner"));
        }
    });
}

} // namespace

QVector<Promise> memoryPromises()
{
    const QString claim = QStringLiteral("claim");
    const QString refusal = QStringLiteral("claim-refusal");
    const QString allocate = QStringLiteral("allocate");
    const QString release = QStringLiteral("release");
    const QString drop = QStringLiteral("snapshot-drop");
    const QString restore = QStringLiteral("snapshot-restore");
    const QStringList both{claim, refusal};
    return {
        {"claim", "getMemory returns 1 for a free range", {}, checkClaim},
        {"claim-refusal",
         "getMemory does not return 1 for a range with a claimed byte, and claims nothing",
         {claim},
         checkClaimRefusal},
        {"area-size", "getPlcAddrRange returns the bytes that getMemory can claim, at most 65536", both, checkAreaSize},
        {"allocate", "autoMallocMemory claims a free range and returns its start, 0 to 65534", both, checkAllocate},
        {"no-room", "autoMallocMemory returns -1 if the area has no room", both + QStringList{allocate}, checkNoRoom},
        {"release", "freeMemory frees a claimed range, which can then be claimed again", both + QStringList{allocate},
         checkRelease},
        {"release-exact", "freeMemory changes nothing unless exactly this range is claimed", both, checkReleaseExact},
        {"snapshot-drop", "popBackupMemory keeps the changes since the snapshot", both + QStringList{release},
         checkSnapshotDrop},
        {"snapshot-restore", "restoreUsedMemory reverts the changes since the snapshot", both + QStringList{release},
         checkSnapshotRestore},
        {"snapshot-nesting", "Both end the latest snapshot only; an earlier one can stay open",
         both + QStringList{drop, restore}, checkSnapshotNesting},
        {"error-text", "getMemoryErrStrByErrCode returns a text for an error code of getMemory", both, checkErrorText},
        {"unknown-area", "Calls with an unknown area return and change none of the five areas", both, checkUnknownArea},
        {"empty-range", "getMemory of 0 bytes claims nothing", both, checkEmptyRange},
        {"separate-owners", "No memory call changes the memory of another owner", both + QStringList{restore},
         checkSeparateOwners},
        {"empty-owner", "Calls with an empty owner return and change no other owner's memory", both, checkEmptyOwner},
    };
}
