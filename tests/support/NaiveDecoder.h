#pragma once

#include "framework/base/WinTypes.h"

#include <optional>
#include <string>
#include <string_view>

/// How a file reads, found out byte by byte in the plainest way: the measure for the reader that is fast.
struct xTNaiveText {
    WString text;
    unsigned charset = 0;   ///< the number of the character set found; that of the default encoding is 256
    bool mark = false;
    bool crlf = false;
};

/// @param asked a character set number, 256 for the default encoding @return nothing for a file that is refused
[[nodiscard]] std::optional<xTNaiveText> NaiveDecode(std::string_view bytes, unsigned asked);
