#include "reportfile.h"

#include "files.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ReportFile)
};

constexpr int resolution = 300; // dots per inch
constexpr int fontSize = 9;     // points
constexpr qreal margin = 15;    // mm

/// Empty when @p progress cancels.
QByteArray pdfOf(const QStringList &parts, const QString &title, const Progress &progress, const QPageLayout &layout)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setResolution(resolution);
    writer.setPageLayout(layout);
    return printReport(parts, writer, progress) ? bytes : QByteArray();
}

} // namespace

QPageLayout reportLayout()
{
    return {QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(margin, margin, margin, margin),
            QPageLayout::Millimeter};
}

bool printReport(const QStringList &parts, QPagedPaintDevice &device, const Progress &progress, PageRange range)
{
    QFont font(QStringLiteral("DejaVu Sans"), fontSize);
    font.setStyleHint(QFont::SansSerif);
    // The families after the first one have the characters that it lacks.
    font.setFamilies({font.family(), QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Microsoft YaHei")});
    QPainter painter(&device);
    painter.setFont(font);
    const int footer = 2 * painter.fontMetrics().height();
    const QSizeF page(device.width(), device.height() - footer);
    int number = 0;
    for (int done = 0; done < parts.size(); ++done) {
        QTextDocument document;
        document.documentLayout()->setPaintDevice(&device);
        document.setDefaultFont(font);
        document.setDocumentMargin(0);
        document.setPageSize(page); // first, because every call lays the document out again
        document.setHtml(parts.at(done));
        for (int i = 0; i < document.pageCount(); ++i) {
            ++number;
            if (number < range.first || number > range.last) {
                continue;
            }
            if (number != range.first) {
                device.newPage();
            }
            const QRectF shown(QPointF(0, i * page.height()), page);
            painter.save();
            painter.translate(-shown.topLeft());
            document.drawContents(&painter, shown);
            painter.restore();
            painter.drawText(QRectF(0, page.height(), page.width(), footer), Qt::AlignRight | Qt::AlignBottom,
                             Texts::tr("Page %1").arg(number));
        }
        if (progress && !progress(done + 1, parts.size())) {
            return false;
        }
    }
    return true;
}

Result<> writeReport(const QString &path, const Station &station, const std::vector<CatalogEntry> &catalog,
                     const ReportInfo &info, const Progress &progress, const QPageLayout &layout)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("csv")) {
        return writeFile(path, stationCsv(station));
    }
    if (suffix == QLatin1String("json")) {
        return writeFile(path, stationJson(station));
    }
    if (suffix == QLatin1String("html")) {
        return writeFile(path, stationHtml(station, catalog, info).toUtf8());
    }
    if (suffix != QLatin1String("pdf")) {
        return Failure{Texts::tr("The name of a report ends in .html, .pdf, .csv or .json.")};
    }
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) == nullptr) {
        return Failure{Texts::tr("A PDF needs Qt's fonts, which this program did not load.")};
    }
    const QByteArray pdf =
        pdfOf(stationHtmlParts(station, catalog, info), station.properties().title, progress, layout);
    return pdf.isEmpty() ? Failure() : writeFile(path, pdf);
}
