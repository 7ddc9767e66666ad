// Writes the report of a station to a file.
#pragma once

#include "reporttexts.h"

class QPagedPaintDevice;

/// Replaces the file @p path by a report whose form its suffix decides: html, pdf, csv or json. Fails for another
/// suffix, and when the file cannot be written; the reason is empty when @p progress cancels. A PDF needs a
/// QGuiApplication.
Result<> writeReport(const QString &path, const Station &station, const std::vector<CatalogEntry> &catalog,
                     const ReportInfo &info, const Progress &progress = {});

/// Prints stationHtmlParts() with page numbers. Each part begins a page. Returns false when @p progress cancels.
bool printReport(const QStringList &parts, QPagedPaintDevice &device, const Progress &progress = {});
