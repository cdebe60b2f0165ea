#pragma once

#include "framework/base/WinTypes.h"

/// C-like text of about `characters` characters, 33 to a line with the line feed, with no block comment in it. The same
/// at every call.
[[nodiscard]] WString EngineText(std::size_t characters);

/// The word that stands once in every third line of it, and in no other place.
inline constexpr WStrView frequentWord = _T("counter");
