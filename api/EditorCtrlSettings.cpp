#include "api/EditorCtrl.h"

#include "appearance/Themes.h"

void CEditorCtrl::ReloadSettings(const xTSettingsBlock& block)
{
    if (!m_attribs)
        return;
    m_attribs->ReloadSettings(&block, m_memDC.get());
    // A lost font shows a message box, and while it stands the host may destroy the control.
    if (m_hWnd)
        Invalidate();
}

std::uint32_t CEditorCtrl::SaveSettings(xTSettingsBlock* block) const
{
    return m_attribs ? m_attribs->SaveSettings(block) : 0;
}

void CEditorCtrl::ApplyTheme(std::uint32_t theme)
{
    if (theme < 1 || theme > themeCount || !m_attribs)
        return;
    m_attribs->DeleteFonts();
    m_attribs->SetStandardTheme(m_memDC.get(), &m_settings, theme, m_defaultTheme);
}
