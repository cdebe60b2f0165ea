#pragma once

#include <windows.h>

#include <string>

namespace scrivpad {

/// Writes what the screen shows of a window, its frame included, to a PNG file. Throws a Failure.
void SaveScreenshot(HWND window, const std::wstring& path);

}  // namespace scrivpad
