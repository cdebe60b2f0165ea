#include "api/DragDropWnd.h"

#include "include/scrivctl3.h"

#include <ole2.h>

#include <algorithm>

xTDDWnd::xTDDWnd(bool dropEnabled) noexcept
    : drop_enabled(dropEnabled), m_oleIsUp(SUCCEEDED(::OleInitialize(nullptr)))
{
}

xTDDWnd::~xTDDWnd()
{
    // Only what succeeded is undone: an unpaired call would take OLE away from the host.
    if (m_oleIsUp)
        ::OleUninitialize();
}

void xTDDWnd::StartDrops()
{
    if (drop_enabled && !drop_target.Register(*this))
        ::MessageBoxW(m_hWnd, L"Ole Register Drop Target Failed", nullptr, 0);
}

DWORD xTOleDropWndTarget::EffectOf(DWORD keys) const
{
    return keys & MK_CONTROL ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
}

DWORD xTOleDropWndTarget::OnDragEnter(CWnd* wnd, IDataObject*, DWORD keys, POINT)
{
    const HWND parent = wnd ? ::GetParent(wnd->m_hWnd) : nullptr;
    if (parent)
        ::SendMessageW(parent, ED_DRAG_ENTER_PARENT, 0, 1);
    return EffectOf(keys);
}

DWORD xTOleDropWndTarget::OnDragOver(CWnd* wnd, IDataObject*, DWORD keys, POINT point)
{
    const auto packed = [](LONG coordinate) { return static_cast<WORD>(std::max<LONG>(coordinate, 0)); };
    // x in the high word: the handler reads it so.
    if (wnd)
        ::SendMessageW(wnd->m_hWnd, ED_DRAG_SCROLL, 0, MAKELPARAM(packed(point.y), packed(point.x)));
    return EffectOf(keys);
}

// True whatever became of the drop, so a source whose data could not be taken is told of a move too. Kept on purpose.
bool xTOleDropWndTarget::OnDrop(CWnd* wnd, IDataObject* data, DWORD effect, POINT point)
{
    if (wnd)
        static_cast<xTDDWnd*>(wnd)->on_drop(data, effect, point);
    return true;
}
