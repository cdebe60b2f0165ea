#pragma once

#include "framework/base/Platform.h"
#include "zsl/text_encoding.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zsl {

/// The code page of an 8-bit character set; ANSI for any other.
[[nodiscard]] constexpr xTCodePage code_page_of(E_CharSet charset) noexcept
{
    return charset == E_CharSet::oem ? xTCodePage::oem : xTCodePage::ansi;
}

/// One of the two 8-bit code pages of the system. Nothing goes through it that would not come back the same: neither a
/// byte that the page does not know, nor a character that it only has something similar for.
///
/// A page of single bytes is asked of the system once and is two tables from then on.
class code_page {
public:
    [[nodiscard]] static const code_page& of(xTCodePage page);

    /// The longest beginning of the bytes, about `most` long, that ends between two characters.
    [[nodiscard]] std::size_t whole(std::string_view bytes, std::size_t most) const noexcept;
    /// Appends the wide text of the bytes. @return false when they are no text of this page
    [[nodiscard]] bool append_wide(std::string_view bytes, WString& text) const;
    /// Appends the bytes of a text. @return false when a character has no place in this page
    [[nodiscard]] bool append_bytes(WStrView text, std::string& bytes) const;

private:
    explicit code_page(xTCodePage page);
    [[nodiscard]] bool fill_tables();
    [[nodiscard]] bool system_append_wide(std::string_view bytes, WString& text) const;
    [[nodiscard]] bool system_append_bytes(WStrView text, std::string& bytes) const;

    xTCodePage m_page;
    std::array<WCHAR, 256> m_wide{};
    std::vector<char> m_byte;  // by character; 0 where the page has none. Empty when characters may be several bytes
};

}  // namespace zsl
