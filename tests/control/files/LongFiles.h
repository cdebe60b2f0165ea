#pragma once

#include <span>
#include <string>

/// A file that is too long to stand in a table: hostile by its size, or by what stands where pieces of it meet.
struct LongFile {
    const char* name;
    std::string (*make)();
    int found = 0;  ///< the code that is told back when the default is asked for
    bool mark = false;
    bool crlf = false;
};
[[nodiscard]] std::span<const LongFile> LongFiles();
