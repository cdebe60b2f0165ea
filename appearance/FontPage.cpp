#include "appearance/FontPage.h"

#include "appearance/AttribTable.h"
#include "framework/win/CDC.h"

#include <commdlg.h>

#include <optional>

namespace {

enum : int { idTabSize = 1005, idSpaces = 1028, idTabs = 1029, idFont = 1030 };

constexpr std::int32_t leastTab = 1;
constexpr std::int32_t mostTab = 8;
constexpr const WCHAR* tabSizeRange = L"Введите целое число от 1 до 8.";

// Fixed-pitch fonts of screen and printer from 4 to 32 points; the one in use stands first.
std::optional<LOGFONTW> AskForFont(HWND owner, HDC dc, LOGFONTW font)
{
    CHOOSEFONTW choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = owner;
    choice.hDC = dc;
    choice.lpLogFont = &font;
    choice.Flags = CF_SCREENFONTS | CF_PRINTERFONTS | CF_INITTOLOGFONTSTRUCT | CF_LIMITSIZE | CF_FIXEDPITCHONLY;
    choice.nFontType = SCREEN_FONTTYPE | REGULAR_FONTTYPE;
    choice.nSizeMin = 4;
    choice.nSizeMax = 32;
    return ::ChooseFontW(&choice) ? std::optional(font) : std::nullopt;
}

}  // namespace

const xTCommandRow<CDial1> CDial1::commands[] = {
    {idTabSize, EN_KILLFOCUS, &CDial1::OnTabSizeLeft},
    {idSpaces, BN_CLICKED, &CDial1::OnTabMode},
    {idTabs, BN_CLICKED, &CDial1::OnTabMode},
    {idFont, BN_CLICKED, &CDial1::OnChooseFont},
};

std::span<const xTCommandRow<CDial1>> CDial1::Commands() noexcept
{
    return commands;
}

void CDial1::OnInit()
{
    const xTAttribTable* table = Table();
    if (!table)
        return;
    m_tabSize = table->m_tabSize;
    Check(idTabs, table->m_keepTabs);
    Check(idSpaces, !table->m_keepTabs);
    ::SetDlgItemInt(m_hWnd, idTabSize, static_cast<UINT>(m_tabSize), TRUE);
}

void CDial1::OnTabMode(int)
{
    TakeTabs();
}

void CDial1::OnTabSizeLeft(int)
{
    if (AcceptTabSize())
        TakeTabs();
    else
        RefuseTabSize();
}

// @return false when the field holds no whole number in the range; the last accepted one then stays
bool CDial1::AcceptTabSize() noexcept
{
    BOOL isNumber = FALSE;
    const auto size = static_cast<std::int32_t>(::GetDlgItemInt(m_hWnd, idTabSize, &isNumber, TRUE));
    if (!isNumber || size < leastTab || size > mostTab)
        return false;
    m_tabSize = size;
    return true;
}

// The field asks to be put right. Not so when the page is being destroyed, and not when the user has turned to another
// program: the field then has the focus again when he comes back.
void CDial1::RefuseTabSize()
{
    if (!::IsWindowVisible(m_hWnd) || !::GetFocus())
        return;
    ShowMessageBox(m_hWnd, tabSizeRange);
    if (const HWND field = m_hWnd ? Item(idTabSize) : nullptr) {
        ::SetFocus(field);
        ::SendMessageW(field, EM_SETSEL, 0, -1);
    }
}

void CDial1::TakeTabs()
{
    xTAttribTable* table = Table();
    if (!table)
        return;
    table->m_keepTabs = IsChecked(idTabs);
    table->m_tabSize = m_tabSize;
    Check(idSpaces, !table->m_keepTabs);
    InvalidatePreview();
}

void CDial1::OnChooseFont(int)
{
    const xTAttribTable* before = Table();
    if (!before || !before->m_dc)
        return;
    const auto chosen = AskForFont(m_hWnd, before->m_dc->GetSafeHdc(), xTAttribData::UsableFont(before->m_logFont));
    xTAttribTable* table = Table();  // while the dialog stood the host may have destroyed the preview
    if (!chosen || !table)
        return;
    LOGFONTW font = *chosen;
    // Slant and underline belong to the entries; in the base font they would show in all of them.
    font.lfItalic = FALSE;
    font.lfUnderline = FALSE;
    table->create_fonts(&font, table->m_dc);
    InvalidatePreview();
}
