#include "lintrules.h"

const std::vector<LintRule> &lintRules()
{
    static const std::vector<LintRule> rules{
#define RULE(name, id, severity, description) {id, Severity::severity, description},
#include "lintrules.inc"
#undef RULE
    };
    return rules;
}

const LintRule &lintRule(Rule rule)
{
    return lintRules()[static_cast<std::size_t>(rule)];
}

QString severityName(Severity severity)
{
    return severity == Severity::Error ? QStringLiteral("error") : QStringLiteral("warning");
}
