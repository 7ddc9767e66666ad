// What the characters of a line look like to a person, as opposed to what the reader makes of them.
#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>

/// Returns text from the file for a message: shortened, and without characters that could disturb a terminal.
QString quoted(QStringView text);

/// Returns a number such as "0x3453".
QString hexadecimal(quint32 number);

/// Returns the index of the first character that is not a space; the length if there is none.
int indexOfText(QStringView text);

/// Returns @p text with characters that look like ASCII replaced by those, and without invisible characters.
QString asSeen(QStringView text);

bool isNotAscii(QChar character);

/// Returns true for characters that an editor may show as the end of a line. A line contains no line feeds.
bool isLineBreak(QChar character);

/// Returns true for control characters except tabs and line breaks.
bool isControl(QChar character);

/// Returns the index of the first character for which @p matches returns true; -1 if there is none.
template <typename Predicate>
int firstIndex(QStringView text, Predicate &&matches)
{
    const auto *found = std::find_if(text.begin(), text.end(), matches);
    return found == text.end() ? -1 : static_cast<int>(found - text.begin());
}
