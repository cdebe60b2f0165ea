#include "api/EditorCtrl.h"

#include <cmath>

// From a point of the client area to a place in the text.

std::int32_t CEditorCtrl::RowOfPoint(int y) const noexcept
{
    return static_cast<std::int32_t>(std::floor(static_cast<double>(y) / LineHeight()));
}

void CEditorCtrl::CaretToPoint(POINT point, bool invalidate)
{
    if (!m_store || (point.x == m_lastMousePoint.x && point.y == m_lastMousePoint.y))
        return;
    m_lastMousePoint = point;
    m_store->caret_to_point(m_highlightHook, m_topLine, this, m_memDC.get(), m_attribs.get(), RowOfPoint(point.y),
                            point.x + m_leftColumn * CharWidth());
    if (invalidate) {
        InvalidateRect({point.x, point.y, point.x + m_caret.Width(), point.y + m_caret.Height()});
        UpdateNow();
    }
}
