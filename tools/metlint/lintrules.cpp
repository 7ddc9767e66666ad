#include "lintrules.h"

namespace {

constexpr LintRules rules{{
    {"file-name", Severity::Error, "the host looks up no file of this name"},
    {"no-entry", Severity::Error, "the file has no entry"},
    {"encoding", Severity::Error, "bytes that the encoding cannot read are replaced or dropped"},
    {"local-encoding", Severity::Warning, "text beyond ASCII without a byte-order mark depends on the machine"},
    {"control-character", Severity::Error, "a control character is taken as text"},
    {"line-break", Severity::Error, "what looks like the end of a line does not end it"},
    {"leading-blank", Severity::Error, "blanks before a key or a marker hide it"},
    {"look-alike", Severity::Error, "characters that only look like the expected ones, or cannot be seen"},
    {"prefix-key", Severity::Error, "a longer word is read as the key with which it begins"},
    {"no-equals", Severity::Error, "a key without \"=\" takes its whole line as the value"},
    {"unknown-key", Severity::Warning, "no key begins the line, it is ignored"},
    {"unknown-marker", Severity::Error, "the brackets hold no known marker, the line is ignored"},
    {"stray-text", Severity::Warning, "neither a key nor a comment, the line is ignored"},
    {"marker-tail", Severity::Error, "text behind a marker is dropped"},
    {"number-malformed", Severity::Error, "what is no number below 2^32 in its base reads as 0"},
    {"number-truncated", Severity::Error, "a number that is too large for its field loses its high bits"},
    {"version-ambiguous", Severity::Warning, "a version reads without its dots, so that 1.10 equals 11.0"},
    {"list-too-long", Severity::Error, "items behind the last that the field holds are ignored"},
    {"list-too-short", Severity::Warning, "bytes that the list does not give keep the value from before"},
    {"empty-item", Severity::Error, "an empty item counts: as 0 among numbers, as empty text among texts"},
    {"collapsed-blanks", Severity::Warning, "several blanks, or tabs, in a text become one blank"},
    {"trailing-comment", Severity::Warning, "a comment behind a value is part of the value"},
    {"quoted-value", Severity::Warning, "quotation marks are part of the value"},
    {"outside-entry", Severity::Error, "a key between entries belongs to none, but may leak into the next"},
    {"second-start", Severity::Error, "a start before the end of an entry discards that entry"},
    {"end-without-start", Severity::Error, "an end without a start adds an entry out of what was read before"},
    {"unended-entry", Severity::Error, "an entry that is never ended is dropped"},
    {"after-last-end", Severity::Error, "keys behind the last end are dropped"},
    {"duplicate-key", Severity::Error, "a key that stands twice in an entry replaces its value or adds to its list"},
    {"carried-over", Severity::Warning, "a value of the entry before stays in force"},
    {"no-type-code", Severity::Error, "no look-up finds an entry without ObjID"},
    {"foreign-code", Severity::Error, "a type code other than that of the file's name is never found"},
    {"duplicate-entry", Severity::Error, "a later entry of the same type code is never chosen"},
    {"hides-later", Severity::Error, "an entry that needs a newer host hides the entries behind it"},
    {"no-server-file", Severity::Error, "a folder is not a component file"},
    {"missing-component", Severity::Error, "without its component file a module cannot be created"},
    {"no-module-info", Severity::Error, "without moduleInfo a module with channels cannot be created"},
    {"no-channels", Severity::Warning, "moduleInfo gives no channel of the directions that the module type has"},
    {"channel-count", Severity::Error, "a channel count outside 0 to 255 does not fit the module"},
}};

} // namespace

const LintRules &lintRules()
{
    return rules;
}

const LintRule &lintRule(Rule rule)
{
    return rules[static_cast<std::size_t>(rule)];
}

QString severityName(Severity severity)
{
    return severity == Severity::Error ? QStringLiteral("error") : QStringLiteral("warning");
}
