#include "channeladdress.h"

#include "imagerangetext.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int bitsPerByte = 8;

/// The letter of a number of bytes; empty if there is none.
QString sizeLetter(int bytes)
{
    switch (bytes) {
    case 1:
        return QStringLiteral("B");
    case 2:
        return QStringLiteral("W");
    case 4:
        return QStringLiteral("D");
    default:
        return {};
    }
}

int sizeOf(const QString &letter)
{
    return letter == QLatin1String("W") ? 2 : letter == QLatin1String("D") ? 4 : 1;
}

} // namespace

QString channelAddress(const IoMap &range, int channel)
{
    const QString area = areaName(range.area);
    if (range.unit == 0) {
        return QStringLiteral("%1%2.%3").arg(area).arg(range.start + channel / bitsPerByte).arg(channel % bitsPerByte);
    }
    return area + sizeLetter(range.unit) + QString::number(range.start + channel * range.unit);
}

std::optional<Address> parseAddress(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*(AI|AQ|I|Q|V)\\s*([BWD]?)\\s*(\\d{1,5})(?:\\.([0-7]))?\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString letter = match.captured(2).toUpper();
    const QString bit = match.captured(4);
    if (!letter.isEmpty() && !bit.isEmpty()) { // a word has no bits
        return std::nullopt;
    }
    const auto *const area = std::find_if(memoryAreas.begin(), memoryAreas.end(), [&](VarArea each) {
        return areaName(static_cast<quint8>(each)) == match.captured(1).toUpper();
    });
    return Address{*area, match.captured(3).toInt(), sizeOf(letter),
                   bit.isEmpty() ? std::nullopt : std::optional<int>(bit.toInt())};
}

std::optional<int> channelAt(const IoMap &range, const Address &address)
{
    const int end = range.start + rangeBytes(range);
    if (static_cast<VarArea>(range.area) != address.area || address.byte >= end ||
        address.byte + address.length <= range.start) {
        return std::nullopt;
    }
    const int offset = std::max(address.byte - range.start, 0);
    const int channel = range.unit == 0 ? offset * bitsPerByte + address.bit.value_or(0) : offset / range.unit;
    return channel < range.count ? std::optional<int>(channel) : std::nullopt; // the last byte may have unused bits
}
