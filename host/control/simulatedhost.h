// Control interface of both simulated host libraries.
#pragma once

#include "simulatedbase.h"
#include "simulatedhelp.h"

namespace simulatedhost {

/// Restores the state that both libraries have after loading.
inline void reset()
{
    resetBase();
    resetHelp();
}

} // namespace simulatedhost
