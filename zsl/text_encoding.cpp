#include "zsl/text_encoding.h"

#include "zsl/code_page.h"
#include "zsl/text_encoder.h"

#include <algorithm>
#include <iterator>

namespace zsl {
namespace {

// The order is that of the codes: row n is code n.
constexpr text_encoding codes[] = {
    text_encoding(text_encoding::defaultValue), text_encoding(E_CharSet::ansi),    text_encoding(E_CharSet::utf8),
    text_encoding(E_CharSet::oem),              text_encoding(E_CharSet::utf16le), text_encoding(E_CharSet::utf16be),
};

}  // namespace

text_encoding encoding_of_code(std::uint32_t code) noexcept
{
    return code < std::size(codes) ? codes[code] : text_encoding(0u);
}

std::uint32_t code_of_encoding(const text_encoding& encoding) noexcept
{
    if (encoding.is_default())
        return 0;
    const auto* row = std::find_if(std::begin(codes) + 1, std::end(codes), [&](const text_encoding& candidate) {
        return candidate.charset() == encoding.charset();
    });
    return row == std::end(codes) ? 0 : static_cast<std::uint32_t>(row - codes);
}

void wide_to_char(const WCHAR* text, std::string& out, const text_encoding& encoding)
{
    out.clear();
    if (!text)
        return;
    const E_CharSet charset = encoding.stored_as();
    if (append_encoded(text, charset, out))
        return;
    // Only an 8-bit set can refuse. The system then puts '?' where it has to.
    out.clear();
    if (!PlatformToBytes(code_page_of(charset), text, true, out))
        out.clear();
}

}  // namespace zsl
