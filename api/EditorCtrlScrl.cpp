#include "api/EditorCtrl.h"

#include "diagnostics/Guarded.h"
#include "include/scrivctl3.h"

#include <algorithm>

/// Tells the host at the end when the viewport has changed.
class CEditorCtrl::xTViewWatch {
public:
    explicit xTViewWatch(CEditorCtrl& ctrl) noexcept
        : m_ctrl(ctrl), m_leftColumn(ctrl.m_leftColumn), m_topLine(ctrl.m_topLine)
    {
    }
    xTViewWatch(const xTViewWatch&) = delete;
    xTViewWatch& operator=(const xTViewWatch&) = delete;
    ~xTViewWatch()
    {
        if (m_leftColumn != m_ctrl.m_leftColumn || m_topLine != m_ctrl.m_topLine)
            m_ctrl.TellParent(ED_NOTIFY_SCROLL, 0, 0);
    }

private:
    CEditorCtrl& m_ctrl;
    std::int32_t m_leftColumn;
    std::int32_t m_topLine;
};

std::int32_t CEditorCtrl::VisibleLines() const noexcept
{
    return ClientRect().bottom / LineHeight();
}

SCROLLINFO CEditorCtrl::ReadBar(int bar) const noexcept
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ::GetScrollInfo(m_hWnd, bar, &info);
    return info;
}

// Setting a bar costs more than drawing a page, so one that has the values already is left alone. A bar with nothing to
// scroll is disabled and not hidden.
void CEditorCtrl::SetBar(int bar, SCROLLINFO info) noexcept
{
    const SCROLLINFO now = ReadBar(bar);
    if (now.nMin == info.nMin && now.nMax == info.nMax && now.nPage == info.nPage && now.nPos == info.nPos)
        return;
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    ::SetScrollInfo(m_hWnd, bar, &info, TRUE);
}

void CEditorCtrl::SetBarPosition(int bar, int position) noexcept
{
    SCROLLINFO info = ReadBar(bar);
    info.nPos = position;
    SetBar(bar, info);
}

void CEditorCtrl::UpdateScrollBars(int which)
{
    if (which != 0) {
        SCROLLINFO info = ReadBar(SB_VERT);
        const std::int32_t page = VisibleLines();
        info.nMin = 0;
        info.nPage = static_cast<UINT>(page);
        info.nMax = std::max(m_store ? m_store->line_count() : 0, page);
        SetBar(SB_VERT, info);
    }
    if (which != 1) {
        SCROLLINFO info = ReadBar(SB_HORZ);
        info.nMin = 0;
        info.nMax = horizontalExtent;
        info.nPage = static_cast<UINT>(ClientRect().right);
        SetBar(SB_HORZ, info);
    }
}

// Moves the picture. The partial row at the bottom stays out of it: it shows the background, not the head of a line that
// was scrolled into it. When all of the picture goes there is nothing to move: who scrolls invalidates what is exposed.
void CEditorCtrl::ShiftBits(std::int64_t dx, std::int64_t dy)
{
    if (m_later == xTLater::picture)
        return;
    RECT rows = ClientRect();
    rows.bottom = VisibleLines() * LineHeight();
    if (std::abs(dx) >= rows.right || std::abs(dy) >= rows.bottom)
        return;
    ::ScrollWindow(m_hWnd, static_cast<int>(dx), static_cast<int>(dy), &rows, &rows);
    m_caret.Forget();  // the system takes a caret in the moved area along
    m_invalid.Forget();  // and what was invalid
}

bool CEditorCtrl::ScrollBy(int direction, std::int32_t count)
{
    return Guarded(true, [&] {
        const xTViewWatch watch(*this);
        switch (direction) {
        case 0: ScrollUp(count); return true;
        case 1: ScrollDown(count); return true;
        case 2: return ScrollLeft(count);
        case 3: return ScrollRight(count);
        default: return true;
        }
    });
}

void CEditorCtrl::ScrollUp(std::int32_t count)
{
    if (count > 1)
        count = std::max(std::min(count, m_topLine), 1);
    if (m_topLine < count)
        return;
    m_topLine -= count;
    const std::int64_t distance = std::int64_t{count} * LineHeight();
    ShiftBits(0, distance);
    SetBarPosition(SB_VERT, m_topLine);
    RECT exposed = ClientRect();
    exposed.bottom = static_cast<LONG>(std::min<std::int64_t>(exposed.bottom, exposed.top + distance));
    InvalidateRect(exposed);
    UpdateNow();
}

// The view can go as far as to show only the last line.
void CEditorCtrl::ScrollDown(std::int32_t count)
{
    const std::int32_t lineCount = m_store ? m_store->line_count() : 0;
    if (count > 1)
        count = std::max(std::min(count, lineCount - m_topLine - 1), 1);
    if (m_topLine >= lineCount - count)
        return;
    m_topLine += count;
    const std::int64_t distance = std::int64_t{count} * LineHeight();
    ShiftBits(0, -distance);
    SetBarPosition(SB_VERT, m_topLine);
    RECT exposed = ClientRect();
    exposed.top = static_cast<LONG>(std::max<std::int64_t>(exposed.top, exposed.bottom - distance - LineHeight()));
    InvalidateRect(exposed);
    UpdateNow();
}

bool CEditorCtrl::ScrollLeft(std::int32_t count)
{
    SCROLLINFO info = ReadBar(SB_HORZ);
    if (info.nPos == 0)
        return false;
    const std::int64_t distance = std::int64_t{count} * CharWidth();
    std::int64_t position = info.nPos - distance;
    ShiftBits(distance, 0);
    m_leftColumn -= count;
    if (m_leftColumn < 0) {
        m_leftColumn = 0;
        position = 0;
    }
    info.nPos = static_cast<int>(position);
    SetBar(SB_HORZ, info);
    // At the left end everything is repainted, which also covers a scroll that overshot.
    RECT exposed = ClientRect();
    if (position != 0)
        exposed.right = static_cast<LONG>(std::min<std::int64_t>(exposed.right, exposed.left + distance + CharWidth()));
    InvalidateRect(exposed);
    UpdateNow();
    return true;
}

bool CEditorCtrl::ScrollRight(std::int32_t count)
{
    SCROLLINFO info = ReadBar(SB_HORZ);
    const int width = CharWidth();
    // Unsigned: a bar that stands behind its last page has room without end. Kept on purpose.
    const auto pixels = static_cast<std::uint32_t>(info.nMax) - static_cast<std::uint32_t>(info.nPos) - info.nPage -
                        static_cast<std::uint32_t>(info.nMin);
    const std::uint32_t room = pixels / static_cast<std::uint32_t>(width);
    const std::uint32_t step = std::min(static_cast<std::uint32_t>(count), room);
    if (room == 0)
        return false;
    const std::int64_t distance = std::int64_t{step} * width;
    if (info.nPos + distance <= horizontalExtent) {
        info.nPos += static_cast<int>(distance);
        m_leftColumn += static_cast<std::int32_t>(step);
        ShiftBits(-distance, 0);
    } else {
        info.nPos = horizontalExtent;
    }
    SetBar(SB_HORZ, info);
    RECT exposed = ClientRect();
    exposed.left = static_cast<LONG>(std::max<std::int64_t>(exposed.left, exposed.right - distance - width));
    InvalidateRect(exposed);
    UpdateNow();
    return true;
}

void CEditorCtrl::ScrollPage(int direction)
{
    Guarded([&] {
        const xTViewWatch watch(*this);
        switch (direction) {
        // These two report a change of the view by themselves, and the page reports it again: two messages, on purpose.
        case 0: ScrollBy(0, std::min(VisibleLines(), m_topLine)); break;
        case 1: ScrollBy(1, VisibleLines()); break;
        case 2: PageLeft(); break;
        case 3: PageRight(); break;
        default: break;
        }
        UpdateNow();
    });
}

void CEditorCtrl::PageLeft()
{
    SCROLLINFO info = ReadBar(SB_HORZ);
    info.nPos -= static_cast<int>(info.nPage);
    m_leftColumn -= static_cast<std::int32_t>(info.nPage) / CharWidth();
    if (m_leftColumn < 0)
        m_leftColumn = info.nPos = 0;
    SetBar(SB_HORZ, info);
    Invalidate();
}

void CEditorCtrl::PageRight()
{
    SCROLLINFO info = ReadBar(SB_HORZ);
    const std::int32_t page = static_cast<std::int32_t>(info.nPage);
    info.nPos = info.nPos + page >= info.nMax - info.nMin ? info.nMax : info.nPos + page;
    SetBar(SB_HORZ, info);
    // Unchecked, unlike the way left: the column grows by a full page also when the bar was pinned. Kept on purpose.
    m_leftColumn += page / CharWidth();
    Invalidate();
}

void CEditorCtrl::ThumbPosition(int bar)
{
    const xTViewWatch watch(*this);
    SCROLLINFO info = ReadBar(bar);
    info.nPos = info.nTrackPos;
    if (bar == SB_VERT)
        m_topLine = info.nTrackPos;
    else
        m_leftColumn = info.nTrackPos / CharWidth();
    SetBar(bar, info);
    Invalidate();
    UpdateNow();
}

void CEditorCtrl::ThumbTrack(int bar)
{
    SCROLLINFO info = ReadBar(bar);
    if (bar == SB_VERT) {
        const std::int32_t line = info.nTrackPos;
        if (line == m_topLine)
            return;
        ScrollBy(line < m_topLine ? 0 : 1, std::abs(line - m_topLine));
        // The record as it was before the scroll: the bar shows the old place until the closing SB_THUMBPOSITION.
        SetBar(SB_VERT, info);
        return;
    }
    const std::int32_t column = info.nTrackPos / CharWidth();
    if (column == m_leftColumn)
        return;
    ScrollBy(column < m_leftColumn ? 2 : 3, std::abs(column - m_leftColumn));
    SetBarPosition(SB_HORZ, column * CharWidth());
}
