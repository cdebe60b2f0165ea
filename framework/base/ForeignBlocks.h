#pragma once

#include "framework/base/WinTypes.h"

#include <string_view>

// Texts in blocks of memory that another program has filled, on the clipboard or in a drag. Whatever stands in a block,
// nothing outside of it is looked at.

/// The characters up to the terminator, or to the end of the block where it has been left out. Half a character at the
/// end does not count. @param block aligned for WCHAR; may be null with no bytes
[[nodiscard]] WStrView WideTextOfBlock(const void* block, std::size_t bytes) noexcept;
/// The same of 8-bit text.
[[nodiscard]] std::string_view ByteTextOfBlock(const void* block, std::size_t bytes) noexcept;

/// How the head of a list of dropped files (CF_HDROP) lies in its block.
struct xTFileListHead {
    DWORD names;  ///< where the names begin, in bytes from the start of the block
    std::int32_t x, y;
    std::int32_t nonClient;
    std::int32_t wide;  ///< 0: the names are 8-bit text
};

/// True when a list of dropped files ends within its block, which the system does not ask when it reads the list.
[[nodiscard]] bool IsWholeFileList(const void* block, std::size_t bytes) noexcept;
