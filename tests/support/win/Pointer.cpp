#include "tests/support/win/Pointer.h"

#include "tests/support/win/ControlHost.h"

#include <windowsx.h>

#include <utility>

namespace {

constexpr UINT stepMs = 30;
constexpr int patience = 20;  // steps

struct Play {
    std::vector<std::function<void()>> steps;
    std::size_t next = 0;
    int waited = 0;
};
Play* playing = nullptr;

void CALLBACK NextStep(HWND, UINT, UINT_PTR, DWORD)
{
    if (!playing)
        return;
    Play& play = *playing;
    if (play.next < play.steps.size()) {
        play.steps[play.next++]();
    } else if (++play.waited > patience) {
        PutKey(VK_ESCAPE, true);
        PutKey(VK_ESCAPE, false);
    }
}

}  // namespace

POINT At(int row, int column)
{
    return {column * testCharWidth + 2, row * testLineHeight + testLineHeight / 2};
}

void MovePointer(HWND window, POINT point)
{
    PutPointer(window, point);
    Pump(40);
}

void PressButton()
{
    PutButton(true);
    Pump(40);
}

void ReleaseButton()
{
    PutButton(false);
    Pump(40);
}

void PutPointer(HWND window, POINT point)
{
    ::ClientToScreen(window, &point);
    ::SetCursorPos(point.x, point.y);
}

void PutButton(bool down)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    ::SendInput(1, &input, sizeof input);
}

void PutKey(WORD key, bool down)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    ::SendInput(1, &input, sizeof input);
}

void LetDoubleClickTimePass()
{
    Pump(::GetDoubleClickTime() + 50);
}

LRESULT SendMouse(HWND window, UINT message, POINT point, WPARAM keys)
{
    return ::SendMessageW(window, message, keys, MAKELPARAM(point.x, point.y));
}

void SendClick(HWND window, POINT point)
{
    SendMouse(window, WM_LBUTTONDOWN, point);
    SendMouse(window, WM_LBUTTONUP, point, 0);
}

bool PlaySteps(std::vector<std::function<void()>> steps)
{
    Play play{std::move(steps)};
    playing = &play;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, stepMs, &NextStep);
    while (play.next < play.steps.size())
        Pump(stepMs);
    Pump(3 * stepMs);
    ::KillTimer(nullptr, timer);
    playing = nullptr;
    return play.waited <= patience;
}
