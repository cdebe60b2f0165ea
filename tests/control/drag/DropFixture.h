#pragma once

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/DragData.h"
#include "tests/support/win/MarkedControl.h"
#include "tests/support/win/Pointer.h"

#include <gtest/gtest.h>

#include <string>

inline constexpr DWORD copyOrMove = DROPEFFECT_COPY | DROPEFFECT_MOVE;

inline POINTL onScreen(HWND window, POINT point)
{
    ::ClientToScreen(window, &point);
    return {point.x, point.y};
}

/// A control with its drop target, which is called directly, and the data of a drag from elsewhere.
class Drop : public testing::Test {
protected:
    ControlHost host;
    HWND control = host.Show(L"");
    xTComPtr<IDropTarget> target = TargetOf(control);
    xTComPtr<DragData> data{new DragData};

    void SetUp() override { ASSERT_NE(target, nullptr); }
    /// Enters, moves and drops. @return the effect that the source is told
    DWORD drop(POINT point, DWORD keys = 0, DWORD allowed = copyOrMove)
    {
        DWORD effect = allowed;
        EXPECT_EQ(target->DragEnter(data.get(), keys | MK_LBUTTON, onScreen(control, point), &effect), S_OK);
        effect = allowed;
        EXPECT_EQ(target->DragOver(keys | MK_LBUTTON, onScreen(control, point), &effect), S_OK);
        effect = allowed;
        EXPECT_EQ(target->Drop(data.get(), keys, onScreen(control, point), &effect), S_OK);
        return effect;
    }
    DWORD dropText(const std::wstring& text, POINT point, DWORD keys = MK_CONTROL)
    {
        data->PutText(text);
        return drop(point, keys);
    }
    DWORD over(POINT point, DWORD keys = 0, DWORD allowed = copyOrMove)
    {
        DWORD effect = allowed;
        target->DragOver(keys, onScreen(control, point), &effect);
        return effect;
    }
    edPoint at(int code) const
    {
        edPoint point{-1, -1};
        edGetPosition(control, code, &point);
        return point;
    }
    RECT client() const
    {
        RECT rect{};
        ::GetClientRect(control, &rect);
        return rect;
    }
};
