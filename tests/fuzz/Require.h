#pragma once

#include <cstdio>
#include <cstdlib>

/// What has to hold for any input; where it does not, the fuzzer keeps the input.
inline void Require(bool holds, int line = __builtin_LINE())
{
    if (holds)
        return;
    std::fprintf(stderr, "line %d of the target does not hold\n", line);
    std::abort();
}
