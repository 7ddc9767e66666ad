// The rules of the description linter: one for each way in which the reader silently does something else than the
// author of a description file meant.
#pragma once

#include <QString>

#include <array>

enum class Severity { Warning, Error };

enum class Rule {
    FileName,
    NoEntry,
    Encoding,
    LocalEncoding,
    ControlCharacter,
    LineBreak,
    LeadingBlank,
    LookAlike,
    PrefixKey,
    NoEquals,
    UnknownKey,
    UnknownMarker,
    StrayText,
    MarkerTail,
    NumberMalformed,
    NumberTruncated,
    VersionAmbiguous,
    ListTooLong,
    ListTooShort,
    EmptyItem,
    CollapsedBlanks,
    TrailingComment,
    QuotedValue,
    OutsideEntry,
    SecondStart,
    EndWithoutStart,
    UnendedEntry,
    AfterLastEnd,
    DuplicateKey,
    CarriedOver,
    NoTypeCode,
    ForeignCode,
    DuplicateEntry,
    HidesLater,
    NoServerFile,
    MissingComponent,
    NoModuleInfo,
    NoChannels,
    ChannelCount,
    Count
};

struct LintRule {
    const char *id;
    Severity severity;
    const char *description; ///< one line of English
};

using LintRules = std::array<LintRule, static_cast<std::size_t>(Rule::Count)>;

/// All rules, in the order of Rule.
const LintRules &lintRules();

const LintRule &lintRule(Rule rule);

/// "error" or "warning".
QString severityName(Severity severity);
