// The host library basemodule as one header.
#pragma once

#include "baseservices.h"
#include "basewidgets.h"
