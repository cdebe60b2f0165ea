#pragma once

#include <windows.h>

#include <cstdint>
#include <ostream>
#include <string>

/// What this process holds of the system, counted object by object.
///
/// GetGuiResources and GetProcessHandleCount tell nothing under Wine (they answer 0). But Wine, like old Windows, takes
/// the low word of a handle for the whole of it, so every number that a handle may have is asked in turn:
/// GetObjectType, IsWindow, IsMenu, GetIconInfo and GetHandleInformation tell which of them are in use. On a system
/// that counts by itself its own figures are taken.
struct Census {
    std::int64_t gdi = 0;         ///< pens, brushes, fonts, regions, bitmaps, contexts, ...
    std::int64_t windows = 0;     ///< of this process, with those of the system's own that serve it
    std::int64_t user = 0;        ///< menus, icons and cursors; all USER objects where the system tells
    std::int64_t handles = 0;     ///< files, events, threads, ...
    std::int64_t heapBlocks = 0;  ///< living blocks of the heap of malloc, where all blocks of the library are
    std::int64_t heapBytes = 0;   ///< the bytes in them
    std::int64_t systemBlocks = 0;  ///< living blocks of the process' other heaps, the system's own
    std::int64_t privateKb = 0;   ///< private bytes of the process, in KB

    /// All of it: some 0.3 s.
    [[nodiscard]] static Census Take();
    /// The memory alone: some milliseconds.
    [[nodiscard]] static Census TakeMemory();

    [[nodiscard]] static std::int64_t Gdi();
    [[nodiscard]] static std::int64_t Windows();
    [[nodiscard]] static std::int64_t User();
    [[nodiscard]] static std::int64_t Handles();

    friend Census operator-(const Census& a, const Census& b);
    friend void PrintTo(const Census& census, std::ostream* out);
};
