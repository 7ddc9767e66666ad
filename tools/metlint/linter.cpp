#include "linter.h"

#include "metreader.h"
#include "modulekind.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace {

constexpr int quotedLength = 40;    // of a text from the file in a message
constexpr int lookAlikeLength = 40; // longer than every key and marker, with room for characters that do not show

/// A place in the file; line 0 = none.
struct Place {
    int line = 0;
    int column = 1;
};

/// Text from the file for a message: short, and free of what could disturb a terminal.
QString quoted(QStringView text)
{
    QString shown = text.left(quotedLength).toString();
    for (QChar &character : shown) {
        if (!character.isPrint() && !character.isSurrogate()) {
            character = QLatin1Char('?');
        }
    }
    return QLatin1Char('"') % shown % QLatin1String(text.size() > quotedLength ? "...\"" : "\"");
}

QString hexadecimal(quint32 number)
{
    return QStringLiteral("0x") % QString::number(number, 16).toUpper();
}

/// Column of the first character that is no blank, of the end when there is none.
int columnOfText(QStringView text)
{
    const auto *first = std::find_if(text.begin(), text.end(), [](QChar character) { return !character.isSpace(); });
    return static_cast<int>(first - text.begin()) + 1;
}

bool isMeaning(MetLineKind kind)
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

/// The text with what looks like ASCII letters and signs turned into them, and without what cannot be seen.
QString asSeen(QStringView text)
{
    static const QString alike = QStringLiteral("АВЕКМНОРСТХІЈЅаеорсухіјѕΑΒΕΖΗΙΚΜΝΟΡΤΥΧο");
    static const QString ascii = QStringLiteral("ABEKMHOPCTXIJSaeopcyxijsABEZHIKMNOPTYXo");
    QString seen;
    for (const QChar character : text.toString().normalized(QString::NormalizationForm_KC)) {
        if (character.category() == QChar::Other_Format) {
            continue;
        }
        const int index = alike.indexOf(character);
        seen += index < 0 ? character : ascii.at(index);
    }
    return seen.trimmed();
}

bool isAscii(QChar character)
{
    return character.unicode() < 0x80;
}

/// What an editor may show as the end of a line. Line feeds do not occur within a line.
bool isLineBreak(QChar character)
{
    switch (character.unicode()) {
    case '\r':
    case '\v':
    case '\f':
    case 0x85:
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control && character != QLatin1Char('\t') && !isLineBreak(character);
}

/// Index of the first character for which @p matches holds, or -1.
template <class Predicate>
int firstIndex(QStringView text, Predicate &&matches)
{
    const auto *found = std::find_if(text.begin(), text.end(), matches);
    return found == text.end() ? -1 : static_cast<int>(found - text.begin());
}

class Linter {
public:
    Linter(const QByteArray &content, const LintContext &context);
    QVector<Finding> run();

private:
    void add(Rule rule, Place place, const QString &text);
    void lintFileName();
    void lintEncoding(const QTextCodec::ConverterState &state);
    void lintLine(QStringView text);
    void lintCharacters(const MetLine &line);
    void lintIgnored(QStringView text);
    void lintStart(const MetLine &line);
    void lintEnd(const MetLine &line, const ModuleMetInfo &entry);
    void lintMarkerTail(const MetLine &line);
    void lintEndOfFile();

    void lintKey(const MetLine &line);
    void lintKeyPlace(const MetKey &key, Place place);
    void lintValue(const MetKey &key, QStringView value, int offset);
    void lintText(const MetKey &key, QStringView value, int offset);
    void lintVersion(QStringView value, int offset);
    void lintList(const MetKey &key, QStringView value, int offset);
    void lintNumber(const MetKey &key, const QString &number, Place place);

    void lintCarriedOver(const ModuleMetInfo &entry);
    void lintTypeCode(const ModuleMetInfo &entry);
    void lintChoice(const ModuleMetInfo &entry);
    void lintComponent(const ModuleMetInfo &entry);
    void lintChannels(const ModuleMetInfo &entry);

    Place here(int offset = 0) const { return {m_line, offset + 1}; }
    Place &inEntry(const MetKey &key) { return m_inEntry[static_cast<std::size_t>(&key - metKeys.data())]; }
    Place &everSet(const MetKey &key) { return m_everSet[static_cast<std::size_t>(&key - metKeys.data())]; }
    /// Where the current entry gives the key of a look-up, else where the entry starts or, without a start, ends.
    Place placeOf(const char *keyName);

    using KeyPlaces = std::array<Place, std::tuple_size_v<decltype(metKeys)>>;

    const QByteArray &m_content;
    const LintContext &m_context;
    const std::optional<quint32> m_typeCode;
    QString m_text;
    MetParser m_parser;
    QVector<Finding> m_findings;
    int m_line = 0;
    bool m_hasLocalText = false; // found text that depends on the encoding of the machine

    Place m_start;       // of the entry that is open
    Place m_outsideKey;  // first key since the last end, without a start
    Place m_lastEnd;     // of the file so far
    KeyPlaces m_inEntry; // values of the keys since the last start or end
    KeyPlaces m_everSet; // values of the keys since the beginning of the file

    Place m_chosen; // the entry that look-ups find
    Place m_hiding; // the entry that ends them
};

Linter::Linter(const QByteArray &content, const LintContext &context)
    : m_content(content), m_context(context), m_typeCode(typeCodeOfFileName(context.fileName)), m_inEntry{}, m_everSet{}
{
}

void Linter::add(Rule rule, Place place, const QString &text)
{
    m_findings.append({std::max(place.line, 1), place.column, rule, text});
}

QVector<Finding> Linter::run()
{
    lintFileName();
    QTextCodec::ConverterState state;
    m_text = decodeMetFile(m_content, m_context.encoding, state);
    visitMetLines(m_text, [this](QStringView line) {
        lintLine(line);
        return true;
    });
    lintEncoding(state);
    lintEndOfFile();
    std::stable_sort(m_findings.begin(), m_findings.end(), [](const Finding &left, const Finding &right) {
        return std::tie(left.line, left.column) < std::tie(right.line, right.column);
    });
    return m_findings;
}

void Linter::lintFileName()
{
    if (!m_typeCode) {
        add(Rule::FileName, {}, QStringLiteral("no look-up reads this file: its name is not hwXXXXXXXX.met"));
        return;
    }
    const QString looked = metFileName(searchedTypeCode(*m_typeCode));
    if (looked != m_context.fileName) {
        add(Rule::FileName, {},
            QStringLiteral("type code %1 is looked up in %2").arg(hexadecimal(*m_typeCode), looked));
    }
}

void Linter::lintEncoding(const QTextCodec::ConverterState &state)
{
    if (state.remainingChars <= 0) {
        return;
    }
    const int lineStart = m_text.lastIndexOf(QLatin1Char('\n')) + 1;
    const Place end{m_text.count(QLatin1Char('\n')) + 1, m_text.size() - lineStart + 1};
    add(Rule::Encoding, end, QStringLiteral("the incomplete character at the end of the file is dropped"));
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

// Damaged comments are as good as whole ones, but for line breaks: what seems to follow them is part of the comment.
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
            QStringLiteral("these bytes are no text in the encoding of the file (%1)")
                .arg(QString::fromLatin1(QTextCodec::codecForUtfText(m_content, m_context.encoding)->name())));
    }
    const int control = firstIndex(line.text, isControl);
    if (control >= 0) {
        add(Rule::ControlCharacter, here(control),
            QStringLiteral("the control character %1 is taken as text")
                .arg(hexadecimal(line.text.at(control).unicode())));
    }
    const int foreign = firstIndex(line.text, [](QChar character) { return !isAscii(character); });
    if (line.kind != MetLineKind::Key || foreign < 0 || unreadable >= 0 || m_hasLocalText ||
        QTextCodec::codecForUtfText(m_content, nullptr) != nullptr) {
        return;
    }
    m_hasLocalText = true;
    add(Rule::LocalEncoding, here(foreign),
        QStringLiteral("without a byte-order mark the file reads differently on a machine with another encoding"));
}

void Linter::lintIgnored(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        return;
    }
    const int column = columnOfText(text) - 1;
    const MetLine meant = classifyMetLine(trimmed);
    if (isMeaning(meant.kind)) {
        add(Rule::LeadingBlank, here(), QStringLiteral("blanks before %1: the line is ignored").arg(nameOf(meant)));
        return;
    }
    const int foreign = firstIndex(trimmed.left(lookAlikeLength), [](QChar character) { return !isAscii(character); });
    if (foreign >= 0) {
        const QString seen = asSeen(trimmed.left(lookAlikeLength));
        const MetLine similar = classifyMetLine(seen);
        if (isMeaning(similar.kind)) {
            add(Rule::LookAlike, here(column + foreign),
                QStringLiteral("the character U+%1 makes this another word than %2: the line is ignored")
                    .arg(QString::number(trimmed.at(foreign).unicode(), 16).toUpper(), 4, QLatin1Char('0'))
                    .arg(nameOf(similar)));
            return;
        }
    }
    if (trimmed.front() == QLatin1Char('[')) {
        add(Rule::UnknownMarker, here(column),
            QStringLiteral("%1 is no marker: the line is ignored").arg(quoted(trimmed)));
        return;
    }
    const auto equals = trimmed.indexOf(QLatin1Char('='));
    if (equals < 0) {
        add(Rule::StrayText, here(column), QStringLiteral("no key and no comment: the line is ignored"));
    } else {
        add(Rule::UnknownKey, here(column),
            QStringLiteral("unknown key %1: the line is ignored").arg(quoted(trimmed.left(equals).trimmed())));
    }
}

void Linter::lintMarkerTail(const MetLine &line)
{
    const int length = nameOf(line).size();
    const QStringView tail = line.text.mid(length);
    if (!tail.trimmed().isEmpty()) {
        add(Rule::MarkerTail, here(length + columnOfText(tail) - 1),
            QStringLiteral("%1 behind %2 is dropped").arg(quoted(tail.trimmed()), nameOf(line)));
    }
}

void Linter::lintStart(const MetLine &line)
{
    lintMarkerTail(line);
    if (m_start.line > 0) {
        add(Rule::SecondStart, here(),
            QStringLiteral("the entry that starts in line %1 is not ended and discarded").arg(m_start.line));
    }
    if (m_outsideKey.line > 0) {
        add(Rule::OutsideEntry, m_outsideKey, QStringLiteral("keys before [MODULE START] belong to no entry"));
    }
    m_outsideKey = {};
    m_inEntry = {};
    m_start = here();
}

void Linter::lintEnd(const MetLine &line, const ModuleMetInfo &entry)
{
    lintMarkerTail(line);
    if (m_start.line == 0) {
        add(Rule::EndWithoutStart, here(),
            QStringLiteral("no [MODULE START] before this [END]: what was read so far becomes another entry"));
    } else {
        lintCarriedOver(entry);
    }
    lintTypeCode(entry);
    lintChoice(entry);
    lintComponent(entry);
    lintChannels(entry);
    m_outsideKey = {};
    m_inEntry = {};
    m_start = {};
    m_lastEnd = here();
}

void Linter::lintEndOfFile()
{
    const QString dropped = QStringLiteral("no [END] follows: the entry is dropped");
    if (m_start.line > 0) {
        add(Rule::UnendedEntry, m_start, dropped);
    } else if (m_outsideKey.line > 0 && m_lastEnd.line > 0) {
        add(Rule::AfterLastEnd, m_outsideKey,
            QStringLiteral("keys behind the last [END] (line %1) are dropped").arg(m_lastEnd.line));
    } else if (m_outsideKey.line > 0) {
        add(Rule::UnendedEntry, m_outsideKey, dropped);
    } else if (m_lastEnd.line == 0) {
        add(Rule::NoEntry, {}, QStringLiteral("the file has no entry: its type code is not found"));
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
    const int valueOffset = equals < 0 ? 0 : equals + columnOfText(line.text.mid(equals + 1));
    lintKeyPlace(key, here(valueOffset));
    if (equals < 0) {
        add(Rule::NoEquals, here(), QStringLiteral("no \"=\" behind %1: the whole line is the value").arg(key.name));
    } else {
        lintValue(key, line.text.mid(equals + 1), equals + 1);
    }
}

void Linter::lintKeyPlace(const MetKey &key, Place place)
{
    if (m_start.line == 0 && m_outsideKey.line == 0) {
        m_outsideKey = here();
    }
    const bool appends = key.value == MetValue::Texts || key.value == MetValue::Codes;
    if (inEntry(key).line > 0) {
        add(Rule::DuplicateKey, here(),
            QString::fromLatin1(appends ? "%1 adds to the list of line %2" : "%1 replaces the value of line %2")
                .arg(key.name)
                .arg(inEntry(key).line));
    } else if (appends && key.keep != nullptr && everSet(key).line > 0) {
        add(Rule::CarriedOver, here(),
            QStringLiteral("%1 adds to the list of an entry before (line %2)").arg(key.name).arg(everSet(key).line));
    }
    inEntry(key) = place;
    everSet(key) = place;
}

void Linter::lintValue(const MetKey &key, QStringView value, int offset)
{
    switch (key.value) {
    case MetValue::Text:
        lintText(key, value, offset);
        break;
    case MetValue::Texts:
        lintText(key, value, offset);
        lintList(key, value, offset);
        break;
    case MetValue::Bytes:
    case MetValue::Codes:
        lintList(key, value, offset);
        break;
    case MetValue::Version:
        lintVersion(value, offset);
        [[fallthrough]];
    default: {
        const QString text = value.toString().simplified();
        lintNumber(key, key.value == MetValue::Version ? metVersionDigits(text) : text,
                   here(offset + columnOfText(value) - 1));
    }
    }
}

void Linter::lintText(const MetKey &key, QStringView value, int offset)
{
    const QStringView text = value.trimmed();
    const Place place = here(offset + columnOfText(value) - 1);
    const bool hasLineBreak = firstIndex(text, isLineBreak) >= 0; // which has its own finding
    if (!hasLineBreak && text.toString().simplified() != text) {
        add(Rule::CollapsedBlanks, place, QStringLiteral("the blanks in %1 become one each").arg(quoted(text)));
    }
    const auto semicolon = text.indexOf(QLatin1Char(';'));
    if (semicolon > 0 && text.at(semicolon - 1).isSpace()) {
        add(Rule::TrailingComment, {m_line, place.column + static_cast<int>(semicolon)},
            QStringLiteral("%1 is part of %2").arg(quoted(text.mid(semicolon)), QString(key.name)));
    }
    if (text.size() > 1 && text.front() == QLatin1Char('"') && text.back() == QLatin1Char('"')) {
        add(Rule::QuotedValue, place, QStringLiteral("the quotation marks are part of %1").arg(key.name));
    }
}

void Linter::lintVersion(QStringView value, int offset)
{
    const QStringList parts = value.toString().simplified().split(QLatin1Char('.'));
    const bool isClear =
        std::all_of(std::next(parts.begin()), parts.end(), [](const QString &part) { return part.size() == 1; });
    if (!isClear) {
        add(Rule::VersionAmbiguous, here(offset + columnOfText(value) - 1),
            QStringLiteral("the version reads as %1: only one digit behind each dot is clear")
                .arg(quoted(metVersionDigits(parts.join(QLatin1Char('.'))))));
    }
}

void Linter::lintList(const MetKey &key, QStringView value, int offset)
{
    int count = 0;
    int position = 0;
    while (position <= value.size()) {
        const auto comma = value.indexOf(QLatin1Char(','), position);
        const auto end = comma < 0 ? static_cast<int>(value.size()) : static_cast<int>(comma);
        const QStringView item = value.mid(position, end - position);
        const Place place = here(offset + position + columnOfText(item) - 1);
        ++count;
        if (key.itemLimit > 0 && count == key.itemLimit + 1) {
            add(Rule::ListTooLong, place,
                QStringLiteral("%1 holds %2 items: this one and what follows is ignored")
                    .arg(key.name)
                    .arg(key.itemLimit));
        }
        if (key.itemLimit > 0 && count > key.itemLimit) {
            return;
        }
        if (item.trimmed().isEmpty()) {
            add(Rule::EmptyItem, place,
                QString::fromLatin1(key.value == MetValue::Texts ? "the empty item counts as an empty text"
                                                                 : "the empty item counts as 0"));
        } else if (key.value != MetValue::Texts) {
            lintNumber(key, item.toString().simplified(), place);
        } else if (asSeen(item).contains(QLatin1Char(','))) {
            add(Rule::LookAlike, place,
                QStringLiteral("%1 is one item: its comma is none").arg(quoted(item.trimmed())));
        }
        position = end + 1;
    }
    if (count < key.itemLimit) {
        add(Rule::ListTooShort, here(offset + columnOfText(value) - 1),
            QStringLiteral("%1 of %2 items of %3: the others keep their value")
                .arg(count)
                .arg(key.itemLimit)
                .arg(key.name));
    }
}

void Linter::lintNumber(const MetKey &key, const QString &number, Place place)
{
    const int base = metBase(key.value);
    const std::optional<quint32> parsed = metNumber(number, base);
    if (!parsed) {
        add(Rule::NumberMalformed, place,
            QStringLiteral("%1 is no %2 number below 2^32 and reads as 0")
                .arg(quoted(number), QLatin1String(base == 16 ? "hexadecimal" : "decimal")));
    } else if (*parsed > key.largest) {
        add(Rule::NumberTruncated, place,
            QStringLiteral("%1 is above %2, the largest number that %3 holds, and loses its high bits")
                .arg(quoted(number), QString::number(key.largest, base).toUpper(), QString(key.name)));
    }
}

Place Linter::placeOf(const char *keyName)
{
    const QString name = QString::fromLatin1(keyName);
    const Place given = inEntry(*classifyMetLine(name).key);
    if (given.line > 0) {
        return given;
    }
    return m_start.line > 0 ? m_start : here();
}

void Linter::lintCarriedOver(const ModuleMetInfo &entry)
{
    for (const MetKey &key : metKeys) {
        ModuleMetInfo fresh;
        if (key.keep == nullptr || inEntry(key).line > 0 || !key.keep(entry, fresh)) {
            continue;
        }
        add(Rule::CarriedOver, m_start,
            QStringLiteral("the entry does not give %1 and keeps the value of line %2")
                .arg(key.name)
                .arg(everSet(key).line));
    }
}

void Linter::lintTypeCode(const ModuleMetInfo &entry)
{
    const Place place = placeOf("ObjID");
    if (inEntry(*classifyMetLine(u"ObjID").key).line == 0 && m_start.line > 0) {
        add(Rule::NoTypeCode, place, QStringLiteral("the entry gives no ObjID and is never found"));
    } else if (m_typeCode && entry.objId != *m_typeCode) {
        add(Rule::ForeignCode, place,
            QStringLiteral("type code %1 is never looked up in the file of %2")
                .arg(hexadecimal(entry.objId), hexadecimal(*m_typeCode)));
    }
}

// Follows a look-up: the first entry of the type code is chosen, unless one before it needs a newer host.
void Linter::lintChoice(const ModuleMetInfo &entry)
{
    const bool matches = !m_typeCode || entry.objId == *m_typeCode;
    const bool isForHost = static_cast<quint32>(entry.needHwCnfgVersion) <= m_context.hostVersion;
    if (m_chosen.line > 0) {
        if (m_typeCode && matches) {
            add(Rule::DuplicateEntry, placeOf("ObjID"),
                QStringLiteral("never chosen: the entry that ends in line %1 has the same type code")
                    .arg(m_chosen.line));
        }
    } else if (!isForHost) {
        m_hiding = m_hiding.line > 0 ? m_hiding : placeOf("NeedHwCnfgVersion");
    } else if (matches) {
        m_chosen = here();
        if (m_hiding.line > 0) {
            add(Rule::HidesLater, m_hiding,
                QStringLiteral("needs a host above %1 and hides the entry that ends in line %2")
                    .arg(m_context.hostVersion)
                    .arg(m_line));
        }
    }
}

void Linter::lintComponent(const ModuleMetInfo &entry)
{
    if (m_context.componentFolder.isEmpty()) {
        return;
    }
    const QFileInfo component(m_context.componentFolder % QLatin1Char('/') % entry.serverFile);
    const QString name = quoted(entry.serverFile);
    const bool isName = !entry.serverFile.contains(QChar(QChar::Null));
    if (!isName || !component.exists()) {
        add(Rule::MissingComponent, placeOf("ServerFile"),
            QStringLiteral("no component file %1: the module cannot be created").arg(name));
    } else if (component.isDir()) {
        add(Rule::NoServerFile, placeOf("ServerFile"),
            QStringLiteral("ServerFile %1 is a folder: the module cannot be created").arg(name));
    }
}

void Linter::lintChannels(const ModuleMetInfo &entry)
{
    const ModuleKind &kind = moduleKind(entry.objId);
    if (kind.family == ModuleFamily::Plain) {
        return;
    }
    const Place place = placeOf("ModuleInfo");
    if (entry.moduleInfo == 0) {
        add(Rule::NoModuleInfo, place,
            QStringLiteral("moduleInfo 0: a module of type %1 cannot be created").arg(hexadecimal(entry.objId)));
        return;
    }
    const qint32 inputs = kind.input.channelCount(entry.moduleInfo);
    const qint32 outputs = kind.output.channelCount(entry.moduleInfo);
    for (const qint32 count : {inputs, outputs}) {
        if (count < 0 || count > 255) {
            add(Rule::ChannelCount, place,
                QStringLiteral("the host counts %1 channels, a module holds 0 to 255").arg(count));
        }
    }
    if (inputs == 0 && outputs == 0) {
        add(Rule::NoChannels, place,
            QStringLiteral("moduleInfo %1 gives a module of type %2 no channel")
                .arg(hexadecimal(entry.moduleInfo), hexadecimal(entry.objId)));
    }
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

QVector<Finding> lint(const QByteArray &content, const LintContext &context)
{
    return Linter(content, context).run();
}

QString formatFinding(const QString &file, const Finding &finding)
{
    const LintRule &rule = lintRule(finding.rule);
    const QString place = QStringLiteral(":%1:%2: ").arg(finding.line).arg(finding.column);
    return file % place % severityName(rule.severity) % QStringLiteral(": ") % finding.text % QStringLiteral(" [") %
           QLatin1String(rule.id) % QLatin1Char(']');
}
