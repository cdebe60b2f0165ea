#include "tests/control/tuning/Pages.h"

namespace {

void Send(INPUT input)
{
    ::SendInput(1, &input, sizeof input);
}

void SendKey(WORD key, WORD unit, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = unit;
    input.ki.dwFlags = flags;
    Send(input);
}

void SendButton(DWORD flags)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    Send(input);
}

constexpr DWORD settleMs = 30;

}  // namespace

void PumpDialog(HWND host, DWORD milliseconds)
{
    const ULONGLONG end = ::GetTickCount64() + milliseconds;
    do {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (::IsDialogMessageW(host, &message))
                continue;
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        if (milliseconds)
            ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    } while (::GetTickCount64() < end);
}

void Click(HWND host, HWND window)
{
    static int aside = 0;  // two clicks at one place are a double click
    aside = aside > 0 ? -4 : 4;
    RECT place{};
    ::GetWindowRect(window, &place);
    ::SetCursorPos((place.left + place.right) / 2 + aside, (place.top + place.bottom) / 2);
    PumpDialog(host, settleMs);
    SendButton(MOUSEEVENTF_LEFTDOWN);
    PumpDialog(host, settleMs);
    SendButton(MOUSEEVENTF_LEFTUP);
    PumpDialog(host, settleMs);
}

void Press(HWND host, WORD key, bool shift)
{
    const DWORD extended = key >= VK_PRIOR && key <= VK_DOWN ? KEYEVENTF_EXTENDEDKEY : 0;
    if (shift)
        SendKey(VK_SHIFT, 0, 0);
    SendKey(key, 0, extended);
    SendKey(key, 0, extended | KEYEVENTF_KEYUP);
    PumpDialog(host, settleMs);
    if (shift)
        SendKey(VK_SHIFT, 0, KEYEVENTF_KEYUP);
    PumpDialog(host, settleMs);
}

void Type(HWND host, const wchar_t* text)
{
    for (; *text; ++text) {
        SendKey(0, *text, KEYEVENTF_UNICODE);
        SendKey(0, *text, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
        PumpDialog(host, settleMs);
    }
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[40] = L"";
    ::GetClassNameW(window, name, 40);
    return name;
}

std::wstring WindowText(HWND window)
{
    wchar_t text[100] = L"";
    ::GetWindowTextW(window, text, 100);
    return text;
}

HWND ControlBelow(HWND parent)
{
    HWND found = nullptr;
    ::EnumChildWindows(
        parent,
        [](HWND child, LPARAM result) -> BOOL {
            if (!edGetHWND(child))
                return TRUE;
            *reinterpret_cast<HWND*>(result) = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}
