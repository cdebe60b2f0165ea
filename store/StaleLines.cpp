#include "store/StaleLines.h"

#include <algorithm>
#include <limits>

void xTStaleLines::Note(std::int32_t first, std::int32_t last, std::int32_t lineCount) noexcept
{
    if (m_lineCount == unknown)
        return;
    const std::int32_t growth = lineCount - m_lineCount;
    m_lineCount = lineCount;
    m_latest = first == last ? first : -1;
    if (growth == 0 && NoteNear(first, last))
        return;
    const std::int32_t lastBefore = last - growth;  // as numbered before the change
    const auto begin = m_ranges.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(m_count);
    const auto met = std::partition_point(begin, end, [=](const xTLineRange& r) { return r.last < first - 1; });
    const auto behind = std::partition_point(met, end, [=](const xTLineRange& r) { return r.first <= lastBefore + 1; });
    xTLineRange merged{first, last};
    if (met != behind) {
        merged.first = std::min(first, met->first);
        merged.last = std::max(last, (behind - 1)->last + growth);
    }
    std::for_each(behind, end, [=](xTLineRange& range) { range = {range.first + growth, range.last + growth}; });
    // One range takes the place of those it met with; with none met the others make room.
    if (met == behind)
        std::move_backward(behind, end, end + 1);
    else
        std::move(behind, end, met + 1);
    *met = merged;
    m_near = static_cast<std::size_t>(met - begin);
    m_count = m_count + 1 - static_cast<std::size_t>(behind - met);
    m_leastGap = unknownGap;
    if (m_count > mostRanges)
        JoinNearest();
}

// A change of many lines, one by one, tells of them in their order: it extends the range told of last, or, with no room for
// more ranges, joins it when no other two are nearer. Returns false for any other place.
bool xTStaleLines::NoteNear(std::int32_t first, std::int32_t last) noexcept
{
    if (m_near >= m_count)
        return false;
    xTLineRange& range = m_ranges[m_near];
    constexpr std::int32_t noNext = std::numeric_limits<std::int32_t>::max();
    const std::int32_t next = m_near + 1 < m_count ? m_ranges[m_near + 1].first : noNext;
    if (first < range.first || last >= next - 1)
        return false;
    const std::int32_t gap = first - range.last;
    if (gap > 1 && (m_count < mostRanges || gap > m_leastGap || gap > next - last))
        return false;
    range.last = std::max(range.last, last);
    return true;
}

void xTStaleLines::Insert(std::int32_t first, std::int32_t count, std::int32_t lineCount) noexcept
{
    if (m_lineCount == unknown)
        return;
    m_lineCount = lineCount;
    m_leastGap = unknownGap;
    const auto begin = m_ranges.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(m_count);
    auto behind = std::partition_point(begin, end, [=](const xTLineRange& range) { return range.last < first; });
    if (behind != end && behind->first < first) {  // the new lines part a range
        std::move_backward(behind, end, end + 1);
        behind->last = first - 1;
        (++behind)->first = first;
        ++m_count;
    }
    std::for_each(behind, begin + static_cast<std::ptrdiff_t>(m_count),
                  [=](xTLineRange& range) { range = {range.first + count, range.last + count}; });
    if (m_count > mostRanges)
        JoinNearest();
    Note(first, first, lineCount);
    Note(first + count, first + count, lineCount);
    m_latest = -1;
}

bool xTStaleLines::Meets(std::int32_t first, std::int32_t last, std::int32_t lineCount) const noexcept
{
    return IsWholeText(lineCount) ||
           std::ranges::any_of(Ranges(), [=](const xTLineRange& r) { return r.first <= last && first <= r.last; });
}

void xTStaleLines::JoinNearest() noexcept
{
    std::size_t nearest = 1;
    std::int32_t least = std::numeric_limits<std::int32_t>::max();
    m_leastGap = least;  // of all the others
    for (std::size_t i = 1; i < m_count; ++i) {
        const std::int32_t gap = m_ranges[i].first - m_ranges[i - 1].last;
        m_leastGap = std::min(m_leastGap, std::max(gap, least));
        if (gap < least) {
            least = gap;
            nearest = i;
        }
    }
    m_ranges[nearest - 1].last = m_ranges[nearest].last;
    std::move(m_ranges.begin() + static_cast<std::ptrdiff_t>(nearest) + 1,
              m_ranges.begin() + static_cast<std::ptrdiff_t>(m_count), m_ranges.begin() + static_cast<std::ptrdiff_t>(nearest));
    --m_count;
    if (m_near >= nearest)
        --m_near;
}
