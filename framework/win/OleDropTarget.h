#pragma once

#include "framework/win/ComObject.h"

#include <oleidl.h>

class CWnd;

/// Takes the drops on a window for the object that derives from it. The system talks to a COM object of its own, which
/// is cut off when this ends: a drag that is over the window then finds that nothing is taken any more.
///
/// Points are in client pixels. An effect that the source does not allow becomes the other one of copy and move, or
/// none.
class COleDropTarget {
public:
    COleDropTarget();
    COleDropTarget(const COleDropTarget&) = delete;
    COleDropTarget& operator=(const COleDropTarget&) = delete;
    virtual ~COleDropTarget();

    /// @return false when the system refuses, as on a thread without OLE
    [[nodiscard]] bool Register(CWnd& wnd);
    /// Before the window goes. A second call does nothing.
    void Revoke() noexcept;

protected:
    // Each answers a DROPEFFECT_ value.
    virtual DWORD OnDragEnter(CWnd* wnd, IDataObject* data, DWORD keys, POINT point) = 0;
    virtual DWORD OnDragOver(CWnd* wnd, IDataObject* data, DWORD keys, POINT point) = 0;
    virtual void OnDragLeave(CWnd*) {}
    /// What a drop with these keys will do.
    [[nodiscard]] virtual DWORD EffectOf(DWORD keys) const = 0;
    /// @return false: nothing was taken
    virtual bool OnDrop(CWnd* wnd, IDataObject* data, DWORD effect, POINT point) = 0;

private:
    class xTSink;
    xTComPtr<xTSink> m_sink;
};
