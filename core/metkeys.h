// The keys of description files, each with the member of ModuleMetInfo that it sets.
#pragma once

#include "metformat.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <tuple>
#include <type_traits>

namespace metkeys {

// The plain constructor of QLatin1String is a constant expression for one compiler only.
constexpr QLatin1String operator""_key(const char *name, std::size_t length)
{
    return QLatin1String(name, static_cast<int>(length));
}

template <auto Member>
using MemberTypeOf = std::decay_t<decltype(ModuleMetInfo().*Member)>;

/// Returns 0 for text that is not a number; truncates a number to the width of @p Number.
template <typename Number>
Number parseNumber(QStringView text, MetValue value)
{
    return static_cast<Number>(metNumber(text, metBase(value)).value_or(0));
}

template <auto Member>
bool keepMember(const ModuleMetInfo &before, ModuleMetInfo &entry)
{
    const bool isOther = entry.*Member != before.*Member;
    entry.*Member = before.*Member;
    return isOther;
}

template <auto Member>
constexpr MetKey kept(MetKey key)
{
    key.keep = keepMember<Member>;
    return key;
}

constexpr MetKey deciding(MetKey key)
{
    key.decides = true;
    return key;
}

template <auto Member>
constexpr MetKey text(QLatin1String name)
{
    return {name, MetValue::Text, 0, 0,
            [](ModuleMetInfo &entry, QStringView value) { entry.*Member = metText(value); }};
}

template <auto Member, MetValue Value>
constexpr MetKey number(QLatin1String name)
{
    using Number = MemberTypeOf<Member>;
    return {name, Value, quint32{std::numeric_limits<Number>::max()}, 0,
            [](ModuleMetInfo &entry, QStringView value) { entry.*Member = parseNumber<Number>(value, Value); }};
}

template <auto Member>
constexpr MetKey decimal(QLatin1String name)
{
    return number<Member, MetValue::Decimal>(name);
}

template <auto Member>
constexpr MetKey hexadecimal(QLatin1String name)
{
    return number<Member, MetValue::Hexadecimal>(name);
}

template <auto Member>
constexpr MetKey flag(QLatin1String name)
{
    return {name, MetValue::Flag, std::numeric_limits<quint32>::max(), 0, [](ModuleMetInfo &entry, QStringView value) {
                entry.*Member = parseNumber<quint32>(value, MetValue::Flag) != 0;
            }};
}

/// Calls @p visit with each item of a list until it returns false.
template <typename Visitor>
void visitItems(QStringView list, Visitor &&visit)
{
    const auto *item = list.begin();
    for (;;) {
        const auto *comma = std::find(item, list.end(), QLatin1Char(','));
        if (!visit(QStringView(item, comma)) || comma == list.end()) {
            return;
        }
        item = std::next(comma);
    }
}

template <auto Member>
void assignBytes(ModuleMetInfo &entry, QStringView value)
{
    auto &bytes = entry.*Member;
    auto byte = bytes.begin();
    visitItems(value, [&byte, &bytes](QStringView item) {
        *byte = parseNumber<quint8>(item, MetValue::Bytes);
        return ++byte != bytes.end();
    });
}

template <auto Member>
constexpr MetKey bytes(QLatin1String name)
{
    return {name, MetValue::Bytes, std::numeric_limits<quint8>::max(), int{std::tuple_size_v<MemberTypeOf<Member>>},
            assignBytes<Member>};
}

inline void assignVersion(ModuleMetInfo &entry, QStringView value)
{
    entry.fwVersion = parseNumber<quint8>(metVersionDigits(metText(value)), MetValue::Version);
}

inline void appendNotSupported(ModuleMetInfo &entry, QStringView value)
{
    visitItems(value, [&entry](QStringView item) {
        entry.notSupported.append(parseNumber<quint32>(item, MetValue::Codes));
        return true;
    });
}

inline void appendSampPeriods(ModuleMetInfo &entry, QStringView value)
{
    visitItems(metText(value), [&entry](QStringView item) {
        entry.sampPeriodList.append(item.toString());
        return true;
    });
}

using Info = ModuleMetInfo;

/// All keys in test order. Keys match as prefixes, so an earlier key wins over a later one that it is a prefix of.
/// Intended: an entry without a kept key has the value of the entry before it, because files in the field rely on it.
inline constexpr std::array metKeys{
    text<&Info::metVersion>("MetVersion"_key),
    deciding(decimal<&Info::needHwCnfgVersion>("NeedHwCnfgVersion"_key)),
    text<&Info::objName>("ObjName"_key),
    text<&Info::mlfb>("MLFB"_key),
    deciding(hexadecimal<&Info::objId>("ObjID"_key)),
    hexadecimal<&Info::parentObjId>("ParentObjID"_key),
    decimal<&Info::baseType>("BaseType"_key),
    decimal<&Info::numIOModules>("NumIOModules"_key),
    MetKey{"NotSupported"_key, MetValue::Codes, std::numeric_limits<quint32>::max(), 0, appendNotSupported},
    text<&Info::serverFile>("ServerFile"_key),
    flag<&Info::isCatEntry>("IsCatEntry"_key),
    hexadecimal<&Info::moduleInfo>("ModuleInfo"_key),
    bytes<&Info::intSupported>("IntSupported"_key),
    bytes<&Info::intEnableTbl>("IntEnableTbl"_key),
    MetKey{"FwVersion"_key, MetValue::Version, std::numeric_limits<quint8>::max(), 0, assignVersion},
    bytes<&Info::buffCnfg>("BuffCnfg"_key),
    bytes<&Info::syncCnfg>("SyncCnfg"_key),
    kept<&Info::supportGrpCnfg>(flag<&Info::supportGrpCnfg>("SupportGrpCnfg"_key)),
    kept<&Info::sampPeriodGrpCnfg>(flag<&Info::sampPeriodGrpCnfg>("SampPeriodGrpCnfg"_key)),
    kept<&Info::sampPeriodList>(MetKey{"SampPeriodList"_key, MetValue::Texts, 0, 0, appendSampPeriods}),
    kept<&Info::reservBytes>(bytes<&Info::reservBytes>("ReservBytes"_key)),
    kept<&Info::supportEtherCAT>(decimal<&Info::supportEtherCAT>("SupportEtherCAT"_key)),
    flag<&Info::supportCANopen>("SupportCANopen"_key),
    kept<&Info::supportRack>(decimal<&Info::supportRack>("supportRack"_key)),
    decimal<&Info::supportHSC>("SupportHSC"_key),
    flag<&Info::softCtrlRemote>("softCtrlRemote"_key),
};

} // namespace metkeys

using metkeys::metKeys;
