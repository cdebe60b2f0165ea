#include "zsl/text_pieces.h"

#include "zsl/byte_order_mark.h"
#include "zsl/code_page.h"
#include "zsl/line_ends.h"
#include "zsl/utf16.h"
#include "zsl/utf8.h"

#include <algorithm>
#include <utility>

namespace zsl {
namespace {

constexpr std::size_t mostBytes = 32768;  // of a piece; even, and small enough for what is made of it to stay in the cache

// What the bytes are, before they are decoded.
struct finding {
    text_encoding encoding;
    std::size_t markLength = 0;
    std::size_t units = 0;  // at most: so many characters the text has
    line_ends ends{};       // of a text in UTF-8
};

finding find_behind_mark(E_CharSet charset, std::size_t markLength, std::size_t units, const line_ends& ends = {})
{
    return {text_encoding(charset).with_facts(true, false), markLength, units, ends};
}

finding find_encoding(std::string_view bytes, const text_encoding& asked)
{
    if (bytes.empty())
        return {asked};
    const E_CharSet marked = charset_of_mark(bytes);
    const std::string_view behind = bytes.substr(mark_of(marked).size());
    if (marked == E_CharSet::utf8) {
        if (const utf8_facts facts = look_at_utf8(behind); facts.valid)
            return find_behind_mark(marked, bytes.size() - behind.size(), facts.units, facts.ends);
    } else if (marked != E_CharSet::none) {
        return find_behind_mark(marked, bytes.size() - behind.size(), behind.size() / 2);
    }
    if (asked.is_utf16())
        return {asked.with_facts(false, false), 0, bytes.size() / 2};
    if (const utf8_facts facts = look_at_utf8(bytes); facts.valid) {
        const text_encoding found = facts.ascii ? asked : text_encoding(E_CharSet::utf8);
        return {found.with_facts(false, false), 0, facts.units, facts.ends};
    }
    const bool oem = asked.stored_as() == E_CharSet::oem;
    return {text_encoding(oem ? E_CharSet::oem : E_CharSet::ansi), 0, bytes.size()};
}

// Decodes the next piece of a text that is not in UTF-8 and goes past it.
bool take_piece(std::string_view& bytes, E_CharSet charset, WString& text)
{
    if (charset == E_CharSet::utf16le || charset == E_CharSet::utf16be) {
        const std::size_t count = std::min(bytes.size(), mostBytes);
        append_wide_of_utf16(bytes.substr(0, count), byte_order_of(charset), text);
        bytes.remove_prefix(count);
        return true;
    }
    const code_page& page = code_page::of(code_page_of(charset));
    const std::size_t count = page.whole(bytes, mostBytes);
    const bool known = page.append_wide(bytes.substr(0, count), text);
    bytes.remove_prefix(count);
    return known;
}

// About as many bytes as are taken at once, up to behind a line feed; all of them when there is none.
std::size_t bytes_of_lines(std::string_view bytes) noexcept
{
    if (bytes.size() <= mostBytes)
        return bytes.size();
    const std::size_t last = bytes.rfind('\n', mostBytes - 1);
    const std::size_t feed = last != bytes.npos ? last : bytes.find('\n', mostBytes);
    return feed != bytes.npos ? feed + 1 : bytes.size();
}

}  // namespace

std::optional<text_pieces> text_pieces::of(std::string_view bytes, const text_encoding& asked, std::size_t limit)
{
    const finding found = find_encoding(bytes, asked);
    bytes.remove_prefix(found.markLength);
    if (found.units > limit || (found.encoding.is_utf16() && bytes.size() % 2 != 0))
        return std::nullopt;
    if (found.encoding.stored_as() != E_CharSet::utf8)
        return decoded(bytes, found.encoding);
    if (found.ends.has_zero())
        return std::nullopt;
    const text_encoding encoding = found.ends.all_crlf() ? found.encoding.with_crlf() : found.encoding;
    return text_pieces(bytes, encoding, found.ends.feeds(), found.units);
}

std::optional<text_pieces> text_pieces::decoded(std::string_view bytes, const text_encoding& encoding)
{
    WString text;
    text.reserve(encoding.is_utf16() ? bytes.size() / 2 : bytes.size());
    line_ends ends;
    while (!bytes.empty()) {
        const std::size_t before = text.size();
        if (!take_piece(bytes, encoding.stored_as(), text))
            return std::nullopt;
        ends.count(WStrView(text).substr(before));
        if (ends.has_zero())
            return std::nullopt;
    }
    if (ends.all_crlf())
        text.resize(drop_returns(text.data(), text.size()));
    text_pieces result({}, ends.all_crlf() ? encoding.with_crlf() : encoding, ends.feeds(), text.size());
    result.m_whole = std::move(text);
    return result;
}

void text_pieces::make_room(std::size_t units)
{
    if (units <= m_roomUnits)
        return;
    m_room.reset();
    m_room.reset(new WCHAR[units]);  // not filled with zeros first: that would take as long as the decoding
    m_roomUnits = units;
}

WStrView text_pieces::next()
{
    if (m_rest.empty()) {
        if (std::exchange(m_given, true))
            m_whole = {};
        return m_whole;
    }
    const std::size_t count = bytes_of_lines(m_rest);
    make_room(std::max(count, mostBytes));
    WCHAR* const end = widen_utf8(m_rest.substr(0, count), m_room.get());
    m_rest.remove_prefix(count);
    const auto length = static_cast<std::size_t>(end - m_room.get());
    return {m_room.get(), m_encoding.has_crlf() ? drop_returns(m_room.get(), length) : length};
}

WString text_pieces::rest()
{
    WString text;
    if (m_rest.empty()) {
        if (!std::exchange(m_given, true))
            text.swap(m_whole);
        return text;
    }
    text.reserve(m_units);
    while (!m_rest.empty())
        text.append(next());
    return text;
}

}  // namespace zsl
