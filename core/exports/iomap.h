// One image range of a module, as it crosses the plug-in's boundary.
#pragma once

#include <QtGlobal>

/// The field order and the compiler's padding are part of the binary interface.
struct IoMap {
    quint8 area = 0;   ///< VarArea code; 0 = no range
    quint16 start = 0; ///< first byte address in the area
    quint8 count = 0;  ///< channels (points of a digital module)
    quint8 flag = 1;   ///< carried along for the host
    quint8 unit = 1;   ///< bytes per channel; 0 = one bit per channel
};
