#pragma once

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MarkedControl.h"
#include "tests/support/win/Pointer.h"

#include <gtest/gtest.h>

#include <string>

inline constexpr UINT scrollTimer = 3501;

inline std::wstring lines(int count)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += (i ? L"\nline " : L"line ") + std::to_wstring(i);
    return text;
}

inline edPoint positionOf(HWND control, int code)
{
    edPoint at{-1, -1};
    edGetPosition(control, code, &at);
    return at;
}

/// A control under the mouse. What is sent goes straight to it.
class Mouse : public testing::Test {
protected:
    const BOOL pointerIsAway = ::SetCursorPos(1270, 1010);  // a real move would come into what a test sends
    ControlHost host;
    HWND control = host.Show(L"");

    ~Mouse() override
    {
        if (::GetKeyState(VK_LBUTTON) < 0)
            ReleaseButton();
        if (const HWND captor = ::GetCapture(); captor == control)
            ::ReleaseCapture();
    }
    void down(POINT point) { SendMouse(control, WM_LBUTTONDOWN, point); }
    void up(POINT point) { SendMouse(control, WM_LBUTTONUP, point, 0); }
    void move(POINT point, WPARAM keys = MK_LBUTTON) { SendMouse(control, WM_MOUSEMOVE, point, keys); }
    void tick() { ::SendMessageW(control, WM_TIMER, scrollTimer, 0); }
    edPoint caret() const { return positionOf(control, ED_POSITION_CARET); }
    int topLine() const { return positionOf(control, ED_POSITION_VIEWPORT).y; }
    bool hasSelection() const { return edGetMode(control, ED_MODE_SELECTION); }
    RECT client() const
    {
        RECT rect{};
        ::GetClientRect(control, &rect);
        return rect;
    }
    int visibleLines() const { return client().bottom / testLineHeight; }
    void useReadOnly()
    {
        edCreateParams params{};
        params.flags = ED_CREATE_READONLY;
        control = host.Show(L"", params);
    }
};
