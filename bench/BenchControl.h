#pragma once

#include "bench/Floors.h"

#include <string>

// What the benchmarks of a live control share.

constexpr SIZE clientSize{1000, pageRows * 15 + 4};

struct Size {
    const char* name;
    std::size_t characters;
};

/// One row: the figure in nanoseconds, the floor it stands on, and the most it may be as a multiple; 0: no goal.
void Row(const char* size, const char* what, double ns, const char* floorName, double floor, double goal);

/// A shown control in focus, with a client area of `clientSize`.
[[nodiscard]] HWND MakeControl();

/// Typing and the keys that move the caret.
void BenchKeys(const Size& size, const Floors& floors, const std::wstring& text);
