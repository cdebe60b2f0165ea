#include "api/EditorCtrl.h"

void CEditorCtrl::ReloadSettings(const xTSettingsBlock& block)
{
    if (!m_attribs)
        return;
    m_attribs->ReloadSettings(&block, m_memDC.get());
    // A lost font shows a message box, and while it stands the host may destroy the control.
    if (m_hWnd)
        Invalidate();
}
