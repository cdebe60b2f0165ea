#pragma once

#include <string>

/// C-like text of about `characters` characters, 33 to a line with the line feed, a third of the words in its comments
/// Cyrillic. The same at every call. Drawn with ClassifySample a line has about ten runs.
[[nodiscard]] std::wstring SampleText(std::size_t characters);

/// The highlight hook of the benchmarks: words, numbers, strings and symbols, as a host for C would tell them.
void ClassifySample(void* ctx, wchar_t* text, int insideComment);
