#include "store/LineScan.h"

#include "store/EightUnits.h"
#include "store/WideScan.h"

#include <algorithm>
#include <array>

namespace {

// One end of what is looked for: one of up to N units; with fewer of them the last stands for the rest.
template <std::size_t N>
struct xTEnd {
    explicit xTEnd(std::span<const WCHAR> wanted) noexcept
    {
        for (std::size_t i = 0; i < N; ++i)
            units[i] = wanted[std::min(i, wanted.size() - 1)];
    }
    [[nodiscard]] xTEightHits At(const WCHAR* eight) const noexcept { return EightEqual(eight, units); }
    [[nodiscard]] bool Is(WCHAR ch) const noexcept { return std::ranges::find(units, ch) != units.end(); }

    std::array<WCHAR, N> units;
};

template <std::size_t N>
struct xTEnds {
    [[nodiscard]] bool AreIn(const xTExtString& line) const noexcept
    {
        const WStrView text = line.m_text.view();
        if (text.size() <= distance)
            return false;
        const WCHAR* const begin = text.data();
        const WCHAR* const behind = begin + distance;
        return HasHit(
            0, text.size() - distance,
            [=, this](std::size_t i) { return first.At(begin + i) & last.At(behind + i); },
            [=, this](std::size_t i) { return first.Is(begin[i]) && last.Is(behind[i]); });
    }

    xTEnd<N> first;
    xTEnd<N> last;
    std::size_t distance;
};

template <std::size_t N>
std::int32_t NextLine(const CArray<xTExtString>& lines, std::int32_t line, std::int32_t stop, const xTEnds<N> ends)
{
    for (const std::int32_t step = line < stop ? 1 : -1; line != stop; line += step) {
        if (ends.AreIn(lines[line]))
            return line;
    }
    return stop;
}

}  // namespace

std::int32_t NextLineWithEnds(const CArray<xTExtString>& lines, std::int32_t line, std::int32_t stop,
                              std::span<const WCHAR> firsts, std::span<const WCHAR> lasts, std::size_t distance)
{
    const std::size_t most = std::max(firsts.size(), lasts.size());
    if (most == 1)
        return NextLine<1>(lines, line, stop, {xTEnd<1>(firsts), xTEnd<1>(lasts), distance});
    if (most == 2)
        return NextLine<2>(lines, line, stop, {xTEnd<2>(firsts), xTEnd<2>(lasts), distance});
    constexpr std::size_t all = mostEndUnits;
    return NextLine<all>(lines, line, stop, {xTEnd<all>(firsts), xTEnd<all>(lasts), distance});
}
