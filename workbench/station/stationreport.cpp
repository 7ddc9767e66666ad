#include "stationreport.h"

#include "imagerangetext.h"
#include "station.h"

#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

/// A range length that the plug-in itself defines differently for a rebuilt module is mentioned, but is not a failure.
QString roundTripText(const RoundTrip &result)
{
    if (!result.savedSame) {
        return QStringLiteral("SAVED STATE DIFFERS");
    }
    if (!result.compiledSame) {
        return QStringLiteral("BLOCK DIFFERS");
    }
    return result.rangeLengthsHalved == 0 ? QStringLiteral("same") : QStringLiteral("same except range length (*)");
}

QStringList row(const ModuleSummary &module, const RoundTrip &result)
{
    return {QString::number(module.place.rack),
            QString::number(module.place.slot),
            QString::number(module.typeCode),
            module.name,
            rangeText(module.in),
            rangeText(module.out),
            QString::number(result.savedBytes),
            QString::number(result.compiledBytes),
            roundTripText(result)};
}

QStringList unavailableRow(const ModuleSummary &module)
{
    QStringList cells = row(module, {});
    cells.last() = module.unavailable;
    return cells;
}

void printTable(QTextStream &out, const std::vector<QStringList> &rows)
{
    std::vector<int> widths;
    for (const QStringList &cells : rows) {
        widths.resize(static_cast<std::size_t>(cells.size()));
        for (std::size_t column = 0; column < widths.size(); ++column) {
            widths[column] = std::max(widths[column], cells.at(static_cast<int>(column)).size());
        }
    }
    for (const QStringList &cells : rows) {
        QString line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            line += cells.at(static_cast<int>(column)).leftJustified(widths[column] + 2);
        }
        out << line.trimmed() << '\n';
    }
}

} // namespace

bool printStation(QTextStream &out, const Station &station)
{
    std::vector<QStringList> rows{{QStringLiteral("Rack"), QStringLiteral("Slot"), QStringLiteral("Type"),
                                   QStringLiteral("Name"), QStringLiteral("Input"), QStringLiteral("Output"),
                                   QStringLiteral("Saved"), QStringLiteral("Compiled"), QStringLiteral("Round trip")}};
    int failed = 0;
    bool halved = false;
    for (int i = 0; i < station.count(); ++i) {
        if (const ModuleSummary module = station.module(i); !module.unavailable.isEmpty()) {
            rows.push_back(unavailableRow(module));
            ++failed;
            continue;
        }
        const RoundTrip result = station.roundTrip(i);
        rows.push_back(row(station.module(i), result));
        failed += result.isGood() ? 0 : 1;
        halved = halved || result.rangeLengthsHalved != 0;
    }
    printTable(out, rows);
    out << '\n'
        << station.count() << " modules, " << station.compiled()->size() << " bytes compiled; " << failed
        << " round trips failed.\n";
    if (halved) {
        out << "(*) A double-word module that is rebuilt from its block counts its channels as words.\n";
    }
    return failed == 0;
}
