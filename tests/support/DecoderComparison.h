#pragma once

#include "zsl/text_encoding.h"

#include <string>
#include <string_view>

/// Reads the bytes of a file with the fast reader and with the plain one, and makes the file again from the text.
/// @return what differs; empty when nothing does
[[nodiscard]] std::string DecoderDifference(std::string_view bytes, const zsl::text_encoding& asked);

/// The number of an encoding as the plain reader takes it: that of its character set, 256 for the default encoding.
[[nodiscard]] unsigned NumberOf(const zsl::text_encoding& encoding);
