#include "appearance/HighlightPage.h"

#include "appearance/AttribTable.h"
#include "appearance/Themes.h"
#include "framework/base/Platform.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <vector>

namespace {

enum : int {
    idTheme = 1011,
    idElements = 1014,
    idHighlight = 1015,
    idBold = 1016,
    idItalic = 1017,
    idUnderline = 1018,
    idGridPlace = 1031,
    idPreviewPlace = 1032,
    idGrid = 1033,
};

constexpr unsigned sampleTextId = 104;

struct xTElementRow {
    unsigned nameId;
    std::uint32_t flag;
};

// In the order of the list.
constexpr xTElementRow elementRows[] = {
    {110, ATTR_IDENTIFIER}, {107, ATTR_KEYWORD},        {111, ATTR_SYMBOL},         {112, ATTR_STRING},
    {109, ATTR_NUMBER},     {108, ATTR_COMMENT},        {105, ATTR_BACKGROUND},     {106, ATTR_TEXT},
    {114, ATTR_SELECTION},  {113, ATTR_BREAKPOINT},     {115, ATTR_EXECPOINT},      {123, ATTR_STRING_SPECIAL},
    {124, ATTR_STRING_KEYWORD}, {125, ATTR_USER1},      {126, ATTR_USER2},          {127, ATTR_USER3},
    {128, ATTR_USER4},      {129, ATTR_USER5},
};

struct xTStyleRow {
    int id;
    bool (xTAttribData::*field)[xTAttribData::maxEntries];
};

constexpr xTStyleRow styleRows[] = {
    {idBold, &xTAttribData::m_bold},
    {idItalic, &xTAttribData::m_italic},
    {idUnderline, &xTAttribData::m_underline},
};

// The background and the three marks colour what stands there in another font.
constexpr bool HasFont(std::uint32_t flag) noexcept
{
    constexpr std::uint32_t without = ATTR_BACKGROUND | ATTR_SELECTION | ATTR_BREAKPOINT | ATTR_EXECPOINT;
    return (flag & without) == 0;
}

// @return the text of the selected row, empty when there is none
CString SelectedText(HWND list)
{
    const auto row = static_cast<WPARAM>(::SendMessageW(list, LB_GETCURSEL, 0, 0));
    const LRESULT length = ::SendMessageW(list, LB_GETTEXTLEN, row, 0);
    if (length <= 0)
        return {};
    std::vector<WCHAR> text(static_cast<std::size_t>(length) + 1);
    ::SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
    return CString(text.data());
}

void AddText(HWND list, UINT message, const CString& text) noexcept
{
    ::SendMessageW(list, message, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

}  // namespace

const xTCommandRow<CDial2> CDial2::commands[] = {
    {idHighlight, BN_CLICKED, &CDial2::OnHighlight}, {idTheme, CBN_SELCHANGE, &CDial2::OnTheme},
    {idElements, LBN_SELCHANGE, &CDial2::OnElement}, {idBold, BN_CLICKED, &CDial2::OnStyle},
    {idItalic, BN_CLICKED, &CDial2::OnStyle},        {idUnderline, BN_CLICKED, &CDial2::OnStyle},
    {idGrid, CColorSelectCtrl::chosen, &CDial2::OnColor},
};

std::span<const xTCommandRow<CDial2>> CDial2::Commands() noexcept
{
    return commands;
}

void CDial2::OnInit()
{
    FillLists();
    MakeGrid();
    TakePreview();
    const xTAttribTable* table = Table();
    if (!table)
        return;
    ShowElement(*table);
    Check(idHighlight, table->m_highlight);
    EnableAll(table->m_highlight);
}

void CDial2::FillLists()
{
    const HWND elements = Item(idElements);
    for (const xTElementRow& row : elementRows)
        AddText(elements, LB_ADDSTRING, PlatformString(row.nameId));
    ::SendMessageW(elements, LB_SETCURSEL, 0, 0);
    // Behind the row that stands for no theme, each theme is at the index of its number.
    const HWND themes = Item(idTheme);
    AddText(themes, CB_ADDSTRING, CString(L"-"));
    for (std::uint32_t theme = 1; theme <= themeCount; ++theme)
        AddText(themes, CB_ADDSTRING, PlatformString(ThemeNameId(theme)));
    ::SendMessageW(themes, CB_SETCURSEL, 0, 0);
}

void CDial2::MakeGrid()
{
    const HWND marker = Item(idGridPlace);
    auto* grid = new CColorSelectCtrl;
    const xTWndScope scope(*grid);
    if (!grid->Create(PlaceOf(idGridPlace), m_hWnd, idGrid)) {
        grid->DeleteWhenUnwound();
        return;
    }
    // In the Tab order it stands where its marker does.
    ::SetWindowPos(grid->m_hWnd, marker, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

CColorSelectCtrl* CDial2::Grid() const noexcept
{
    return CColorSelectCtrl::FromHandle(Item(idGrid));
}

void CDial2::TakePreview()
{
    CWnd* control = Preview().Control();
    if (!control)
        return;
    const xTWndScope scope(*control);
    const HWND wnd = control->m_hWnd;
    const RECT place = PlaceOf(idPreviewPlace);
    m_formerParent = ::GetParent(wnd);
    ::SetParent(wnd, m_hWnd);
    ::SetWindowLongPtrW(wnd, GWL_STYLE, ::GetWindowLongPtrW(wnd, GWL_STYLE) | WS_BORDER);
    ::SetWindowPos(wnd, HWND_BOTTOM, place.left, place.top, place.right - place.left, place.bottom - place.top,
                   SWP_NOACTIVATE | SWP_FRAMECHANGED);
    Preview().LoadText(PlatformString(sampleTextId).c_str());
    ::ShowWindow(wnd, SW_SHOW);
}

// The preview goes back before the page takes it along into its end. Where its former parent is gone, or was another
// page, it waits for the next page at a window of the system's.
void CDial2::OnClose()
{
    CWnd* control = Preview().Control();
    if (!control || ::GetParent(control->m_hWnd) != m_hWnd)
        return;  // another page has taken it
    const xTWndScope scope(*control);
    ::ShowWindow(control->m_hWnd, SW_HIDE);
    const HWND parents[] = {m_formerParent, Preview().FirstParent(), HWND_MESSAGE};
    std::find_if(std::begin(parents), std::end(parents), [&](HWND parent) {
        return (parent == HWND_MESSAGE || ::IsWindow(parent)) && control->m_hWnd && ::SetParent(control->m_hWnd, parent);
    });
}

std::uint32_t CDial2::SelectedFlag() const
{
    const CString text = SelectedText(Item(idElements));
    for (const xTElementRow& row : elementRows)
        if (!text.IsEmpty() && text == PlatformString(row.nameId))
            return row.flag;
    return 0;
}

void CDial2::ShowElement(const xTAttribTable& table)
{
    const std::uint32_t flag = SelectedFlag();
    const std::int32_t entry = table.FindEntry(flag);
    for (const xTStyleRow& row : styleRows) {
        ::EnableWindow(Item(row.id), HasFont(flag));
        Check(row.id, entry >= 0 && (table.*row.field)[entry]);
    }
    // A colour outside the palette has no cell, and the number 0 selects none.
    if (CColorSelectCtrl* grid = Grid())
        grid->Select(entry >= 0 ? xTAttribData::ColorRefToIndex(table.m_colors[entry]) : 0);
}

// All style boxes alike: for an element without a font they come back to life here. Kept on purpose.
void CDial2::EnableAll(bool on) noexcept
{
    for (const int id : {idElements, idTheme, idBold, idItalic, idUnderline, idGrid})
        ::EnableWindow(Item(id), on);
}

void CDial2::OnElement(int)
{
    if (const xTAttribTable* table = Table())
        ShowElement(*table);
}

void CDial2::OnStyle(int id)
{
    xTAttribTable* table = Table();
    const std::int32_t entry = table ? table->FindEntry(SelectedFlag()) : -1;
    if (entry < 0)
        return;
    for (const xTStyleRow& row : styleRows)
        if (row.id == id)
            (table->*row.field)[entry] = IsChecked(id);
    RepaintPreview();
}

// Style boxes and grid go on showing what the element had before: kept on purpose.
void CDial2::OnTheme(int)
{
    const LRESULT theme = ::SendMessageW(Item(idTheme), CB_GETCURSEL, 0, 0);
    if (theme < 1 || theme > static_cast<LRESULT>(themeCount))
        return;
    Preview().ApplyTheme(static_cast<std::uint32_t>(theme));
    InvalidatePreview();
}

void CDial2::OnHighlight(int)
{
    xTAttribTable* table = Table();
    if (!table)
        return;
    const bool on = IsChecked(idHighlight);
    table->m_highlight = on;
    RepaintPreview();
    if (m_hWnd)
        EnableAll(on);
}

void CDial2::OnColor(int)
{
    xTAttribTable* table = Table();
    const CColorSelectCtrl* grid = Grid();
    const std::uint32_t flag = SelectedFlag();
    if (!table || !grid || flag == 0)
        return;
    table->SetAttrColor(flag, grid->Selected());
    InvalidatePreview();
}
