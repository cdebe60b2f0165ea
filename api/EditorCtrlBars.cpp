#include "api/EditorCtrl.h"

#include "diagnostics/Guarded.h"

// The messages that scroll: the bars, the wheel, a new size and a drag at the edge.

namespace {

constexpr std::int32_t wheelLines = 2;  // a message, whatever the size of the delta

}  // namespace

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
    m_clientSeen.reset();
    const LRESULT result = Default(message);
    Guarded([&] {
        m_screen = {};  // it may have changed along
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
