#pragma once

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/DragData.h"
#include "tests/support/win/MarkedControl.h"
#include "tests/support/win/Pointer.h"

#include <gtest/gtest.h>

#include <ole2.h>

#include <functional>
#include <vector>

using Steps = std::vector<std::function<void()>>;

inline constexpr POINT outside{1200, 950};  // a place of the screen with no window of ours

inline void undo(HWND control, int times = 1)
{
    ::SetFocus(control);
    for (int i = 0; i < times; ++i)
        EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
}

inline bool canUndo(HWND control)
{
    ::SetFocus(control);
    return edCanExecCommand(control, ED_COMMAND_UNDO);
}

/// A control whose selection is dragged with the real mouse.
class Drag : public testing::Test {
protected:
    ControlHost host{600, 300};
    HWND control = host.Show(L"");

    void SetUp() override { Pump(50); }
    ~Drag() override
    {
        PutButton(false);
        PutKey(VK_CONTROL, false);
        Pump(50);
    }
    /// Presses at `from`, moves on a little, plays `then` and lets the button go.
    [[nodiscard]] bool drag(POINT from, Steps then, bool release = true)
    {
        Steps steps{
            [this, from] { PutPointer(control, from); },
            [] { PutButton(true); },
            [this, from] { PutPointer(control, {from.x + 2, from.y}); },
        };
        steps.insert(steps.end(), then.begin(), then.end());
        if (release)
            steps.push_back([] { PutButton(false); });
        steps.push_back([] {});
        return PlaySteps(steps);
    }
    [[nodiscard]] bool dragTo(POINT from, HWND window, POINT to, bool copying = false)
    {
        Steps steps{
            [window, to] { PutPointer(window, {to.x, to.y + 3}); },
            [window, to] { PutPointer(window, to); },
        };
        // The last thing before the drop: a key held by hand is forgotten at the next move of the pointer.
        if (copying)
            steps.push_back([] { PutKey(VK_CONTROL, true); });
        return drag(from, steps);
    }
};

/// And a second one in a host of its own beside it.
class DragBetween : public Drag {
protected:
    ControlHost otherHost{500, 200};
    HWND other = otherHost.Show(L"");

    void SetUp() override
    {
        ::SetWindowPos(otherHost.Window(), nullptr, 650, 20, 0, 0, SWP_NOSIZE);
        ::SetForegroundWindow(host.Window());
        Pump(50);
    }
};
