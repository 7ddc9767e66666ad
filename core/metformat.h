// The text format of module description files: encoding, lines, keys and values.
// The reader and the tools that explain it share these rules.
#pragma once

#include "simpleextendpar.h"

#include <QLatin1String>
#include <QStringView>
#include <QTextCodec>

#include <optional>

/// The kind of value that a key has.
enum class MetValue { Text, Texts, Decimal, Hexadecimal, Flag, Version, Bytes, Codes };

/// A key of an entry. Its functions access the member of ModuleMetInfo that it sets.
struct MetKey {
    QLatin1String name;
    MetValue value;
    quint32 largest; ///< maximum number that the member, or an item of it, can store; 0 for texts
    int itemLimit;   ///< maximum number of items of a list of bytes; 0 = no limit, or not a list
    void (*assign)(ModuleMetInfo &entry, QStringView value); ///< @p value is a metValue()
    /// Copies the member to the next entry and returns true if that changed the next entry; null = each entry starts
    /// with the initial value.
    bool (*keep)(const ModuleMetInfo &before, ModuleMetInfo &entry) = nullptr;
    bool decides = false; ///< a lookup needs the member to choose its entry
};

/// A table of constants, for range-based loops.
struct MetKeyTable {
    const MetKey *first;
    const MetKey *last;

    const MetKey *begin() const { return first; }
    const MetKey *end() const { return last; }
};

/// All keys in test order. Keys match as prefixes, so a key must precede any key that is its prefix.
extern const MetKeyTable metKeys;

enum class MetLineKind { Comment, Start, Key, End, Other };

struct MetLine {
    MetLineKind kind;
    const MetKey *key; ///< of a Key line, else null
    QStringView text;  ///< the whole line
};

MetLine classifyMetLine(QStringView line);

/// Returns the unchanged text after the first "=" of a Key line, or the whole line if it has no "=".
QStringView metValue(const MetLine &line);

/// Returns a value without white space at its ends and with one space for each inner run of white space.
QString metText(QStringView value);

/// Returns the number base of a kind of value; 10 for texts.
int metBase(MetValue value);

/// Returns an unsigned 32-bit number, which may have white space around it; std::nullopt for any other text.
std::optional<quint32> metNumber(QStringView text, int base);

/// Returns a version number without its dots.
QString metVersionDigits(const QString &text);

/// Returns the text of a file. The encoding is the Unicode encoding of its byte-order mark, or @p encoding without such
/// a mark; the reader uses that of the locale. An incomplete character at the end is dropped and counted in @p state.
QString decodeMetFile(const QByteArray &content, QTextCodec *encoding, QTextCodec::ConverterState &state);

/// Removes the first line from @p text. Returns it without its end, which is "\n", "\r\n", or "\r" at the end of the
/// text; std::nullopt if @p text is empty.
inline std::optional<QStringView> takeMetLine(QStringView &text)
{
    if (text.isEmpty()) {
        return std::nullopt;
    }
    const auto newline = text.indexOf(QLatin1Char('\n'));
    QStringView line = newline < 0 ? text : text.left(newline);
    text = newline < 0 ? QStringView() : text.mid(newline + 1);
    if (line.endsWith(QLatin1Char('\r'))) {
        line.chop(1);
    }
    return line;
}
