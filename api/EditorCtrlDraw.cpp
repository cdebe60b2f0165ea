#include "api/PaintHold.h"

#include "appearance/HookCall.h"
#include "diagnostics/Guarded.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int rightEdge = 32000;  // stands for the right end of any line, in pixels

}  // namespace

RECT CEditorCtrl::ClientRect() const noexcept
{
    RECT client{};
    ::GetClientRect(m_hWnd, &client);
    return client;
}

// Every invalidation asks for erasing; the class has the null brush, so erasing paints nothing. Without a window there
// is nothing to do: a null handle would mean every window of the screen.
void CEditorCtrl::Invalidate()
{
    if (!m_hWnd || m_invalid.Covers(xTInvalidArea::everything))
        return;
    ::InvalidateRect(m_hWnd, nullptr, TRUE);
    m_invalid.Note(xTInvalidArea::everything);
}

void CEditorCtrl::InvalidateRect(const RECT& area) noexcept
{
    if (!m_hWnd || m_invalid.Covers(area))
        return;
    ::InvalidateRect(m_hWnd, &area, TRUE);
    m_invalid.Note(area);
}

RECT CEditorCtrl::CaretBlockingRect() const noexcept
{
    const POINT at = m_caret.Position();
    return {at.x, at.y, at.x + m_caret.Width(), at.y + m_caret.Height()};
}

void CEditorCtrl::InvalidateCaretLine()
{
    InvalidateStrip(0, 0);
}

// The strip of the caret's line with so many lines around it, over the whole width.
void CEditorCtrl::InvalidateStrip(int linesAbove, int linesBelow)
{
    RECT strip = CaretBlockingRect();
    strip.left = 0;
    strip.right = rightEdge;
    strip.top -= linesAbove * LineHeight();
    strip.bottom += linesBelow * LineHeight();
    InvalidateRect(strip);
}

// True inside a paint and inside the hook, which may run outside of a paint too: a line is measured through it.
bool CEditorCtrl::CannotPaintNow() const noexcept
{
    return m_painting || xTHookCall::IsRunning(m_highlightHook);
}

// What cannot be painted now comes right behind, since the area stays invalid: this is how the repaint that the comment
// scan asks for inside a paint is done.
void CEditorCtrl::UpdateNow()
{
    if (CannotPaintNow() || !m_hWnd)
        return;
    // The paint of an empty line takes a selection away that has only one bound yet. It is required, and it cannot wait.
    const bool waits = !m_store || (m_store->selection.first == xTPos::none) == (m_store->selection.last == xTPos::none);
    if (m_later == xTLater::nothing || (m_later == xTLater::paints && !waits))
        ::UpdateWindow(m_hWnd);
    else if (m_later == xTLater::paints && m_shown)
        PlaceCaretImage();
}

// What a hold has put off. What is known to be invalid brings its paint without a request.
void CEditorCtrl::PaintHeld()
{
    if (std::exchange(m_requestHeld, false) && m_invalid.IsEmpty())
        RequestPaint();
    UpdateNow();
}

void CEditorCtrl::RequestPaint()
{
    if (m_later != xTLater::nothing) {
        m_requestHeld = true;
        return;
    }
    m_mayBeClean = m_mayBeClean || m_invalid.IsEmpty();
    if (m_hWnd)
        ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INTERNALPAINT);
}

// Asking costs more than painting a row, so it is asked at the first paint after the window was shown or sized.
SIZE CEditorCtrl::ScreenSize() noexcept
{
    if (m_screen.cx == 0)
        m_screen = {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    return m_screen;
}

LRESULT CEditorCtrl::OnShowWindow(const xTMessage& message)
{
    Guarded([&] {
        Default(message);
        m_screen = {};
        m_shown = message.wParam != 0;
        if (m_shown)
            Invalidate();
        else
            DropPaintBitmap();
    });
    return 0;
}

LRESULT CEditorCtrl::OnPaint(const xTMessage& message)
{
    Guarded([&] {
        m_idleMs = 0;
        m_invalid.Forget();
        if (!m_shown) {
            Default(message);
            return;
        }
        // A host may repaint us from inside its hook, or while a message box is up. The area counts as painted then, lest
        // the host's loop spin on it, and all of it comes again once the outermost handler has ended.
        if (CannotPaintNow()) {
            ::ValidateRect(m_hWnd, nullptr);
            m_repaintWhenUnwound = true;
            return;
        }
        Paint();
    });
    return 0;
}

void CEditorCtrl::Paint()
{
    m_caret.SetHeight(LineHeight());
    if (HasSomethingToPaint()) {
        ScanBeforePaint();
        PaintUpdateArea();
    }
    ::SendMessageW(m_hWnd, ED_AFTER_PAINT, 0, 0);
}

// The paint context tells its area too. The system is asked only where a paint was requested with nothing to paint: there
// the question is much cheaper than the context, everywhere else it is one call more.
bool CEditorCtrl::HasSomethingToPaint() noexcept
{
    return !std::exchange(m_mayBeClean, false) || ::GetUpdateRect(m_hWnd, nullptr, FALSE) != 0;
}

// The scan asks for a repaint of all that has turned. Before the paint context opens this becomes part of the same paint.
void CEditorCtrl::ScanBeforePaint()
{
    const xTPaintHold hold(*this, xTLater::picture);
    if (m_store)
        m_store->rescan_comments();
}

void CEditorCtrl::PaintUpdateArea()
{
    if (!PaintUnderHiddenCaret())
        return;
    PlaceCaretImage();  // while it is hidden, lest the system draw it at the old place first
    m_caret.Show();
}

// Hiding and showing costs more than drawing a line, so a caret that the paint does not touch is left alone.
// @return true when the caret was in the way and is hidden now
bool CEditorCtrl::PaintUnderHiddenCaret()
{
    struct xTPainting {
        explicit xTPainting(bool& flag) : m_flag(flag) { m_flag = true; }
        ~xTPainting() { m_flag = false; }
        bool& m_flag;
    } const painting(m_painting);
    const xTPaintDC target(m_hWnd);
    RECT both{};
    const RECT caret = CaretBlockingRect();
    const bool overCaret = ::IntersectRect(&both, &target.rect(), &caret) != 0;
    if (overCaret)
        m_caret.Hide();
    if (!::IsRectEmpty(&target.rect()))
        PaintRows(target);
    return overCaret;
}

void CEditorCtrl::PaintRows(const xTPaintDC& target)
{
    const RECT& area = target.rect();
    const xTRows rows = RowsToDraw(area);
    if (!m_memDC)
        return;
    // The bitmap has the size of the screen, whatever the size of the client area, and takes the background as a whole.
    const auto [cx, cy] = ScreenSize();
    MakePaintBitmap(target.get(), cx, cy);
    if (m_attribs) {
        m_attribs->ApplyAttr(ATTR_BACKGROUND, this, m_memDC.get());
        m_attribs->ApplyAttr(ATTR_TEXT, this, m_memDC.get());
    }
    if (!m_memDC)
        return;
    // Nothing outside the area reaches the screen, so nothing outside it is touched: a fresh bitmap of the screen's size
    // costs more to fill than a line costs to draw.
    const xTClip clip(m_memDC->m_hDC, area);
    ::PatBlt(m_memDC->m_hDC, 0, 0, cx, cy, PATCOPY);
    if (m_store)
        m_store->PaintLines(m_highlightHook, m_topLine, DrawingOffset(), rows.first, rows.last, this, m_memDC.get(),
                            m_attribs.get());
    if (!m_memDC)
        return;  // the host destroyed the control from inside the hook
    // Right and bottom as width and height: larger than the area, the paint context clips it.
    ::BitBlt(target.get(), area.left, area.top, area.right, area.bottom, m_memDC->m_hDC, area.left, area.top, SRCCOPY);
    DropPaintBitmap();
}

void CEditorCtrl::MakePaintBitmap(HDC like, int cx, int cy)
{
    if (m_paintBitmap)
        return;
    xTBitmap bitmap(::CreateCompatibleBitmap(like, cx, cy));
    if (!bitmap) {
        ShowMessageBox(m_hWnd, L"Слишком большой bitmap");
        return;  // painting goes on with whatever the memory context holds
    }
    if (!m_memDC)
        return;
    m_previousBitmap = ::SelectObject(m_memDC->m_hDC, bitmap.get());
    m_paintBitmap = std::move(bitmap);
}

void CEditorCtrl::DropPaintBitmap() noexcept
{
    if (!m_paintBitmap || !m_memDC)
        return;
    ::SelectObject(m_memDC->m_hDC, m_previousBitmap);
    m_previousBitmap = nullptr;
    m_paintBitmap.reset();
}

// Only whole rows are drawn: the partial one at the bottom shows the background.
CEditorCtrl::xTRows CEditorCtrl::RowsToDraw(const RECT& area) const noexcept
{
    const int height = LineHeight();
    const std::int32_t count = VisibleLines();
    if (area.bottom <= area.top || area.top >= count * height)
        return {};
    return {std::max<std::int32_t>(area.top / height, 0), std::min<std::int32_t>((area.bottom - 1) / height, count - 1)};
}

LRESULT CEditorCtrl::OnAfterPaint(const xTMessage&)
{
    Guarded([&] {
        PlaceCaretImage();
        UpdateScrollBars(3);
    });
    return 0;
}

int CEditorCtrl::BarOffset() const noexcept
{
    return -(ReadBar(SB_HORZ).nPos / CharWidth() * CharWidth());
}

// The caret exists only while the window has the focus; asking for that is the cheaper question.
void CEditorCtrl::PlaceCaretImage()
{
    if (!m_store || !m_caret.IsCreated())
        return;
    m_caret.MoveTo(
        m_store->caret_pixel(m_highlightHook, m_topLine, this, m_memDC.get(), m_attribs.get(), BarOffset()));
}
