// What the tools do when standard output cannot be written.
#pragma once

#include <cstdio>

/// Returns @p status, or 2 after an error message if a part of the output could not be written.
inline int statusAfterOutput(const char *program, int status)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return status;
    }
    std::fprintf(stderr, "%s: a part of the output could not be written\n", program);
    return 2;
}
