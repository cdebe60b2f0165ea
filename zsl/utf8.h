#pragma once

#include "framework/base/WinTypes.h"
#include "zsl/line_ends.h"

#include <string>
#include <string_view>

namespace zsl {

/// What bytes are when they are looked at as UTF-8. Strict: no overlong forms, no surrogates, nothing past U+10FFFF.
struct utf8_facts {
    bool valid;
    bool ascii;
    std::size_t units;  ///< 16-bit characters of the text; 0 when not valid
    line_ends ends;     ///< of a valid text
};
[[nodiscard]] utf8_facts look_at_utf8(std::string_view bytes) noexcept;

/// Writes the wide text of bytes that are known to be valid.
/// @param out has room for as many characters as there are bytes
/// @return the place behind the text
WCHAR* widen_utf8(std::string_view bytes, WCHAR* out) noexcept;
/// Appends it.
void append_wide_of_utf8(std::string_view bytes, WString& text);

/// Appends the bytes of a wide text. A lone surrogate becomes U+FFFD: UTF-8 has no form for it.
void append_utf8(WStrView text, std::string& bytes);

}  // namespace zsl
