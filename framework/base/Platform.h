#pragma once

#include "framework/base/CString.h"

// What the engine asks of the system. Plain functions chosen at link time: framework/win answers with the system
// itself, tests/support with something that is the same on every machine. A function that can fail says how.

/// Zeroed pages for string blocks, aligned to 64 KB.
/// @param bytes a multiple of 64 KB
/// Raises std::bad_alloc when there are none.
[[nodiscard]] void* PlatformAllocPages(std::size_t bytes);
void PlatformFreePages(void* pages, std::size_t bytes) noexcept;

/// Puts a buffer into lower or upper case in place, each unit by itself, as the system's own conversion does.
void PlatformLowerCase(WCHAR* text, std::int32_t length) noexcept;
void PlatformUpperCase(WCHAR* text, std::int32_t length) noexcept;

/// True when the key was down at the last message taken from the queue.
/// @param key a virtual key code, such as 0x10 for Shift
[[nodiscard]] bool PlatformKeyDown(int key) noexcept;

/// The code pages of the 8-bit encodings.
enum class xTCodePage { ansi, oem };

/// Converts 8-bit text to wide text, one character a byte where the code page is a single-byte one.
/// @return false when the bytes are no text of that code page
[[nodiscard]] bool PlatformToWide(xTCodePage page, std::string_view bytes, WString& text);

/// Converts wide text to 8-bit text.
/// @return false when a character has no place in that code page; with `lossy` it becomes '?' instead
[[nodiscard]] bool PlatformToBytes(xTCodePage page, WStrView text, bool lossy, std::string& bytes);

/// How a message box looks; the values are the system's own.
enum class xTBoxIcon : unsigned { none = 0, error = 0x10, information = 0x40 };

/// A modal message box with an OK button and no owner.
void PlatformMessageBox(const WCHAR* text, const WCHAR* caption, xTBoxIcon icon) noexcept;

/// A text of the user interface by its number in the string table; empty when there is none.
[[nodiscard]] CString PlatformString(unsigned id);

/// The full path of the host's executable; empty when the system does not tell.
[[nodiscard]] WString PlatformExecutablePath();

/// Dots per inch of the screen.
struct xTResolution {
    int x;
    int y;
};
[[nodiscard]] xTResolution PlatformScreenResolution() noexcept;

/// Local time, the month from 1.
struct xTLocalTime {
    int day, month, year, hour, minute, second, millisecond;
};
[[nodiscard]] xTLocalTime PlatformLocalTime() noexcept;

/// Appends bytes to a file, others being free to read and write it meanwhile; makes the file when there is none.
/// @return false when that cannot be done, with no other sign
bool PlatformAppendToFile(const WString& path, std::string_view bytes) noexcept;
