#include "api/Caret.h"

#include "framework/win/CWnd.h"

HWND xTCaret::OwnerWindow() const noexcept
{
    return m_owner ? m_owner->GetSafeHwnd() : nullptr;
}

void xTCaret::Create(const POINT* position) noexcept
{
    if (!HasFocus() || m_created)
        return;
    m_created = ::CreateCaret(OwnerWindow(), nullptr, m_width, m_height) != 0;
    m_known = false;
    if (!m_created)
        return;
    if (position)
        MoveTo(*position);
    ::ShowCaret(OwnerWindow());
}

void xTCaret::Destroy() noexcept
{
    if (!m_created)
        return;
    m_created = false;
    m_known = false;
    m_hidden = 0;
    ::HideCaret(OwnerWindow());  // a failure changes nothing: the caret goes anyway
    ::SetCaretPos(0, 0);
    ::DestroyCaret();
}

void xTCaret::SetHeight(int height) noexcept
{
    if (height == m_height || !HasFocus())
        return;
    m_height = height;
    Recreate();
}

// A caret that lost its state, for instance because another window made one, comes back shown, whatever was asked for.
// It is lost to a window in focus only, so the focus is asked for when a call has failed: asking is a call to the display
// server, and the caret of a window without the focus is destroyed.
void xTCaret::Show() noexcept
{
    if (!m_created || (m_hidden > 0 && --m_hidden > 0))
        return;
    if (!::ShowCaret(OwnerWindow()) && HasFocus())
        Recreate();
}

void xTCaret::Hide() noexcept
{
    if (!m_created || m_hidden++ > 0)
        return;
    if (!::HideCaret(OwnerWindow()) && HasFocus())
        Recreate();
}

void xTCaret::Recreate() noexcept
{
    const POINT position = Position();
    Destroy();
    Create(&position);
}

POINT xTCaret::Position() const noexcept
{
    if (!m_known) {
        ::GetCaretPos(&m_position);
        m_known = true;
    }
    return m_position;
}

void xTCaret::MoveTo(POINT position) noexcept
{
    if (m_created && m_known && position.x == m_position.x && position.y == m_position.y)
        return;
    ::SetCaretPos(position.x, position.y);
    m_position = position;
    m_known = m_created;
}
