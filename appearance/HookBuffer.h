#pragma once

#include "framework/base/WinTypes.h"

/// The text that a host's hook works on: a copy of the line with a terminator, with thousands of characters of slack
/// before and behind it, on pages that hold nothing else. A hook that writes past the line touches nothing of ours.
class xTHookBuffer {
public:
    xTHookBuffer() noexcept = default;
    xTHookBuffer(xTHookBuffer&& other) noexcept;
    xTHookBuffer& operator=(xTHookBuffer&& other) noexcept;
    ~xTHookBuffer();

    /// Puts the text and its terminator into the buffer, which grows as it must. Raises std::bad_alloc.
    /// @return the place of the text, good until the next call
    WCHAR* Fill(WStrView text);

private:
    void* m_pages = nullptr;
    std::size_t m_bytes = 0;
};
