#include "api/EditorCtrl.h"

#include <cmath>

// From a point of the client area to a place in the text.

std::int32_t CEditorCtrl::RowOfPoint(int y) const noexcept
{
    return static_cast<std::int32_t>(std::floor(static_cast<double>(y) / LineHeight()));
}

// The one way by which a point moves the caret. The host's hook runs in it: the store may be gone behind it.
void CEditorCtrl::CaretToRow(std::int32_t row, int x)
{
    m_store->caret_to_point(m_highlightHook, m_topLine, this, m_memDC.get(), m_attribs.get(), row,
                            x + m_leftColumn * CharWidth());
}

void CEditorCtrl::CaretToClick(POINT point)
{
    if (!m_store)
        return;
    std::int32_t row = RowOfPoint(point.y);
    const std::int32_t count = m_store->line_count();
    // A row of the view held against the number of all lines: below the text of a view that is not scrolled a click goes
    // to the end of the last line, and in a scrolled view to the last line's column under the pointer. Kept on purpose.
    if (row > count && count != 0) {
        point.x = ClientRect().right;
        row = count - 1;
    }
    CaretToRow(row, point.x);
    Invalidate();
    NotifyHost(false, 0);
}

// A pointer that has not moved says nothing new. Points below the text have no rule of their own here.
void CEditorCtrl::CaretToPoint(POINT point, bool invalidate)
{
    if (!m_store || (point.x == m_lastMousePoint.x && point.y == m_lastMousePoint.y))
        return;
    m_lastMousePoint = point;
    CaretToRow(RowOfPoint(point.y), point.x);
    if (invalidate) {
        InvalidateRect({point.x, point.y, point.x + m_caret.Width(), point.y + m_caret.Height()});
        UpdateNow();
    }
}
