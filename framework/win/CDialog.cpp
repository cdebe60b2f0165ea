#include "framework/win/CDialog.h"

#include "framework/win/Resource.h"

#include <utility>

namespace {

thread_local CDialog* creating = nullptr;  // the object whose dialog this thread is making

}  // namespace

bool CDialog::Create(int templateId, HWND parent) noexcept
{
    // Making a window tells its parent, which may make another one of ours in answer.
    CDialog* const outer = std::exchange(creating, this);
    const xTWndScope scope(*this);
    const HWND made = ::CreateDialogParamW(ResourceModule(), MAKEINTRESOURCEW(templateId), parent,
                                           &CDialog::Procedure, reinterpret_cast<LPARAM>(this));
    creating = outer;
    if (!made || made != m_hWnd)
        return false;  // the parent may have destroyed it while it was being made
    DeleteWithWindow();
    return true;
}

RECT CDialog::PlaceOf(int id) const noexcept
{
    RECT place{};
    if (const HWND item = Item(id)) {
        ::GetWindowRect(item, &place);
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&place), 2);
    }
    return place;
}

INT_PTR CALLBACK CDialog::Procedure(HWND wnd, UINT id, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* object = reinterpret_cast<CDialog*>(::GetWindowLongPtrW(wnd, DWLP_USER));
    // Only the system's own first message finds an object that waits for its window.
    if (id == WM_INITDIALOG && !object && creating && lParam == reinterpret_cast<LPARAM>(creating)) {
        object = std::exchange(creating, nullptr);
        object->m_hWnd = wnd;
        ::SetWindowLongPtrW(wnd, DWLP_USER, reinterpret_cast<LONG_PTR>(object));
    }
    if (!object)
        return FALSE;

    const xTWndScope scope(*object);
    bool done = false;
    try {
        done = object->DialogProc({id, wParam, lParam});
    } catch (...) {
        object->OnFault();
    }
    if (id == WM_NCDESTROY) {
        ::SetWindowLongPtrW(wnd, DWLP_USER, 0);
        object->ForgetWindow();
    }
    return done;
}
