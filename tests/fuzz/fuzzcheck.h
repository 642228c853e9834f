#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the run, and makes the input a find, where `condition` does not hold.
inline void check(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
