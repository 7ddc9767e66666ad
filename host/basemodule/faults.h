// Simulated failures, for the functions that simulatedhost::setFaults can make fail.
#pragma once

#include "simulatedbase.h"

bool callFails(simulatedhost::HostCall call);
