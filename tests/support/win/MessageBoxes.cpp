#include "tests/support/win/MessageBoxes.h"

#include <algorithm>
#include <iterator>

namespace {

MessageBoxes* watching = nullptr;
constexpr int textId = 0xFFFF;

/// A message box is a dialog with a text and without anything to type into.
bool IsMessageBox(HWND window)
{
    wchar_t name[8] = {};
    ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wstring(name) == L"#32770" && ::GetDlgItem(window, textId) != nullptr &&
           ::FindWindowExW(window, nullptr, L"Edit", nullptr) == nullptr;
}

}  // namespace

MessageBoxes::MessageBoxes(int answer)
    : answer(answer), m_hook(::SetWindowsHookExW(WH_CBT, &MessageBoxes::Watch, nullptr, ::GetCurrentThreadId()))
{
    watching = this;
}

MessageBoxes::~MessageBoxes()
{
    ::UnhookWindowsHookEx(m_hook);
    watching = nullptr;
}

LRESULT CALLBACK MessageBoxes::Watch(int code, WPARAM wParam, LPARAM lParam)
{
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && IsMessageBox(window))
        watching->Answer(window);
    if (code == HCBT_DESTROYWND)
        std::erase(watching->m_answered, window);  // the next box may get the same handle
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

void MessageBoxes::Answer(HWND box)
{
    if (std::find(m_answered.begin(), m_answered.end(), box) != m_answered.end())
        return;
    m_answered.push_back(box);
    wchar_t text[500] = {};
    ::GetDlgItemTextW(box, textId, text, static_cast<int>(std::size(text)));
    texts.emplace_back(text);
    if (onBox)
        onBox(box);
    ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}
