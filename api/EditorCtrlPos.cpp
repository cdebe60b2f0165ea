#include "api/PaintHold.h"

#include "include/scrivctl3.h"

void CEditorCtrl::SetCaretPosition(std::int32_t line, std::int32_t col, std::uint32_t flags)
{
    const bool redraw = (flags & ED_CARET_REDRAW) != 0;
    const bool centre = (flags & ED_CARET_CENTRE) != 0;
    const bool focus = (flags & ED_CARET_FOCUS) != 0;
    if (!m_store || !(flags & ED_CARET_SELECT)) {
        const auto move = [&] {
            MoveCaretTo(line, col, redraw, centre, focus);
            if (m_store)
                m_store->clear_selection();
            Invalidate();
        };
        redraw ? xTOnePaint(*this).Around(move) : move();
        return;
    }
    const xTSelection selection = m_store->selection;
    const xTPos oldCaret = m_store->caret;
    MoveCaretTo(line, col, redraw, centre, focus);
    if (m_store)
        SelectBetween(oldCaret, m_store->caret, selection, (flags & ED_CARET_KEEP_SELECTION) != 0);
}

void CEditorCtrl::SelectBetween(const xTPos& oldCaret, const xTPos& newCaret, const xTSelection& selection, bool keep)
{
    xTPos a = oldCaret;
    xTPos b = newCaret;
    if (keep && selection.first != xTPos::none && selection.last != xTPos::none) {
        if (oldCaret > newCaret) {
            std::swap(a, b);
            if (selection.last > oldCaret)
                b = {selection.last.line, selection.last.col + 1};
        } else if (selection.first < oldCaret) {
            a = selection.first;
        }
    }
    m_store->drop_selection();  // the anchor goes too
    m_store->select_range(a, b);
    Invalidate();
}

void CEditorCtrl::SetScrollPosition(std::int32_t line, std::int32_t col)
{
    if (line >= 0) {
        UpdateScrollBars(1);
        if (line < m_topLine)
            ScrollBy(0, m_topLine - line);
        else if (line > m_topLine)
            ScrollBy(1, line - m_topLine);
    }
    if (col >= 0) {
        UpdateScrollBars(0);
        if (col < m_leftColumn)
            ScrollBy(2, m_leftColumn - col);
        else if (col > m_leftColumn)
            ScrollBy(3, col - m_leftColumn);
    }
}

bool CEditorCtrl::GetPosition(int code, edPoint* out)
{
    if (!out)
        return false;
    const auto put = [out](std::int32_t x, std::int32_t y) {
        *out = {x, y};
        return true;
    };
    const auto putPos = [&](const xTPos& pos) { return put(pos.col, pos.line); };
    switch (code) {
    case ED_POSITION_CARET: return m_store && putPos(m_store->caret);
    case ED_POSITION_MOUSE: return putPos(PositionUnderMouse());
    case ED_POSITION_SELECTION_FIRST: return HasSelection() && putPos(m_store->first());
    case ED_POSITION_SELECTION_LAST: return HasSelection() && putPos(m_store->last());
    case ED_POSITION_VIEWPORT: return put(m_leftColumn, m_topLine);
    case ED_POSITION_CARET_TOP:
    case ED_POSITION_CARET_BOTTOM: {
        const POINT pixel = CaretOnScreen(code == ED_POSITION_CARET_BOTTOM);
        return put(pixel.x, pixel.y);
    }
    default: return false;
    }
}

// Held at the first line from above, but not at the last one from below: a pointer below the text has a line past the
// end and column 0.
xTPos CEditorCtrl::PositionUnderMouse()
{
    POINT point{};
    ::GetCursorPos(&point);
    ::ScreenToClient(m_hWnd, &point);
    const std::int32_t line = std::max(m_topLine + RowOfPoint(point.y), 0);
    std::int32_t col = 0;
    if (m_store && m_attribs) {
        const int x = point.x + m_leftColumn * CharWidth();
        m_attribs->MeasureLine(m_highlightHook, {line, m_store->line_length(line)}, m_memDC.get(), this, m_store.get(),
                               &col, &x);
    }
    return {line, col};
}

// Without a store both are 0, the client area's origin playing no part.
POINT CEditorCtrl::CaretOnScreen(bool bottom)
{
    if (!m_store)
        return {};
    POINT pixel =
        m_store->caret_pixel(m_highlightHook, m_topLine, this, m_memDC.get(), m_attribs.get(), BarOffset());
    if (bottom)
        pixel.y += LineHeight();
    ::ClientToScreen(m_hWnd, &pixel);
    return pixel;
}
