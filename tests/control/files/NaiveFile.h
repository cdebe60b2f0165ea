#pragma once

#include "tests/engine/HostileFiles.h"

#include <string>
#include <string_view>

// What the control has to make of a file, and a file of its text, told in the plainest way.

/// The text of 8-bit bytes by the system's own tables.
[[nodiscard]] std::wstring EightBitText(std::string_view bytes, int code);

/// The text as the control holds it: cut at line feeds and behind 512 characters, its last line feed gone.
[[nodiscard]] std::wstring AsLoaded(const std::wstring& text);

/// The lines of a loaded text, joined as they are saved. One empty line, which is told as a line feed, is nothing.
[[nodiscard]] std::wstring AsSaved(const std::wstring& text);

/// The bytes of a text in the encoding of a code, behind a mark and with CR LF if these are wanted.
[[nodiscard]] std::string FileOf(const std::wstring& text, int code, bool mark, bool crlf);
