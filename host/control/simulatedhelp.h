// Control interface of the simulated host library helpsharemodule, for tests and the workbench. A real host library
// does not have it, so the plug-in must not use it. Call all functions on the user-interface thread.
#pragma once

#include "helpsharemodule.h"

#include <functional>

namespace simulatedhost {

/// The text that helpKeyWord returns: the English one or the local one.
enum class Language { English, Local };
using HelpListener = std::function<void(const QString &keyword)>;

/// Sets the language to English and discards the listener and the last keyword.
HELPSHAREMODULE_EXPORT void resetHelp();
HELPSHAREMODULE_EXPORT void setLanguage(Language language);
/// Calls @p listener with every keyword that startHelpSys receives. An empty function ends this.
HELPSHAREMODULE_EXPORT void setHelpListener(const HelpListener &listener);
/// Returns the keyword of the latest startHelpSys; a null string if there was none.
HELPSHAREMODULE_EXPORT QString lastHelpKeyword();

} // namespace simulatedhost
