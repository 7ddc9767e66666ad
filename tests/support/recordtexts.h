// The channels of a record as texts: counts, tables, then "channel:values" in the order of the block.
#pragma once

#include "metfields.h"
#include "simpleextendpar.h"

#include <algorithm>

template <typename... Numbers>
QString numbers(Numbers... values)
{
    return QStringList{QString::number(values)...}.join(',');
}

template <typename Value, typename Describe>
QString describeChannels(const QHash<quint8, Value> &hash, Describe describe)
{
    QList<quint8> channels = hash.keys();
    std::sort(channels.begin(), channels.end());
    QString text;
    for (const quint8 channel : channels) {
        text += QStringLiteral(" %1:").arg(channel) + describe(channel);
    }
    return text;
}

/// Describes the parameters of the channels that the kind of module uses.
inline QString channelTexts(const SimpleExtendPar &par)
{
    if (par.objId < 13000) {
        return {};
    }
    if (par.objId < 13600) {
        const auto input = [&par](quint8 c) -> QString {
            const AiFilter f = par.aiFilter.value(c);
            return numbers(par.aiKind.value(c), f.filterOn, f.samples, f.deadband) + '/' + hex(par.aiRange.value(c));
        };
        const auto output = [&par](quint8 c) {
            const AqOutTbl s = par.aqOutTbl.value(c);
            const AqOutType t = par.aqOutType.value(c);
            return numbers(par.aqKind.value(c), s.freezeLast, s.stopValue, t.enable, t.range);
        };
        return "ai " + numbers(par.aiCount) + describeChannels(par.aiKind, input) + " aq " + numbers(par.aqCount) +
               describeChannels(par.aqKind, output);
    }
    if (par.objId < 14000) {
        return "di " + numbers(par.diCount) + ' ' + par.diFilter.toHex() + " dq " + numbers(par.dqCount, par.dqMode) +
               ' ' + par.dqOutTbl.toHex();
    }
    return "weigh " + numbers(par.weighCount) + describeChannels(par.weighPar, [&par](quint8 c) {
               const WeighChannelPar w = par.weighPar.value(c);
               return numbers(w.enable, w.sensitivity, w.limitFreq, w.filterDepth, w.subMax, w.subMin, w.filterMode,
                              w.sampleFreq, w.bootClear);
           });
}
