#include "stationsearch.h"

#include "channeladdress.h"
#include "imagerangetext.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

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

/// Adds the first channel of each range of a module that has the address. Returns false if there is none.
bool addAddress(Hits &hits, const ModuleSummary &module, const Address &address)
{
    bool isFound = false;
    for (const IoMap &range : {module.in, module.out}) {
        if (const std::optional<int> channel = channelAt(range, address)) {
            isFound = true;
            hits.add(module, [&] {
                return module.unavailable.isEmpty()
                           ? Texts::tr("%1, channel %2").arg(channelAddress(range, *channel)).arg(*channel)
                           : rangeText(range); // whose channels are not known
            });
        }
    }
    return isFound;
}

bool hasWord(const ModuleSummary &module, const QString &orderNumber, const QString &word)
{
    return module.name.contains(word, Qt::CaseInsensitive) || orderNumber.contains(word, Qt::CaseInsensitive) ||
           QString::number(module.typeCode) == word || module.comment.contains(word, Qt::CaseInsensitive);
}

} // namespace

SearchResult searchStation(const Station &station, const std::vector<CatalogEntry> &catalog, const QString &query,
                           int limit)
{
    const std::optional<Address> address = parseAddress(query);
    // A name or an order number may look like an address.
    const QStringList words =
        address ? QStringList{query.trimmed()} : query.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Hits hits(limit);
    std::vector<ModuleSummary> others;
    for (int i = 0; i < station.count() && !words.isEmpty(); ++i) {
        ModuleSummary module = station.module(i);
        if (!address || !addAddress(hits, module, *address)) {
            others.push_back(std::move(module));
        }
    }
    for (const ModuleSummary &module : others) {
        const CatalogEntry *entry = findEntry(catalog, module.typeCode);
        const QString orderNumber = entry == nullptr ? QString() : entry->orderNumber;
        if (std::all_of(words.begin(), words.end(),
                        [&](const QString &word) { return hasWord(module, orderNumber, word); })) {
            hits.add(module, [&] { return QStringList{orderNumber, rangesText(module)}.join(QStringLiteral("  ")); });
        }
    }
    return hits.result();
}
