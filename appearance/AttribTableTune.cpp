#include "appearance/AttribTableTune.h"

#include "diagnostics/Guarded.h"

#include <utility>

namespace {

// What a framework asks for when a user wants help on a window; the host's own window answers.
constexpr UINT commandHelp = 0x365;
constexpr UINT helpHitTest = 0x366;

}  // namespace

CTunePage::CTunePage(std::shared_ptr<xTTunePreview> preview) noexcept : m_preview(std::move(preview)) {}

CTunePage::~CTunePage()
{
    LeavePreview();  // a page that never got its window
}

void CTunePage::OnFault() noexcept
{
    ReportCurrent({__FILE__, __LINE__});
}

void CTunePage::LeavePreview() noexcept
{
    if (std::exchange(m_counted, false))
        m_preview->DropReference();
}

bool CTunePage::DialogProc(const xTMessage& message)
{
    switch (message.id) {
    case WM_INITDIALOG:
        if (!std::exchange(m_initialised, true))
            OnInit();
        return false;  // the focus stays where the host has it
    case WM_COMMAND:
        // Whatever a handler brings about, the control that it works on lives until it is back.
        if (CWnd* control = m_preview->Control()) {
            const xTWndScope scope(*control);
            OnCommand(LOWORD(message.wParam), HIWORD(message.wParam));
        }
        return false;
    case WM_DESTROY:
        OnClose();
        LeavePreview();
        return false;
    case commandHelp:
    case helpHitTest:
        Answer(::SendMessageW(::GetParent(m_hWnd), message.id, message.wParam, message.lParam));
        return true;
    default:
        return false;
    }
}

void CTunePage::InvalidatePreview() const
{
    if (const CWnd* control = m_preview->Control())
        ::InvalidateRect(control->m_hWnd, nullptr, TRUE);
}

void CTunePage::RepaintPreview() const
{
    InvalidatePreview();
    if (const CWnd* control = m_preview->Control())
        ::UpdateWindow(control->m_hWnd);
}

bool CTunePage::IsChecked(int id) const noexcept
{
    return ::SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void CTunePage::Check(int id, bool on) noexcept
{
    ::SendMessageW(Item(id), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}
