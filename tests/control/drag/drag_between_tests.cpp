// Drags from one control to another, and hosts that interfere in the middle of them.

#include "tests/control/drag/DragFixture.h"

#include <utility>

namespace {

// ---- Between controls
TEST_F(DragBetween, AMoveIsAStepInEach)
{
    GivenMarked(other, L"|uvw");
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2)));
    EXPECT_EQ(Marked(control), L"a|def");
    // A move from elsewhere deletes the target's own range too, which is its first character before any drag there.
    EXPECT_EQ(Marked(other), L"vbc|w");
    undo(other);
    EXPECT_EQ(TextOf(other), L"uvw");
    EXPECT_FALSE(canUndo(other));
    EXPECT_EQ(TextOf(control), L"adef");
    undo(control);
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragBetween, ASecondMoveIntoTheSameControlDeletesNothingThere)
{
    GivenMarked(other, L"|uvw");
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2)));
    GivenMarked(control, L"[gh]|i");
    LetDoubleClickTimePass();
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 0)));
    EXPECT_EQ(TextOf(other), L"ghvbcw");
}

TEST_F(DragBetween, ACopyLeavesTheSource)
{
    GivenMarked(other, L"|uvw");
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2), true));
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_EQ(TextOf(other), L"uvbcw");
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragBetween, TheTargetGetsTheFocusAndItsHostComesForward)
{
    GivenMarked(other, L"|uvw");
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2)));
    Pump(50);
    EXPECT_EQ(::GetFocus(), other);
    EXPECT_EQ(::GetForegroundWindow(), otherHost.Window());
    EXPECT_EQ(otherHost.Count(ED_DRAG_ENTER_PARENT), 1u);
}

TEST_F(DragBetween, AReadOnlyControlRefuses)
{
    edCreateParams params{};
    params.flags = ED_CREATE_READONLY;
    const HWND fixed = otherHost.Show(L"fixed", params);
    ::SetWindowPos(fixed, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    edDestroyCtrl(other);
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), fixed, At(0, 2)));
    EXPECT_EQ(TextOf(fixed), L"fixed");
    EXPECT_EQ(TextOf(control), L"abcdef");
}

TEST_F(DragBetween, ACancelledDragLeavesItsRangeForAMoveFromElsewhereToDelete)
{
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(drag(At(0, 1), {[] { ::SetCursorPos(outside.x, outside.y); }}));
    GivenMarked(other, L"[X]|yz");
    Steps steps{
        [this] { PutPointer(other, At(0, 0)); },
        [] { PutButton(true); },
        [this] { PutPointer(other, {At(0, 0).x + 2, At(0, 0).y}); },
        [this] { PutPointer(control, {At(0, 5).x, At(0, 5).y + 3}); },
        [this] { PutPointer(control, At(0, 5)); },
        [] { PutButton(false); },
        [] {},
    };
    EXPECT_TRUE(PlaySteps(steps));
    EXPECT_EQ(TextOf(control), L"adeXf");
    EXPECT_EQ(TextOf(other), L"yz");
}

TEST_F(DragBetween, AMoveOutLeavesOneCharacterForAMoveFromElsewhereToDelete)
{
    GivenMarked(other, L"|uvw");
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 3)));
    ASSERT_EQ(TextOf(control), L"adef");
    const auto target = TargetOf(control);
    const xTComPtr<DragData> data(new DragData);
    data->PutText(L"X");
    POINT start = At(0, 0);
    ::ClientToScreen(control, &start);
    DWORD effect = DROPEFFECT_MOVE;
    target->Drop(data.get(), 0, {start.x, start.y}, &effect);
    EXPECT_EQ(TextOf(control), L"Xadf");  // the place of the moved text's last character
}

TEST_F(DragBetween, AMoveOfTheMouseSentIntoTheDragLeavesItsTextAlone)
{
    GivenMarked(other, L"|uvw");
    GivenMarked(control, L"a[bc]|def");
    Steps steps{
        [&] { PutPointer(other, At(0, 2)); },
        [&] { SendMouse(control, WM_MOUSEMOVE, At(0, 1)); },
        [&] { PutPointer(other, At(0, 3)); },
    };
    EXPECT_TRUE(drag(At(0, 1), steps));
    EXPECT_EQ(TextOf(control), L"adef");
    EXPECT_NE(TextOf(other).find(L"bc"), std::wstring::npos) << "what was moved has arrived";
}

// ---- Hosts that interfere
struct Meddling {
    const char* name;
    void (*act)(HWND source, HWND target);
    bool sourceLives;
    bool targetLives;
};

class MeddlingDrags : public DragBetween, public testing::WithParamInterface<Meddling> {};

TEST_P(MeddlingDrags, LeaveTheProcessWhole)
{
    for (const bool onTarget : {false, true}) {
        edDestroyCtrl(control);
        edDestroyCtrl(other);
        const HWND source = control = host.Show(L"");
        const HWND target = other = otherHost.Show(L"target");
        ::SetForegroundWindow(host.Window());
        GivenMarked(source, L"a[bc]|def");
        bool done = false;
        otherHost.onMessage = [&](const ControlHost::Message& message) {
            if (onTarget && message.id == ED_DRAG_ENTER_PARENT && !std::exchange(done, true))
                GetParam().act(source, target);
        };
        Steps steps{
            [&] { PutPointer(source, At(0, 4)); },
            [&] {
                if (!onTarget && !std::exchange(done, true))
                    GetParam().act(source, target);
            },
            [&] { PutPointer(target, At(0, 2)); },
            [&] { PutPointer(target, At(0, 3)); },
        };
        EXPECT_TRUE(drag(At(0, 1), steps));
        otherHost.onMessage = nullptr;
        EXPECT_TRUE(done);
        EXPECT_EQ(edGetHWND(source) != nullptr, GetParam().sourceLives);
        EXPECT_EQ(edGetHWND(target) != nullptr, GetParam().targetLives);
        EXPECT_EQ(edLoadText(source, L"alive", 5), GetParam().sourceLives);
        EXPECT_EQ(edLoadText(target, L"alive", 5), GetParam().targetLives);
    }
}

const Meddling meddlings[] = {
    {"DestroysTheSource", [](HWND source, HWND) { edDestroyCtrl(source); }, false, true},
    {"DestroysTheTarget", [](HWND, HWND target) { edDestroyCtrl(target); }, true, false},
    {"DestroysBoth", [](HWND source, HWND target) { edDestroyCtrl(source); edDestroyCtrl(target); }, false, false},
    {"ReloadsTheSource", [](HWND source, HWND) { edLoadText(source, L"x", 1); }, true, true},
    {"EmptiesTheTarget", [](HWND, HWND target) { edLoadText(target, nullptr, 0); }, true, true},
    {"SendsMovesIntoTheDrag", [](HWND source, HWND) { SendMouse(source, WM_MOUSEMOVE, At(0, 1)); }, true, true},
    {"EndsTheTargetsRegistration", [](HWND, HWND target) { ::RevokeDragDrop(target); }, true, true},
};

INSTANTIATE_TEST_SUITE_P(Each, MeddlingDrags, testing::ValuesIn(meddlings), [](const auto& info) { return info.param.name; });

}  // namespace
