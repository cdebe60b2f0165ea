#include "Pane.h"

#include "Boxes.h"
#include "Failure.h"

#include <utility>

namespace scrivpad {

namespace {

constexpr const wchar_t* className = L"ScrivpadPane";

}  // namespace

Pane::Pane(HWND parent, PaneHost& host, Appearance& appearance) : m_host(host), m_appearance(appearance)
{
    WindowObject::Register<Pane>(className);
    // The procedure finds `this` through the creation data and stores the handle in m_window.
    ::CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0, parent, nullptr,
                      ::GetModuleHandleW(nullptr), this);
    if (m_window == nullptr)
        throw Failure(L"не удалось создать окно");
    Replace(MakeEditor(m_document), m_document);
}

Pane::~Pane()
{
    m_editor.Destroy();  // while its parent still lives: the library wants to end its controls itself
    if (m_window != nullptr)
        ::DestroyWindow(m_window);
}

LRESULT Pane::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        OnSize();
        return 0;
    case WM_SETFOCUS:
        ::SetFocus(m_editor.Handle());
        return 0;
    case ED_NOTIFY_CARET:
        OnEditorChanged(wParam != 0, lParam == -1);
        return 0;
    case ED_NOTIFY_FIND:
        return OnWrapQuestion(reinterpret_cast<HWND>(wParam), reinterpret_cast<const wchar_t*>(lParam));
    case WM_NCDESTROY:
        ::SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
        return ::DefWindowProcW(std::exchange(m_window, nullptr), message, wParam, lParam);
    default:
        return ::DefWindowProcW(m_window, message, wParam, lParam);
    }
}

void Pane::OnSize() const noexcept
{
    RECT client = {};
    ::GetClientRect(m_window, &client);
    ::MoveWindow(m_editor.Handle(), 0, 0, client.right, client.bottom, TRUE);
}

void Pane::OnEditorChanged(bool textChanged, bool focusLost)
{
    if (m_editor.Handle() == nullptr)
        return;
    m_document.modified = m_document.modified || textChanged;
    if (!focusLost && ::GetFocus() == m_editor.Handle())
        m_host.OnPaneFocused(*this);
    m_host.OnPaneChanged(*this);
}

bool Pane::OnWrapQuestion(HWND dialog, const wchar_t* text) const
{
    const std::wstring question = L"Поиск «" + std::wstring(text) + L"» дошёл до края текста.\nПродолжить с другого края?";
    return Ask(dialog != nullptr ? dialog : m_window, question.c_str(), MB_YESNO) == IDYES;
}

void Pane::GoTo(TextPlace place)
{
    edSetCaretPosition(m_editor.Handle(), place.line - 1, place.column - 1);
    RequireCaretAt(place);
}

void Pane::SelectTo(TextPlace place)
{
    edSetCaretPositionAdv(m_editor.Handle(), place.line - 1, place.column - 1, ED_CARET_REDRAW | ED_CARET_SELECT);
    RequireCaretAt(place);
}

void Pane::RequireCaretAt(TextPlace place)
{
    m_host.OnPaneChanged(*this);  // a move that the host asks for is not told to it
    const edPoint caret = m_editor.Position(ED_POSITION_CARET);
    if (caret.y != place.line - 1 || caret.x != place.column - 1)
        throw Failure(L"в тексте нет места " + std::to_wstring(place.line) + L":" + std::to_wstring(place.column));
}

void Pane::SetBreakPoint(int line)
{
    if (edSetBreakPoint(m_editor.Handle(), static_cast<UINT32>(line - 1)) == 0)
        throw Failure(L"точку останова нельзя поставить на строку " + std::to_wstring(line));
}

void Pane::SetExecPoint(int line)
{
    m_editor.SetExecPoint(static_cast<UINT32>(line - 1));
    if (m_editor.ExecPoint() != static_cast<UINT32>(line - 1))
        throw Failure(L"в тексте нет строки " + std::to_wstring(line));
}

bool Pane::ToggleBreakPoint()
{
    return m_editor.ToggleBreakPoint(static_cast<UINT32>(m_editor.Position(ED_POSITION_CARET).y));
}

void Pane::RemoveBreakPoints()
{
    edRemoveAllBreakPoints(m_editor.Handle());
}

void Pane::MoveExecPoint()
{
    m_editor.SetExecPoint(static_cast<UINT32>(m_editor.Position(ED_POSITION_CARET).y));
}

void Pane::ClearExecPoint()
{
    m_editor.ClearExecPoint();
}

}  // namespace scrivpad
