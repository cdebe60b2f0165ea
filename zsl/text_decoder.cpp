#include "zsl/text_decoder.h"

#include "zsl/byte_order_mark.h"
#include "zsl/code_page.h"
#include "zsl/line_ends.h"
#include "zsl/utf16.h"
#include "zsl/utf8.h"

#include <algorithm>

namespace zsl {
namespace {

// What the bytes are, before they are decoded.
struct finding {
    text_encoding encoding;
    std::size_t markLength;
    std::size_t units;  // at most: so many characters the text has
};

finding find_behind_mark(E_CharSet charset, std::size_t markLength, std::size_t units)
{
    return {text_encoding(charset).with_facts(true, false), markLength, units};
}

finding find_encoding(std::string_view bytes, const text_encoding& asked)
{
    if (bytes.empty())
        return {asked, 0, 0};
    const E_CharSet marked = charset_of_mark(bytes);
    const std::string_view behind = bytes.substr(mark_of(marked).size());
    if (marked == E_CharSet::utf8) {
        if (const utf8_facts facts = look_at_utf8(behind); facts.valid)
            return find_behind_mark(marked, bytes.size() - behind.size(), facts.units);
    } else if (marked != E_CharSet::none) {
        return find_behind_mark(marked, bytes.size() - behind.size(), behind.size() / 2);
    }
    if (asked.is_utf16())
        return {asked.with_facts(false, false), 0, bytes.size() / 2};
    if (const utf8_facts facts = look_at_utf8(bytes); facts.valid)
        return {(facts.ascii ? asked : text_encoding(E_CharSet::utf8)).with_facts(false, false), 0, facts.units};
    const bool oem = asked.stored_as() == E_CharSet::oem;
    return {text_encoding(oem ? E_CharSet::oem : E_CharSet::ansi), 0, bytes.size()};
}

// Decodes the next piece and goes past it.
bool take_piece(std::string_view& bytes, E_CharSet charset, WString& text)
{
    constexpr std::size_t most = 32768;  // even, and small enough to be in the cache when the line ends are counted
    if (charset == E_CharSet::utf8) {
        const std::size_t count = whole_utf8(bytes, most);
        append_wide_of_utf8(bytes.substr(0, count), text);
        bytes.remove_prefix(count);
        return true;
    }
    if (charset == E_CharSet::utf16le || charset == E_CharSet::utf16be) {
        const std::size_t count = std::min(bytes.size(), most);
        append_wide_of_utf16(bytes.substr(0, count), byte_order_of(charset), text);
        bytes.remove_prefix(count);
        return true;
    }
    const code_page& page = code_page::of(code_page_of(charset));
    const std::size_t count = page.whole(bytes, most);
    const bool known = page.append_wide(bytes.substr(0, count), text);
    bytes.remove_prefix(count);
    return known;
}

}  // namespace

std::optional<decoded_text> decode_text(std::string_view bytes, const text_encoding& asked, std::size_t limit)
{
    const finding found = find_encoding(bytes, asked);
    bytes.remove_prefix(found.markLength);
    if (found.units > limit || (found.encoding.is_utf16() && bytes.size() % 2 != 0))
        return std::nullopt;

    decoded_text result{{}, found.encoding};
    result.text.reserve(found.units);
    line_ends ends;
    while (!bytes.empty()) {
        const std::size_t before = result.text.size();
        if (!take_piece(bytes, found.encoding.stored_as(), result.text))
            return std::nullopt;
        ends.count(WStrView(result.text).substr(before));
        if (ends.has_zero())
            return std::nullopt;
    }
    if (ends.all_crlf()) {
        drop_returns(result.text);
        result.encoding = result.encoding.with_crlf();
    }
    return result;
}

}  // namespace zsl
