#include "valuechecks.h"

#include "linetext.h"

#include <QStringList>

#include <algorithm>

namespace {

/// The value of one key.
class ValueChecks {
public:
    ValueChecks(const MetKey &key, QStringView value, TextPlace start, QVector<Diagnostic> &diagnostics)
        : m_key(key),
          m_name(key.name),
          m_value(value),
          m_start(start),
          m_text(start.moved(indexOfText(value))),
          m_diagnostics(diagnostics)
    {
    }

    void check()
    {
        switch (m_key.value) {
        case MetValue::Text:
            return checkText();
        case MetValue::Texts:
            checkText();
            return checkList();
        case MetValue::Bytes:
        case MetValue::Codes:
            return checkList();
        case MetValue::Version:
            return checkVersion();
        case MetValue::Decimal:
        case MetValue::Hexadecimal:
        case MetValue::Flag:
            return checkNumber(metText(m_value), m_text);
        }
    }

private:
    void add(Rule rule, TextPlace place, const QString &text) { m_diagnostics.append({place, rule, text}); }

    void checkText()
    {
        const QStringView text = m_value.trimmed();
        const bool hasLineBreak = firstIndex(text, isLineBreak) >= 0; // reported by another rule
        if (!hasLineBreak && metText(text) != text) {
            add(Rule::CollapsedBlanks, m_text,
                QStringLiteral("each run of white space in %1 becomes one space").arg(quoted(text)));
        }
        const int semicolon = static_cast<int>(text.indexOf(QLatin1Char(';')));
        if (semicolon > 0 && text.at(semicolon - 1).isSpace()) {
            add(Rule::TrailingComment, m_text.moved(semicolon),
                QStringLiteral("%1 is part of %2").arg(quoted(text.mid(semicolon)), m_name));
        }
        if (text.size() > 1 && text.front() == QLatin1Char('"') && text.back() == QLatin1Char('"')) {
            add(Rule::QuotedValue, m_text, QStringLiteral("the quotation marks are part of %1").arg(m_name));
        }
    }

    void checkVersion()
    {
        const QString version = metText(m_value);
        const QStringList parts = version.split(QLatin1Char('.'));
        const bool isClear =
            std::all_of(std::next(parts.begin()), parts.end(), [](const QString &part) { return part.size() == 1; });
        if (!isClear) {
            add(Rule::VersionAmbiguous, m_text,
                QStringLiteral("the version is read as %1: use one digit after each dot")
                    .arg(quoted(metVersionDigits(version))));
        }
        checkNumber(metVersionDigits(version), m_text);
    }

    void checkList()
    {
        int count = 0;
        for (int at = 0; at <= m_value.size();) {
            const int comma = static_cast<int>(m_value.indexOf(QLatin1Char(','), at));
            const int end = comma < 0 ? static_cast<int>(m_value.size()) : comma;
            const QStringView item = m_value.mid(at, end - at);
            const TextPlace place = m_start.moved(at + indexOfText(item));
            if (m_key.itemLimit > 0 && count == m_key.itemLimit) {
                add(Rule::ListTooLong, place,
                    QStringLiteral("%1 has at most %2 items: this one and all later ones are ignored")
                        .arg(m_name)
                        .arg(m_key.itemLimit));
                return;
            }
            ++count;
            checkItem(item, place);
            at = end + 1;
        }
        if (count < m_key.itemLimit) {
            add(Rule::ListTooShort, m_text,
                QStringLiteral("%1 has %2 of %3 items: the others keep their values")
                    .arg(m_name)
                    .arg(count)
                    .arg(m_key.itemLimit));
        }
    }

    void checkItem(QStringView item, TextPlace place)
    {
        const bool isText = m_key.value == MetValue::Texts;
        if (item.trimmed().isEmpty()) {
            add(Rule::EmptyItem, place,
                QStringLiteral("the empty item is read as %1").arg(QLatin1String(isText ? "an empty text" : "0")));
        } else if (!isText) {
            checkNumber(metText(item), place);
        } else if (asSeen(item).contains(QLatin1Char(','))) {
            add(Rule::LookAlike, place,
                QStringLiteral("%1 is one item: its comma is not an ASCII comma").arg(quoted(item.trimmed())));
        }
    }

    void checkNumber(const QString &number, TextPlace place)
    {
        const int base = metBase(m_key.value);
        const std::optional<quint32> parsed = metNumber(number, base);
        if (!parsed) {
            add(Rule::NumberMalformed, place,
                QStringLiteral("%1 is not a %2 number below 2^32 and is read as 0")
                    .arg(quoted(number), QLatin1String(base == 16 ? "hexadecimal" : "decimal")));
        } else if (*parsed > m_key.largest) {
            add(Rule::NumberTruncated, place,
                QStringLiteral("%1 is above %2, the maximum of %3, and loses its high bits")
                    .arg(quoted(number), QString::number(m_key.largest, base).toUpper(), m_name));
        }
    }

    const MetKey &m_key;
    const QString m_name;
    const QStringView m_value;
    const TextPlace m_start;
    const TextPlace m_text; // the first character of the value that is not a space
    QVector<Diagnostic> &m_diagnostics;
};

} // namespace

void checkValue(const MetKey &key, QStringView value, TextPlace start, QVector<Diagnostic> &diagnostics)
{
    ValueChecks(key, value, start, diagnostics).check();
}
