#include "linter.h"

#include "entrychecks.h"
#include "linetext.h"
#include "metreader.h"
#include "valuechecks.h"

#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace {

constexpr int lookAlikeLength = 40; // longer than all keys and markers, including some invisible characters
constexpr TextPlace fileStart{1, 1};

bool isMarkerOrKey(MetLineKind kind)
{
    return kind == MetLineKind::Start || kind == MetLineKind::Key || kind == MetLineKind::End;
}

QString nameOf(const MetLine &line)
{
    switch (line.kind) {
    case MetLineKind::Start:
        return QStringLiteral("[MODULE START]");
    case MetLineKind::End:
        return QStringLiteral("[END]");
    default:
        return line.key->name;
    }
}

/// Checks the lines of one file.
class Linter {
public:
    Linter(const QByteArray &content, const LintContext &context);
    QVector<Diagnostic> run();

private:
    void add(Rule rule, TextPlace place, const QString &text) { m_diagnostics.append({place, rule, text}); }
    void lintFileName();
    void lintEncoding(const QTextCodec::ConverterState &state);
    void lintLine(QStringView text);
    void lintCharacters(const MetLine &line);
    void lintIgnored(QStringView text);
    bool lintHidden(QStringView trimmed, int offset);
    void lintMarkerTail(const MetLine &line);
    void lintStart(const MetLine &line);
    void lintEnd(const MetLine &line, const ModuleMetInfo &entry);
    void lintEndOfFile();
    void lintKey(const MetLine &line);
    void lintKeyPlace(const MetKey &key, TextPlace valuePlace);

    TextPlace here(int offset = 0) const { return {m_line, offset + 1}; }

    const QByteArray &m_content;
    const LintContext &m_context;
    QString m_text;
    MetParser m_parser;
    QVector<Diagnostic> m_diagnostics;
    EntryChecks m_entryChecks;
    PassedPlaces m_places;
    int m_line = 0;
    bool m_hasLocalText = false; // found text that depends on the encoding of the machine
};

Linter::Linter(const QByteArray &content, const LintContext &context)
    : m_content(content), m_context(context), m_entryChecks(context, m_diagnostics)
{
}

QVector<Diagnostic> Linter::run()
{
    lintFileName();
    QTextCodec::ConverterState state;
    m_text = decodeMetFile(m_content, m_context.encoding, state);
    QStringView rest(m_text);
    while (const auto line = takeMetLine(rest)) {
        lintLine(*line);
    }
    lintEncoding(state);
    lintEndOfFile();
    std::stable_sort(m_diagnostics.begin(), m_diagnostics.end(), [](const Diagnostic &left, const Diagnostic &right) {
        return std::tie(left.place.line, left.place.column) < std::tie(right.place.line, right.place.column);
    });
    return m_diagnostics;
}

void Linter::lintFileName()
{
    const std::optional<quint32> typeCode = typeCodeOfFileName(m_context.fileName);
    if (!typeCode) {
        add(Rule::FileName, fileStart, QStringLiteral("no lookup reads this file: its name is not hwXXXXXXXX.met"));
        return;
    }
    const QString fileName = metFileName(searchedTypeCode(*typeCode));
    if (fileName != m_context.fileName) {
        add(Rule::FileName, fileStart,
            QStringLiteral("type code %1 is looked up in %2").arg(hexadecimal(*typeCode), fileName));
    }
}

void Linter::lintEncoding(const QTextCodec::ConverterState &state)
{
    if (state.remainingChars <= 0) {
        return;
    }
    const int lineStart = m_text.lastIndexOf(QLatin1Char('\n')) + 1;
    const TextPlace end{m_text.count(QLatin1Char('\n')) + 1, m_text.size() - lineStart + 1};
    add(Rule::Encoding, end, QStringLiteral("the incomplete character at the end of the file is ignored"));
}

void Linter::lintLine(QStringView text)
{
    ++m_line;
    const MetLine line = classifyMetLine(text);
    const ModuleMetInfo *entry = m_parser.feed(line);
    lintCharacters(line);
    switch (line.kind) {
    case MetLineKind::Comment:
        break;
    case MetLineKind::Start:
        lintStart(line);
        break;
    case MetLineKind::Key:
        lintKey(line);
        break;
    case MetLineKind::End:
        lintEnd(line, *entry);
        break;
    case MetLineKind::Other:
        lintIgnored(text);
        break;
    }
}

// In a comment only line breaks matter, because the text after one belongs to the comment.
void Linter::lintCharacters(const MetLine &line)
{
    const int lineBreak = firstIndex(line.text, isLineBreak);
    if (lineBreak >= 0) {
        const ushort code = line.text.at(lineBreak).unicode();
        add(Rule::LineBreak, here(lineBreak),
            QStringLiteral("the character %1 does not end the line").arg(hexadecimal(code)));
    }
    if (line.kind == MetLineKind::Comment) {
        return;
    }
    const int unreadable = firstIndex(line.text, [](QChar c) { return c == QChar(QChar::ReplacementCharacter); });
    if (unreadable >= 0) {
        add(Rule::Encoding, here(unreadable),
            QStringLiteral("these bytes are invalid in the encoding of the file (%1)")
                .arg(QString::fromLatin1(QTextCodec::codecForUtfText(m_content, m_context.encoding)->name())));
    }
    const int control = firstIndex(line.text, isControl);
    if (control >= 0) {
        add(Rule::ControlCharacter, here(control),
            QStringLiteral("the control character %1 is read as text")
                .arg(hexadecimal(line.text.at(control).unicode())));
    }
    const int foreign = firstIndex(line.text, isNotAscii);
    if (line.kind != MetLineKind::Key || foreign < 0 || unreadable >= 0 || m_hasLocalText ||
        QTextCodec::codecForUtfText(m_content, nullptr) != nullptr) {
        return;
    }
    m_hasLocalText = true;
    add(Rule::LocalEncoding, here(foreign),
        QStringLiteral("the file has no byte-order mark: its text depends on the encoding of the machine"));
}

void Linter::lintIgnored(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        return;
    }
    const int column = indexOfText(text);
    if (lintHidden(trimmed, column)) {
        return;
    }
    if (trimmed.front() == QLatin1Char('[')) {
        add(Rule::UnknownMarker, here(column),
            QStringLiteral("%1 is not a marker: the line is ignored").arg(quoted(trimmed)));
        return;
    }
    const auto equals = trimmed.indexOf(QLatin1Char('='));
    if (equals < 0) {
        add(Rule::StrayText, here(column), QStringLiteral("the line is neither a key nor a comment and is ignored"));
    } else {
        add(Rule::UnknownKey, here(column),
            QStringLiteral("unknown key %1: the line is ignored").arg(quoted(trimmed.left(equals).trimmed())));
    }
}

/// Reports a marker or a key that the reader does not recognize. Returns false if the line has none.
bool Linter::lintHidden(QStringView trimmed, int offset)
{
    const MetLine line = classifyMetLine(trimmed);
    if (isMarkerOrKey(line.kind)) {
        add(Rule::LeadingBlank, here(), QStringLiteral("white space before %1: the line is ignored").arg(nameOf(line)));
        return true;
    }
    const int foreign = firstIndex(trimmed.left(lookAlikeLength), isNotAscii);
    if (foreign < 0) {
        return false;
    }
    const QString seen = asSeen(trimmed.left(lookAlikeLength));
    const MetLine similar = classifyMetLine(seen);
    if (!isMarkerOrKey(similar.kind)) {
        return false;
    }
    add(Rule::LookAlike, here(offset + foreign),
        QStringLiteral("the character U+%1 is not part of %2: the line is ignored")
            .arg(QString::number(trimmed.at(foreign).unicode(), 16).toUpper(), 4, QLatin1Char('0'))
            .arg(nameOf(similar)));
    return true;
}

void Linter::lintMarkerTail(const MetLine &line)
{
    const int length = nameOf(line).size();
    const QStringView tail = line.text.mid(length);
    if (!tail.trimmed().isEmpty()) {
        add(Rule::MarkerTail, here(length + indexOfText(tail)),
            QStringLiteral("%1 after %2 is ignored").arg(quoted(tail.trimmed()), nameOf(line)));
    }
}

void Linter::lintStart(const MetLine &line)
{
    lintMarkerTail(line);
    if (m_places.start.exists()) {
        add(Rule::SecondStart, here(),
            QStringLiteral("the entry that starts in line %1 has no [END] and is discarded").arg(m_places.start.line));
    }
    if (m_places.outsideKey.exists()) {
        add(Rule::OutsideEntry, m_places.outsideKey,
            QStringLiteral("keys before [MODULE START] do not belong to an entry"));
    }
    m_places.outsideKey = {};
    m_places.inEntry.clear();
    m_places.start = here();
}

void Linter::lintEnd(const MetLine &line, const ModuleMetInfo &entry)
{
    lintMarkerTail(line);
    if (!m_places.start.exists()) {
        add(Rule::EndWithoutStart, here(),
            QStringLiteral("no [MODULE START] before this [END]: the values read so far become another entry"));
    }
    m_entryChecks.check(entry, m_places, here());
    m_places.outsideKey = {};
    m_places.inEntry.clear();
    m_places.start = {};
    m_places.lastEnd = here();
}

void Linter::lintEndOfFile()
{
    const QString ignored = QStringLiteral("no [END] follows: the entry is ignored");
    if (m_places.start.exists()) {
        add(Rule::UnendedEntry, m_places.start, ignored);
    } else if (m_places.outsideKey.exists() && m_places.lastEnd.exists()) {
        add(Rule::AfterLastEnd, m_places.outsideKey,
            QStringLiteral("keys after the last [END] (line %1) are ignored").arg(m_places.lastEnd.line));
    } else if (m_places.outsideKey.exists()) {
        add(Rule::UnendedEntry, m_places.outsideKey, ignored);
    } else if (!m_places.lastEnd.exists()) {
        add(Rule::NoEntry, fileStart, QStringLiteral("the file has no entry: its type code is not found"));
    }
}

void Linter::lintKey(const MetLine &line)
{
    const MetKey &key = *line.key;
    const int equals = static_cast<int>(line.text.indexOf(QLatin1Char('=')));
    const QStringView word = (equals < 0 ? line.text : line.text.left(equals)).trimmed();
    const QStringView rest = word.mid(key.name.size());
    if (!rest.isEmpty() && (equals >= 0 || rest.front().isLetterOrNumber())) {
        add(Rule::PrefixKey, here(key.name.size()),
            QStringLiteral("%1 is read as %2").arg(quoted(word), QString(key.name)));
    }
    const int valueOffset = equals < 0 ? 0 : equals + 1 + indexOfText(line.text.mid(equals + 1));
    lintKeyPlace(key, here(valueOffset));
    if (equals < 0) {
        add(Rule::NoEquals, here(), QStringLiteral("no \"=\" after %1: the whole line is the value").arg(key.name));
    } else {
        checkValue(key, line.text.mid(equals + 1), here(equals + 1), m_diagnostics);
    }
}

void Linter::lintKeyPlace(const MetKey &key, TextPlace valuePlace)
{
    if (!m_places.start.exists() && !m_places.outsideKey.exists()) {
        m_places.outsideKey = here();
    }
    const bool appends = key.value == MetValue::Texts || key.value == MetValue::Codes;
    const TextPlace inEntry = m_places.inEntry.value(key.name);
    const TextPlace everSet = m_places.everSet.value(key.name);
    if (inEntry.exists()) {
        add(Rule::DuplicateKey, here(),
            QString::fromLatin1(appends ? "%1 adds to the list of line %2" : "%1 replaces the value of line %2")
                .arg(key.name)
                .arg(inEntry.line));
    } else if (appends && key.keep != nullptr && everSet.exists()) {
        add(Rule::CarriedOver, here(),
            QStringLiteral("%1 adds to the list of an earlier entry (line %2)").arg(key.name).arg(everSet.line));
    }
    m_places.inEntry.insert(key.name, valuePlace);
    m_places.everSet.insert(key.name, valuePlace);
}

} // namespace

std::optional<quint32> typeCodeOfFileName(const QString &fileName)
{
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(QStringLiteral("hw([0-9a-f]{8})\\.met")),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(fileName);
    return match.hasMatch() ? metNumber(match.captured(1), 16) : std::nullopt;
}

QVector<Diagnostic> lint(const QByteArray &content, const LintContext &context)
{
    return Linter(content, context).run();
}

QString formatDiagnostic(const QString &file, const Diagnostic &diagnostic)
{
    const LintRule &rule = lintRule(diagnostic.rule);
    const QString place = QStringLiteral(":%1:%2: ").arg(diagnostic.place.line).arg(diagnostic.place.column);
    return file % place % severityName(rule.severity) % QStringLiteral(": ") % diagnostic.text % QStringLiteral(" [") %
           QLatin1String(rule.id) % QLatin1Char(']');
}
