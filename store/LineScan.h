#pragma once

#include "framework/base/CArray.h"
#include "store/MyStr.h"
#include "store/Needle.h"
#include "store/Positions.h"

/// Passes over the lines that do not hold a text. Lines whose characters stand one behind the other in memory, as a load
/// leaves them, are looked through as one text.
/// @param line, stop from the one to before the other, upwards when `stop` lies above; all lines between exist
/// @return the first match in the first line on this way that has one, or column -1 of `stop`
[[nodiscard]] xTPos NextMatch(const CArray<xTExtString>& lines, std::int32_t line, std::int32_t stop,
                              const xTNeedle& needle);
