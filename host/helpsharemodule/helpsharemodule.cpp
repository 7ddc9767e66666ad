#include "simulatedhelp.h"

namespace {

struct HelpState {
    simulatedhost::Language language = simulatedhost::Language::English;
    simulatedhost::HelpListener listener;
    QString lastKeyword;
};

HelpState &state()
{
    static HelpState theState;
    return theState;
}

} // namespace

QString helpKeyWord(const QString &english, const QString &local)
{
    return state().language == simulatedhost::Language::English ? english : local;
}

void startHelpSys(const QString &keyword)
{
    state().lastKeyword = keyword;
    // A copy, because the listener may set another one while it runs.
    const simulatedhost::HelpListener listener = state().listener;
    if (listener) {
        listener(keyword);
    }
}

namespace simulatedhost {

void resetHelp()
{
    state() = {};
}

void setLanguage(Language language)
{
    state().language = language;
}

void setHelpListener(const HelpListener &listener)
{
    state().listener = listener;
}

QString lastHelpKeyword()
{
    return state().lastKeyword;
}

} // namespace simulatedhost
