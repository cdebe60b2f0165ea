#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// The text of a control with marks: '|' is the caret, '[' and ']' stand around the selected characters.

/// Loads a marked text and puts caret and selection there. The caret stands at an end of the selection; without a mark it
/// is behind the selection, or at the start. Shows nothing and takes no focus.
void GivenMarked(HWND control, std::wstring_view marked);
/// The state of a control as the exports tell it. A selected line break is shown by a ']' at the start of the next line.
[[nodiscard]] std::wstring Marked(HWND control);
