#include "appearance/AttribTable.h"
#include "diagnostics/Guarded.h"
#include "diagnostics/comdefines.h"
#include "framework/win/CDC.h"

#include <algorithm>

namespace {

constexpr const WCHAR* brokenFont = _T("Испорчен шрифт редактора!");
constexpr const WCHAR* missingFont = _T("Шрифт редактора не найден!");

// The base font is made first; the others follow in this order.
constexpr DWORD styledKeys[] = {1, 2, 4, 3, 5, 6, 7};

xTFont MakeFont(const LOGFONTW& lf) noexcept
{
    const LOGFONTW usable = xTAttribData::UsableFont(lf);
    return xTFont(::CreateFontIndirectW(&usable));
}

}  // namespace

// A font failure inside the rebuild that follows a font failure takes the same way again, without a limit; it is a loop,
// so that the stack does not grow behind the message box. The failure is told to the caller whatever came of it.
bool xTAttribTable::create_fonts(LOGFONTW* lf, CDC* dc)
{
    if (!lf || !dc)
        return false;
    bool failed = false;
    for (;;) {
        try {
            return BuildFonts(lf, dc) && !failed;
        } catch (const xTExceptSettings& e) {
            failed = true;
            ShowSettingsError(e);
        } catch (...) {
            ReportCurrent({__builtin_FILE(), __builtin_LINE()});
            return false;
        }
        if (!dc->GetSafeHdc())
            return false;  // the control went while the message box stood
        SelectTemporaryFont(dc);
        *lf = m_logFont;
    }
}

bool xTAttribTable::BuildFonts(LOGFONTW* lf, CDC* dc)
{
    m_charHeight = 100;
    m_logFont = *lf;
    xTFont base = MakeFont(m_logFont);
    if (!base)
        return false;
    const HGDIOBJ displaced = ::SelectObject(dc->m_hAttribDC, base.get());
    if (!displaced)
        throw xTExceptSettings{brokenFont, _T("create_fonts(...)")};
    DropDisplaced(displaced);
    DeleteFonts();
    m_fonts[0] = std::move(base);
    for (const DWORD key : styledKeys) {
        *lf = m_logFont;
        add_font(lf, key, dc->m_hAttribDC);
    }
    *lf = m_logFont;
    return true;
}

// What the new base font displaced is the temporary font, one of the old eight, which DeleteFonts takes, or the
// context's own first font.
void xTAttribTable::DropDisplaced(HGDIOBJ font) noexcept
{
    if (font == m_temporary.get())
        m_temporary.reset();
    else if (std::none_of(m_fonts.begin(), m_fonts.end(), [&](const xTFont& own) { return own.get() == font; }))
        ::DeleteObject(font);
}

void xTAttribTable::add_font(LOGFONTW* lf, DWORD key, HDC dc)
{
    if (key & FONT_ITALIC)
        lf->lfItalic = 1;
    if (key & FONT_BOLD)
        lf->lfWeight = FW_BOLD;
    if (key & FONT_UNDERLINE)
        lf->lfUnderline = 1;
    xTFont font = MakeFont(*lf);
    if (!font || key >= fontKeys)
        return;
    m_fonts[key] = std::move(font);
    m_faces[key].reset();
    const HGDIOBJ previous = ::SelectObject(dc, m_fonts[key].get());
    if (!previous)
        throw xTExceptSettings{brokenFont, _T("add_font(...)")};
    ::SelectObject(dc, previous);
    Measure(dc);
}

// Measured over 33 spaces, so that a fractional width averages out. Layout divides by the height.
void xTAttribTable::Measure(HDC dc) noexcept
{
    constexpr int count = 33;
    static constexpr WCHAR spaces[] = _T("                                 ");
    static_assert(std::size(spaces) == count + 1);
    RECT rect{0, 0, 1, 1};
    ::DrawTextW(dc, spaces, count, &rect, DT_CALCRECT | DT_SINGLELINE);
    m_charWidth = std::max<LONG>(0, (rect.right - rect.left) / count);
    m_charHeight = std::max<LONG>(1, rect.bottom - rect.top);
}

void xTAttribTable::_MakeFontSelect(HDC dc, LOGFONTW lf) const
{
    SelectFont(dc, FontKey(lf));
}

void xTAttribTable::SelectFont(HDC dc, DWORD key) const
{
    const HFONT font = FindFont(key);
    if (!font)
        throw xTExceptSettings{missingFont, _T("_MakeFontSelect(...)")};
    if (!::SelectObject(dc, font))
        throw xTExceptSettings{brokenFont, _T("_MakeFontSelect(...)")};
}

HFONT xTAttribTable::FindFont(DWORD key) const noexcept
{
    return key < fontKeys ? m_fonts[key].get() : nullptr;
}

// Another context may have another resolution: what is measured there tells nothing about the control's own. A font is
// asked about when it is first used, few of the eight being so; the context holds it then.
const xTAsciiFace* xTAttribTable::FaceFor(WStrView run, CDC* dc, const xTKnown& known)
{
    if (!known.style || !IsOwn(dc))
        return nullptr;
    std::optional<xTAsciiFace>& face = m_faces[*known.style];
    if (!face)
        face.emplace(dc->m_hDC);
    return face->Holds(run) ? &*face : nullptr;
}

// No font dies while the control's context holds it: the system would keep it alive and it would be lost.
void xTAttribTable::DeleteFonts() noexcept
{
    const HDC dc = m_dc ? m_dc->m_hAttribDC : nullptr;
    const HGDIOBJ current = dc ? ::GetCurrentObject(dc, OBJ_FONT) : nullptr;
    for (xTFont& font : m_fonts) {
        if (font && font.get() == current)
            ::SelectObject(dc, ::GetStockObject(SYSTEM_FONT));
        font.reset();
    }
    m_faces.fill({});
}

void xTAttribTable::CopyFonts(const xTAttribTable& other)
{
    if (this == &other)
        return;
    DeleteFonts();
    for (DWORD key = 0; key < fontKeys; ++key) {
        LOGFONTW lf;
        if (const HFONT font = other.FindFont(key); font && ::GetObjectW(font, sizeof lf, &lf))
            m_fonts[key].reset(::CreateFontIndirectW(&lf));
    }
}

void xTAttribTable::ReloadFonts(CDC* dc)
{
    if (!dc)
        return;
    SelectTemporaryFont(dc);
    LOGFONTW lf = m_logFont;
    create_fonts(&lf, dc);
}

// It takes the place of the font in the context, so that the old fonts can go; the new base font displaces it.
void xTAttribTable::SelectTemporaryFont(CDC* dc)
{
    xTFont font = MakeFont(m_logFont);
    if (font && ::SelectObject(dc->m_hAttribDC, font.get()))
        m_temporary = std::move(font);
}

// The order matters little, an empty block changing nothing; but the fonts come last.
void xTAttribTable::Recover(const xTExceptSettings& e, CDC* dc)
{
    ShowSettingsError(e);
    const xTSettingsBlock empty;
    LoadSettings(&empty);
    if (dc && dc->GetSafeHdc())
        ReloadFonts(dc);
}
