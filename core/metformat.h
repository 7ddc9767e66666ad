// The text format of module description files: how bytes become lines, what a line is, and the keys.
// The reader and the tools that explain what it does share these rules.
#pragma once

#include "simpleextendpar.h"

#include <QLatin1String>
#include <QStringView>
#include <QTextCodec>

#include <array>
#include <optional>

/// What the value of a key is.
enum class MetValue { Text, Texts, Decimal, Hexadecimal, Flag, Version, Bytes, Codes };

/// A key of an entry. Its functions stand for the member of ModuleMetInfo that it sets.
struct MetKey {
    QLatin1String name;
    MetValue value;
    quint32 largest; ///< largest number, also as an item of a list, that the member holds; 0 for texts
    int itemLimit;   ///< items that a list of bytes keeps; 0 = every item, or no list
    void (*assign)(ModuleMetInfo &entry, QStringView value); ///< takes a metValue
    /// Carries the member over into the next entry and tells whether that changed it; null = each entry starts with
    /// the initial value.
    bool (*keep)(const ModuleMetInfo &before, ModuleMetInfo &entry) = nullptr;
    bool decides = false; ///< a look-up needs the member to tell whether it has found its entry
};

/// All keys in test order: keys match as prefixes, so an earlier key wins over a longer one behind it.
extern const std::array<MetKey, 26> metKeys;

enum class MetLineKind { Comment, Start, Key, End, Other };

struct MetLine {
    MetLineKind kind;
    const MetKey *key; ///< of a Key line, else null
    QStringView text;  ///< the whole line
};

MetLine classifyMetLine(QStringView line);

/// Value of a Key line as it stands there: what follows the first "=", or the whole line when it has none.
QStringView metValue(const MetLine &line);

/// A value as text: trimmed, and every inner run of white space is one blank.
QString metText(QStringView value);

/// Number base of a kind of value; 10 for texts.
int metBase(MetValue value);

/// A number without sign below 2^32, also between blanks, or nothing.
std::optional<quint32> metNumber(QStringView text, int base);

/// The digits of a version number: the text without its dots.
QString metVersionDigits(const QString &text);

/// The text of a file, read with the Unicode encoding that its byte-order mark names, else in @p encoding,
/// for the reader that of the locale. What is left of an incomplete character at the end of the file is dropped and
/// counted in @p state.
QString decodeMetFile(const QByteArray &content, QTextCodec *encoding, QTextCodec::ConverterState &state);

/// Calls @p visit with each line, without its end ("\n", "\r\n", or "\r" at the end of the text), until it returns
/// false.
template <class Visitor>
void visitMetLines(QStringView text, Visitor &&visit)
{
    while (!text.isEmpty()) {
        const auto newline = text.indexOf(QLatin1Char('\n'));
        const auto length = newline < 0 ? text.size() : newline;
        QStringView line = text.left(length);
        if (line.endsWith(QLatin1Char('\r'))) {
            line.chop(1);
        }
        if (!visit(line)) {
            return;
        }
        text = newline < 0 ? QStringView() : text.mid(newline + 1);
    }
}
