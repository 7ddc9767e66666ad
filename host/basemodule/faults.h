// What simulatedhost::setFaults asked for, for the functions that are to fail.
#pragma once

#include "simulatedbase.h"

bool callFails(simulatedhost::HostCall call);
