#include "appearance/RunBatch.h"

#include <algorithm>

bool xTRunBatch::Takes(const xTAsciiFace& face, COLORREF back) const noexcept
{
    return m_count == 0 || (m_count < mostRuns && back == m_back && face.Height() == m_runs[0].face->Height());
}

void xTRunBatch::Add(const xTRun& run, COLORREF back) noexcept
{
    m_runs[m_count++] = run;
    m_back = back;
}

LONG xTRunBatch::Right() const noexcept
{
    const xTRun& last = m_runs[m_count - 1];
    return last.x + last.face->Width(last.text);
}

// Each look once, where it comes first, but that of the last run at the end: the context is left as that one wants it.
bool xTRunBatch::ComesNow(std::size_t index) const noexcept
{
    const xTRun* const end = m_runs.data() + index;
    const auto same = [&](const xTRun& run) { return SameLook(run, *end); };
    return index == m_count - 1 || (!same(m_runs[m_count - 1]) && std::none_of(m_runs.data(), end, same));
}

// A blank shows nothing but the background, which is there already.
void xTRunBatch::DrawLook(HDC dc, LONG y, const xTRun& look) noexcept
{
    for (std::size_t i = 0; i < m_count; ++i) {
        if (!SameLook(m_runs[i], look))
            continue;
        LONG x = m_runs[i].x;
        for (const WCHAR ch : m_runs[i].text) {
            if (ch != L' ') {
                m_glyphs[m_glyphCount] = look.face->Glyph(ch);
                m_places[m_glyphCount++] = x;
                if (m_glyphCount == mostGlyphs)
                    Emit(dc, y, look.face->Width(L" "));
            }
            x += look.face->Width(L" ");
        }
    }
    if (m_glyphCount != 0 || !m_filled)
        Emit(dc, y, look.face->Width(L" "));
}

void xTRunBatch::Emit(HDC dc, LONG y, LONG advance) noexcept
{
    std::array<INT, mostGlyphs> steps;
    for (std::size_t i = 0; i + 1 < m_glyphCount; ++i)
        steps[i] = m_places[i + 1] - m_places[i];
    steps[m_glyphCount == 0 ? 0 : m_glyphCount - 1] = advance;
    const UINT fill = m_filled ? 0 : ETO_OPAQUE;
    const LONG x = m_glyphCount == 0 ? m_fill.left : m_places[0];
    ::ExtTextOutW(dc, x, y, ETO_GLYPH_INDEX | fill, &m_fill, m_glyphs.data(), static_cast<UINT>(m_glyphCount),
                  steps.data());
    m_filled = true;
    m_glyphCount = 0;
}
