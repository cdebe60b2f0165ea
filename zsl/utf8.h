#pragma once

#include "framework/base/WinTypes.h"

#include <string>
#include <string_view>

namespace zsl {

/// What bytes are when they are looked at as UTF-8. Strict: no overlong forms, no surrogates, nothing past U+10FFFF.
struct utf8_facts {
    bool valid;
    bool ascii;
    std::size_t units;  ///< 16-bit characters of the text; 0 when not valid
};
[[nodiscard]] utf8_facts look_at_utf8(std::string_view bytes) noexcept;

/// The longest beginning of a valid text that has at most `most` bytes and cuts no character; `most` at least 4.
[[nodiscard]] std::size_t whole_utf8(std::string_view bytes, std::size_t most) noexcept;

/// Appends the wide text of bytes that are known to be valid.
void append_wide_of_utf8(std::string_view bytes, WString& text);

/// Appends the bytes of a wide text. A lone surrogate becomes U+FFFD: UTF-8 has no form for it.
void append_utf8(WStrView text, std::string& bytes);

}  // namespace zsl
