#include "metkeys.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

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
    const auto *key = std::find_if(metKeys.begin(), metKeys.end(),
                                   [line](const MetKey &candidate) { return beginsWithLetters(line, candidate.name); });
    return key == metKeys.end() ? MetLine{MetLineKind::Other, nullptr, line} : MetLine{MetLineKind::Key, key, line};
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
