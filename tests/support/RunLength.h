#pragma once

#include <cstdint>
#include <cstdlib>

/// SCRIV_FULL=1: the long runs as well.
[[nodiscard]] inline bool IsFullRun()
{
    const char* const full = std::getenv("SCRIV_FULL");
    return full && *full == '1';
}

/// How far a test goes whose length is a matter of time.
/// @param variable  of the environment; what it says counts before anything else, where it is a number above 0
/// @return `slice`, in a full run `full`
[[nodiscard]] inline std::int64_t RunLength(const char* variable, std::int64_t slice, std::int64_t full)
{
    const char* const given = std::getenv(variable);
    const std::int64_t number = given ? std::strtoll(given, nullptr, 10) : 0;
    return number > 0 ? number : IsFullRun() ? full : slice;
}
