// The pages with channels, and records for them that are written as text.
#pragma once

#include "saifilterwgt.h"
#include "sairangewgt.h"
#include "saqouttblwgt.h"
#include "saqouttypewgt.h"
#include "sdifilterwgt.h"
#include "sdqouttblwgt.h"
#include "simpleextendpar.h"
#include "sweightparcfgwgt.h"

#include <QMetaType>

#include <memory>
#include <numeric>
#include <tuple>

namespace channelkinds {

using Par = SimpleExtendPar;
using PagePtr = std::unique_ptr<ParamPage>;

/// The fields of an entry, in the order of its text.
struct Fields {
    static auto of(AiFilter &e) { return std::tie(e.filterOn, e.samples, e.deadband); }
    static auto of(AiRange &e) { return std::tie(e[0], e[1], e[2], e[3], e[4], e[5], e[6], e[7]); }
    static auto of(AqOutTbl &e) { return std::tie(e.freezeLast, e.stopValue); }
    static auto of(AqOutType &e) { return std::tie(e.enable, e.range); }
    static auto of(WeighChannelPar &e)
    {
        return std::tie(e.enable, e.sensitivity, e.limitFreq, e.filterDepth, e.subMax, e.subMin, e.filterMode,
                        e.sampleFreq, e.bootClear);
    }
};

/// Fields at the end of @p text may be missing.
template <typename Entry>
void parse(const QString &text, Entry &entry)
{
    QStringList numbers = text.split('/');
    const auto next = [&](auto &field) {
        field = numbers.isEmpty() ? field : std::decay_t<decltype(field)>(numbers.takeFirst().toDouble());
    };
    std::apply([&](auto &...fields) { (next(fields), ...); }, Fields::of(entry));
}

/// Makes a record from one entry per channel, such as "1/2/4", or "-" for none. The signal family may precede it
/// ("1:-").
template <auto Hash, auto Count, quint32 ObjId>
Par channels(const QString &text)
{
    Par par;
    par.objId = ObjId;
    for (const QString &word : text.split(' ', Qt::SkipEmptyParts)) {
        const quint8 channel = (par.*Count)++;
        par.aiKind[channel] = quint8(word.section(':', 0, -2).toInt());
        if (!word.endsWith('-')) {
            parse(word.section(':', -1), (par.*Hash)[channel]);
        }
    }
    return par;
}

template <auto Hash, auto Count>
QString entries(const Par &par)
{
    const auto join = [](auto &...fields) { return QStringList{QString::number(double(fields))...}.join('/'); };
    QStringList texts;
    const QList<quint8> stored = (par.*Hash).keys(); // may contain more channels than par counts
    const int last = std::accumulate(stored.begin(), stored.end(), par.*Count - 1, qMax<int>);
    for (int i = 0; i <= last; ++i) {
        const auto channel = quint8(i);
        auto entry = (par.*Hash).value(channel);
        texts.append((par.*Hash).contains(channel) ? std::apply(join, Fields::of(entry)) : "-");
    }
    return texts.join(' ');
}

/// Makes a record from the number of points, the bytes and optionally the mode of the outputs.
inline Par digital(const QString &text)
{
    const QStringList words = text.split(' ');
    Par par;
    par.diCount = par.dqCount = quint8(words[0].toInt());
    par.diFilter = par.dqOutTbl = QByteArray::fromHex(words[1].toLatin1());
    par.dqMode = quint8(words.value(2, "2").toInt());
    return par;
}

/// A page and the conversions between the part of the record that it edits and text.
struct Kind {
    PagePtr (*make)(Par &par, Par *defaults, QWidget *parent);
    Par (*record)(const QString &text);
    QString (*text)(const Par &par);
};

template <typename Page>
PagePtr make(Par &par, Par *defaults, QWidget *parent)
{
    return std::make_unique<Page>(&par, defaults, parent);
}

template <typename Page, auto Hash, auto Count, quint32 ObjId = 0>
const Kind analog{make<Page>, channels<Hash, Count, ObjId>, entries<Hash, Count>};
template <quint32 ObjId>
const Kind &aiRange = analog<SAIRangeWgt, &Par::aiRange, &Par::aiCount, ObjId>;
inline const Kind &aiFilter = analog<SAIFilterWgt, &Par::aiFilter, &Par::aiCount>;
inline const Kind &aqTable = analog<SAQOutTblWgt, &Par::aqOutTbl, &Par::aqCount>;
inline const Kind &aqType = analog<SAQOutTypeWgt, &Par::aqOutType, &Par::aqCount>;
inline const Kind &weighing = analog<SWeightParCfgWgt, &Par::weighPar, &Par::weighCount>;
inline const Kind diFilter{make<SDIFilterWgt>, digital, [](const Par &par) { return QString(par.diFilter.toHex()); }};
inline const Kind dqTable{make<SDQOutTblWgt>, digital, [](const Par &par) {
                              return QString("%1:%2").arg(par.dqMode).arg(QString(par.dqOutTbl.toHex()));
                          }};

} // namespace channelkinds

Q_DECLARE_METATYPE(const channelkinds::Kind *)
