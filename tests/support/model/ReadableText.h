#pragma once

#include "framework/base/WinTypes.h"

#include <string>

/// A text in ASCII, in quotes and on one line: a line feed as \n, what is not ASCII as \xHHHH, a unit that repeats often
/// with its count in braces.
[[nodiscard]] std::string ReadableText(const WString& text);
