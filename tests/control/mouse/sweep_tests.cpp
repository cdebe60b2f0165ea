// The selection by dragging, and the timer that drives it while the pointer stands still.

#include "tests/control/mouse/MouseFixture.h"

namespace {

struct Sweep {
    const char* name;
    const wchar_t* before;
    POINT from;
    POINT to;
    const wchar_t* after;
};

class Sweeps : public Mouse, public testing::WithParamInterface<Sweep> {};

TEST_P(Sweeps, Select)
{
    GivenMarked(control, GetParam().before);
    down(GetParam().from);
    move(GetParam().to);
    up(GetParam().to);
    EXPECT_EQ(Marked(control), GetParam().after);
}

const Sweep sweeps[] = {
    {"Forward", L"abcdef", At(0, 1), At(0, 4), L"a[bcd]|ef"},
    {"Backward", L"abcdef", At(0, 4), At(0, 1), L"a|[bcd]ef"},
    {"DownALine", L"abc\ndef", At(0, 1), At(1, 2), L"a[bc\nde]|f"},
    {"UpALine", L"abc\ndef", At(1, 2), At(0, 1), L"a|[bc\nde]f"},
    {"ToTheLineStartTakesTheBreak", L"abc\ndef", At(0, 1), At(1, 0), L"a[bc\n]|def"},
    {"OverAnOldSelection", L"[ab]|cdef", At(0, 4), At(0, 6), L"abcd[ef]|"},
    {"WithoutMovingNothing", L"abcdef", At(0, 3), At(0, 3), L"abc|def"},
};

INSTANTIATE_TEST_SUITE_P(Each, Sweeps, testing::ValuesIn(sweeps), [](const auto& info) { return info.param.name; });

TEST_F(Mouse, AMoveWithoutTheButtonSelectsNothing)
{
    GivenMarked(control, L"|abcdef");
    move(At(0, 3), 0);
    move(At(0, 3));  // the button is said to be down, but no press came before
    EXPECT_EQ(Marked(control), L"|abcdef");
}

TEST_F(Mouse, ASweepBackToItsStartLeavesAnEmptySelection)
{
    GivenMarked(control, L"abcdef");
    down(At(0, 2));
    move(At(0, 4));
    move(At(0, 2));
    up(At(0, 2));
    EXPECT_EQ(Marked(control), L"ab[]|cdef");
    EXPECT_TRUE(hasSelection());
}

TEST_F(Mouse, OutsideTheClientAreaTheStepIsLeftToTheTimer)
{
    edLoadText(control, lines(100).c_str(), 0xFFFFFFFF);
    down(At(1, 1));
    move({20, -30});
    EXPECT_FALSE(hasSelection());
    move({20, client().bottom + 5});
    EXPECT_FALSE(hasSelection());
    move({client().right + 5, 20});
    EXPECT_FALSE(hasSelection());
}

TEST_F(Mouse, TheTimerDrivesTheSelectionOnlyAfterAFirstStep)
{
    edLoadText(control, lines(100).c_str(), 0xFFFFFFFF);
    MovePointer(control, {20, client().bottom + 2 * testLineHeight});
    down(At(1, 1));
    tick();
    EXPECT_FALSE(hasSelection());
    move(At(2, 1));
    EXPECT_TRUE(hasSelection());
    tick();
    EXPECT_GT(topLine(), 0);
    up(At(1, 1));
    const int top = topLine();
    tick();
    EXPECT_EQ(topLine(), top);
}

TEST_F(Mouse, TheScrollSpeedFollowsFromTheRowsOutside)
{
    edLoadText(control, lines(400).c_str(), 0xFFFFFFFF);
    down(At(1, 1));
    move(At(2, 1));
    const int rowsInView = visibleLines();
    const int below = rowsInView + 6;  // a row of the view, counted from its top
    MovePointer(control, At(below, 1));
    const int before = topLine();
    tick();
    EXPECT_EQ(topLine(), before + below - rowsInView + 1);
    EXPECT_EQ(caret().y, before + below);
    const int next = topLine();
    tick();
    EXPECT_EQ(topLine(), next + below - rowsInView + 1);
    MovePointer(control, At(-3, 1));
    const int above = topLine();
    tick();
    EXPECT_EQ(topLine(), above - 3);
    up(At(0, 0));
}

TEST_F(Mouse, OnlyTheVerticalAxisFollowsThePointer)
{
    std::wstring wide;
    for (int i = 0; i < 60; ++i)
        wide += std::wstring(300, L'x') + L"\n";
    edLoadText(control, wide.c_str(), 0xFFFFFFFF);
    down(At(1, 1));
    move(At(2, 1));
    MovePointer(control, {client().right + 40, 2 * testLineHeight});
    tick();
    EXPECT_EQ(positionOf(control, ED_POSITION_VIEWPORT).x, 0);
    up(At(0, 0));
}

TEST_F(Mouse, APointerHeldStillBelowTheClientAreaKeepsScrollingAtTheTimersRate)
{
    edLoadText(control, lines(2000).c_str(), 0xFFFFFFFF);
    LetDoubleClickTimePass();
    MovePointer(control, At(2, 1));
    PressButton();
    MovePointer(control, At(4, 1));
    ASSERT_TRUE(hasSelection());
    MovePointer(control, At(visibleLines() + 2, 1));
    host.Forget();
    const int before = topLine();
    Pump(1000);
    const int steps = static_cast<int>(host.Count(ED_NOTIFY_SCROLL));
    EXPECT_GE(steps, 5);
    EXPECT_LE(steps, 12);
    EXPECT_EQ(topLine() - before, 3 * steps);
    EXPECT_EQ(positionOf(control, ED_POSITION_SELECTION_FIRST).y, 2);
    EXPECT_EQ(positionOf(control, ED_POSITION_SELECTION_LAST).y, caret().y);
    ReleaseButton();
    const int after = topLine();
    Pump(300);
    EXPECT_EQ(topLine(), after);
}

TEST_F(Mouse, ARealSweepSelectsWithTheButtonCapturedOutside)
{
    GivenMarked(control, L"|abcdef\nghijkl\nmnopqr");
    LetDoubleClickTimePass();
    MovePointer(control, At(0, 2));
    PressButton();
    MovePointer(control, At(1, 3));
    EXPECT_EQ(Marked(control), L"ab[cdef\nghi]|jkl\nmnopqr");
    MovePointer(control, {-60, testLineHeight / 2});
    Pump(250);  // outside the timer follows
    EXPECT_EQ(Marked(control), L"|[ab]cdef\nghijkl\nmnopqr");
    ReleaseButton();
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(Mouse, BothTimersRunForTheLifeOfTheWindow)
{
    EXPECT_TRUE(::KillTimer(control, 1));
    EXPECT_TRUE(::KillTimer(control, scrollTimer));
    EXPECT_FALSE(::KillTimer(control, scrollTimer));
}

TEST_F(Mouse, WhatAHostDoesInATimersStepIsNotFollowedByAnotherStep)
{
    edLoadText(control, lines(200).c_str(), 0xFFFFFFFF);
    ControlHost secondHost;
    const HWND second = secondHost.Show(lines(200).c_str());
    Pump(150);  // until the window manager has done with the new window
    ::SetForegroundWindow(host.Window());
    ::SetFocus(control);
    Pump(150);
    down(At(1, 1));
    move(At(2, 1));
    MovePointer(control, At(visibleLines() + 2, 1));
    int top = -1;
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id != ED_NOTIFY_SCROLL || top >= 0)
            return;
        top = topLine();
        MovePointer(control, At(visibleLines() + 9, 1));
        tick();  // one guard for all controls of the process
        ::SendMessageW(second, WM_TIMER, scrollTimer, 0);
        EXPECT_EQ(topLine(), top);
    };
    tick();
    EXPECT_GT(top, 0);
    const int after = topLine();
    tick();  // and it is open again afterwards
    EXPECT_GT(topLine(), after);
    up(At(0, 0));
}

TEST_F(Mouse, ALostCaptureEndsTheDragSelection)
{
    GivenMarked(control, L"abcdef");
    down(At(0, 1));
    move(At(0, 3));
    host.Forget();
    ::SetCapture(host.Window());
    EXPECT_EQ(host.Count(ED_NOTIFY_CARET), 1u);
    move(At(0, 5));
    EXPECT_EQ(Marked(control), L"a[bc]|def");
    ::ReleaseCapture();
}

TEST_F(Mouse, ALostFocusGivesTheCaptureUpAndEndsTheDragSelection)
{
    GivenMarked(control, L"abcdef");
    down(At(0, 1));
    move(At(0, 3));
    ::SetFocus(host.Window());
    EXPECT_EQ(::GetCapture(), nullptr);
    move(At(0, 5));
    EXPECT_EQ(Marked(control), L"a[bc]|def");
}

TEST_F(Mouse, AStepThatScrollsShowsTheSamePictureAsAFullRepaint)
{
    edLoadText(control, lines(300).c_str(), 0xFFFFFFFF);
    down(At(1, 1));
    move(At(2, 3));
    MovePointer(control, At(visibleLines() + 4, 3));
    tick();
    const Picture shown(control);
    ::InvalidateRect(control, nullptr, TRUE);
    ::UpdateWindow(control);
    EXPECT_EQ(shown.Difference(Picture(control)), "");
    up(At(0, 0));
}

TEST_F(Mouse, EachStepTellsTheHostWhereTheCaretIs)
{
    GivenMarked(control, L"abcdef");
    down(At(0, 1));
    host.Forget();
    move(At(0, 3));
    ASSERT_EQ(host.Count(ED_NOTIFY_CARET), 1u);
    EXPECT_EQ(host.Of(ED_NOTIFY_CARET)[0], (ControlHost::Message{ED_NOTIFY_CARET, 0, MAKELPARAM(0, 3)}));
    move(At(0, 3));
    move({At(0, 3).x + 1, At(0, 3).y});  // the same column
    EXPECT_EQ(host.Count(ED_NOTIFY_CARET), 1u);
    up(At(0, 3));
}

}  // namespace
