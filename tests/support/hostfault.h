// A failure of the simulated host.
#pragma once

#include "simulatedbase.h"

/// One call of the given kinds fails: the call with the number @c first, or this one and all later ones.
struct Fault {
    int kinds; ///< a bit for each HostCall
    bool lasts;
    int first = 1;
    int calls = 0;
    bool refusesRange = false; ///< getMemory has failed

    bool strikes(simulatedhost::HostCall call)
    {
        const bool counts = ((kinds >> int(call)) & 1) != 0;
        calls += int(counts);
        const bool fails = counts && (lasts ? calls >= first : calls == first);
        refusesRange = refusesRange || (fails && call == simulatedhost::HostCall::TakeMemory);
        return fails;
    }
};

/// Calls @p run with faults at all numbers at which they strike, single ones and lasting ones of each kind and of any.
/// A single failure of one kind is a single failure of any kind, too, so it needs no series.
template <typename Run>
void forEachFault(Run &&run)
{
    for (Fault fault : {Fault{31, false}, {31, true}, {1, true}, {2, true}, {4, true}, {8, true}, {16, true}}) {
        for (; fault.calls >= fault.first - 1; ++fault.first) { // until the fault does not strike
            fault.calls = 0;
            fault.refusesRange = false;
            run(fault);
            if (fault.first == 30) {
                qFatal("the calls of the host do not end");
            }
        }
    }
}
