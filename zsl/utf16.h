#pragma once

#include "framework/base/WinTypes.h"
#include "zsl/text_encoding.h"

#include <string>
#include <string_view>

namespace zsl {

enum class byte_order { little, big };
[[nodiscard]] constexpr byte_order byte_order_of(E_CharSet charset) noexcept
{
    return charset == E_CharSet::utf16be ? byte_order::big : byte_order::little;
}

// Lone surrogates go through both as they are.

/// Appends the text of an even number of bytes.
void append_wide_of_utf16(std::string_view bytes, byte_order order, WString& text);
void append_utf16(WStrView text, byte_order order, std::string& bytes);

}  // namespace zsl
