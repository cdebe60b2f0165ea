#include "api/DragDropWnd.h"

#include <ole2.h>

xTDDWnd::xTDDWnd(bool dropEnabled) noexcept
    : m_dropEnabled(dropEnabled), m_oleIsUp(SUCCEEDED(::OleInitialize(nullptr)))
{
}

xTDDWnd::~xTDDWnd()
{
    // Only what succeeded is undone: an unpaired call would take OLE away from the host.
    if (m_oleIsUp)
        ::OleUninitialize();
}
