#pragma once

#include "zsl/text_encoding.h"

namespace zsl {

/// Appends the bytes of a text as they stand in a file of that character set, without a mark and with the line ends
/// as they are. A lone surrogate becomes U+FFFD in UTF-8 and stays one in UTF-16.
/// @return false when a character has no place in the character set; `bytes` is then of no use
[[nodiscard]] bool append_encoded(WStrView text, E_CharSet storedAs, std::string& bytes);

}  // namespace zsl
