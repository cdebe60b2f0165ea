#include "framework/win/CWnd.h"

#include <cwchar>
#include <utility>

namespace {

constexpr const WCHAR* className = L"ScrivCtl3";
ATOM registeredClass = 0;
thread_local CWnd* creating = nullptr;  // the object whose window this thread is making

}  // namespace

HINSTANCE ThisModule() noexcept
{
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<const WCHAR*>(&ThisModule), &module);
    return module;
}

ATOM CWnd::RegisterOnce() noexcept
{
    if (registeredClass)
        return registeredClass;
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    wc.lpfnWndProc = &CWnd::Procedure;
    wc.cbWndExtra = sizeof(CWnd*);  // not GWLP_USERDATA: that one is the host's
    wc.hInstance = ThisModule();
    wc.hbrBackground = static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH));
    wc.lpszClassName = className;
    registeredClass = ::RegisterClassExW(&wc);
    return registeredClass;
}

void UnregisterWndClass() noexcept
{
    if (registeredClass && ::UnregisterClassW(className, ThisModule()))
        registeredClass = 0;
}

CWnd* CWnd::FromHandle(HWND wnd) noexcept
{
    // A thread is of one process only, so this leaves out the windows of others as well.
    if (!registeredClass || ::GetWindowThreadProcessId(wnd, nullptr) != ::GetCurrentThreadId())
        return nullptr;
    if (::GetClassLongPtrW(wnd, GCW_ATOM) != registeredClass)
        return nullptr;
    return reinterpret_cast<CWnd*>(::GetWindowLongPtrW(wnd, 0));
}

bool CWnd::CreateWnd(xTCreation creation) noexcept
{
    const ATOM atom = RegisterOnce();
    if (!atom)
        return false;
    PreCreateWindow(creation);
    creating = this;
    const RECT& rect = creation.rect;
    const auto childId = static_cast<INT_PTR>(creation.childId);
    const HWND made = ::CreateWindowExW(creation.exStyle, className, creation.caption ? creation.caption : L"",
                                        creation.style, rect.left, rect.top, rect.right - rect.left,
                                        rect.bottom - rect.top, creation.parent, reinterpret_cast<HMENU>(childId),
                                        ThisModule(), nullptr);
    creating = nullptr;
    return made && made == m_hWnd;  // the parent may have destroyed it while it was being made
}

void CWnd::DestroyWindow() noexcept
{
    if (m_hWnd)
        ::DestroyWindow(m_hWnd);
}

void CWnd::DeleteWhenUnwound() noexcept
{
    const xTWndScope scope(*this);
    m_deleteWhenUnwound = true;
}

void CWnd::ForgetWindow() noexcept
{
    m_hWnd = nullptr;
    if (m_deleteWithWindow)
        DeleteWhenUnwound();
}

void CWnd::Unwound() noexcept
{
    OnUnwound();
    if (m_deleteWhenUnwound)
        delete this;
}

LRESULT CALLBACK CWnd::Procedure(HWND wnd, UINT id, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* object = reinterpret_cast<CWnd*>(::GetWindowLongPtrW(wnd, 0));
    // Only the system's own first message brings a record; one that somebody sends later may bring anything.
    if (id == WM_NCCREATE && !object && creating) {
        object = std::exchange(creating, nullptr);
        object->m_hWnd = wnd;
        ::SetWindowLongPtrW(wnd, 0, reinterpret_cast<LONG_PTR>(object));
    }
    if (!object)
        return ::DefWindowProcW(wnd, id, wParam, lParam);

    const xTWndScope scope(*object);
    LRESULT result = 0;
    try {
        result = object->WindowProc({id, wParam, lParam});
    } catch (...) {
        object->OnFault();
    }
    if (id == WM_NCDESTROY) {
        ::SetWindowLongPtrW(wnd, 0, 0);
        object->ForgetWindow();
    }
    return result;
}

int ShowMessageBox(HWND from, const WCHAR* text, UINT style) noexcept
{
    WCHAR path[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    WCHAR* slash = std::wcsrchr(path, L'\\');
    WCHAR* name = slash ? slash + 1 : path;
    if (WCHAR* dot = std::wcsrchr(name, L'.'))
        *dot = 0;
    if (!(style & MB_ICONMASK))
        style |= MB_ICONEXCLAMATION;  // what a framework's message box shows for a bare OK
    // Over a modeless dialog when that was at work last: it must not go on while the box waits, and the top window with
    // the editor in it neither.
    const HWND top = ::IsWindow(from) ? ::GetAncestor(from, GA_ROOT) : nullptr;
    const HWND owner = top ? ::GetLastActivePopup(top) : nullptr;
    const bool disables = owner != top && ::IsWindowEnabled(top);
    if (disables)
        ::EnableWindow(top, FALSE);
    const int answer = ::MessageBoxW(owner, text, name, style);
    if (disables)
        ::EnableWindow(top, TRUE);
    return answer;
}
