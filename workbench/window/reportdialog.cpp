#include "reportdialog.h"

#include "actiontexts.h"
#include "filequestions.h"
#include "windowsize.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTimer>
#include <QToolBar>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ReportDialog)
};

void saveReport(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info,
                const QPageLayout &layout, QWidget *parent)
{
    const QString present = fileBeside(info.fileName, QStringLiteral(".pdf"));
    const QString filter =
        Texts::tr("PDF (*.pdf);;HTML (*.html);;Channels, comma-separated values (*.csv);;All fields, "
                  "JSON (*.json)");
    const QString path = askForNewFile(parent, Texts::tr("Save Report"), present, filter, QStringLiteral("pdf"));
    if (path.isEmpty()) {
        return;
    }
    const Result<> written = withProgress(parent, Texts::tr("Preparing the report..."), [&](const Progress &progress) {
        return writeReport(path, station, catalog, info, progress, layout);
    });
    showFailure(parent, Texts::tr("%1 cannot be written.").arg(QDir::toNativeSeparators(path)), written);
}

/// Prints the pages that the user selected in the print dialog. Returns false when the user cancels.
bool print(const QStringList &parts, QPrinter &printer, QWidget *parent)
{
    const bool isRange = printer.printRange() == QPrinter::PageRange;
    const PageRange range = isRange ? PageRange{printer.fromPage(), printer.toPage()} : PageRange();
    const bool isComplete = withProgress(parent, Texts::tr("Preparing the report..."), [&](const Progress &progress) {
        return printReport(parts, printer, progress, range);
    });
    if (!isComplete && !printer.outputFileName().isEmpty()) { // no name: the preview or a printer
        QFile::remove(printer.outputFileName());
    }
    return isComplete;
}

} // namespace

void showReport(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info,
                QWidget *parent)
{
    const QStringList parts = stationHtmlParts(station, catalog, info);
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(reportLayout());
    printer.setDocName(Texts::tr("Report"));
    QPrintPreviewDialog preview(&printer, parent);
    preview.setObjectName(QStringLiteral("reportPreview"));
    preview.setWindowTitle(Texts::tr("Report"));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter *device) {
        if (!print(parts, *device, parent)) { // a part of the report would look like a short one
            QTimer::singleShot(0, &preview, &QDialog::reject);
        }
    });
    if (auto *bar = preview.findChild<QToolBar *>()) { // the dialog has no other place for commands
        QAction *save = bar->addAction(Texts::tr("&Save As..."));
        save->setObjectName(QStringLiteral("saveReportAction"));
        save->setIconText(plainText(*save));
        QObject::connect(save, &QAction::triggered, &preview,
                         [&] { saveReport(station, catalog, info, printer.pageLayout(), &preview); });
    }
    resizeToFit(preview, {960, 860});
    preview.exec();
}
