// Control interface of both simulated host libraries.
#pragma once

#include "simulatedbase.h"
#include "simulatedhelp.h"

namespace simulatedhost {

/// Puts both libraries back into the state in which they were loaded.
inline void reset()
{
    resetBase();
    resetHelp();
}

} // namespace simulatedhost
