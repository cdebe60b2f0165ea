#pragma once

#include "zsl/text_pieces.h"

namespace zsl {

/// The bytes of a file as text, with plain line feeds where the file has nothing but CR LF, and the encoding that they
/// were found to be in.
struct decoded_text {
    WString text;
    text_encoding encoding;
};

/// Finds out how the bytes of a whole file are encoded and decodes them without loss, as `text_pieces` does.
/// @param limit the most characters, each CR of a line end counted
/// @return nothing when the bytes cannot be shown as text
[[nodiscard]] std::optional<decoded_text> decode_text(std::string_view bytes, const text_encoding& asked,
                                                      std::size_t limit = maxTextLength);

}  // namespace zsl
