#pragma once

#include "appearance/AsciiFace.h"
#include "appearance/AttribData.h"
#include "diagnostics/ExceptSettings.h"
#include "framework/win/Handles.h"
#include "store/Positions.h"

#include <array>
#include <optional>

class CDC;
class CWnd;
class xTMemStorage;
class xTRunBatch;
struct xTPrintFont;

/// How the text of one control looks, with the fonts and the drawing: the entries of xTAttribData, the eight styles of
/// the base font, and the operations that draw or measure a line. Each control owns one.
///
/// Drawing leaves font, colours and brush of a device context as they fall. A font failure is shown to the user and
/// the fonts are rebuilt; no exception leaves an operation of this class except from `add_font` and `_MakeFontSelect`.
class xTAttribTable final : public xTAttribData {
public:
    /// A font failure: shown to the user, not logged.
    using xTExceptSettings = ::xTExceptSettings;

    static constexpr DWORD fontKeys = 8;

    /// Builds the default font, then takes `settings`, or theme `defaultTheme` where they hold nothing readable.
    /// @param dc  the control's memory context; it must outlive the table. Null: a table without fonts
    xTAttribTable(CDC* dc, const xTSettingsBlock* settings, std::uint32_t defaultTheme);
    ~xTAttribTable();

    /// Fills the table and rebuilds the fonts.
    /// @param theme     1 to 5; 0 takes `settings`, or `fallback` where they are not readable; any other: no entries
    /// @param fallback  a theme number; 0 counts as 1
    void SetStandardTheme(CDC* dc, const xTSettingsBlock* settings, std::uint32_t theme, std::uint32_t fallback);
    /// Takes a block, where there is one, and rebuilds the fonts whether it was readable or not.
    void ReloadSettings(const xTSettingsBlock* block, CDC* dc);

    // Fonts
    /// Makes `*lf` the base font and builds its eight styles on the attribute context of `dc`; a font failure is shown
    /// and the fonts are rebuilt until they stand. `*lf` leaves as the description of the base font.
    /// @return false when the base font could not be created; m_logFont then has the new description all the same
    bool create_fonts(LOGFONTW* lf, CDC* dc);
    /// Adds one style and measures the font that `dc` holds. A style that cannot be created is left out.
    /// Raises xTExceptSettings when the new font cannot be selected.
    void add_font(LOGFONTW* lf, DWORD key, HDC dc);
    /// Selects the font of that style. Raises xTExceptSettings when there is none or it cannot be selected.
    void _MakeFontSelect(HDC dc, LOGFONTW lf) const;  // NOLINT(bugprone-reserved-identifier): the name is given
    void DeleteFonts() noexcept;
    void CopyFonts(const xTAttribTable& other);
    /// Rebuilds the fonts from m_logFont; a null `dc` does nothing.
    void ReloadFonts(CDC* dc);
    /// @param key  FONT_ bits @return the font of that style, owned by the table; null when there is none
    [[nodiscard]] HFONT FindFont(DWORD key) const noexcept;
    /// Makes the font of a print job, with the tab size beside it.
    void MakePrintFont(xTPrintFont& out) const;

    // Drawing and measuring
    /// Makes one flag current: its font and text colour, or its background, or both colours of a mark.
    void ApplyAttr(std::uint32_t flag, CWnd* wnd, CDC* dc);
    /// Applies all flags of a word, later ones overriding earlier ones.
    void ApplyAttrWord(std::uint32_t word, CWnd* wnd, CDC* dc);
    /// Draws a line, a copy on which the selection is marked already, with its left end at `_out_pos`.
    void show_that_str(const xTHighlightHook& hl, CDC* pDC, CWnd* pWnd, const xTMemStorage* pStor,
                       const xTExtString& str, POINT _out_pos);
    /// Draws a run and steps `pos.x` behind it.
    void DrawRun(WStrView run, POINT& pos, CDC* dc) const;
    /// @return width and height of a run in pixels; 0 by 0 for a null context or when the system does not tell
    [[nodiscard]] SIZE RunExtent(WStrView run, CDC* dc) const;
    /// @param pos      measure line `pos.line` up to column `pos.col`
    /// @param outCol   out, with `targetX`: the column under that pixel, by the mean width of the run it lies in
    /// @param targetX  in pixels from the left end of the line
    /// @return the width in pixels, 0 when something is missing
    int MeasureLine(const xTHighlightHook& hl, const xTPos& pos, CDC* dc, CWnd* wnd, const xTMemStorage* store,
                    std::int32_t* outCol = nullptr, const int* targetX = nullptr);

    /// The sizes as layout uses them, in pixels: at least 1 for a line, at least 0 for a character.
    LONG m_charHeight = 100;
    LONG m_charWidth = 0;
    std::uint32_t m_lastAttr = plainWord;  ///< the word of the last run drawn, whatever the line
    HBRUSH m_savedBrush = nullptr;         ///< what the first background displaced; the destructor puts it back
    CDC* m_dc;                             ///< the control's memory context, not owned

private:
    // What a device context is known to hold, so that the same thing is not set twice. Good only while nobody else can
    // reach the context: for the runs of one line, after the host has been asked.
    struct xTKnown {
        std::optional<DWORD> style;  // FONT_ bits of the font
        HBRUSH brush = nullptr;
        std::optional<COLORREF> text;
        std::optional<COLORREF> back;
    };

    bool BuildFonts(LOGFONTW* lf, CDC* dc);
    void Measure(HDC dc) noexcept;
    void Recover(const xTExceptSettings& e, CDC* dc);
    void SelectTemporaryFont(CDC* dc);
    void DropDisplaced(HGDIOBJ font) noexcept;
    void SelectFont(HDC dc, DWORD key) const;
    void SelectStyle(DWORD style, CDC* dc, xTKnown& known) const;
    void SelectBrush(COLORREF color, CDC* dc, xTKnown& known);
    void ApplyGuarded(std::uint32_t flag, CWnd* wnd, CDC* dc, xTKnown& known);
    [[nodiscard]] bool WearAll(const xTLook& look, CWnd* wnd, CDC* dc, xTKnown& known);
    void Wear(const xTLook& look, CWnd* wnd, CDC* dc, xTKnown& known);
    void ApplyWord(std::uint32_t word, CWnd* wnd, CDC* dc, xTKnown& known);
    void DrawBand(std::uint32_t flag, int y, std::span<const std::uint32_t> words, CWnd* wnd, CDC* dc, xTKnown& known);
    void DrawRuns(const xTExtString& str, std::span<const std::uint32_t> words, POINT pos, CWnd* wnd, CDC* dc,
                  xTKnown& known);

    [[nodiscard]] RECT VisibleArea(CDC* dc) const noexcept;

    struct xTHit {
        std::int32_t* outCol;
        const int* targetX;
    };
    int MeasureRuns(WStrView text, std::span<const std::uint32_t> words, CWnd* wnd, CDC* dc, const xTHit& hit);
    [[nodiscard]] int TabStop() const noexcept;
    [[nodiscard]] bool IsOwn(const CDC* dc) const noexcept;
    [[nodiscard]] bool HasFonts(std::uint32_t styles) const noexcept;
    [[nodiscard]] const xTAsciiFace* FaceToGather(WStrView run, const xTLook& look) const noexcept;
    [[nodiscard]] bool Gather(xTRunBatch& batch, WStrView run, std::uint32_t word, LONG x, const RECT& visible) const;
    void DrawBatch(xTRunBatch& batch, LONG y, CWnd* wnd, CDC* dc, xTKnown& known);
    [[nodiscard]] const xTAsciiFace* FaceFor(WStrView run, CDC* dc, const xTKnown& known);
    [[nodiscard]] LONG RunWidth(WStrView run, CDC* dc, const xTKnown& known);
    void DrawRunText(WStrView run, POINT pos, CDC* dc, const xTAsciiFace* face = nullptr) const;

    std::array<xTFont, fontKeys> m_fonts;
    std::array<std::optional<xTAsciiFace>, fontKeys> m_faces;  // of the fonts on m_dc that were used
    xTFont m_temporary;  // keeps the device context busy while the fonts are rebuilt; the new base font displaces it
    xTBrush m_brush;     // the background brush last made; it stays selected until the next one displaces it
    COLORREF m_brushColor = 0;
};
