// Writes the report of a station to a file.
#pragma once

#include "reporttexts.h"

#include <QPageLayout>

#include <limits>

class QPagedPaintDevice;

/// The pages to print, counted from 1.
struct PageRange {
    int first = 1;
    int last = std::numeric_limits<int>::max();
};

/// A4, portrait, with the margins of a report.
QPageLayout reportLayout();

/// Replaces the file @p path by a report whose form its suffix decides: html, pdf, csv or json. Fails for another
/// suffix, and when the file cannot be written; the reason is empty when @p progress cancels. A PDF needs a
/// QGuiApplication; only a PDF has pages with @p layout.
Result<> writeReport(const QString &path, const Station &station, const std::vector<CatalogEntry> &catalog,
                     const ReportInfo &info, const Progress &progress = {}, const QPageLayout &layout = reportLayout());

/// Prints the pages @p range of stationHtmlParts() with page numbers. Each part begins a page. Returns false when
/// @p progress cancels.
bool printReport(const QStringList &parts, QPagedPaintDevice &device, const Progress &progress = {},
                 PageRange range = {});
