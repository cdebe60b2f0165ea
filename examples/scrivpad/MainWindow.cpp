#include "MainWindow.h"

#include "DroppedFiles.h"
#include "Failure.h"
#include "Menu.h"
#include "Names.h"

#include <shellapi.h>
#include <windowsx.h>

#include <utility>

namespace scrivpad {

namespace {

constexpr const wchar_t* className = L"ScrivpadMainWindow";
constexpr SIZE startSize = {960, 720};  // at 96 dots per inch

}  // namespace

MainWindow::MainWindow(UINT32 theme, const std::wstring& settingsFile)
    : m_appearance(theme != 0 ? theme : UINT32{ED_THEME_CLASSIC}, settingsFile)
{
    if (theme == 0)
        m_appearance.Load();
    WindowObject::Register<MainWindow>(className, frameBackground);
    const UINT dpi = ::GetDpiForSystem();
    const HMENU menu = BuildMenu();
    // The procedure finds `this` through the creation data and stores the handle in m_window. A file dropped on a text
    // becomes its path there, as the control has it; anywhere else on the window it is opened.
    ::CreateWindowExW(WS_EX_ACCEPTFILES, className, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                      CW_USEDEFAULT, ::MulDiv(startSize.cx, dpi, 96), ::MulDiv(startSize.cy, dpi, 96), nullptr, menu,
                      ::GetModuleHandleW(nullptr), this);
    if (m_window == nullptr) {
        ::DestroyMenu(menu);
        throw Failure(L"не удалось создать окно");
    }
    m_panes[0] = MakePane();
    OnSize();
    RefreshTitle();
    RefreshStatus();
}

MainWindow::~MainWindow()
{
    if (m_window != nullptr)
        ::DestroyWindow(m_window);
}

std::unique_ptr<Pane> MainWindow::MakePane()
{
    PaneHost& host = *this;  // named here, where the base can be reached
    return std::make_unique<Pane>(m_window, host, m_appearance);
}

void MainWindow::Show(int showCommand)
{
    ::ShowWindow(m_window, showCommand);
    ::UpdateWindow(m_window);
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
        if (m_panes[m_active])
            ::SetFocus(Active().Control());
        return 0;
    case WM_DPICHANGED:
        OnDpiChanged(*reinterpret_cast<const RECT*>(lParam));
        return 0;
    case WM_INITMENUPOPUP:
        UpdateMenu(::GetMenu(m_window), {m_appearance.Theme(), Other() != nullptr, Active()});
        return 0;
    case WM_COMMAND:
        Run(LOWORD(wParam));
        return 0;
    case WM_DROPFILES:
        OnDropFiles(reinterpret_cast<HDROP>(wParam));
        return 0;
    case WM_CLOSE:
        if (MayLeaveTexts())
            ::DestroyWindow(m_window);
        return 0;
    case WM_QUERYENDSESSION:
        return MayLeaveTexts();
    case WM_DESTROY:
        m_preview.reset();
        for (std::unique_ptr<Pane>& pane : m_panes)
            pane.reset();
        ::PostQuitMessage(0);
        return 0;
    case WM_NCDESTROY:
        ::SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
        return ::DefWindowProcW(std::exchange(m_window, nullptr), message, wParam, lParam);
    default:
        return OnMouse(message, wParam, lParam);
    }
}

// The bar between two texts. The texts send their mouse moves here too, so a move counts only while the bar is gripped.
LRESULT MainWindow::OnMouse(UINT message, WPARAM wParam, LPARAM lParam)
{
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
    case WM_SETCURSOR:
        return OnSetCursor() ? TRUE : ::DefWindowProcW(m_window, message, wParam, lParam);
    case WM_LBUTTONDOWN:
        if (m_splitter.Grip(point))
            ::SetCapture(m_window);
        return 0;
    case WM_MOUSEMOVE:
        if (::GetCapture() == m_window && m_splitter.Drag(point))
            OnSize();
        return 0;
    case WM_LBUTTONUP:
        if (::GetCapture() == m_window)
            ::ReleaseCapture();
        return 0;
    case WM_CAPTURECHANGED:
        m_splitter.LetGo();
        return 0;
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
    if (!m_panes[0])
        return;
    RECT area = {};
    ::GetClientRect(m_window, &area);
    area.bottom -= m_statusBar.Layout();
    m_splitter.Layout(area, m_panes[0]->Handle(), m_panes[1] ? m_panes[1]->Handle() : nullptr);
}

void MainWindow::OnDpiChanged(const RECT& suggested)
{
    ::SetWindowPos(m_window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                   suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool MainWindow::OnSetCursor() const noexcept
{
    POINT point = {};
    ::GetCursorPos(&point);
    ::ScreenToClient(m_window, &point);
    if (!m_splitter.Hit(point))
        return false;
    ::SetCursor(::LoadCursorW(nullptr, IDC_SIZEWE));
    return true;
}

void MainWindow::OnPaneFocused(Pane& pane)
{
    Activate(pane);
}

void MainWindow::OnPaneChanged(Pane& pane)
{
    if (!m_panes[m_active] || &pane != &Active())
        return;
    RefreshTitle();
    RefreshStatus();
}

void MainWindow::Activate(Pane& pane)
{
    const std::size_t index = m_panes[1].get() == &pane ? 1 : 0;
    if (std::exchange(m_active, index) != index)
        OnPaneChanged(pane);
}

void MainWindow::RefreshStatus()
{
    if (!m_panes[m_active] || Active().Control() == nullptr)
        return;
    const Editor& editor = Active().TextEditor();
    const Document& document = Active().CurrentDocument();
    const edPoint caret = editor.Position(ED_POSITION_CARET);
    const wchar_t* const encoding = EncodingName(document.encoding);
    m_statusBar.Show(StatusBar::place,
                     L"Стр " + std::to_wstring(caret.y + 1) + L", Стб " + std::to_wstring(caret.x + 1));
    m_statusBar.Show(StatusBar::mode, editor.Mode(ED_MODE_INSERT) ? L"ВСТ" : L"ЗАБ");
    m_statusBar.Show(StatusBar::change, document.modified ? L"Изменён" : L"");
    m_statusBar.Show(StatusBar::encoding, encoding != nullptr ? encoding : L"");
    m_statusBar.Show(StatusBar::access, editor.Mode(ED_MODE_READONLY) ? L"Только чтение" : L"");
}

void MainWindow::RefreshTitle()
{
    const Document& document = Active().CurrentDocument();
    const std::wstring title = (document.modified ? L"*" : L"") + document.Name() + L" \x2013 " + programName;
    if (title != std::exchange(m_title, title))
        ::SetWindowTextW(m_window, title.c_str());
}

}  // namespace scrivpad
