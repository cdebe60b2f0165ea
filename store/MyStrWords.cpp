#include "store/MyStr.h"

#include "store/WideScan.h"

#include <algorithm>
#include <array>

// Word stops and searches of one line. Blanks are among the delimiters, so each step asks for a blank first.

namespace {

constexpr bool IsBlank(WCHAR ch) noexcept { return ch == _T(' ') || ch == _T('\t'); }

constexpr std::size_t asciiCount = 128;

constexpr auto asciiDelimiters = [] {
    std::array<bool, asciiCount> table{};
    table[0] = true;  // the required search also matches the terminator of the set
    for (const WCHAR ch : xTExtString::delimiters) {
        if (ch < asciiCount)
            table[ch] = true;
    }
    return table;
}();

constexpr bool IsDelimiter(WCHAR ch) noexcept
{
    constexpr WCHAR numeroSign = 0x2116;  // the only delimiter outside ASCII
    return ch < asciiCount ? asciiDelimiters[ch] : ch == numeroSign;
}

static_assert(std::count_if(xTExtString::delimiters.begin(), xTExtString::delimiters.end(),
                            [](WCHAR ch) { return !IsDelimiter(ch); }) == 0);
static_assert(xTExtString::delimiters.size() == 43 && IsDelimiter(0) && !IsDelimiter(_T('_')));

enum class xTUnit { blank, delimiter, word };

constexpr xTUnit UnitOf(WCHAR ch) noexcept
{
    return IsBlank(ch) ? xTUnit::blank : IsDelimiter(ch) ? xTUnit::delimiter : xTUnit::word;
}

std::int32_t SkipForward(WStrView text, std::int32_t from, xTUnit kind) noexcept
{
    std::int32_t i = from;
    while (i < static_cast<std::int32_t>(text.size()) && UnitOf(text[static_cast<std::size_t>(i)]) == kind)
        ++i;
    return i;
}

std::int32_t StopForward(WStrView text, std::int32_t pos) noexcept
{
    const auto length = static_cast<std::int32_t>(text.size());
    if (pos >= length)
        return length;
    const std::int32_t from = std::max(pos, 0);
    // Before the line, as behind it, a character reads as 0.
    const xTUnit kind = UnitOf(pos < 0 ? WCHAR{0} : text[static_cast<std::size_t>(from)]);
    const std::int32_t end = kind == xTUnit::blank ? from : SkipForward(text, from, kind);
    return SkipForward(text, end, xTUnit::blank);
}

// Follows the double quotes and block comments of a line from column 0, to tell whether a column lies in a string.
class xTQuoteCount {
public:
    xTQuoteCount(WStrView text, bool inside) noexcept : m_text(text), m_inside(inside) {}

    /// True when an even number of double quotes stands before `column`; the columns asked for must not go back.
    bool IsEvenAt(std::size_t column) noexcept
    {
        while (m_at < column)
            Step();
        return m_even;
    }

private:
    [[nodiscard]] bool PairIs(WCHAR a, WCHAR b) const noexcept
    {
        return m_text[m_at] == a && m_at + 1 < m_text.size() && m_text[m_at + 1] == b;
    }

    void Step() noexcept
    {
        const bool turns = m_inside ? PairIs(_T('*'), _T('/')) : m_even && PairIs(_T('/'), _T('*'));
        if (turns)
            m_inside = !m_inside;
        else if (!m_inside && m_text[m_at] == _T('"'))  // quotes in comments do not count; nothing escapes a quote
            m_even = !m_even;
        m_at += turns ? 2 : 1;
    }

    WStrView m_text;
    std::size_t m_at = 0;
    bool m_inside;
    bool m_even = true;
};

std::int32_t FindPlain(const CString& text, WStrView sub, std::int32_t start) noexcept
{
    return sub.size() == 2 ? FindPair(text, sub[0], sub[1], start) : text.Find(sub, start);
}

}  // namespace

bool xTExtString::IsWordChar(WCHAR ch) noexcept
{
    return !IsDelimiter(ch);
}

std::int32_t xTExtString::NextWordStop(std::int32_t pos, bool forward) const
{
    if (m_text.IsEmpty())
        return 0;
    if (forward)
        return StopForward(m_text, pos);
    if (pos < 1)
        return 0;
    // Behind the end the characters read as 0, delimiters one and all: the first of them stands for the rest.
    std::int32_t i = std::min(pos - 1, GetLength());
    if (pos != 1) {
        while (i > 0 && IsBlank(GetAt(i)))
            --i;
    }
    const xTUnit kind = UnitOf(GetAt(i)) == xTUnit::word ? xTUnit::word : xTUnit::delimiter;
    while (i > 0 && UnitOf(GetAt(i - 1)) == kind)
        --i;
    return i;
}

bool xTExtString::WordBounds(std::int32_t pos, std::int32_t* first, std::int32_t* last) const
{
    if (!last || pos < 0 || pos >= GetLength())
        return false;
    std::int32_t left = pos;
    if (IsWordChar(GetAt(pos))) {
        while (left > 0 && IsWordChar(GetAt(left - 1)))
            --left;
    }
    std::int32_t right = pos;
    while (right < GetLength() && IsWordChar(GetAt(right)))
        ++right;
    if (first)
        *first = left;
    *last = right == left ? right + 1 : right;
    return true;
}

std::int32_t xTExtString::FindInCode(WStrView sub, std::int32_t start) const
{
    std::int32_t hit = FindPlain(m_text, sub, start);
    if (hit < 0)
        return -1;
    // Without a quote before it no string can be open. The walk, character by character, is for the few lines that have
    // one: a line of many comments is asked anew behind each of them.
    if (FindUnit(m_text.view().substr(0, static_cast<std::size_t>(hit)), _T('"'), 0) == static_cast<std::size_t>(hit))
        return hit;
    // One walk serves all hits: the state at a later one is the state at an earlier one carried on.
    xTQuoteCount quotes(m_text, (m_flags & flagStartsInside) != 0);
    while (hit >= 0 && !quotes.IsEvenAt(static_cast<std::size_t>(hit)))
        hit = FindPlain(m_text, sub, hit + 1);
    return hit;
}

std::int32_t xTExtString::FindLeadingLineComment() const
{
    const std::int32_t at = FindPair(m_text, _T('/'), _T('/'), 0);
    if (at < 0)
        return -1;
    const WStrView before = m_text.view().substr(0, static_cast<std::size_t>(at));
    return std::all_of(before.begin(), before.end(), IsBlank) ? at : -1;
}
