#pragma once

#include "framework/base/WinTypes.h"

#include <span>

// Searches over stored characters, sixteen at a time where the machine allows it. None reads a character outside the
// text it is given, the terminator excepted where it says so.

/// What one pass over a text tells before it is cut into lines.
struct xTTextFacts {
    std::size_t length = 0;    ///< in characters, without the terminator
    std::int64_t lines = 0;    ///< how many lines cutting gives
    bool hasTab = false;
    bool hasStar = false;      ///< without one there is no block comment
};

/// Reads a zero-terminated text once.
/// @param limit the most characters a line may hold, above 0; a longer run counts as several lines
[[nodiscard]] xTTextFacts SurveyText(const WCHAR* text, std::size_t limit) noexcept;

/// @return the index of the first `ch` at or behind `from`, the text's length when there is none
[[nodiscard]] std::size_t FindUnit(WStrView text, WCHAR ch, std::size_t from) noexcept;

/// @return the index of the first unit at or behind `from` that is one of `wanted`, the text's length when there is none
[[nodiscard]] std::size_t FindAnyUnit(WStrView text, std::span<const WCHAR> wanted, std::size_t from) noexcept;

/// @return how many times `ch` stands in the text
[[nodiscard]] std::size_t CountUnit(WStrView text, WCHAR ch) noexcept;

/// @return the index of the first `a` with `b` right behind it, at or behind `from` (below 0 counts as 0), or -1
[[nodiscard]] std::int32_t FindPair(WStrView text, WCHAR a, WCHAR b, std::int32_t from) noexcept;

/// True when each unit equals `word`; an empty text has only equals.
[[nodiscard]] bool AllUnitsAre(WStrView text, WCHAR word) noexcept;

/// True when some unit is not above `limit`.
[[nodiscard]] bool AnyUnitUpTo(WStrView text, WCHAR limit) noexcept;

/// True when some unit has one of the bits of `bits`.
[[nodiscard]] bool AnyUnitHas(WStrView text, WCHAR bits) noexcept;
