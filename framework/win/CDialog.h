#pragma once

#include "framework/win/CWnd.h"

/// A modeless dialog made from a template. The object is made with `new` and goes with its window.
class CDialog : public CWnd {
public:
    /// Makes the window from a template of ResourceModule(). @return false when it cannot be made; the object is then
    /// still the caller's
    bool Create(int templateId, HWND parent) noexcept;

protected:
    /// Handles a message. @return true when the system has nothing more to do with it
    virtual bool DialogProc(const xTMessage& message) = 0;

    /// What the sender of the present message gets; DialogProc then returns true.
    void Answer(LRESULT answer) noexcept { ::SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, answer); }
    /// @return null when the template, or somebody else, has left the control out
    [[nodiscard]] HWND Item(int id) const noexcept { return ::GetDlgItem(m_hWnd, id); }
    /// The place of a control in the dialog's own coordinates; empty when there is no such control.
    [[nodiscard]] RECT PlaceOf(int id) const noexcept;

private:
    static INT_PTR CALLBACK Procedure(HWND wnd, UINT id, WPARAM wParam, LPARAM lParam) noexcept;
};
