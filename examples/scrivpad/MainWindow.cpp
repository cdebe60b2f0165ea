#include "MainWindow.h"

#include "Failure.h"
#include "Menu.h"
#include "Names.h"

#include <utility>

namespace scrivpad {

namespace {

constexpr const wchar_t* className = L"ScrivpadMainWindow";
constexpr SIZE startSize = {960, 720};  // at 96 dots per inch

void RegisterMainClass(WNDPROC proc) noexcept
{
    WNDCLASSEXW info = {};
    info.cbSize = sizeof(info);
    info.lpfnWndProc = proc;
    info.hInstance = ::GetModuleHandleW(nullptr);
    info.hIcon = ::LoadIconW(nullptr, IDI_APPLICATION);
    info.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    info.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    info.lpszClassName = className;
    ::RegisterClassExW(&info);
}

}  // namespace

MainWindow::MainWindow(UINT32 theme) : m_theme(theme)
{
    RegisterMainClass(WindowProc);
    const UINT dpi = ::GetDpiForSystem();
    const HMENU menu = BuildMenu();
    // The procedure finds `this` through the creation data and stores the handle in m_window.
    ::CreateWindowExW(0, className, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                      ::MulDiv(startSize.cx, dpi, 96), ::MulDiv(startSize.cy, dpi, 96), nullptr, menu,
                      ::GetModuleHandleW(nullptr), this);
    if (m_window == nullptr) {
        ::DestroyMenu(menu);
        throw Failure(L"не удалось создать окно");
    }
    Replace(MakeEditor(m_document, m_theme), m_document);
}

MainWindow::~MainWindow()
{
    if (m_window != nullptr)
        ::DestroyWindow(m_window);
}

void MainWindow::Show(int showCommand)
{
    ::ShowWindow(m_window, showCommand);
    ::UpdateWindow(m_window);
}

LRESULT CALLBACK MainWindow::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_NCCREATE) {
        auto* const created = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->m_window = window;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* const self = reinterpret_cast<MainWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr)
        return ::DefWindowProcW(window, message, wParam, lParam);
    // No exception may go through the system's code.
    try {
        return self->OnMessage(message, wParam, lParam);
    } catch (...) {
        return 0;
    }
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        return OnCreate();
    case WM_SIZE:
        OnSize();
        return 0;
    case WM_SETFOCUS:
        ::SetFocus(m_editor.Handle());
        return 0;
    case WM_DPICHANGED:
        OnDpiChanged(*reinterpret_cast<const RECT*>(lParam));
        return 0;
    case WM_INITMENUPOPUP:
        UpdateMenu(::GetMenu(m_window), m_theme, m_document.encoding, !m_document.path.empty());
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return 0;
    case ED_NOTIFY_CARET:
        OnEditorChanged(wParam != 0);
        return 0;
    case WM_CLOSE:
        if (MayLeaveText())
            ::DestroyWindow(m_window);
        return 0;
    case WM_QUERYENDSESSION:
        return MayLeaveText();
    case WM_DESTROY:
        m_editor.Destroy();  // while its window still lives: the library wants to end its controls itself
        ::PostQuitMessage(0);
        return 0;
    case WM_NCDESTROY:
        ::SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
        return ::DefWindowProcW(std::exchange(m_window, nullptr), message, wParam, lParam);
    default:
        return ::DefWindowProcW(m_window, message, wParam, lParam);
    }
}

LRESULT MainWindow::OnCreate()
{
    return m_statusBar.Create(m_window) ? 0 : -1;
}

void MainWindow::OnSize()
{
    RECT client = {};
    ::GetClientRect(m_window, &client);
    const int height = client.bottom - m_statusBar.Layout();
    ::MoveWindow(m_editor.Handle(), 0, 0, client.right, height > 0 ? height : 0, TRUE);
}

void MainWindow::OnDpiChanged(const RECT& suggested)
{
    ::SetWindowPos(m_window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                   suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void MainWindow::OnEditorChanged(bool textChanged)
{
    if (textChanged && !m_document.modified) {
        m_document.modified = true;
        RefreshTitle();
    }
    RefreshStatus();
}

void MainWindow::RefreshStatus()
{
    if (m_editor.Handle() == nullptr)
        return;
    const edPoint caret = m_editor.Position(ED_POSITION_CARET);
    const wchar_t* const encoding = EncodingName(m_document.encoding);
    m_statusBar.Show(StatusBar::place,
                     L"Стр " + std::to_wstring(caret.y + 1) + L", Стб " + std::to_wstring(caret.x + 1));
    m_statusBar.Show(StatusBar::encoding, encoding != nullptr ? encoding : L"");
    m_statusBar.Show(StatusBar::mode, m_editor.Mode(ED_MODE_INSERT) ? L"ВСТ" : L"ЗАМ");
    m_statusBar.Show(StatusBar::access, m_editor.Mode(ED_MODE_READONLY) ? L"Только чтение" : L"");
}

void MainWindow::RefreshTitle()
{
    const std::wstring title = (m_document.modified ? L"*" : L"") + m_document.Name() + L" \x2013 Scrivpad";
    ::SetWindowTextW(m_window, title.c_str());
}

}  // namespace scrivpad
