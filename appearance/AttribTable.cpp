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

enum class xTApplies : std::uint8_t { background, fontAndText, markColors };

struct xTApplyRow {
    std::uint32_t flag;
    xTApplies how;
};

// The order in which the flags of a word are applied: a later one overrides an earlier one. The comment wins over the
// host's classes, a user class over the comment; the three marks at the end change colours only.
constexpr xTApplyRow applyRows[] = {
    {ATTR_BACKGROUND, xTApplies::background},
    {ATTR_TEXT, xTApplies::fontAndText},
    {ATTR_KEYWORD, xTApplies::fontAndText},
    {ATTR_NUMBER, xTApplies::fontAndText},
    {ATTR_IDENTIFIER, xTApplies::fontAndText},
    {ATTR_SYMBOL, xTApplies::fontAndText},
    {ATTR_STRING, xTApplies::fontAndText},
    {ATTR_STRING_SPECIAL, xTApplies::fontAndText},
    {ATTR_STRING_KEYWORD, xTApplies::fontAndText},
    {ATTR_COMMENT, xTApplies::fontAndText},
    {ATTR_USER1, xTApplies::fontAndText},
    {ATTR_USER2, xTApplies::fontAndText},
    {ATTR_USER3, xTApplies::fontAndText},
    {ATTR_USER4, xTApplies::fontAndText},
    {ATTR_USER5, xTApplies::fontAndText},
    {ATTR_BREAKPOINT, xTApplies::markColors},
    {ATTR_EXECPOINT, xTApplies::markColors},
    {ATTR_SELECTION, xTApplies::markColors},
};

const xTApplyRow* FindRow(std::uint32_t flag) noexcept
{
    for (const xTApplyRow& row : applyRows)
        if (row.flag == flag)
            return &row;
    return nullptr;
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

void xTAttribTable::ApplyWord(std::uint32_t word, CWnd* wnd, CDC* dc, xTKnown& known)
{
    for (const xTApplyRow& row : applyRows)
        if (word & row.flag)
            ApplyGuarded(row.flag, wnd, dc, known);
}

void xTAttribTable::ApplyGuarded(std::uint32_t flag, CWnd* wnd, CDC* dc, xTKnown& known)
{
    try {
        const std::int32_t entry = FindEntry(flag);
        if (entry >= 0 && wnd && dc && dc->GetSafeHdc())
            ApplyEntry(flag, m_colors[entry], wnd, dc, known);
    } catch (const xTExceptSettings& e) {
        known = {};
        Recover(e, dc);
    } catch (...) {
        ReportCurrent({__builtin_FILE(), __builtin_LINE()});
    }
}

void xTAttribTable::ApplyEntry(std::uint32_t flag, COLORREF color, CWnd* wnd, CDC* dc, xTKnown& known)
{
    const xTApplyRow* row = FindRow(flag);
    if (!row)
        return;  // a settings block may hold any flag
    switch (row->how) {
    case xTApplies::background:
        dc->SetBkColor(color);
        if (wnd->GetSafeHwnd())
            SelectBrush(color, dc, known);
        break;
    case xTApplies::markColors:
        dc->SetBkColor(color);
        if (const std::int32_t background = FindEntry(ATTR_BACKGROUND); background >= 0)
            dc->SetTextColor(m_colors[background]);
        break;
    case xTApplies::fontAndText:
        LOGFONTW lf;
        GetAttrFont(flag, &lf);
        SelectFont(lf, dc, known);
        dc->SetTextColor(color);
        break;
    }
}

// Selecting what is selected already costs forty times as much as asking.
void xTAttribTable::SelectFont(const LOGFONTW& lf, CDC* dc, xTKnown& known) const
{
    const HFONT font = FindFont(FontKey(lf));
    if (font && font == known.font)
        return;
    const auto holds = [&](HDC handle) { return font && ::GetCurrentObject(handle, OBJ_FONT) == font; };
    if (!holds(dc->m_hDC))
        _MakeFontSelect(dc->m_hDC, lf);
    if (dc->m_hAttribDC != dc->m_hDC && !holds(dc->m_hAttribDC))
        _MakeFontSelect(dc->m_hAttribDC, lf);
    known.font = font;
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
