#include "framework/win/CFindDialog.h"

#include <cwchar>
#include <utility>

namespace {

thread_local CFindDialog* living = nullptr;  // the first of this thread's dialogs

}  // namespace

CFindDialog::CFindDialog(CFindDialog*& slot, HWND owner, const WCHAR* find, DWORD flags) noexcept
    : m_slot(&slot), m_next(std::exchange(living, this))
{
    const std::size_t length = wcsnlen(find, m_find.size() - 1);
    std::wmemcpy(m_find.data(), find, length);
    m_request.lStructSize = sizeof m_request;
    m_request.hwndOwner = owner;
    m_request.Flags = flags;
    m_request.lpstrFindWhat = m_find.data();
    m_request.wFindWhatLen = static_cast<WORD>(m_find.size());
    m_request.lpstrReplaceWith = m_replacement.data();
    m_request.wReplaceWithLen = static_cast<WORD>(m_replacement.size());
    slot = this;
}

CFindDialog::~CFindDialog()
{
    Forget();
    CFindDialog** link = &living;
    while (*link != this)
        link = &(*link)->m_next;
    *link = m_next;
}

void CFindDialog::Open(CFindDialog*& slot, xTKind kind, HWND owner, const WCHAR* find, DWORD flags)
{
    // The slot is taken before the window is made: making it takes the focus from the owner, whose host may ask for a
    // second dialog meanwhile, or destroy the owner.
    auto* dialog = new CFindDialog(slot, owner, find, flags);
    ++dialog->m_depth;
    dialog->CreateSystemDialog(kind);
    if (--dialog->m_depth == 0)
        dialog->Unwound();
}

void CFindDialog::CreateSystemDialog(xTKind kind) noexcept
{
    const HWND made = kind == xTKind::find ? ::FindTextW(&m_request) : ::ReplaceTextW(&m_request);
    if (!::IsWindow(made))
        return;
    m_hWnd = made;
    m_systemProcedure = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(made, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CFindDialog::Procedure)));
}

LRESULT CALLBACK CFindDialog::Procedure(HWND wnd, UINT id, WPARAM wParam, LPARAM lParam) noexcept
{
    CFindDialog* dialog = FromWindow(wnd);
    if (!dialog)
        return ::DefWindowProcW(wnd, id, wParam, lParam);
    ++dialog->m_depth;
    const LRESULT result = ::CallWindowProcW(dialog->m_systemProcedure, wnd, id, wParam, lParam);
    if (id == WM_NCDESTROY) {
        dialog->m_hWnd = nullptr;
        dialog->Forget();
    }
    if (--dialog->m_depth == 0)
        dialog->Unwound();
    return result;
}

void CFindDialog::Unwound() noexcept
{
    if (!m_hWnd)
        delete this;
    else if (std::exchange(m_destroyWhenUnwound, false))
        ::DestroyWindow(m_hWnd);  // the object goes with its last message
}

void CFindDialog::Forget() noexcept
{
    if (m_slot)
        *std::exchange(m_slot, nullptr) = nullptr;
}

void CFindDialog::Destroy() noexcept
{
    Forget();
    if (m_depth == 0) {
        ::DestroyWindow(m_hWnd);
        return;
    }
    m_destroyWhenUnwound = true;
    if (m_hWnd)
        ::ShowWindow(m_hWnd, SW_HIDE);
}

CFindDialog* CFindDialog::GetNotifier(LPARAM lParam) noexcept
{
    CFindDialog* dialog = living;
    while (dialog && reinterpret_cast<LPARAM>(&dialog->m_request) != lParam)
        dialog = dialog->m_next;
    return dialog;
}

CFindDialog* CFindDialog::FromWindow(HWND wnd) noexcept
{
    CFindDialog* dialog = living;
    while (dialog && dialog->m_hWnd != wnd)
        dialog = dialog->m_next;
    return dialog;
}
