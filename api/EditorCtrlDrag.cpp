#include "api/EditorCtrl.h"

#include "diagnostics/Guarded.h"
#include "editing/ClipboardText.h"
#include "editing/DroppedText.h"

#include <oleidl.h>

// A drag of the selection, from its start, and a drop on the control. Both may be the two ends of one drag: the drop then
// runs inside the drag's own loop, and what it does to `m_dragRange` tells the start that nothing is left to delete.

void CEditorCtrl::StartDrag()
{
    if (m_dragData.IsDragging())
        return;  // the host has sent a mouse move into the loop of the drag
    CString text;
    m_store->selected_text(text);
    to_crlf(text);
    ::ReleaseCapture();
    m_dragData.CacheGlobalData(CF_UNICODETEXT, TextBlock(text));
    if (!m_store)
        return;  // the host heard of the capture, and the control is gone
    m_dragRange = {m_store->first(), m_store->last()};
    const DWORD effect = m_dragData.DoDragDrop(DROPEFFECT_COPY | DROPEFFECT_MOVE);
    if (effect & DROPEFFECT_MOVE)
        DeleteDragged();
    m_dragCandidate = false;
    m_dragData.Empty();
}

// The source deletes what was moved to another place; a move within the control is done by the drop, as one step.
void CEditorCtrl::DeleteDragged()
{
    if (!m_operations || m_dragRange.first == xTPos::none || m_dragRange.last == xTPos::none)
        return;
    m_operations->add_delete(m_dragRange.first, m_dragRange.last);
    if (!m_store)
        return;
    m_store->set_caret(m_dragRange.first);
    if (!m_store)
        return;
    m_store->clear_selection();
    m_dragRange.first = m_dragRange.last;
}

void CEditorCtrl::on_drop(IDataObject* data, DWORD effect, POINT point)
{
    Guarded([&] {
        const CString text = DroppedText(data);
        if (text.IsEmpty() || !m_store || !m_operations)
            return;
        BringForward();
        if (m_store)
            CaretToRow(RowOfPoint(point.y), point.x);
        if (!m_store)
            return;
        const xTPos at = m_store->caret;
        // Both ends count as inside, so a drop on the selection's own last character moves nothing. A drag from elsewhere
        // is taken for our own while a press inside the selection has armed one. Both on purpose.
        const bool onItself = m_dragCandidate && m_dragRange.first <= at && at <= m_dragRange.last;
        // The range is not asked whose drag it belongs to: a move from elsewhere deletes here what the last drag out of
        // here left in it, and the first character of the text before any drag. Kept on purpose.
        if (!onItself)
            m_operations->add_block(text, m_dragRange.first, m_dragRange.last, (effect & DROPEFFECT_MOVE) != 0);
        if (m_store)
            m_store->clear_selection();
        m_dragRange = {};
    });
}

void CEditorCtrl::BringForward() const noexcept
{
    HWND top = m_hWnd;
    while (const HWND parent = ::GetParent(top))
        top = parent;
    ::SetForegroundWindow(top);
    ::SetFocus(m_hWnd);
}
