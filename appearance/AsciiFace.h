#pragma once

#include "framework/base/WinTypes.h"

#include <array>

/// The printable ASCII characters of a font on a device context, where they are all equally wide and each has a picture:
/// a run of them is measured without asking the system, and drawn without the system looking for characters of other
/// scripts, for their pictures and for their widths. No shaping and no kerning takes part there, so that the result is
/// what the system's own answer would be, to the pixel.
class xTAsciiFace {
public:
    /// Holds no run.
    xTAsciiFace() noexcept = default;
    /// Asks about the font that `dc` holds.
    explicit xTAsciiFace(HDC dc) noexcept;

    /// True for a run of these characters, and of these only.
    [[nodiscard]] bool Holds(WStrView run) const noexcept;
    /// @param run  one that it holds @return pixels
    [[nodiscard]] LONG Width(WStrView run) const noexcept { return m_advance * static_cast<LONG>(run.size()); }
    /// True for a run that it holds of which no picture of a character leaves its cell, in a font that draws nothing but
    /// the characters: such runs, side by side, may be drawn in any order, and a blank shows the background only.
    [[nodiscard]] bool HoldsContained(WStrView run) const noexcept;
    [[nodiscard]] LONG Height() const noexcept { return m_height; }  ///< of a run's background, in pixels
    /// @param ch  one that it holds
    [[nodiscard]] WCHAR Glyph(WCHAR ch) const noexcept { return m_glyphs[ch - first]; }
    /// @param dc  holds the font @param run  one that it holds
    void TextOut(HDC dc, POINT at, WStrView run) const noexcept;

private:
    static constexpr WCHAR first = 0x20;
    static constexpr WCHAR last = 0x7E;
    static constexpr int count = last - first + 1;
    static constexpr std::size_t usualRun = 256;  // characters; longer ones are drawn by the system alone

    [[nodiscard]] static LONG CommonAdvance(HDC dc) noexcept;
    void FindContained(HDC dc) noexcept;

    LONG m_advance = 0;  // 0 where they differ or one of them is missing
    LONG m_height = 0;
    std::array<WORD, count> m_glyphs{};
    std::array<bool, count> m_contained{};
};
