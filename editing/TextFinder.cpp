#include "editing/TextFinder.h"

#include "framework/base/Platform.h"
#include "store/LineScan.h"
#include "store/MemStor.h"
#include "store/WideScan.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <span>

namespace {

constexpr std::size_t unitCount = 0x10000;

struct xTFoldTable {
    xTFoldTable() noexcept
    {
        std::iota(lower.begin(), lower.end(), WCHAR{0});
        PlatformLowerCase(lower.data(), static_cast<std::int32_t>(unitCount));
    }
    [[nodiscard]] WStrView view() const noexcept { return {lower.data(), lower.size()}; }

    std::array<WCHAR, unitCount> lower;
};

const xTFoldTable& FoldTable() noexcept
{
    static const xTFoldTable table;
    return table;
}

}  // namespace

WCHAR FoldCase(WCHAR ch) noexcept
{
    return FoldTable().lower[static_cast<std::uint16_t>(ch)];
}

CString FoldCase(const CString& text)
{
    CString folded = text;
    WCHAR* units = folded.OwnBuffer();
    std::transform(units, units + folded.GetLength(), units, [](WCHAR ch) { return FoldCase(ch); });
    return folded;
}

xTTextFinder::xTTextFinder(const CString& what, bool whole_word, bool match_case)
    : m_what(match_case ? what : FoldCase(what)), m_wholeWord(whole_word), m_matchCase(match_case)
{
    if (m_what.IsEmpty())
        return;
    m_firsts = VariantsOf(m_what.view().front(), match_case);
    m_lasts = VariantsOf(m_what.view().back(), match_case);
}

xTTextFinder::xTVariants xTTextFinder::VariantsOf(WCHAR unit, bool match_case) noexcept
{
    if (match_case)
        return {{unit}, 1};
    xTVariants variants;
    const WStrView table = FoldTable().view();
    for (std::size_t other = FindUnit(table, unit, 0); other < unitCount; other = FindUnit(table, unit, other + 1)) {
        if (variants.count < mostVariants)
            variants.units[variants.count] = static_cast<WCHAR>(other);
        ++variants.count;
    }
    return variants;
}

// The next column where the text may begin; the length of the line when there is none.
std::size_t xTTextFinder::NextCandidate(WStrView line, std::size_t from) const noexcept
{
    if (!KnowsEnds())
        return from + m_what.view().size() <= line.size() ? from : line.size();
    return FindEnds(line, m_firsts.view(), m_lasts.view(), m_what.view().size() - 1, from);
}

bool xTTextFinder::MatchesAt(const WCHAR* place) const noexcept
{
    const WStrView what = m_what;
    if (m_matchCase)
        return std::memcmp(place, what.data(), what.size() * sizeof(WCHAR)) == 0;
    const auto& lower = FoldTable().lower;
    return std::equal(what.begin(), what.end(), place,
                      [&](WCHAR wanted, WCHAR ch) { return wanted == lower[static_cast<std::uint16_t>(ch)]; });
}

std::int32_t xTTextFinder::FindIn(WStrView line, std::int32_t from) const noexcept
{
    if (m_what.IsEmpty())
        return -1;
    const auto begin = static_cast<std::size_t>(std::max(from, 0));
    for (std::size_t i = NextCandidate(line, begin); i < line.size(); i = NextCandidate(line, i + 1)) {
        if (MatchesAt(line.data() + i))
            return static_cast<std::int32_t>(i);
    }
    return -1;
}

bool xTTextFinder::Accepts(WStrView line, std::int32_t hit) const noexcept
{
    if (!m_wholeWord)
        return true;
    const auto at = static_cast<std::size_t>(hit);
    const std::size_t behind = at + m_what.view().size();
    return (at == 0 || !xTExtString::IsWordChar(line[at - 1])) &&
           (behind >= line.size() || !xTExtString::IsWordChar(line[behind]));
}

// The first line from `line` on that may hold the text, or `stop`; `line` itself where there is nothing to pass over.
std::int32_t xTTextFinder::PassOver(const xTMemStorage& store, std::int32_t line, std::int32_t stop, bool down) const
{
    const std::int32_t count = store.line_count();
    const std::int32_t end = std::clamp(stop, -1, count);
    if (line < 0 || line >= count || (down ? end <= line : end >= line) || m_what.IsEmpty() || !KnowsEnds())
        return line;
    return NextLineWithEnds(store.lines, line, end, m_firsts.view(), m_lasts.view(), m_what.view().size() - 1);
}

xTPos xTTextFinder::Search(const xTMemStorage& store, bool down, bool from_caret, bool* wrapped) const
{
    const xTPos start = store.caret;
    const std::int32_t count = store.line_count();
    std::int32_t line = start.line;
    std::int32_t col = from_caret ? start.col : start.col + 1;
    bool passed = false;
    for (;;) {
        const WStrView text = line >= 0 && line < count ? store.lines[line].m_text.view() : WStrView();
        // Upwards too the search runs to the right within a line: required.
        if (const std::int32_t hit = FindIn(text, col); hit < 0) {
            col = 0;
            line = PassOver(store, line + (down ? 1 : -1), passed ? start.line : down ? count : -1, down);
        } else if (Accepts(text, hit)) {
            return {line, hit};
        } else {
            col = hit + Length();
        }
        if (passed && (xTPos(line, col) > start) == down)
            return xTPos::none;
        if (line >= 0 && line < count)
            continue;
        if (passed)
            return xTPos::none;  // a caret outside the text is never come back to: once round is enough
        passed = true;
        line = line < 0 ? count - 1 : 0;
        if (wrapped)
            *wrapped = true;
    }
}
