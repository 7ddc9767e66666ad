#include "stationsearch.h"

#include "channeladdress.h"
#include "imagerangetext.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(StationSearch)
};

QString rangesText(const ModuleSummary &module)
{
    QStringList texts{rangeText(module.in), rangeText(module.out)};
    texts.removeAll(QString());
    return texts.join(QStringLiteral(", "));
}

/// Collects hits up to the limit and counts all.
class Hits {
public:
    explicit Hits(int limit) : m_limit(limit) {}

    template <typename Detail>
    void add(const ModuleSummary &module, Detail detail)
    {
        if (m_result.total++ < m_limit) {
            m_result.hits += {module.place, module.name, detail()};
        }
    }
    const SearchResult &result() const { return m_result; }

private:
    int m_limit;
    SearchResult m_result;
};

SearchResult findAddress(const Station &station, const Address &address, int limit)
{
    Hits hits(limit);
    for (int i = 0; i < station.count(); ++i) {
        const ModuleSummary module = station.module(i);
        for (const IoMap &range : {module.in, module.out}) {
            if (const std::optional<int> channel = channelAt(range, address)) {
                hits.add(module, [&] {
                    return Texts::tr("%1, channel %2").arg(channelAddress(range, *channel)).arg(*channel);
                });
            }
        }
    }
    return hits.result();
}

} // namespace

SearchResult searchStation(const Station &station, const std::vector<CatalogEntry> &catalog, const QString &query,
                           int limit)
{
    if (const std::optional<Address> address = parseAddress(query)) {
        return findAddress(station, *address, limit);
    }
    const QStringList words = query.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Hits hits(words.isEmpty() ? 0 : limit);
    for (int i = 0; i < station.count() && !words.isEmpty(); ++i) {
        const ModuleSummary module = station.module(i);
        const CatalogEntry *entry = findEntry(catalog, module.typeCode);
        const QString orderNumber = entry == nullptr ? QString() : entry->orderNumber;
        const QString typeCode = QString::number(module.typeCode);
        const bool isFound = std::all_of(words.begin(), words.end(), [&](const QString &word) {
            return module.name.contains(word, Qt::CaseInsensitive) || orderNumber.contains(word, Qt::CaseInsensitive) ||
                   typeCode == word || module.comment.contains(word, Qt::CaseInsensitive);
        });
        if (isFound) {
            hits.add(module, [&] { return QStringList{orderNumber, rangesText(module)}.join(QStringLiteral("  ")); });
        }
    }
    return hits.result();
}
