#include "lintrules.h"

namespace {

constexpr LintRules ruleTable{{
    {Rule::FileName, "file-name", Severity::Error, "the host looks up no file of this name"},
    {Rule::NoEntry, "no-entry", Severity::Error, "the file has no entry"},
    {Rule::Encoding, "encoding", Severity::Error, "bytes that are invalid in the encoding are replaced or ignored"},
    {Rule::LocalEncoding, "local-encoding", Severity::Warning,
     "text beyond ASCII without a byte-order mark depends on the machine"},
    {Rule::ControlCharacter, "control-character", Severity::Error, "a control character is read as text"},
    {Rule::LineBreak, "line-break", Severity::Error, "a character that looks like the end of a line does not end it"},
    {Rule::LeadingBlank, "leading-blank", Severity::Error, "a key or a marker after white space is ignored"},
    {Rule::LookAlike, "look-alike", Severity::Error, "a character looks like the expected one, or is invisible"},
    {Rule::PrefixKey, "prefix-key", Severity::Error, "a longer word is read as the key that is its prefix"},
    {Rule::NoEquals, "no-equals", Severity::Error, "the value of a key without \"=\" is the whole line"},
    {Rule::UnknownKey, "unknown-key", Severity::Warning, "a line that begins with no key is ignored"},
    {Rule::UnknownMarker, "unknown-marker", Severity::Error, "a line with an unknown marker in brackets is ignored"},
    {Rule::StrayText, "stray-text", Severity::Warning, "a line that is neither a key nor a comment is ignored"},
    {Rule::MarkerTail, "marker-tail", Severity::Error, "text after a marker is ignored"},
    {Rule::NumberMalformed, "number-malformed", Severity::Error,
     "a value that is not a number below 2^32 in its base is read as 0"},
    {Rule::NumberTruncated, "number-truncated", Severity::Error,
     "a number that is too large for its field loses its high bits"},
    {Rule::VersionAmbiguous, "version-ambiguous", Severity::Warning,
     "a version is read without its dots, so 1.10 equals 11.0"},
    {Rule::ListTooLong, "list-too-long", Severity::Error,
     "items after the last one that the field can hold are ignored"},
    {Rule::ListTooShort, "list-too-short", Severity::Warning, "bytes that the list does not contain keep their values"},
    {Rule::EmptyItem, "empty-item", Severity::Error, "an empty item is read as 0 or as an empty text"},
    {Rule::CollapsedBlanks, "collapsed-blanks", Severity::Warning,
     "each run of white space in a text becomes one space"},
    {Rule::TrailingComment, "trailing-comment", Severity::Warning, "a comment after a value is part of the value"},
    {Rule::QuotedValue, "quoted-value", Severity::Warning, "quotation marks are part of the value"},
    {Rule::OutsideEntry, "outside-entry", Severity::Error,
     "a key between entries belongs to none, but the next entry may keep its value"},
    {Rule::SecondStart, "second-start", Severity::Error, "a start before the end of an entry discards that entry"},
    {Rule::EndWithoutStart, "end-without-start", Severity::Error,
     "an end without a start adds an entry with the values read before"},
    {Rule::UnendedEntry, "unended-entry", Severity::Error, "an entry without an end is ignored"},
    {Rule::AfterLastEnd, "after-last-end", Severity::Error, "keys after the last end are ignored"},
    {Rule::DuplicateKey, "duplicate-key", Severity::Error,
     "a second key in an entry replaces its value or adds to its list"},
    {Rule::CarriedOver, "carried-over", Severity::Warning, "the entry keeps a value of an earlier entry"},
    {Rule::NoTypeCode, "no-type-code", Severity::Error, "no lookup finds an entry without ObjID"},
    {Rule::ForeignCode, "foreign-code", Severity::Error, "a type code other than that of the file name is never found"},
    {Rule::DuplicateEntry, "duplicate-entry", Severity::Error, "a later entry of the same type code is never found"},
    {Rule::HidesLater, "hides-later", Severity::Error, "an entry that needs a newer host hides all later entries"},
    {Rule::NoServerFile, "no-server-file", Severity::Error, "a folder is not a component file"},
    {Rule::MissingComponent, "missing-component", Severity::Error,
     "without its component file a module cannot be created"},
    {Rule::NoModuleInfo, "no-module-info", Severity::Error,
     "without moduleInfo a module with channels cannot be created"},
    {Rule::NoChannels, "no-channels", Severity::Warning,
     "moduleInfo has no channels in the directions of the module type"},
    {Rule::ChannelCount, "channel-count", Severity::Error, "a channel count outside 0 to 255 does not fit the module"},
}};

constexpr bool isInOrderOfRule()
{
    for (std::size_t i = 0; i < ruleTable.size(); ++i) {
        if (ruleTable[i].rule != static_cast<Rule>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(isInOrderOfRule());

} // namespace

const LintRules &lintRules()
{
    return ruleTable;
}

const LintRule &lintRule(Rule rule)
{
    return ruleTable[static_cast<std::size_t>(rule)];
}

QString severityName(Severity severity)
{
    return severity == Severity::Error ? QStringLiteral("error") : QStringLiteral("warning");
}
