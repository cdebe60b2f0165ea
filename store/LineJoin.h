#pragma once

#include "framework/base/CArray.h"
#include "store/MyStr.h"

// Lines as one text, a line feed behind each of them.

/// @param first, stop from the one to before the other; all lines between exist
/// @return the characters of the lines and their line feeds
[[nodiscard]] std::int64_t JoinedLength(const CArray<xTExtString>& lines, std::int32_t first, std::int32_t stop);

/// Writes them. Whatever `JoinedLength` tells is the room that `to` has to have.
/// @return the place behind the last line feed
WCHAR* JoinLines(const CArray<xTExtString>& lines, std::int32_t first, std::int32_t stop, WCHAR* to);
