#pragma once

#include "framework/win/CWnd.h"
#include "framework/win/OleDropTarget.h"

constexpr UINT ED_DRAG_SCROLL = 0x40D;  ///< from the drop target, while a drag is over the control

/// The drop target of a control: moves, or copies with Ctrl held, and lets the view scroll while a drag is over it.
class xTOleDropWndTarget final : public COleDropTarget {
protected:
    DWORD OnDragEnter(CWnd* wnd, IDataObject* data, DWORD keys, POINT point) override;
    DWORD OnDragOver(CWnd* wnd, IDataObject* data, DWORD keys, POINT point) override;
    [[nodiscard]] DWORD EffectOf(DWORD keys) const override;
    bool OnDrop(CWnd* wnd, IDataObject* data, DWORD effect, POINT point) override;
};

/// A window that takes part in OLE drag and drop: OLE is up while it lives.
class xTDDWnd : public CWnd {
protected:
    explicit xTDDWnd(bool dropEnabled) noexcept;
    ~xTDDWnd() override;

    /// For the creation of the window: where drops are enabled, the window becomes a drop target. A failure is shown to
    /// the user, and the window works without drops.
    void StartDrops();
    /// For the end of the window.
    void EndDrops() noexcept { drop_target.Revoke(); }

    /// Something has been dropped.
    /// @param effect DROPEFFECT_COPY or DROPEFFECT_MOVE @param point in client pixels
    virtual void on_drop(IDataObject*, DWORD /*effect*/, POINT /*point*/) {}

private:
    friend class xTOleDropWndTarget;

    xTOleDropWndTarget drop_target;
    bool drop_enabled;  // true: the window registers as a drop target when it is created
    bool m_oleIsUp;
};
