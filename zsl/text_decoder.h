#pragma once

#include "zsl/text_encoding.h"

#include <optional>
#include <string_view>

namespace zsl {

/// A text of more characters than this is not read.
inline constexpr std::size_t maxTextLength = std::size_t{1} << 30;

/// The bytes of a file as text, with plain line feeds where the file has nothing but CR LF, and the encoding that they
/// were found to be in.
struct decoded_text {
    WString text;
    text_encoding encoding;
};

/// Finds out how the bytes of a whole file are encoded and decodes them without loss. A byte order mark decides; else
/// UTF-16 if `asked` is that; else what is valid UTF-8 is UTF-8, plain ASCII counting as `asked`; else they are in the
/// 8-bit set that was asked for, or in ANSI. A UTF-8 mark before something else than UTF-8 is not a mark.
/// @param limit the most characters, each CR of a line end counted
/// @return nothing when the bytes cannot be shown as text: a zero character, UTF-16 of an odd number of bytes, bytes
///         that the code page does not know, more characters than `limit`
[[nodiscard]] std::optional<decoded_text> decode_text(std::string_view bytes, const text_encoding& asked,
                                                      std::size_t limit = maxTextLength);

}  // namespace zsl
