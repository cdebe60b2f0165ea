#pragma once

#include "framework/base/CString.h"

#include <span>

// What the engine asks of the system. Plain functions chosen at link time: framework/win answers with the system
// itself, tests/support with something that is the same on every machine. A function that can fail says how.

/// Pages for string blocks, aligned to 64 KB; what they hold at first is not defined.
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

/// A keyboard layout, as the system names it.
using xTKeyLayout = std::uintptr_t;

[[nodiscard]] xTKeyLayout PlatformKeyLayout() noexcept;

/// Makes the next of the installed layouts the one the user types on.
void PlatformNextKeyLayout() noexcept;

/// The key that types `ch` on a layout.
/// @return the virtual key in the low byte, the shift state in the high byte (1 Shift, 2 Control, 4 Alt); 0xFFFF when
///         no key types it
[[nodiscard]] std::uint16_t PlatformKeyScan(WCHAR ch, xTKeyLayout layout) noexcept;

/// @return the scan code of a virtual key on a layout, 0 when it has none
[[nodiscard]] unsigned PlatformScanCode(unsigned key, xTKeyLayout layout) noexcept;

/// What a key types on a layout while the keys of `state` are down (a byte for each virtual key, 0x80 set: down).
/// @return the number of characters put into `text`; below 0 for a dead key, 0 when the key types nothing
[[nodiscard]] int PlatformKeyText(unsigned key, unsigned scanCode, std::span<const BYTE, 256> state, xTKeyLayout layout,
                                  std::span<WCHAR, 2> text) noexcept;

/// The clipboard formats that hold text.
enum : unsigned { clipboardBytes = 1, clipboardWide = 13 };

/// One try to open the clipboard.
/// @param owner may be null
/// @return false when another program holds it
[[nodiscard]] bool PlatformOpenClipboard(HWND owner) noexcept;
void PlatformCloseClipboard() noexcept;

/// The format that the open clipboard lists behind `format`; 0 asks for the first and is the answer behind the last.
[[nodiscard]] unsigned PlatformNextClipboardFormat(unsigned format) noexcept;

/// Reads a text of the open clipboard as it stands, carriage returns included, up to its terminator.
/// @param format clipboardBytes (text of the ANSI code page) or clipboardWide
/// @return false when there is no such text
[[nodiscard]] bool PlatformReadClipboard(unsigned format, CString& text);

/// Makes `text` all that the open clipboard holds, as clipboardWide. Where there is no memory for it the clipboard
/// keeps what it holds.
void PlatformWriteClipboard(WStrView text) noexcept;

/// Stops this thread for a while.
void PlatformSleep(unsigned milliseconds) noexcept;

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

/// The framework's own message box: it belongs to the top-level window that `from` stands in, and bears the name of the
/// host's program. @param from may be null
void PlatformNotice(HWND from, const WCHAR* text, xTBoxIcon icon) noexcept;

/// A text of the user interface by its number in the string table; empty when there is none.
[[nodiscard]] CString PlatformString(unsigned id);

/// The full path of the host's executable, cut to `room` characters with the terminator.
/// @return its length; 0 when the system does not tell
[[nodiscard]] std::int32_t PlatformExecutablePath(WCHAR* path, std::int32_t room) noexcept;

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

/// Appends 8-bit text to a file, others being free to read and write it meanwhile; makes the file when there is none.
/// Each line feed becomes the system's own line end. It asks for no memory, so that its lack can be put on record.
/// @param path zero-terminated; it goes through the ANSI code page, so what has no place there cannot be opened
/// @return false when the file cannot be written, with no other sign
bool PlatformAppendText(const WCHAR* path, std::string_view text) noexcept;
