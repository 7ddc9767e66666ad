// The preview of a station's report, with commands to print and to save it.
#pragma once

#include "reportfile.h"

class QWidget;

/// Shows the preview until the user closes it. The station must not change meanwhile.
void showReport(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info,
                QWidget *parent);
