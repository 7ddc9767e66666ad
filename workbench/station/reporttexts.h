// A station as a document: HTML for people, CSV and JSON for programs.
#pragma once

#include "catalog.h"
#include "channellist.h"

#include <QDateTime>

/// What a report has besides the station.
struct ReportInfo {
    QString fileName; ///< of the project; empty for a station that was never saved
    QDateTime date;
};

/// Title, properties, controller, racks, the address list of each area with its gaps, and every channel with its
/// settings. Uses the HTML that QTextDocument supports. The texts are in the user's language.
QString stationHtml(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info);
/// The same as several documents, because QTextDocument takes quadratic time for the pages of a large one. A small
/// station gives one document.
QStringList stationHtmlParts(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info);

/// UTF-8 with a header row, then one row per channel, in the order of racks, slots and channels.
QByteArray stationCsv(const Station &station);

/// The cells of stationCsv(): of its header row, and of one channel.
QStringList csvHeader();
QStringList csvCells(const ChannelRow &channel, const ChannelParameters &parameters);
/// Quotes the cells and joins them to a line.
QString csvLine(const QStringList &cells);

/// Every field of every module, in the order of racks, slots and fields, one value per line. Two projects with the same
/// content give the same bytes, independent of the language.
QByteArray stationJson(const Station &station);
