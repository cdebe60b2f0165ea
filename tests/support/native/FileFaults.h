#pragma once

#include <cstdint>

/// What goes wrong with the files of the native build, for tests. All of it is off at first; `FileFaults() = {}` turns
/// it off again.
struct xTFileFaults {
    int failCall = 0;         ///< the call of that number fails, from 1; a write then writes half of its bytes first
    bool failRest = false;    ///< and so do all calls behind it, as if the machine had stopped
    bool targetGone = false;  ///< a replacement that fails takes the target away first
    std::int64_t room = -1;   ///< bytes by which files may still grow; below 0 there is no limit
    int calls = 0;            ///< so many calls were made
};
[[nodiscard]] xTFileFaults& FileFaults() noexcept;
