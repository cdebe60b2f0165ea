#pragma once

#include "zsl/text_encoding.h"

#include <string_view>

namespace zsl {

/// The byte order mark of a character set; empty for one that has none.
[[nodiscard]] std::string_view mark_of(E_CharSet charset) noexcept;

/// The character set whose mark the bytes begin with; `none` when there is no mark.
[[nodiscard]] E_CharSet charset_of_mark(std::string_view bytes) noexcept;

}  // namespace zsl
