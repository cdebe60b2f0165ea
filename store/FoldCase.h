#pragma once

#include "framework/base/CString.h"

/// A unit in lower case as the system's own conversion has it, from a table that is filled once.
[[nodiscard]] WCHAR FoldCase(WCHAR ch) noexcept;
/// The same for a text.
[[nodiscard]] CString FoldCase(const CString& text);
/// The bits that all units with this lower case have alike.
[[nodiscard]] WCHAR BitsOfAllCases(WCHAR lower) noexcept;
/// What FoldCase answers for each of the 65536 units.
[[nodiscard]] WStrView FoldTable() noexcept;
