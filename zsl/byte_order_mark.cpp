#include "zsl/byte_order_mark.h"

namespace zsl {
namespace {

struct mark_row {
    E_CharSet charset;
    std::string_view mark;
};

constexpr mark_row marks[] = {
    {E_CharSet::utf8, "\xef\xbb\xbf"},
    {E_CharSet::utf16le, "\xff\xfe"},
    {E_CharSet::utf16be, "\xfe\xff"},
};

}  // namespace

std::string_view mark_of(E_CharSet charset) noexcept
{
    for (const mark_row& row : marks) {
        if (row.charset == charset)
            return row.mark;
    }
    return {};
}

E_CharSet charset_of_mark(std::string_view bytes) noexcept
{
    for (const mark_row& row : marks) {
        if (bytes.starts_with(row.mark))
            return row.charset;
    }
    return E_CharSet::none;
}

}  // namespace zsl
