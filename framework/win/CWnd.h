#pragma once

#include <windows.h>

#include <cstddef>

/// One message as its handler sees it.
struct xTMessage {
    UINT id;
    WPARAM wParam;
    LPARAM lParam;
};

/// A row of a window's message table. The handler calls `Default` where the default handling belongs.
template <typename Wnd>
struct xTMessageRow {
    UINT id;
    LRESULT (Wnd::*handler)(const xTMessage&);
};

/// @return the row of `id`, null when there is none
template <typename Wnd, std::size_t count>
[[nodiscard]] constexpr const xTMessageRow<Wnd>* FindRow(const xTMessageRow<Wnd> (&rows)[count], UINT id) noexcept
{
    for (const auto& row : rows)
        if (row.id == id)
            return &row;
    return nullptr;
}

/// True when no message stands in the table twice.
template <typename Wnd, std::size_t count>
[[nodiscard]] constexpr bool EachMessageOnce(const xTMessageRow<Wnd> (&rows)[count]) noexcept
{
    for (std::size_t i = 0; i < count; ++i)
        if (FindRow(rows, rows[i].id) != &rows[i])
            return false;
    return true;
}

/// A window of our own class and the object behind it.
///
/// A host may destroy the window from inside any message or callback that we send it. So an object does not die while
/// one of its handlers runs: `DeleteWhenUnwound` waits for the outermost xTWndScope. After every call out a handler
/// asks `m_hWnd`, or the part that it is about to use, whether it is still there.
class CWnd {
public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd() = default;

    /// The object of a window of this library and this thread; null for any other window, which is not touched.
    [[nodiscard]] static CWnd* FromHandle(HWND wnd) noexcept;

    [[nodiscard]] HWND GetSafeHwnd() const noexcept { return m_hWnd; }
    void DestroyWindow() noexcept;
    void DeleteWhenUnwound() noexcept;
    /// From now on the object, made with `new`, goes when its window does, whoever destroys that.
    void DeleteWithWindow() noexcept { m_deleteWithWindow = true; }

    HWND m_hWnd = nullptr;

protected:
    struct xTCreation {
        DWORD exStyle;
        const WCHAR* caption;  // null: empty
        DWORD style;
        RECT rect;
        HWND parent;
        int childId;
    };

    /// Creates the window. @return false when the system or WM_CREATE refuses
    bool CreateWnd(xTCreation creation) noexcept;

    /// The last word on the style of a window to be.
    virtual void PreCreateWindow(xTCreation&) {}
    /// Finds the handler of a message, or calls `Default`.
    virtual LRESULT WindowProc(const xTMessage& message) { return Default(message); }
    /// An exception has reached the border to the system; called in the catch block.
    virtual void OnFault() noexcept {}
    /// The outermost handler has ended.
    virtual void OnUnwound() noexcept {}

    /// The window has had its last message.
    void ForgetWindow() noexcept;

    LRESULT Default(const xTMessage& message) noexcept
    {
        return ::DefWindowProcW(m_hWnd, message.id, message.wParam, message.lParam);
    }

private:
    friend class xTWndScope;
    static LRESULT CALLBACK Procedure(HWND wnd, UINT id, WPARAM wParam, LPARAM lParam) noexcept;
    static ATOM RegisterOnce() noexcept;
    void Unwound() noexcept;

    int m_depth = 0;
    bool m_deleteWhenUnwound = false;
    bool m_deleteWithWindow = false;
};

/// While one lives, its window object does.
class xTWndScope {
public:
    explicit xTWndScope(CWnd& wnd) noexcept : m_wnd(wnd) { ++m_wnd.m_depth; }
    xTWndScope(const xTWndScope&) = delete;
    xTWndScope& operator=(const xTWndScope&) = delete;
    ~xTWndScope()
    {
        if (--m_wnd.m_depth == 0)
            m_wnd.Unwound();
    }

private:
    CWnd& m_wnd;
};

/// The module that this code lies in: the DLL, or a test program that holds the control itself.
[[nodiscard]] HINSTANCE ThisModule() noexcept;

/// Takes the window class back; called when the library goes, since the class points into it.
void UnregisterWndClass() noexcept;

/// A modal message box over the host's window, with the executable's name as caption.
int ShowMessageBox(HWND from, const WCHAR* text, UINT style = MB_OK) noexcept;
