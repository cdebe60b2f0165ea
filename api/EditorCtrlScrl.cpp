#include "api/EditorCtrl.h"

#include "diagnostics/Guarded.h"
#include "include/scrivctl3.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::int32_t wheelLines = 2;   // a message, whatever the size of the delta
constexpr std::int32_t extraColumns = 5;  // beyond need, when the view follows the caret to the right

enum xTOutOfView { outLeft = 0, outRight = 1, outAbove = 2, outBelow = 3, inView = 4 };

[[nodiscard]] std::int32_t ColumnsFor(int pixels, int width) noexcept
{
    return (pixels + width - 1) / width;
}

}  // namespace

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
        if (m_leftColumn == m_ctrl.m_leftColumn && m_topLine == m_ctrl.m_topLine)
            return;
        const HWND parent = ::GetParent(m_ctrl.m_hWnd);
        if (::IsWindow(parent))
            ::SendNotifyMessageW(parent, ED_NOTIFY_SCROLL, 0, 0);
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

std::int32_t CEditorCtrl::RowOfPoint(int y) const noexcept
{
    return static_cast<std::int32_t>(std::floor(static_cast<double>(y) / LineHeight()));
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

// Moves the picture; a distance beyond the client area is as good as the client area. The partial row at the bottom
// stays out of it: it shows the background, not the head of a line that was scrolled into it.
void CEditorCtrl::ShiftBits(std::int64_t dx, std::int64_t dy)
{
    RECT rows = ClientRect();
    const std::int64_t width = rows.right;
    const std::int64_t height = rows.bottom;
    rows.bottom = VisibleLines() * LineHeight();
    ::ScrollWindow(m_hWnd, static_cast<int>(std::clamp(dx, -width, width)),
                   static_cast<int>(std::clamp(dy, -height, height)), &rows, &rows);
    m_caret.Forget();  // the system takes a caret in the moved area along
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

LRESULT CEditorCtrl::OnVScroll(const xTMessage& message)
{
    Guarded([&] {
        switch (LOWORD(message.wParam)) {
        case SB_LINEUP: ScrollBy(0, 1); break;
        case SB_LINEDOWN: ScrollBy(1, 1); break;
        case SB_PAGEUP: ScrollPage(0); break;
        case SB_PAGEDOWN: ScrollPage(1); break;
        case SB_THUMBPOSITION: ThumbPosition(SB_VERT); break;
        case SB_THUMBTRACK: ThumbTrack(SB_VERT); break;
        default: break;
        }
    });
    return Default(message);
}

LRESULT CEditorCtrl::OnHScroll(const xTMessage& message)
{
    Guarded([&] {
        switch (LOWORD(message.wParam)) {
        case SB_LINELEFT: ScrollBy(2, 1); break;
        case SB_LINERIGHT: ScrollBy(3, 1); break;
        case SB_PAGELEFT: ScrollPage(2); break;
        case SB_PAGERIGHT: ScrollPage(3); break;
        case SB_THUMBPOSITION: ThumbPosition(SB_HORZ); break;
        case SB_THUMBTRACK: ThumbTrack(SB_HORZ); break;
        default: break;
        }
    });
    return Default(message);
}

LRESULT CEditorCtrl::OnMouseWheel(const xTMessage& message)
{
    ScrollBy(GET_WHEEL_DELTA_WPARAM(message.wParam) <= 0 ? 1 : 0, wheelLines);
    return Default(message);
}

LRESULT CEditorCtrl::OnSize(const xTMessage& message)
{
    const LRESULT result = Default(message);
    Guarded([&] {
        ReadScreenSize();
        UpdateScrollBars(3);
    });
    return result;
}

// x stands in the high word and y in the low one, the reverse of the usual packing; the sender matches it.
LRESULT CEditorCtrl::OnDragScroll(const xTMessage& message)
{
    Guarded([&] {
        const POINT point{HIWORD(message.lParam), LOWORD(message.lParam)};
        const RECT client = ClientRect();
        if (point.x == 0)
            ScrollBy(2, 2);
        else if (point.x >= client.right)
            ScrollBy(3, 2);
        if (point.y == 0)
            ScrollBy(0, 1);
        else if (point.y >= client.bottom)
            ScrollBy(1, 1);
        CaretToPoint(point, true);
    });
    return 0;
}

// The checks override one another in this order.
int CEditorCtrl::CaretOutOfView(std::int32_t& count) const noexcept
{
    const RECT caret = CaretBlockingRect();
    const RECT client = ClientRect();
    const std::int32_t line = m_store ? m_store->caret.line : 0;
    int code = inView;
    count = 0;
    if (caret.left < client.left) {
        count = std::min(m_leftColumn, ColumnsFor(client.left - caret.left, CharWidth()));
        code = outLeft;
    }
    if (caret.top < client.top) {
        count = m_topLine - line;
        code = outAbove;
    }
    if (caret.right > client.right) {
        count = ColumnsFor(caret.right - client.right, CharWidth());
        code = outRight;
    }
    if (caret.bottom > client.bottom) {
        count = line - m_topLine - VisibleLines() + 1;
        code = outBelow;
    }
    return count < 1 ? inView : code;
}

void CEditorCtrl::EnsureCaretVisible()
{
    Guarded([&] {
        std::int32_t count = 0;
        int code = CaretOutOfView(count);
        bool goesOn = true;
        while (code != inView && count != 0 && goesOn) {
            const POINT before = m_caret.Position();
            switch (code) {
            case outLeft: ScrollBy(2, count); break;
            case outRight: goesOn = ScrollBy(3, count + extraColumns); break;
            case outAbove: ScrollBy(0, count); break;
            default: ScrollBy(1, count); break;
            }
            UpdateNow();  // the paint path puts the system caret in place, which is what the next round looks at
            const POINT after = m_caret.Position();
            // A view that is not painted, or not in focus, cannot move the caret: further rounds would scroll for ever.
            if (before.x == after.x && before.y == after.y)
                break;
            code = CaretOutOfView(count);
        }
    });
}

void CEditorCtrl::MoveCaretTo(std::int32_t line, std::int32_t column, bool redraw, bool centre, bool focus)
{
    Guarded([&] {
        if (m_store) {
            const std::int32_t visible = VisibleLines();
            const std::int32_t half = centre ? visible / 2 : 0;
            if (line < m_topLine) {
                const std::int32_t up = std::min(m_topLine - line + half, m_topLine);
                if (up > 0)
                    ScrollBy(0, up);
            } else if (centre || line >= m_topLine + visible) {
                // One-sided by this formula: a line that is already in the upper half stays where it is.
                const std::int32_t down = line - visible - m_topLine + 1 + half;
                if (down > 0)
                    ScrollBy(1, down);
            }
            if (column >= 0 && m_store)
                m_store->set_caret({line, column});
            SetBarPosition(SB_VERT, m_topLine);
            if (redraw) {
                Invalidate();
                UpdateNow();
            }
        }
        if (focus)
            ::SetFocus(m_hWnd);
    });
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
