// The label that shows the mode of typing, which no export reaches.

#include "api/EditorCtrl.h"
#include "include/scrivctl3.h"
#include "tests/support/win/ControlHost.h"

#include <gtest/gtest.h>

namespace {

TEST(ModeLabel, ShowsTheModeAndIsPaintedAnew)
{
    const ControlHost host;
    auto* control = new CEditorCtrl(nullptr, {}, true, 0);
    ASSERT_TRUE(control->Create({0, 0, 100, 100}, host.Window(), L""));
    const HWND label = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, host.Window(), nullptr,
                                         nullptr, nullptr);
    for (const wchar_t* name : {L"ВСТ", L"ЗАБ", L"ВСТ"}) {
        ::UpdateWindow(label);
        control->ShowModeIn(label);
        wchar_t text[8] = L"";
        ::GetWindowTextW(label, text, 8);
        EXPECT_STREQ(text, name);
        EXPECT_TRUE(::GetUpdateRect(label, nullptr, FALSE));
        control->ExecCommand(ED_COMMAND_TOGGLE_OVERWRITE);
    }
    control->DestroyWindow();
    control->DeleteWhenUnwound();
}

}  // namespace
