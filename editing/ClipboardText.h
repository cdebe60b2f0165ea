#pragma once

#include "framework/base/CString.h"

// Text from and for the clipboard. Inside the editor a line break is one line feed, on the clipboard it has a carriage
// return before it.

/// Opens the clipboard: ten tries, 50 ms behind each that fails, since another program may be holding it.
/// Raises std::runtime_error when it stays closed. @param owner may be null
void open_clipboard(HWND owner);

/// Reads the text of the open clipboard, in the text format that it lists first; every carriage return is dropped.
/// @return false when it holds no text; `text` is empty then
[[nodiscard]] bool read_clipboard(CString& text);

/// Opens the clipboard to see whether it holds text. Raises as open_clipboard does.
[[nodiscard]] bool can_paste(HWND owner);

/// Removes every carriage return, wherever it stands.
void strip_cr(CString& text);

/// Puts a carriage return ahead of each line feed.
void to_crlf(CString& text);
