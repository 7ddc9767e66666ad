// The rules of the description linter: one for each case in which the reader ignores or changes the content of a
// description file without a message.
#pragma once

#include <QString>

#include <vector>

enum class Severity { Warning, Error };

enum class Rule {
#define RULE(name, id, severity, description) name,
#include "lintrules.inc"
#undef RULE
};

struct LintRule {
    const char *id;
    Severity severity;
    const char *description; ///< one line, in English
};

/// Returns all rules in the order of the enumerators.
const std::vector<LintRule> &lintRules();

const LintRule &lintRule(Rule rule);

/// Returns "error" or "warning".
QString severityName(Severity severity);
