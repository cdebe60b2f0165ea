#pragma once

#include <windows.h>

namespace scrivpad {

/// The background of a window that is a frame around others.
inline const HBRUSH frameBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);

/// Brings the messages of a window to the object that made it. The object hands itself over as the parameter of its
/// window's creation, has a field `m_window` and a member `OnMessage`, and counts this class as a friend. It forgets the
/// window, and the window it, at WM_NCDESTROY.
struct WindowObject {
    /// Registers the class of such windows; does nothing when it is registered already.
    template <typename Object>
    static void Register(const wchar_t* className, HBRUSH background = nullptr, UINT style = 0) noexcept
    {
        WNDCLASSEXW info = {};
        info.cbSize = sizeof(info);
        info.style = style;
        info.lpfnWndProc = Procedure<Object>;
        info.hInstance = ::GetModuleHandleW(nullptr);
        info.hIcon = ::LoadIconW(nullptr, IDI_APPLICATION);
        info.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        info.hbrBackground = background;
        info.lpszClassName = className;
        ::RegisterClassExW(&info);
    }

    template <typename Object>
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
    {
        if (message == WM_NCCREATE) {
            auto* const created = static_cast<Object*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
            created->m_window = window;
            ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
        }
        auto* const self = reinterpret_cast<Object*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self == nullptr)
            return ::DefWindowProcW(window, message, wParam, lParam);
        // No exception may go through the system's code.
        try {
            return self->OnMessage(message, wParam, lParam);
        } catch (...) {
            return 0;
        }
    }
};

}  // namespace scrivpad
