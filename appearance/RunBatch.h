#pragma once

#include "appearance/AsciiFace.h"

#include <array>
#include <cstdint>

/// Runs of one row that stand side by side on one background, drawn together: a rectangle behind all of them and then one
/// call a look, whatever the number of its runs. The picture is that of the runs drawn one by one, since only faces take
/// part whose characters stay within their cells.
class xTRunBatch {
public:
    struct xTRun {
        WStrView text;
        LONG x;  // of its left end, in pixels
        const xTAsciiFace* face;
        std::uint32_t word;  // of attributes
        DWORD style;         // FONT_ bits
        COLORREF color;
    };

    /// @return false for a run that does not fit in: the batch has to be drawn before it
    [[nodiscard]] bool Takes(const xTAsciiFace& face, COLORREF back) const noexcept;
    /// @param run  behind the last one, whose face is contained and holds it
    void Add(const xTRun& run, COLORREF back) noexcept;

    /// Where the last run ends, in pixels.
    [[nodiscard]] LONG Right() const noexcept;

    /// Draws the runs, if there are any, and empties the batch. `wear(run)` makes the font and the colours of a run
    /// current; it is called once for each look, for that of the last run at the end. When it answers false nothing more
    /// is drawn.
    template <typename Wear>
    void Draw(HDC dc, LONG y, Wear wear)
    {
        if (m_count == 0)
            return;
        const std::size_t last = m_count - 1;
        m_fill = {m_runs[0].x, y, Right(), y + m_runs[0].face->Height()};
        m_filled = false;
        ::SetBkMode(dc, TRANSPARENT);
        for (std::size_t i = 0; i <= last; ++i) {
            if (!ComesNow(i))
                continue;
            if (!wear(m_runs[i]))
                break;
            DrawLook(dc, y, m_runs[i]);
        }
        ::SetBkMode(dc, OPAQUE);
        m_count = 0;
    }

private:
    static constexpr std::size_t mostRuns = 32;
    static constexpr std::size_t mostGlyphs = 256;

    [[nodiscard]] static bool SameLook(const xTRun& a, const xTRun& b) noexcept
    {
        return a.style == b.style && a.color == b.color;
    }
    [[nodiscard]] bool ComesNow(std::size_t index) const noexcept;
    void DrawLook(HDC dc, LONG y, const xTRun& look) noexcept;
    void Emit(HDC dc, LONG y, LONG advance) noexcept;

    std::array<xTRun, mostRuns> m_runs;
    std::size_t m_count = 0;
    COLORREF m_back = 0;
    RECT m_fill{};
    bool m_filled = false;
    std::array<WCHAR, mostGlyphs> m_glyphs;
    std::array<LONG, mostGlyphs> m_places;  // left ends of the glyphs, in pixels
    std::size_t m_glyphCount = 0;
};
