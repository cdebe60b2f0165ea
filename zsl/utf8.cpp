#include "zsl/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zsl {
namespace {

using byte = unsigned char;

constexpr std::size_t step = 32;  // bytes or characters of plain ASCII taken at once
constexpr std::uint64_t highBits = 0x8080808080808080;
constexpr std::uint64_t beyondAscii = 0xff80ff80ff80ff80;  // of four 16-bit characters

bool ascii_step(const byte* p) noexcept
{
    std::uint64_t words[step / 8];
    std::memcpy(words, p, sizeof words);
    return ((words[0] | words[1] | words[2] | words[3]) & highBits) == 0;
}

bool ascii_step(const WCHAR* p) noexcept
{
    std::uint64_t words[step / 4];
    std::memcpy(words, p, sizeof words);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words)
        all |= word;
    return (all & beyondAscii) == 0;
}

// Through arrays of their own, since only then does the compiler know that nothing overlaps, and takes wide steps.
void widen_step(const byte* from, WCHAR* to) noexcept
{
    byte in[step];
    WCHAR out[step];
    std::memcpy(in, from, sizeof in);
    for (std::size_t i = 0; i < step; ++i)
        out[i] = in[i];
    std::memcpy(to, out, sizeof out);
}

void narrow_step(const WCHAR* from, char* to) noexcept
{
    WCHAR in[step];
    char out[step];
    std::memcpy(in, from, sizeof in);
    for (std::size_t i = 0; i < step; ++i)
        out[i] = static_cast<char>(in[i]);
    std::memcpy(to, out, sizeof out);
}

constexpr bool goes_on(byte c) noexcept { return (c & 0xc0) == 0x80; }

// The range that the second byte must be in says all that a lead byte forbids: overlong forms, surrogates and what lies
// past U+10FFFF.
struct lead_range {
    byte low, high;
};
constexpr lead_range second_of(byte lead) noexcept
{
    switch (lead) {
    case 0xe0: return {0xa0, 0xbf};
    case 0xed: return {0x80, 0x9f};
    case 0xf0: return {0x90, 0xbf};
    case 0xf4: return {0x80, 0x8f};
    default: return {0x80, 0xbf};
    }
}

constexpr std::size_t length_by_lead(byte lead) noexcept
{
    if (lead < 0x80)
        return 1;
    if (lead < 0xc2 || lead > 0xf4)
        return 0;
    return lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
}

// The length of the character at `p`, 0 when it is none.
std::size_t valid_length(const byte* p, const byte* end) noexcept
{
    const std::size_t length = length_by_lead(*p);
    if (length < 2)
        return length;
    if (static_cast<std::size_t>(end - p) < length)
        return 0;
    const lead_range second = second_of(*p);
    if (p[1] < second.low || p[1] > second.high)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (!goes_on(p[i]))
            return 0;
    }
    return length;
}

// Writes the character at `p` and goes past it.
WCHAR* widen_one(const byte*& p, WCHAR* out) noexcept
{
    const std::uint32_t lead = *p;
    if (lead < 0x80) {
        *out++ = static_cast<WCHAR>(lead);
        p += 1;
    } else if (lead < 0xe0) {
        *out++ = static_cast<WCHAR>((lead & 0x1f) << 6 | (p[1] & 0x3f));
        p += 2;
    } else if (lead < 0xf0) {
        *out++ = static_cast<WCHAR>((lead & 0x0f) << 12 | (p[1] & 0x3f) << 6 | (p[2] & 0x3f));
        p += 3;
    } else {
        const std::uint32_t code = (lead & 0x07) << 18 | (p[1] & 0x3f) << 12 | (p[2] & 0x3f) << 6 | (p[3] & 0x3f);
        *out++ = static_cast<WCHAR>(0xd7c0 + (code >> 10));
        *out++ = static_cast<WCHAR>(0xdc00 + (code & 0x3ff));
        p += 4;
    }
    return out;
}

constexpr bool is_high(std::uint32_t unit) noexcept { return (unit & 0xfc00) == 0xd800; }
constexpr bool is_low(std::uint32_t unit) noexcept { return (unit & 0xfc00) == 0xdc00; }

char* put(char* out, std::uint32_t code, int following) noexcept
{
    constexpr std::uint32_t leads[] = {0x00, 0xc0, 0xe0, 0xf0};
    *out++ = static_cast<char>(leads[following] | code >> (6 * following));
    while (following-- > 0)
        *out++ = static_cast<char>(0x80 | (code >> (6 * following) & 0x3f));
    return out;
}

// Writes the character at `p` and goes past it.
char* narrow_one(const WCHAR*& p, const WCHAR* end, char* out) noexcept
{
    std::uint32_t code = *p++;
    if (code < 0x80)
        return put(out, code, 0);
    if (code < 0x800)
        return put(out, code, 1);
    if (is_high(code) && p != end && is_low(*p))
        return put(out, 0x10000 + ((code & 0x3ff) << 10 | (*p++ & 0x3ffu)), 3);
    if (is_high(code) || is_low(code))
        code = 0xfffd;
    return put(out, code, 2);
}

// Looks at the characters that begin before `stop`.
// Returns the place behind them, null when one of them is none.
const byte* look_at_piece(const byte* p, const byte* stop, const byte* end, utf8_facts& facts) noexcept
{
    while (p < stop) {
        const std::size_t left = static_cast<std::size_t>(end - p);
        if (left >= step && ascii_step(p)) {
            p += step;
            facts.units += step;
            continue;
        }
        const auto* const behind = p + std::min(left, step);
        while (p < behind) {
            const std::size_t length = valid_length(p, end);
            if (length == 0)
                return nullptr;
            facts.ascii = facts.ascii && length == 1;
            facts.units += length < 4 ? 1 : 2;
            p += length;
        }
    }
    return p;
}

}  // namespace

utf8_facts look_at_utf8(std::string_view bytes) noexcept
{
    constexpr std::size_t pieceBytes = 16384;  // in the nearest cache between the two looks
    const auto* const begin = reinterpret_cast<const byte*>(bytes.data());
    const auto* const end = begin + bytes.size();
    utf8_facts facts{true, true, 0, {}};
    for (const auto* p = begin; p != end;) {
        const auto* const from = p;
        p = look_at_piece(p, p + std::min(static_cast<std::size_t>(end - p), pieceBytes), end, facts);
        if (!p)
            return {};
        facts.ends.count(bytes.substr(static_cast<std::size_t>(from - begin), static_cast<std::size_t>(p - from)));
    }
    return facts;
}

WCHAR* widen_utf8(std::string_view bytes, WCHAR* out) noexcept
{
    const auto* p = reinterpret_cast<const byte*>(bytes.data());
    const auto* const end = p + bytes.size();
    while (p != end) {
        const std::size_t left = static_cast<std::size_t>(end - p);
        if (left >= step && ascii_step(p)) {
            widen_step(p, out);
            p += step;
            out += step;
            continue;
        }
        for (const auto* const stop = p + std::min(left, step); p < stop;)
            out = widen_one(p, out);
    }
    return out;
}

void append_wide_of_utf8(std::string_view bytes, WString& text)
{
    const std::size_t before = text.size();
    text.resize(before + bytes.size());
    text.resize(static_cast<std::size_t>(widen_utf8(bytes, text.data() + before) - text.data()));
}

void append_utf8(WStrView text, std::string& bytes)
{
    constexpr std::size_t room = 8192;
    constexpr std::size_t mostBytes = 3;  // of one 16-bit character
    char piece[room];
    const WCHAR* p = text.data();
    const WCHAR* const end = p + text.size();
    while (p != end) {
        char* out = piece;
        while (p != end && out <= piece + room - step * mostBytes) {
            const std::size_t left = static_cast<std::size_t>(end - p);
            if (left >= step && ascii_step(p)) {
                narrow_step(p, out);
                p += step;
                out += step;
                continue;
            }
            for (const WCHAR* const stop = p + std::min(left, step - 1); p < stop;)
                out = narrow_one(p, end, out);
        }
        bytes.append(piece, static_cast<std::size_t>(out - piece));
    }
}

}  // namespace zsl
