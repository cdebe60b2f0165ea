#include "editing/TextFinder.h"

#include "store/LineScan.h"
#include "store/MemStor.h"

#include <algorithm>

std::int32_t xTTextFinder::FindIn(WStrView line, std::int32_t from) const noexcept
{
    const std::size_t hit = m_needle.FindIn(line, static_cast<std::size_t>(std::max(from, 0)));
    return hit == xTNeedle::none ? -1 : static_cast<std::int32_t>(hit);
}

bool xTTextFinder::Accepts(WStrView line, std::int32_t hit) const noexcept
{
    if (!m_wholeWord)
        return true;
    const auto at = static_cast<std::size_t>(hit);
    const std::size_t behind = at + m_needle.Length();
    return (at == 0 || !xTExtString::IsWordChar(line[at - 1])) &&
           (behind >= line.size() || !xTExtString::IsWordChar(line[behind]));
}

// The first match in the first line from `line` on that has one. Column -1 where none is known of: of `stop`, or of
// `line` itself where there is nothing to pass over.
xTPos xTTextFinder::PassOver(const xTMemStorage& store, std::int32_t line, std::int32_t stop, bool down) const
{
    const std::int32_t count = store.line_count();
    const std::int32_t end = std::clamp(stop, -1, count);
    if (line < 0 || line >= count || (down ? end <= line : end >= line))
        return {line, -1};
    return NextMatch(store.lines, line, end, m_needle);
}

xTPos xTTextFinder::Search(const xTMemStorage& store, bool down, bool from_caret, bool* wrapped) const
{
    const xTPos start = store.caret;
    const std::int32_t count = store.line_count();
    std::int32_t line = start.line;
    std::int32_t col = from_caret ? start.col : start.col + 1;
    bool passed = false;
    for (std::int32_t known = -1;;) {
        const WStrView text = line >= 0 && line < count ? store.lines[line].m_text.view() : WStrView();
        // Upwards too the search runs to the right within a line: required.
        const std::int32_t hit = known >= 0 ? known : FindIn(text, col);
        known = -1;
        if (hit < 0) {
            const xTPos next = PassOver(store, line + (down ? 1 : -1), passed ? start.line : down ? count : -1, down);
            line = next.line;
            col = 0;
            known = next.col;
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
