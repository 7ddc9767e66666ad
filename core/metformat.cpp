#include "metformat.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace {

// The plain constructor of QLatin1String is a constant expression for one compiler only.
constexpr QLatin1String operator""_key(const char *name, std::size_t length)
{
    return QLatin1String(name, static_cast<int>(length));
}

template <class Member>
struct MemberType;
template <class Type>
struct MemberType<Type ModuleMetInfo::*> {
    using type = Type;
};
template <auto Member>
using MemberTypeOf = typename MemberType<decltype(Member)>::type;

// Text that is no number reads as 0; what exceeds the field is cut off.
template <class Number>
Number parseNumber(const QString &text, MetValue value)
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

template <auto Member>
constexpr MetKey text(QLatin1String name)
{
    return {name,   MetValue::Text, 0, 0, [](ModuleMetInfo &entry, const QString &value) { entry.*Member = value; },
            nullptr};
}

template <auto Member, MetValue Value>
constexpr MetKey number(QLatin1String name)
{
    using Number = MemberTypeOf<Member>;
    return {name,
            Value,
            quint32{std::numeric_limits<Number>::max()},
            0,
            [](ModuleMetInfo &entry, const QString &value) { entry.*Member = parseNumber<Number>(value, Value); },
            nullptr};
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
    return {name,
            MetValue::Flag,
            std::numeric_limits<quint32>::max(),
            0,
            [](ModuleMetInfo &entry, const QString &value) {
                entry.*Member = parseNumber<quint32>(value, MetValue::Flag) != 0;
            },
            nullptr};
}

template <auto Member>
void assignBytes(ModuleMetInfo &entry, const QString &value)
{
    auto &bytes = entry.*Member;
    const QStringList items = value.split(QLatin1Char(','));
    const auto count = std::min(bytes.size(), static_cast<std::size_t>(items.size()));
    std::transform(items.begin(), items.begin() + static_cast<int>(count), bytes.begin(),
                   [](const QString &item) { return parseNumber<quint8>(item, MetValue::Bytes); });
}

template <auto Member>
constexpr MetKey bytes(QLatin1String name)
{
    return {name,
            MetValue::Bytes,
            std::numeric_limits<quint8>::max(),
            int{std::tuple_size_v<MemberTypeOf<Member>>},
            assignBytes<Member>,
            nullptr};
}

void assignVersion(ModuleMetInfo &entry, const QString &value)
{
    entry.fwVersion = parseNumber<quint8>(metVersionDigits(value), MetValue::Version);
}

void appendNotSupported(ModuleMetInfo &entry, const QString &value)
{
    const QStringList items = value.split(QLatin1Char(','));
    for (const QString &item : items) {
        entry.notSupported.append(parseNumber<quint32>(item, MetValue::Codes));
    }
}

void appendSampPeriods(ModuleMetInfo &entry, const QString &value)
{
    entry.sampPeriodList += value.split(QLatin1Char(','));
}

bool begins(QStringView line, QLatin1String prefix)
{
    return line.startsWith(prefix, Qt::CaseInsensitive);
}

/// Most keys differ from a line in the first letter already; every key begins with an ASCII letter.
bool beginsWithKey(QStringView line, ushort foldedInitial, const MetKey &key)
{
    return (static_cast<uchar>(key.name.data()[0]) | 0x20U) == foldedInitial && begins(line, key.name);
}

} // namespace

using Info = ModuleMetInfo;

// Intended: the kept ones have the value of the entry before when an entry does not give them; files in the field
// rely on it.
constexpr std::array<MetKey, 26> metKeys{
    text<&Info::metVersion>("MetVersion"_key),
    decimal<&Info::needHwCnfgVersion>("NeedHwCnfgVersion"_key),
    text<&Info::objName>("ObjName"_key),
    text<&Info::mlfb>("MLFB"_key),
    hexadecimal<&Info::objId>("ObjID"_key),
    hexadecimal<&Info::parentObjId>("ParentObjID"_key),
    decimal<&Info::baseType>("BaseType"_key),
    decimal<&Info::numIOModules>("NumIOModules"_key),
    MetKey{"NotSupported"_key, MetValue::Codes, std::numeric_limits<quint32>::max(), 0, appendNotSupported, nullptr},
    text<&Info::serverFile>("ServerFile"_key),
    flag<&Info::isCatEntry>("IsCatEntry"_key),
    hexadecimal<&Info::moduleInfo>("ModuleInfo"_key),
    bytes<&Info::intSupported>("IntSupported"_key),
    bytes<&Info::intEnableTbl>("IntEnableTbl"_key),
    MetKey{"FwVersion"_key, MetValue::Version, std::numeric_limits<quint8>::max(), 0, assignVersion, nullptr},
    bytes<&Info::buffCnfg>("BuffCnfg"_key),
    bytes<&Info::syncCnfg>("SyncCnfg"_key),
    kept<&Info::supportGrpCnfg>(flag<&Info::supportGrpCnfg>("SupportGrpCnfg"_key)),
    kept<&Info::sampPeriodGrpCnfg>(flag<&Info::sampPeriodGrpCnfg>("SampPeriodGrpCnfg"_key)),
    kept<&Info::sampPeriodList>(MetKey{"SampPeriodList"_key, MetValue::Texts, 0, 0, appendSampPeriods, nullptr}),
    kept<&Info::reservBytes>(bytes<&Info::reservBytes>("ReservBytes"_key)),
    kept<&Info::supportEtherCAT>(decimal<&Info::supportEtherCAT>("SupportEtherCAT"_key)),
    flag<&Info::supportCANopen>("SupportCANopen"_key),
    kept<&Info::supportRack>(decimal<&Info::supportRack>("supportRack"_key)),
    decimal<&Info::supportHSC>("SupportHSC"_key),
    flag<&Info::softCtrlRemote>("softCtrlRemote"_key),
};

MetLine classifyMetLine(QStringView line)
{
    const auto *first = std::find_if(line.begin(), line.end(), [](QChar character) { return !character.isSpace(); });
    if (first == line.end()) {
        return {MetLineKind::Other, nullptr, line};
    }
    if (*first == QLatin1Char(';')) {
        return {MetLineKind::Comment, nullptr, line};
    }
    if (begins(line, QLatin1String("[MODULE START]"))) {
        return {MetLineKind::Start, nullptr, line};
    }
    const ushort initial = line.front().toCaseFolded().unicode();
    const auto *key = std::find_if(metKeys.begin(), metKeys.end(), [line, initial](const MetKey &candidate) {
        return beginsWithKey(line, initial, candidate);
    });
    if (key != metKeys.end()) {
        return {MetLineKind::Key, key, line};
    }
    return {begins(line, QLatin1String("[END]")) ? MetLineKind::End : MetLineKind::Other, nullptr, line};
}

QString metValue(QStringView line)
{
    return line.mid(line.indexOf(QLatin1Char('=')) + 1).toString().simplified();
}

int metBase(MetValue value)
{
    return value == MetValue::Hexadecimal || value == MetValue::Bytes || value == MetValue::Codes ? 16 : 10;
}

std::optional<quint32> metNumber(const QString &text, int base)
{
    bool isNumber = false;
    const quint32 number = text.toUInt(&isNumber, base);
    return isNumber ? std::optional(number) : std::nullopt;
}

QString metVersionDigits(const QString &text)
{
    return QString(text).remove(QLatin1Char('.'));
}

QString decodeMetFile(const QByteArray &content, QTextCodec *encoding, QTextCodec::ConverterState &state)
{
    return QTextCodec::codecForUtfText(content, encoding)->toUnicode(content.constData(), content.size(), &state);
}
