// The rules of the description linter: one for each case in which the reader ignores or changes the content of a
// description file without a message.
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
    Rule rule;
    const char *id;
    Severity severity;
    const char *description; ///< one line, in English
};

using LintRules = std::array<LintRule, static_cast<std::size_t>(Rule::Count)>;

/// Returns all rules in the order of the enumerators.
const LintRules &lintRules();

const LintRule &lintRule(Rule rule);

/// Returns "error" or "warning".
QString severityName(Severity severity);
