#include "api/PaintHold.h"

#include "diagnostics/Guarded.h"

// The left button: clicks, the drag selection, the double click. The other buttons are the host's affair.

namespace {

constexpr POINT noPoint{-1, -1};

[[nodiscard]] POINT PointOf(LPARAM lParam) noexcept
{
    const POINTS point = MAKEPOINTS(lParam);  // signed: a captured pointer may be left of or above the window
    return {point.x, point.y};
}

}  // namespace

LRESULT CEditorCtrl::OnLButtonDown(const xTMessage& message)
{
    Guarded([&] {
        ::SetFocus(m_hWnd);
        CaretToClick(PointOf(message.lParam));
        if (m_store) {
            if (!PressInsideSelection()) {
                m_store->clear_selection();
                m_mouseState = xTMouseState::down;
            }
            m_mouseAnchor = m_store->caret;
            ::SetCapture(m_hWnd);
        }
        m_caret.Show();
        Default(message);
    });
    return 0;
}

// Arms the drag. A read-only control cannot start one, so there every press begins a selection.
bool CEditorCtrl::PressInsideSelection()
{
    m_dragCandidate = m_editable && CaretInSelection();
    return m_dragCandidate;
}

bool CEditorCtrl::CaretInSelection() const noexcept
{
    return HasSelection() && m_store->first() <= m_store->caret && m_store->caret <= m_store->last();
}

// A press inside the selection that was released without a move leaves the drag armed: the next move begins one, which
// ends at once since no button is down. Kept on purpose.
LRESULT CEditorCtrl::OnMouseMove(const xTMessage& message)
{
    Guarded([&] {
        if (m_dragCandidate && CaretInSelection()) {
            StartDrag();
            return;
        }
        const POINT point = PointOf(message.lParam);
        const RECT client = ClientRect();
        const bool inside = ::PtInRect(&client, point) != 0;
        ShowPointer(inside);
        if (inside && (message.wParam & MK_LBUTTON))  // outside the step is left to the timer
            SelectionStep(point);
        Default(message);
        ForwardToGrandparent(message);
    });
    return 0;
}

void CEditorCtrl::ShowPointer(bool inside) noexcept
{
    if (inside || ::GetCapture() == m_hWnd)
        m_previousCursor = ::SetCursor(m_textCursor);
    else if (m_previousCursor)
        ::SetCursor(m_previousCursor);
}

// The coordinates stay those of this control.
void CEditorCtrl::ForwardToGrandparent(const xTMessage& message) const noexcept
{
    const HWND parent = m_hWnd ? ::GetParent(m_hWnd) : nullptr;
    const HWND grandparent = parent ? ::GetParent(parent) : nullptr;
    if (grandparent)
        ::SendMessageW(grandparent, message.id, message.wParam, message.lParam);
}

// The host hears of a step and may do anything then, up to destroying the control. A button let go of in the middle of a
// step ends the drag selection there.
void CEditorCtrl::SelectionStep(POINT point)
{
    Guarded([&] {
        if (!m_store || m_mouseState == xTMouseState::idle)
            return;
        const xTPos before = m_store->caret;
        CaretToPoint(point, false);
        if (!m_store || m_store->caret == before)
            return;
        m_mouseState = xTMouseState::down;
        const xTPos now = m_store->caret;
        BringIntoViewUnseen(now.line);
        if (!m_store || m_mouseState == xTMouseState::idle)
            return;
        if (!m_store->is_valid_pos(m_mouseAnchor))
            m_mouseAnchor = m_store->caret;  // the host has put another text in place under the pressed button
        m_store->select_range(m_mouseAnchor, m_store->is_valid_pos(now) ? now : m_store->caret);
        Invalidate();
        UpdateNow();
        NotifyHost(false, 0);
        if (m_mouseState == xTMouseState::down)
            m_mouseState = xTMouseState::selecting;
    });
}

// No half-scrolled view is seen: the picture neither moves nor is painted until all of it comes anew.
void CEditorCtrl::BringIntoViewUnseen(std::int32_t line)
{
    {
        const xTPaintHold hold(*this, xTLater::picture);
        MoveCaretTo(line, -1, false, false, true);
    }
    Invalidate();
}

// The pointer stands still, perhaps outside the client area: the further out, the more lines a step scrolls.
void CEditorCtrl::FollowHeldPointer()
{
    POINT point{};
    if (::GetCursorPos(&point))
        ::ScreenToClient(m_hWnd, &point);
    m_lastMousePoint = noPoint;  // the same point counts as a new one
    SelectionStep(point);
}

// What belongs to the pressed button is reset by the message that this brings.
LRESULT CEditorCtrl::OnLButtonUp(const xTMessage& message)
{
    Guarded([&] {
        ::ReleaseCapture();
        Default(message);
    });
    return 0;
}

LRESULT CEditorCtrl::OnCaptureChanged(const xTMessage& message)
{
    Guarded([&] {
        m_mouseAnchor = {0, 0};
        m_mouseState = xTMouseState::idle;
        m_lastMousePoint = noPoint;
        NotifyHost(false, 0);
        Default(message);
    });
    return 0;
}

// The first press of the two has put the caret to the point already.
LRESULT CEditorCtrl::OnLButtonDblClk(const xTMessage& message)
{
    Guarded([&] {
        if (message.wParam != MK_LBUTTON || !m_store)
            return;
        const xTPos at = m_store->caret;
        xTExtString line;
        m_store->get_line(at.line, line);
        std::int32_t start = 0;
        std::int32_t end = 0;
        if (!line.WordBounds(at.col, &start, &end))
            return;  // behind the end of the line
        const bool hadSelection = HasSelection();  // the first press has left it, so its lines need a new picture too
        m_store->select_range({at.line, start}, {at.line, end});
        m_store->set_caret({at.line, end});
        hadSelection ? Invalidate() : InvalidateCaretLine();
    });
    return 0;
}
