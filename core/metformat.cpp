#include "metformat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <limits>
#include <tuple>
#include <type_traits>

namespace {

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

void assignVersion(ModuleMetInfo &entry, QStringView value)
{
    entry.fwVersion = parseNumber<quint8>(metVersionDigits(metText(value)), MetValue::Version);
}

void appendNotSupported(ModuleMetInfo &entry, QStringView value)
{
    visitItems(value, [&entry](QStringView item) {
        entry.notSupported.append(parseNumber<quint32>(item, MetValue::Codes));
        return true;
    });
}

void appendSampPeriods(ModuleMetInfo &entry, QStringView value)
{
    visitItems(metText(value), [&entry](QStringView item) {
        entry.sampPeriodList.append(item.toString());
        return true;
    });
}

using Info = ModuleMetInfo;

// Intended: an entry without a kept key has the value of the entry before it, because files in the field rely on it.
constexpr std::array keyTable{
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

constexpr ushort asciiEnd = 0x80;

/// Returns the lower case of an ASCII letter; for any other character, not an ASCII letter.
constexpr ushort lowerLetter(ushort character)
{
    return character | 0x20U;
}

/// Equivalent to QStringView::startsWith() without regard to case, for a @p prefix of ASCII letters. Only characters
/// beyond ASCII are left to that function, because a few of them are capitals of ASCII letters.
bool beginsWithLetters(QStringView line, QLatin1String prefix)
{
    if (line.size() < prefix.size()) {
        return false;
    }
    for (int i = 0; i < prefix.size(); ++i) {
        const ushort character = line[i].unicode();
        if (lowerLetter(character) != lowerLetter(static_cast<uchar>(prefix.data()[i]))) {
            return character >= asciiEnd && line.startsWith(prefix, Qt::CaseInsensitive);
        }
    }
    return true;
}

/// Fast path for the usual number: eight digits at most, so it cannot overflow in any base, and no other character.
std::optional<quint32> plainNumber(QStringView text, int base)
{
    std::array<char, 8> digits{};
    const auto count = static_cast<std::size_t>(text.size());
    if (count > digits.size()) {
        return std::nullopt;
    }
    const char *const end =
        std::transform(text.begin(), text.end(), digits.begin(), [](QChar character) { return character.toLatin1(); });
    quint32 number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, number, base);
    return stop == end && error == std::errc() ? std::optional(number) : std::nullopt;
}

MetLine markerLine(QStringView line)
{
    if (line.startsWith(QLatin1String("[MODULE START]"), Qt::CaseInsensitive)) {
        return {MetLineKind::Start, nullptr, line};
    }
    const bool isEnd = line.startsWith(QLatin1String("[END]"), Qt::CaseInsensitive);
    return {isEnd ? MetLineKind::End : MetLineKind::Other, nullptr, line};
}

MetLine spacedLine(QStringView line)
{
    const auto *first = std::find_if(line.begin(), line.end(), [](QChar character) { return !character.isSpace(); });
    const bool isComment = first != line.end() && *first == QLatin1Char(';');
    return {isComment ? MetLineKind::Comment : MetLineKind::Other, nullptr, line};
}

} // namespace

constexpr MetKeyTable metKeys{keyTable.data(), keyTable.data() + keyTable.size()};

MetLine classifyMetLine(QStringView line)
{
    if (line.isEmpty()) {
        return {MetLineKind::Other, nullptr, line};
    }
    const QChar initial = line.front();
    if (initial == QLatin1Char('[')) {
        return markerLine(line);
    }
    if (initial == QLatin1Char(';') || initial.isSpace()) {
        return spacedLine(line);
    }
    const auto *key = std::find_if(keyTable.begin(), keyTable.end(),
                                   [line](const MetKey &candidate) { return beginsWithLetters(line, candidate.name); });
    return key == keyTable.end() ? MetLine{MetLineKind::Other, nullptr, line} : MetLine{MetLineKind::Key, key, line};
}

QStringView metValue(const MetLine &line)
{
    const auto *sign = std::find(line.text.begin() + line.key->name.size(), line.text.end(), QLatin1Char('='));
    return sign == line.text.end() ? line.text : QStringView(std::next(sign), line.text.end());
}

QString metText(QStringView value)
{
    return value.toString().simplified();
}

int metBase(MetValue value)
{
    return value == MetValue::Hexadecimal || value == MetValue::Bytes || value == MetValue::Codes ? 16 : 10;
}

std::optional<quint32> metNumber(QStringView text, int base)
{
    if (const auto number = plainNumber(text, base)) {
        return number;
    }
    bool isNumber{};
    const quint32 number = metText(text).toUInt(&isNumber, base);
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
