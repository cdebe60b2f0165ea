#include "api/PaintHold.h"

#include "diagnostics/Guarded.h"

#include <algorithm>

// How the view follows the caret.

namespace {

constexpr std::int32_t extraColumns = 5;  // beyond need, when the view follows the caret to the right

enum xTOutOfView { outLeft = 0, outRight = 1, outAbove = 2, outBelow = 3, inView = 4 };

[[nodiscard]] std::int32_t ColumnsFor(int pixels, int width) noexcept
{
    return (pixels + width - 1) / width;
}

}  // namespace

// Asked for at each match of a replace-all, and the system's answer takes longer than the search for the match.
const RECT& CEditorCtrl::ClientSeen() const noexcept
{
    if (!m_clientSeen)
        m_clientSeen = ClientRect();
    return *m_clientSeen;
}

// The checks override one another in this order.
int CEditorCtrl::CaretOutOfView(std::int32_t& count) const noexcept
{
    const RECT caret = CaretBlockingRect();
    const RECT client = ClientSeen();
    // A view with no room for a whole line, or for the caret itself, shows of them what it can: taken as it is it would be
    // sent past the caret, from where it comes back, and so on for ever.
    const std::int32_t rows = std::max<std::int32_t>(client.bottom / LineHeight(), 1);
    const LONG right = std::max<LONG>(client.right, m_caret.Width());
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
    if (caret.right > right) {
        count = ColumnsFor(caret.right - right, CharWidth());
        code = outRight;
    }
    if (caret.bottom > client.bottom) {
        count = line - m_topLine - rows + 1;
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

void CEditorCtrl::ScrollToLine(std::int32_t line, bool centre)
{
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
}

void CEditorCtrl::MoveCaretTo(std::int32_t line, std::int32_t column, bool redraw, bool centre, bool focus)
{
    Guarded([&] {
        const auto move = [&] {
            ScrollToLine(line, centre);
            if (column >= 0 && m_store)
                m_store->set_caret({line, column});
            SetBarPosition(SB_VERT, m_topLine);
            if (redraw)
                Invalidate();
        };
        if (m_store && redraw)
            xTOnePaint(*this).Around(move);
        else if (m_store)
            move();
        if (focus)
            ::SetFocus(m_hWnd);
    });
}
