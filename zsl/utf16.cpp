#include "zsl/utf16.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace zsl {
namespace {

constexpr std::size_t room = 4096;  // characters turned at once

void turn(WCHAR (&piece)[room]) noexcept
{
    for (WCHAR& ch : piece)
        ch = static_cast<WCHAR>(static_cast<unsigned>(ch) << 8 | static_cast<unsigned>(ch) >> 8);
}

constexpr bool foreign(byte_order order) noexcept
{
    return (order == byte_order::big) != (std::endian::native == std::endian::big);
}

}  // namespace

void append_wide_of_utf16(std::string_view bytes, byte_order order, WString& text)
{
    WCHAR piece[room]{};
    while (bytes.size() >= 2) {
        const std::size_t count = std::min(bytes.size() / 2, room);
        std::memcpy(piece, bytes.data(), count * 2);
        if (foreign(order))
            turn(piece);
        text.append(piece, count);
        bytes.remove_prefix(count * 2);
    }
}

void append_utf16(WStrView text, byte_order order, std::string& bytes)
{
    WCHAR piece[room]{};
    while (!text.empty()) {
        const std::size_t count = std::min(text.size(), room);
        std::memcpy(piece, text.data(), count * 2);
        if (foreign(order))
            turn(piece);
        bytes.append(reinterpret_cast<const char*>(piece), count * 2);
        text.remove_prefix(count);
    }
}

}  // namespace zsl
