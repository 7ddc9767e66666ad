#include "channellist.h"
#include "fieldtexts.h"
#include "imagerangetext.h"
#include "reporttexts.h"
#include "simulatedbase.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(StationReport)
};

constexpr int maximumCardsPerLine = 6;
constexpr int partLength = 30000; ///< characters after which a part of a large report ends

/// Colours for paper: a report is light on every desktop.
QString styles()
{
    return QStringLiteral("body { font-family: 'DejaVu Sans', 'Noto Sans', 'Noto Sans CJK SC', 'Microsoft YaHei', "
                          "sans-serif; color: #1b2733; background-color: #ffffff; }"
                          "h1 { font-size: 16pt; } h2 { font-size: 12pt; } h3 { font-size: 10pt; margin-top: 10px; }"
                          "th { background-color: #d3dee9; text-align: left; }"
                          "th.title { background-color: #ffffff; }"
                          "td { background-color: #f2f5f8; }"
                          "td.free { background-color: #ffffff; color: #60707f; }"
                          "td.changed { background-color: #fdf1d0; }");
}

QString escaped(const QString &text)
{
    return text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
}

QString cell(const QString &html, const char *kind = "")
{
    return *kind == '\0' ? QStringLiteral("<td>%1</td>").arg(html)
                         : QStringLiteral("<td class=\"%1\">%2</td>").arg(QLatin1String(kind), html);
}

QString row(const QStringList &cells)
{
    return QStringLiteral("<tr>") + cells.join(QString()) + QStringLiteral("</tr>\n");
}

QString headerRow(const QStringList &titles)
{
    QString cells;
    for (const QString &title : titles) {
        cells += QStringLiteral("<th>%1</th>").arg(escaped(title));
    }
    return row({cells});
}

QString heading(int level, const QString &text)
{
    return QStringLiteral("<h%1>%2</h%1>\n").arg(QString::number(level), escaped(text));
}

/// With the title, because the end of a page could separate it from its table.
QString tableHeader(const QString &title, const QStringList &columns)
{
    return QStringLiteral("<tr><th class=\"title\" colspan=\"%1\">%2</th></tr>\n")
               .arg(QString::number(columns.size()), title) +
           headerRow(columns);
}

/// Without lines between the cells, because QTextDocument draws them slowly. It repeats @p header on every page.
QString table(const QString &rows, const QString &header = {})
{
    return QStringLiteral("<table cellspacing=\"1\" cellpadding=\"3\" width=\"100%\">\n<thead>") + header +
           QStringLiteral("</thead>\n") + rows + QStringLiteral("</table>\n");
}

/// Writes the report of one station. Call run() once.
class HtmlReport {
public:
    HtmlReport(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info)
        : m_station(station), m_catalog(catalog), m_info(info)
    {
        m_modules.reserve(static_cast<std::size_t>(station.count()));
        for (int i = 0; i < station.count(); ++i) {
            m_modules.push_back(station.module(i));
        }
    }

    void run()
    {
        add(heading(1, titleText()));
        addProject();
        addRacks();
        addAddresses();
        addChannels();
    }

    /// The parts without the head of a document.
    const QStringList &parts() const { return m_parts; }
    QString document(const QString &body) const
    {
        return QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title><style>%2</style>"
                              "</head><body>\n")
                   .arg(escaped(titleText()), styles()) +
               body + QStringLiteral("</body></html>\n");
    }

private:
    void add(const QString &html)
    {
        if (m_parts.isEmpty() || m_parts.constLast().size() > partLength) {
            m_parts += QString();
        }
        m_parts.last() += html;
    }

    QString titleText() const
    {
        if (QString title = m_station.properties().title; !title.isEmpty()) {
            return title;
        }
        return m_info.fileName.isEmpty() ? Texts::tr("New station") : QFileInfo(m_info.fileName).completeBaseName();
    }

    QString orderNumber(quint32 typeCode) const
    {
        const CatalogEntry *entry = findEntry(m_catalog, typeCode);
        return entry == nullptr ? QString::number(typeCode) : entry->orderNumber;
    }

    void addProject()
    {
        const ProjectProperties &properties = m_station.properties();
        const std::pair<QString, QString> lines[] = {
            {Texts::tr("File"), QFileInfo(m_info.fileName).fileName()},
            {Texts::tr("Author"), properties.author},
            {Texts::tr("Revision"), properties.revision},
            {Texts::tr("Date"), m_info.date.toString(QStringLiteral("yyyy-MM-dd HH:mm"))},
            {Texts::tr("Controller"), controllerName(m_station.plcType())},
            {Texts::tr("Modules"), QString::number(m_station.count())},
            {Texts::tr("Not available"),
             m_station.unavailableCount() == 0 ? QString() : QString::number(m_station.unavailableCount())},
            {Texts::tr("Notes"), properties.notes}};
        QString rows;
        for (const auto &[name, value] : lines) {
            if (!value.isEmpty()) {
                rows += row({QStringLiteral("<th width=\"20%\">%1</th>").arg(escaped(name)), cell(escaped(value))});
            }
        }
        add(table(rows));
    }

    /// A card for every slot up to the last one that is used.
    void addRacks()
    {
        add(heading(2, Texts::tr("Racks")));
        int widest = 1;
        for (const ModuleSummary &module : m_modules) {
            widest = std::max(widest, module.place.slot + 1);
        }
        const int cardsPerLine = std::min(widest, maximumCardsPerLine);
        const QString width = QStringLiteral("<td width=\"%1%\" ").arg(100 / cardsPerLine);
        for (auto first = m_modules.begin(); first != m_modules.end();) {
            const int rack = first->place.rack;
            const auto end = std::find_if(first, m_modules.end(),
                                          [=](const ModuleSummary &module) { return module.place.rack != rack; });
            QString rows;
            QStringList cards;
            for (int slot = 0; slot <= (end - 1)->place.slot; ++slot) {
                const bool isTaken = first->place.slot == slot;
                cards += width + card(slot, isTaken ? &*first : nullptr);
                first += isTaken ? 1 : 0;
                if (cards.size() == cardsPerLine) {
                    rows += row(cards);
                    cards.clear();
                }
            }
            while (!cards.isEmpty() && cards.size() < cardsPerLine) { // the same columns in every rack
                cards += width + QStringLiteral("class=\"free\"></td>");
            }
            add(heading(3, Texts::tr("Rack %1").arg(rack)) + table(cards.isEmpty() ? rows : rows + row(cards)));
        }
    }

    /// The attributes and the content of a table cell.
    QString card(int slot, const ModuleSummary *module) const
    {
        const QString number = Texts::tr("Slot %1").arg(slot);
        if (module == nullptr) {
            return QStringLiteral("class=\"free\">%1<br>%2</td>").arg(number, Texts::tr("free"));
        }
        QStringList lines{number, QStringLiteral("<b>%1</b>").arg(escaped(module->name)),
                          escaped(orderNumber(module->typeCode)), rangeText(module->in), rangeText(module->out)};
        if (!module->unavailable.isEmpty()) {
            lines += QStringLiteral("<b>%1</b>").arg(Texts::tr("not available"));
        }
        lines.removeAll(QString());
        return QStringLiteral(">%1</td>").arg(lines.join(QStringLiteral("<br>")));
    }

    void addAddresses()
    {
        add(heading(2, Texts::tr("Addresses")));
        for (const VarArea area : memoryAreas) {
            addArea(area);
        }
    }

    void addArea(VarArea area)
    {
        std::vector<std::pair<IoMap, const ModuleSummary *>> ranges;
        int used = 0;
        for (const ModuleSummary &module : m_modules) {
            for (const IoMap &range : {module.in, module.out}) {
                if (static_cast<VarArea>(range.area) == area && rangeBytes(range) != 0) {
                    ranges.emplace_back(range, &module);
                    used += rangeBytes(range);
                }
            }
        }
        std::stable_sort(ranges.begin(), ranges.end(),
                         [](const auto &a, const auto &b) { return a.first.start < b.first.start; });
        const int size = simulatedhost::areaSize(m_station.memory().owner(), area);
        const QString name = areaName(static_cast<quint8>(area));
        const QString title = heading(3, Texts::tr("%1, %2: %3 of %4 bytes used")
                                             .arg(name, areaTitle(area), QString::number(used), QString::number(size)));
        if (ranges.empty()) {
            add(title);
            return;
        }
        const QString header = tableHeader(title, {Texts::tr("Address"), Texts::tr("Bytes"), Texts::tr("Module"),
                                                   Texts::tr("Rack"), Texts::tr("Slot")});
        QString rows;
        int next = 0;
        for (const auto &[range, module] : ranges) {
            rows += gapRow(name, next, range.start);
            rows += row({cell(rangeText(range)), cell(QString::number(rangeBytes(range))), cell(escaped(module->name)),
                         cell(QString::number(module->place.rack)), cell(QString::number(module->place.slot))});
            next = std::max(next, range.start + rangeBytes(range));
            if (rows.size() > partLength) {
                add(table(rows, header));
                rows.clear();
            }
        }
        add(table(rows + gapRow(name, next, size), header));
    }

    /// The free bytes from @p first up to @p end, which is not included.
    static QString gapRow(const QString &area, int first, int end)
    {
        if (first >= end) {
            return {};
        }
        const QString text = end - first == 1 ? QStringLiteral("%1 %2").arg(area).arg(first)
                                              : QStringLiteral("%1 %2..%3").arg(area).arg(first).arg(end - 1);
        return row({cell(text, "free"), cell(QString::number(end - first), "free"), cell(Texts::tr("free"), "free"),
                    cell(QString(), "free"), cell(QString(), "free")});
    }

    void addChannels()
    {
        add(heading(2, Texts::tr("Channels")) +
            QStringLiteral("<p>%1</p>\n")
                .arg(Texts::tr("Values that differ from the factory settings are bold and marked with *.")));
        const ChannelList channels(m_station);
        for (const ModuleSummary &module : m_modules) {
            QString title = heading(3, Texts::tr("Rack %1, slot %2: %3 (%4)")
                                           .arg(QString::number(module.place.rack), QString::number(module.place.slot),
                                                module.name, orderNumber(module.typeCode)));
            if (!module.comment.isEmpty() || !module.unavailable.isEmpty()) {
                title += QStringLiteral("<p>%1</p>\n").arg(escaped(module.comment + module.unavailable));
            }
            const auto [first, count] = channels.rowsOf(module.place);
            QString rows;
            for (int i = first; i < first + count; ++i) {
                rows += channelRow(channels.at(i), channels.parameters(i));
            }
            const QString header = tableHeader(
                title, {Texts::tr("Channel"), Texts::tr("Address"), Texts::tr("Signal"), Texts::tr("Settings")});
            add(count == 0 ? title : table(rows, header));
        }
    }

    static QString channelRow(const ChannelRow &channel, const ChannelParameters &parameters)
    {
        QStringList settings;
        for (const ChannelSetting &setting : parameters.settings) {
            const QString value = escaped(setting.text);
            settings += escaped(setting.title) + QStringLiteral(": ") +
                        (setting.isChanged ? QStringLiteral("<b>%1 *</b>").arg(value) : value);
        }
        return row({cell(QString::number(channel.channel)), cell(channel.address()), cell(escaped(parameters.signal)),
                    cell(settings.join(QStringLiteral(", ")), parameters.isChanged() ? "changed" : "")});
    }

    const Station &m_station;
    const std::vector<CatalogEntry> &m_catalog;
    const ReportInfo &m_info;
    std::vector<ModuleSummary> m_modules;
    QStringList m_parts;
};

} // namespace

QString stationHtml(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info)
{
    HtmlReport report(station, catalog, info);
    report.run();
    return report.document(report.parts().join(QString()));
}

QStringList stationHtmlParts(const Station &station, const std::vector<CatalogEntry> &catalog, const ReportInfo &info)
{
    HtmlReport report(station, catalog, info);
    report.run();
    QStringList documents;
    for (const QString &part : report.parts()) {
        documents += report.document(part);
    }
    return documents;
}
