#pragma once

#include "framework/base/CArray.h"
#include "store/MyStr.h"

#include <span>

/// Passes over the lines that cannot hold a text, told by its two ends alone; one by one they cost a search most of its
/// time. `firsts` and `lasts` hold 1 to `mostEndUnits` units.
/// @param line, stop from the one to before the other, upwards when `stop` lies above; all lines between exist
/// @return the first line that has one of `firsts` and, `distance` units behind it, one of `lasts`, or `stop`
[[nodiscard]] std::int32_t NextLineWithEnds(const CArray<xTExtString>& lines, std::int32_t line, std::int32_t stop,
                                            std::span<const WCHAR> firsts, std::span<const WCHAR> lasts,
                                            std::size_t distance);
