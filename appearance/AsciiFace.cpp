#include "appearance/AsciiFace.h"

#include <algorithm>
#include <numeric>

xTAsciiFace::xTAsciiFace(HDC dc) noexcept
{
    constexpr WORD missing = 0xFFFF;
    std::array<WCHAR, count> all;
    std::iota(all.begin(), all.end(), first);
    const DWORD found = ::GetGlyphIndicesW(dc, all.data(), count, m_glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
    if (found == count && std::find(m_glyphs.begin(), m_glyphs.end(), missing) == m_glyphs.end())
        m_advance = CommonAdvance(dc);
    if (m_advance != 0)
        FindContained(dc);
}

// @return the width that they have, alone and in a row; 0 when they have not all the same
LONG xTAsciiFace::CommonAdvance(HDC dc) noexcept
{
    std::array<WCHAR, count> all;
    std::iota(all.begin(), all.end(), first);
    std::array<INT, count> alone{};
    std::array<INT, count> upTo{};  // the width of the row up to each character
    SIZE row{};
    if (!::GetCharWidth32W(dc, first, last, alone.data()) ||
        !::GetTextExtentExPointW(dc, all.data(), count, 0, nullptr, upTo.data(), &row))
        return 0;
    for (int i = 0; i < count; ++i)
        if (alone[i] != alone[0] || upTo[i] != (i + 1) * alone[0])
            return 0;
    return row.cx == upTo[count - 1] ? alone[0] : 0;
}

void xTAsciiFace::FindContained(HDC dc) noexcept
{
    TEXTMETRICW metrics{};
    std::array<ABC, count> widths{};
    if (!::GetTextMetricsW(dc, &metrics) || metrics.tmUnderlined || metrics.tmStruckOut ||
        !::GetCharABCWidthsW(dc, first, last, widths.data()))
        return;
    m_height = metrics.tmHeight;
    std::transform(widths.begin(), widths.end(), m_contained.begin(),
                   [](const ABC& each) { return each.abcA >= 0 && each.abcC >= 0; });
}

bool xTAsciiFace::HoldsContained(WStrView run) const noexcept
{
    return m_advance != 0 && std::all_of(run.begin(), run.end(), [this](WCHAR ch) {
               return ch >= first && ch <= last && m_contained[ch - first];
           });
}

bool xTAsciiFace::Holds(WStrView run) const noexcept
{
    return m_advance != 0 && std::all_of(run.begin(), run.end(), [](WCHAR ch) { return ch >= first && ch <= last; });
}

void xTAsciiFace::TextOut(HDC dc, POINT at, WStrView run) const noexcept
{
    if (run.size() > usualRun) {
        ::TextOutW(dc, at.x, at.y, run.data(), static_cast<int>(run.size()));
        return;
    }
    WCHAR glyphs[usualRun];
    INT steps[usualRun];
    std::transform(run.begin(), run.end(), glyphs, [this](WCHAR ch) { return m_glyphs[ch - first]; });
    std::fill_n(steps, run.size(), m_advance);
    ::ExtTextOutW(dc, at.x, at.y, ETO_GLYPH_INDEX, nullptr, glyphs, static_cast<UINT>(run.size()), steps);
}
