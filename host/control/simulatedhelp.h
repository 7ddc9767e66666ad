// Control interface of the simulated host library helpsharemodule, for tests and the workbench. A real host
// library has nothing of the kind, so the plug-in must not use it. User-interface thread only.
#pragma once

#include "helpsharemodule.h"

#include <functional>

namespace simulatedhost {

/// English picks the English text of helpKeyWord, Local the other one.
enum class Language { English, Local };
using HelpListener = std::function<void(const QString &keyword)>;

/// Back to English, without a listener and without a last keyword.
HELPSHAREMODULE_EXPORT void resetHelp();
HELPSHAREMODULE_EXPORT void setLanguage(Language language);
/// @p listener is called with every keyword that startHelpSys receives; an empty one ends that.
HELPSHAREMODULE_EXPORT void setHelpListener(const HelpListener &listener);
/// The keyword of the latest startHelpSys; a null string when there was none.
HELPSHAREMODULE_EXPORT QString lastHelpKeyword();

} // namespace simulatedhost
