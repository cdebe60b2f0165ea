#pragma once

#include "tests/support/win/ControlHost.h"

#include <initializer_list>
#include <vector>

/// What a host may do to a control, or around it, in the middle of a message of the control.
struct Misdeed {
    const char* name;  ///< names the test
    void (*act)(HWND control);
    bool controlLives;
};

/// The misdeeds that any message may meet, and `more`.
[[nodiscard]] inline std::vector<Misdeed> MisdeedsAnd(std::initializer_list<Misdeed> more)
{
    std::vector<Misdeed> all = {
        {"Destroys", [](HWND control) { edDestroyCtrl(control); }, false},
        {"DestroysTheParent", [](HWND control) { ::DestroyWindow(::GetParent(control)); }, false},
        {"LoadsAShortText", [](HWND control) { edLoadText(control, L"x", 1); }, true},
        {"EmptiesTheText", [](HWND control) { edLoadText(control, nullptr, 0); }, true},
        {"Hides", [](HWND control) { ::ShowWindow(control, SW_HIDE); }, true},
        {"TakesTheFocus", [](HWND control) { ::SetFocus(::GetParent(control)); }, true},
        {"Pumps", [](HWND) { Pump(); }, true},
    };
    all.insert(all.end(), more);
    return all;
}
