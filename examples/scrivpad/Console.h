#pragma once

#include <string_view>

namespace scrivpad {

/// Writes text to where the starter of the program reads its errors or its output, in UTF-8 unless it is a console.
/// A program with windows has neither by itself when started from the desktop; the text is dropped then.
void WriteError(std::wstring_view text);
void WriteOutput(std::wstring_view text);

}  // namespace scrivpad
