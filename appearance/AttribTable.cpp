#include "appearance/AttribTable.h"

#include "diagnostics/Guarded.h"
#include "framework/win/CDC.h"
#include "framework/win/CWnd.h"

namespace {

// 10 points in Courier New, made as the framework makes a font of so many points on a device.
LOGFONTW DefaultFont(HDC dc) noexcept
{
    constexpr int tenthsOfPoint = 100;
    constexpr int tenthsPerInch = 720;
    LOGFONTW lf{};
    lf.lfHeight = -::MulDiv(::GetDeviceCaps(dc, LOGPIXELSY), tenthsOfPoint, tenthsPerInch);
    lf.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpynW(lf.lfFaceName, L"Courier New", LF_FACESIZE);
    const xTFont font(::CreateFontIndirectW(&lf));
    ::GetObjectW(font.get(), sizeof lf, &lf);
    lf.lfOutPrecision = OUT_TT_ONLY_PRECIS;
    return lf;
}

}  // namespace

xTAttribTable::xTAttribTable(CDC* dc, const xTSettingsBlock* settings, std::uint32_t defaultTheme) : m_dc(dc)
{
    Guarded([&] {
        m_logFont = DefaultFont(dc ? dc->m_hAttribDC : xTClientDC(nullptr).get());
        SetStandardTheme(dc, settings, 0, defaultTheme);
    });
}

xTAttribTable::~xTAttribTable()
{
    if (m_savedBrush && m_dc)
        ::SelectObject(m_dc->m_hDC, m_savedBrush);
    m_brush.reset();
    DeleteFonts();
}

void xTAttribTable::SetStandardTheme(CDC* dc, const xTSettingsBlock* settings, std::uint32_t theme,
                                     std::uint32_t fallback)
{
    Guarded([&] {
        m_count = 0;
        if (theme != 0)
            FillTheme(theme);
        else if (!LoadSettings(settings))
            FillTheme(fallback == 0 ? 1 : fallback);
        LOGFONTW lf = m_logFont;
        create_fonts(&lf, dc);
    });
}

void xTAttribTable::ReloadSettings(const xTSettingsBlock* block, CDC* dc)
{
    if (block)
        LoadSettings(block);
    ReloadFonts(dc);
}

void xTAttribTable::ApplyAttr(std::uint32_t flag, CWnd* wnd, CDC* dc)
{
    xTKnown nothing;
    ApplyGuarded(flag, wnd, dc, nothing);
}

void xTAttribTable::ApplyAttrWord(std::uint32_t word, CWnd* wnd, CDC* dc)
{
    xTKnown nothing;
    ApplyWord(word, wnd, dc, nothing);
}

// The context is given what the flags come to. Where a font on the way is missing or broken they are applied one by one,
// so that the user is told of each.
void xTAttribTable::ApplyWord(std::uint32_t word, CWnd* wnd, CDC* dc, xTKnown& known)
{
    if (!wnd || !dc || !dc->GetSafeHdc() || WearAll(LookOf(word), wnd, dc, known))
        return;
    for (const xTApplyRow& row : ApplyRows())
        if (word & row.flag)
            ApplyGuarded(row.flag, wnd, dc, known);
}

bool xTAttribTable::HasFonts(std::uint32_t styles) const noexcept
{
    for (DWORD style = 0; style < fontKeys; ++style)
        if ((styles >> style & 1) && !FindFont(style))
            return false;
    return true;
}

bool xTAttribTable::WearAll(const xTLook& look, CWnd* wnd, CDC* dc, xTKnown& known)
{
    if (!HasFonts(look.styles))
        return false;
    try {
        Wear(look, wnd, dc, known);
        return true;
    } catch (const xTExceptSettings&) {
        known = {};
        return false;
    }
}

void xTAttribTable::ApplyGuarded(std::uint32_t flag, CWnd* wnd, CDC* dc, xTKnown& known)
{
    try {
        if (wnd && dc && dc->GetSafeHdc())
            Wear(LookOfFlag(flag), wnd, dc, known);
    } catch (const xTExceptSettings& e) {
        known = {};
        Recover(e, dc);
    } catch (...) {
        ReportCurrent({__builtin_FILE(), __builtin_LINE()});
    }
}

void xTAttribTable::Wear(const xTLook& look, CWnd* wnd, CDC* dc, xTKnown& known)
{
    if (look.back && look.back != known.back)
        dc->SetBkColor(*(known.back = look.back));
    if (look.brush && wnd->GetSafeHwnd())
        SelectBrush(*look.brush, dc, known);
    if (look.style && look.style != known.style)
        SelectStyle(*look.style, dc, known);
    if (look.text && look.text != known.text)
        dc->SetTextColor(*(known.text = look.text));
}

// Selecting what is selected already costs forty times as much as asking.
void xTAttribTable::SelectStyle(DWORD style, CDC* dc, xTKnown& known) const
{
    const HFONT font = FindFont(style);
    const auto holds = [&](HDC handle) { return font && ::GetCurrentObject(handle, OBJ_FONT) == font; };
    if (!holds(dc->m_hDC))
        SelectFont(dc->m_hDC, style);
    if (dc->m_hAttribDC != dc->m_hDC && !holds(dc->m_hAttribDC))
        SelectFont(dc->m_hAttribDC, style);
    known.style = style;
}

// A brush is made when the colour changes, not at each call; the context holds it as if it had been made anew. What it
// displaces the first time goes back when the table dies; later it is our own brush of before.
void xTAttribTable::SelectBrush(COLORREF color, CDC* dc, xTKnown& known)
{
    xTBrush old;
    if (!m_brush || m_brushColor != color) {
        xTBrush brush(::CreateSolidBrush(color));
        if (!brush)
            return;
        old = std::exchange(m_brush, std::move(brush));
        m_brushColor = color;
    }
    if (known.brush != m_brush.get() && ::GetCurrentObject(dc->m_hDC, OBJ_BRUSH) != m_brush.get()) {
        const HGDIOBJ displaced = ::SelectObject(dc->m_hDC, m_brush.get());
        if (!m_savedBrush)
            m_savedBrush = static_cast<HBRUSH>(displaced);
    }
    known.brush = m_brush.get();
}
