#pragma once

#include <string_view>

namespace scrivpad {

// Classifiers of one line, in the form that the control calls: each overwrites every character of `text` by a class
// code. `context` is not used.

/// C and C++. The preprocessor's own words are of user class 1.
void HighlightCpp(void* context, wchar_t* text, int insideComment) noexcept;

/// The small script language of the samples: Cyrillic words, its keywords in capitals, quotes doubled in strings.
/// Procedures of the language itself are of user class 2.
void HighlightSsl(void* context, wchar_t* text, int insideComment) noexcept;

using Highlighter = void (*)(void* context, wchar_t* text, int insideComment) noexcept;

/// @return the classifier for a file of that name, by its extension in any letter case; null for none
[[nodiscard]] Highlighter HighlighterOf(std::wstring_view path) noexcept;

}  // namespace scrivpad
