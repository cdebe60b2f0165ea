#include "tests/support/model/ReadableText.h"

#include <algorithm>
#include <cstdio>

namespace {

std::string ReadableUnit(WCHAR ch)
{
    char digits[8];
    if (ch == _T('\n'))
        return "\\n";
    if (ch == _T('\\'))
        return "\\\\";
    if (ch >= 0x20 && ch < 0x7F)
        return {static_cast<char>(ch)};
    return std::snprintf(digits, sizeof digits, "\\x%04X", static_cast<unsigned>(ch)) > 0 ? digits : "";
}

}  // namespace

std::string ReadableText(const WString& text)
{
    constexpr std::size_t oftenEnough = 9;
    std::string readable = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_not_of(text[at], at), text.size());
        const bool often = end - at >= oftenEnough;
        readable += ReadableUnit(text[at]);
        readable += often ? "{" + std::to_string(end - at) + "}" : "";
        at = often ? end : at + 1;
    }
    return readable + "\"";
}
