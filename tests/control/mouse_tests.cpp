// The left button on a control: clicks, the drag selection with its timer, the double click, the pointer's shape, the
// moves that the host's window gets, and hosts that interfere.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/Pointer.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

namespace {

constexpr UINT scrollTimer = 3501;

std::wstring lines(int count)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += (i ? L"\nline " : L"line ") + std::to_wstring(i);
    return text;
}

edPoint positionOf(HWND control, int code)
{
    edPoint at{-1, -1};
    edGetPosition(control, code, &at);
    return at;
}

class Mouse : public testing::Test {
protected:
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

// ---- The click

struct Click {
    const char* name;
    const wchar_t* before;
    POINT point;
    const wchar_t* after;
};

class Clicks : public Mouse, public testing::WithParamInterface<Click> {};

TEST_P(Clicks, PutTheCaret)
{
    Give(control, GetParam().before);
    SendClick(control, GetParam().point);
    EXPECT_EQ(Marked(control), GetParam().after);
}

const Click clicks[] = {
    {"OnACharacter", L"|abc\ndef", At(1, 2), L"abc\nde|f"},
    {"InTheRightHalfOfACharacterStaysAheadOfIt", L"|abc", {2 * testCharWidth - 1, 3}, L"a|bc"},
    {"RightOfTheTextGoesToTheLineEnd", L"|abc\nd", At(0, 40), L"abc|\nd"},
    {"OnAnEmptyLine", L"|a\n\nb", At(1, 5), L"a\n|\nb"},
    {"RightBelowTheLastLineGoesToTheColumnUnderThePointer", L"|abcd\nefgh", At(2, 1), L"abcd\ne|fgh"},
    {"FurtherBelowTheTextGoesToTheEndOfTheLastLine", L"|abcd\nefgh", At(3, 1), L"abcd\nefgh|"},
    {"OnAnEmptyText", L"", At(4, 4), L"|"},
    {"OutsideTheSelectionClearsIt", L"a[bc]|de", At(0, 5), L"abcde|"},
    {"OnASelectedCharacterKeepsTheSelection", L"a[bcd]|e", At(0, 2), L"a[b|cd]e"},
    {"OnTheFirstSelectedCharacterKeepsTheSelection", L"a[bcd]|e", At(0, 1), L"a[|bcd]e"},
    {"OnTheLastSelectedCharacterKeepsTheSelection", L"a[bcd]|e", At(0, 3), L"a[bc|d]e"},
    {"JustBehindTheSelectionClearsIt", L"a[bcd]|ef", At(0, 4), L"abcd|ef"},
    {"JustAheadOfTheSelectionClearsIt", L"ab[cd]|ef", At(0, 1), L"a|bcdef"},
    {"InASelectionOfSeveralLinesKeepsIt", L"a[b\ncd\ne]|f", At(1, 2), L"a[b\ncd|\ne]f"},
};

INSTANTIATE_TEST_SUITE_P(Each, Clicks, testing::ValuesIn(clicks), [](const auto& info) { return info.param.name; });

TEST_F(Mouse, APressOnAReadOnlyControlInsideTheSelectionClearsIt)
{
    useReadOnly();
    Give(control, L"a[bcd]|e");
    down(At(0, 2));
    EXPECT_EQ(Marked(control), L"ab|cde");
    move(At(0, 4));
    up(At(0, 4));
    EXPECT_EQ(Marked(control), L"ab[cd]|e");  // a selection began, and no drag
}

TEST_F(Mouse, InAScrolledViewAClickBelowTheTextKeepsThePointersColumn)
{
    edLoadText(control, lines(10).c_str(), 0xFFFFFFFF);
    edSetScrollPosition(control, 5, -1);
    SendClick(control, At(6, 2));  // the view's row is not past the number of lines
    EXPECT_EQ(caret().y, 9);
    EXPECT_EQ(caret().x, 2);
    SendClick(control, At(11, 2));
    EXPECT_EQ(caret().y, 9);
    EXPECT_EQ(caret().x, 6);
}

TEST_F(Mouse, AClickInAViewScrolledSidewaysCountsTheHiddenColumns)
{
    edLoadText(control, std::wstring(200, L'x').c_str(), 0xFFFFFFFF);
    edSetScrollPosition(control, 0, 30);
    SendClick(control, At(0, 3));
    EXPECT_EQ(caret().x, 33);
}

TEST_F(Mouse, APressTakesTheFocusAndTheCaptureAndTellsTheHost)
{
    Give(control, L"|abc");
    ::SetFocus(host.Window());
    host.Forget();
    down(At(0, 2));
    EXPECT_EQ(::GetFocus(), control);
    EXPECT_EQ(::GetCapture(), control);
    ASSERT_GE(host.Count(ED_NOTIFY_CARET), 2u);  // from the focus, and from the click
    EXPECT_EQ(host.Of(ED_NOTIFY_CARET).back().lParam, MAKELPARAM(0, 2));
    host.Forget();
    up(At(0, 2));
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(host.Count(ED_NOTIFY_CARET), 1u);  // from the lost capture
}

TEST_F(Mouse, TheOtherButtonsAreTheHostsAffair)
{
    Give(control, L"a[bc]|d");
    for (const UINT message : {WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_RBUTTONDBLCLK})
        SendMouse(control, message, At(0, 0), 0);
    EXPECT_EQ(Marked(control), L"a[bc]|d");
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(Mouse, ARealClickPutsTheCaretAndItsImage)
{
    Give(control, L"|abcdef\nghijkl");
    MovePointer(control, At(1, 4));
    PressButton();
    ReleaseButton();
    EXPECT_EQ(Marked(control), L"abcdef\nghij|kl");
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
    EXPECT_EQ(info.rcCaret.left, 4 * testCharWidth);
    EXPECT_EQ(info.rcCaret.top, testLineHeight);
}

// ---- The double click

class DoubleClicks : public Mouse, public testing::WithParamInterface<Click> {};

TEST_P(DoubleClicks, SelectAWord)
{
    Give(control, GetParam().before);
    SendClick(control, GetParam().point);
    SendMouse(control, WM_LBUTTONDBLCLK, GetParam().point);
    EXPECT_EQ(Marked(control), GetParam().after);
}

const Click doubleClicks[] = {
    {"InTheMiddle", L"one two three", At(0, 5), L"one [two]| three"},
    {"OnTheFirstLetter", L"one two three", At(0, 4), L"one [two]| three"},
    {"OnTheFirstWordOfALine", L"one two", At(0, 1), L"[one]| two"},
    {"OnTheLastWordOfALineSelectsUpToItsEnd", L"one two\nthree", At(0, 5), L"one [two]|\nthree"},
    {"OnAParenthesisSelectsThatCharacter", L"call(here)", At(0, 4), L"call[(]|here)"},
    {"OnASpaceBetweenTwoWordsSelectsOneSpace", L"one   two", At(0, 4), L"one [ ]| two"},
    {"OnAnEmptyLineSelectsNothing", L"a\n\nb", At(1, 0), L"a\n|\nb"},
    {"BehindTheLineEndSelectsNothing", L"one two", At(0, 20), L"one two|"},
    {"OnAnUnderscoreTakesItAsALetter", L"a my_name b", At(0, 4), L"a [my_name]| b"},
    {"InsideASelectionTakesItsPlace", L"a[b one two]|", At(0, 4), L"ab [one]| two"},
};

INSTANTIATE_TEST_SUITE_P(Each, DoubleClicks, testing::ValuesIn(doubleClicks), [](const auto& info) { return info.param.name; });

TEST_F(Mouse, ADoubleClickWithAModifierDoesNothing)
{
    Give(control, L"one| two");
    for (const WPARAM keys : {MK_LBUTTON | MK_SHIFT, MK_LBUTTON | MK_CONTROL, MK_LBUTTON | MK_RBUTTON, 0}) {
        SendMouse(control, WM_LBUTTONDBLCLK, At(0, 1), keys);
        EXPECT_EQ(Marked(control), L"one| two") << keys;
    }
}

TEST_F(Mouse, ARealDoubleClickSelectsTheWordAndAThirdPressIsAClick)
{
    Give(control, L"|one two three");
    LetDoubleClickTimePass();
    MovePointer(control, At(0, 5));
    for (int press = 0; press < 2; ++press) {
        PressButton();
        ReleaseButton();
    }
    EXPECT_EQ(Marked(control), L"one [two]| three");
    MovePointer(control, At(0, 10));
    LetDoubleClickTimePass();
    PressButton();
    ReleaseButton();
    EXPECT_EQ(Marked(control), L"one two th|ree");
}

TEST_F(Mouse, ADoubleClickInALongSelectionLeavesNoneOfItOnScreen)
{
    Give(control, L"[one\ntwo\nthree]|");
    SendClick(control, At(1, 1));
    SendMouse(control, WM_LBUTTONDBLCLK, At(1, 1));
    Pump();
    const Picture shown(control);
    ::InvalidateRect(control, nullptr, TRUE);
    ::UpdateWindow(control);
    EXPECT_EQ(shown.Difference(Picture(control)), "");
}

// ---- The drag selection

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
    Give(control, GetParam().before);
    down(GetParam().from);
    move(GetParam().to);
    up(GetParam().to);
    EXPECT_EQ(Marked(control), GetParam().after);
}

const Sweep sweeps[] = {
    {"Forward", L"abcdef", At(0, 1), At(0, 4), L"a[bcd]|ef"},
    {"Backward", L"abcdef", At(0, 4), At(0, 1), L"a[|bcd]ef"},
    {"DownALine", L"abc\ndef", At(0, 1), At(1, 2), L"a[bc\nde]|f"},
    {"UpALine", L"abc\ndef", At(1, 2), At(0, 1), L"a[|bc\nde]f"},
    {"ToTheLineStartTakesTheBreak", L"abc\ndef", At(0, 1), At(1, 0), L"a[bc\n]|def"},
    {"OverAnOldSelection", L"[ab]|cdef", At(0, 4), At(0, 6), L"abcd[ef]|"},
    {"WithoutMovingNothing", L"abcdef", At(0, 3), At(0, 3), L"abc|def"},
};

INSTANTIATE_TEST_SUITE_P(Each, Sweeps, testing::ValuesIn(sweeps), [](const auto& info) { return info.param.name; });

TEST_F(Mouse, AMoveWithoutTheButtonSelectsNothing)
{
    Give(control, L"|abcdef");
    move(At(0, 3), 0);
    move(At(0, 3));  // the button is said to be down, but no press came before
    EXPECT_EQ(Marked(control), L"|abcdef");
}

TEST_F(Mouse, ASweepBackToItsStartLeavesAnEmptySelection)
{
    Give(control, L"abcdef");
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
    Give(control, L"|abcdef\nghijkl\nmnopqr");
    LetDoubleClickTimePass();
    MovePointer(control, At(0, 2));
    PressButton();
    MovePointer(control, At(1, 3));
    EXPECT_EQ(Marked(control), L"ab[cdef\nghi]|jkl\nmnopqr");
    MovePointer(control, {-60, testLineHeight / 2});
    Pump(250);  // outside the timer follows
    EXPECT_EQ(Marked(control), L"[|ab]cdef\nghijkl\nmnopqr");
    ReleaseButton();
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(Mouse, BothTimersRunForTheLifeOfTheWindow)
{
    EXPECT_TRUE(::KillTimer(control, 1));
    EXPECT_TRUE(::KillTimer(control, scrollTimer));
    EXPECT_FALSE(::KillTimer(control, scrollTimer));
}

TEST_F(Mouse, ALostCaptureEndsTheDragSelection)
{
    Give(control, L"abcdef");
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
    Give(control, L"abcdef");
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
    Give(control, L"abcdef");
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

// ---- The pointer's shape

TEST_F(Mouse, OverTheTextThePointerIsTheTextCursor)
{
    const HCURSOR text = ::LoadCursorW(nullptr, IDC_IBEAM);
    const HCURSOR arrow = ::LoadCursorW(nullptr, IDC_ARROW);
    ::SetCursor(arrow);
    move(At(0, 0), 0);
    EXPECT_EQ(::GetCursor(), text);
    ::SetCursor(arrow);
    move({-5, 5}, 0);  // outside the cursor is the one that the last move took away
    EXPECT_EQ(::GetCursor(), arrow);
    down(At(0, 0));
    move({-5, 5});  // captured, it is the text cursor outside too
    EXPECT_EQ(::GetCursor(), text);
    up(At(0, 0));
}

TEST_F(Mouse, WithoutAnEarlierMoveThePointerOutsideIsLeftAlone)
{
    const HCURSOR cross = ::LoadCursorW(nullptr, IDC_CROSS);
    ::SetCursor(cross);
    move({-5, 5}, 0);
    EXPECT_EQ(::GetCursor(), cross);
}

// ---- The moves that the window around the host gets

struct Moves {
    std::vector<std::pair<WPARAM, LPARAM>> seen;
    std::function<void()> onMove;
} moves;

LRESULT CALLBACK recordMoves(HWND window, UINT id, WPARAM wParam, LPARAM lParam)
{
    if (id == WM_MOUSEMOVE) {
        moves.seen.emplace_back(wParam, lParam);
        if (moves.onMove)
            moves.onMove();
        return 0;
    }
    return ::DefWindowProcW(window, id, wParam, lParam);
}

class ForwardedMoves : public testing::Test {
protected:
    ControlHost around;
    HWND panel = nullptr;
    HWND control = nullptr;

    void SetUp() override
    {
        moves = {};
        panel = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 400, 300, around.Window(), nullptr,
                                  nullptr, nullptr);
        RECT rect{0, 0, 400, 300};
        edCreateParams params{};
        params.parent = panel;
        params.rect = &rect;
        control = edCreateCtrl(&params);
        ::ShowWindow(control, SW_SHOW);
        edLoadText(control, L"one two three\nfour five", 0xFFFFFFFF);
        ::SetWindowLongPtrW(around.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&recordMoves));
    }
    void TearDown() override
    {
        moves = {};
        if (::GetCapture())
            ::ReleaseCapture();
    }
};

TEST_F(ForwardedMoves, KeepTheFlagsAndTheCoordinatesOfTheControl)
{
    SendMouse(control, WM_MOUSEMOVE, {33, 44}, MK_SHIFT | MK_RBUTTON);
    SendMouse(control, WM_MOUSEMOVE, {-3, -4}, 0);
    ASSERT_EQ(moves.seen.size(), 2u);
    EXPECT_EQ(moves.seen[0], (std::pair<WPARAM, LPARAM>{MK_SHIFT | MK_RBUTTON, MAKELPARAM(33, 44)}));
    EXPECT_EQ(moves.seen[1], (std::pair<WPARAM, LPARAM>{0, MAKELPARAM(-3, -4)}));
}

TEST_F(ForwardedMoves, ComeBehindTheSelectionStep)
{
    std::wstring marked;
    SendMouse(control, WM_LBUTTONDOWN, At(0, 1));
    moves.onMove = [&] { marked = Marked(control); };
    SendMouse(control, WM_MOUSEMOVE, At(0, 4));
    EXPECT_EQ(marked, L"o[ne ]|two three\nfour five");
}

TEST_F(ForwardedMoves, DoNotExistForAControlWithoutAGrandparent)
{
    ControlHost alone;
    const HWND other = alone.Show(L"abc");
    moves.seen.clear();
    SendMouse(other, WM_MOUSEMOVE, At(0, 1), 0);
    EXPECT_TRUE(moves.seen.empty());
}

// ---- Hosts that interfere

struct Misdeed {
    const char* name;
    void (*act)(HWND control);
    bool controlLives;
};

const Misdeed misdeeds[] = {
    {"Destroys", [](HWND control) { edDestroyCtrl(control); }, false},
    {"DestroysTheParent", [](HWND control) { ::DestroyWindow(::GetParent(control)); }, false},
    {"LoadsAShortText", [](HWND control) { edLoadText(control, L"x", 1); }, true},
    {"EmptiesTheText", [](HWND control) { edLoadText(control, nullptr, 0); }, true},
    {"TakesTheCapture", [](HWND control) { ::SetCapture(::GetParent(control)); ::ReleaseCapture(); }, true},
    {"TakesTheFocus", [](HWND control) { ::SetFocus(::GetParent(control)); }, true},
    {"Hides", [](HWND control) { ::ShowWindow(control, SW_HIDE); }, true},
    {"Scrolls", [](HWND control) { edSetScrollPosition(control, 50, 0); }, true},
    {"MovesTheCaret", [](HWND control) { edSetCaretPosition(control, 1, 1); }, true},
    {"Pumps", [](HWND) { Pump(); }, true},
    {"SendsAMove", [](HWND control) { SendMouse(control, WM_MOUSEMOVE, At(3, 3)); }, true},
    {"SendsAPress", [](HWND control) { SendMouse(control, WM_LBUTTONDOWN, At(3, 3)); }, true},
};

class MeddlingHosts : public testing::TestWithParam<Misdeed> {
protected:
    bool busy = false;
    int times = 0;
    void act(HWND control)
    {
        if (std::exchange(busy, true))
            return;
        ++times;
        GetParam().act(control);
        busy = false;
    }
    void expectLife(HWND control) const
    {
        EXPECT_GT(times, 0);
        EXPECT_EQ(edGetHWND(control) != nullptr, GetParam().controlLives);
        EXPECT_EQ(edLoadText(control, L"alive", 5), GetParam().controlLives);
    }
};

TEST_P(MeddlingHosts, MayActInANotificationOfAnyGesture)
{
    for (const UINT id : {ED_NOTIFY_CARET, ED_NOTIFY_SCROLL}) {
        ControlHost host;
        const HWND control = host.Show(lines(300).c_str());
        ::SetFocus(host.Window());
        times = 0;
        host.onMessage = [&](const ControlHost::Message& message) {
            if (message.id == id)
                act(control);
        };
        RECT client{};
        ::GetClientRect(control, &client);
        SendMouse(control, WM_LBUTTONDOWN, At(1, 1));
        SendMouse(control, WM_MOUSEMOVE, At(4, 2));
        SendMouse(control, WM_MOUSEMOVE, At(client.bottom / testLineHeight, 2));  // the partial row scrolls by one
        MovePointer(host.Window(), {10, client.bottom + 40});
        ::SendMessageW(control, WM_TIMER, scrollTimer, 0);
        SendMouse(control, WM_LBUTTONUP, At(4, 2), 0);
        SendMouse(control, WM_LBUTTONDBLCLK, At(1, 1));
        host.onMessage = nullptr;
        expectLife(control);
        Pump();
    }
}

TEST_P(MeddlingHosts, MayActInAForwardedMove)
{
    ControlHost around;
    const HWND panel = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 400, 300, around.Window(),
                                         nullptr, nullptr, nullptr);
    RECT rect{0, 0, 400, 300};
    edCreateParams params{};
    params.parent = panel;
    params.rect = &rect;
    const HWND control = edCreateCtrl(&params);
    ::ShowWindow(control, SW_SHOW);
    edLoadText(control, lines(300).c_str(), 0xFFFFFFFF);
    ::SetWindowLongPtrW(around.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&recordMoves));
    moves.onMove = [&] { act(control); };
    SendMouse(control, WM_LBUTTONDOWN, At(1, 1));
    SendMouse(control, WM_MOUSEMOVE, At(4, 2));
    SendMouse(control, WM_MOUSEMOVE, At(5, 3));
    SendMouse(control, WM_LBUTTONUP, At(5, 3), 0);
    moves = {};
    expectLife(control);
}

INSTANTIATE_TEST_SUITE_P(Each, MeddlingHosts, testing::ValuesIn(misdeeds), [](const auto& info) { return info.param.name; });

TEST_F(Mouse, AFocusTakenInAStepDoesNotLeaveTheSelectionFollowingThePointer)
{
    edLoadText(control, lines(100).c_str(), 0xFFFFFFFF);
    down(At(1, 1));
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && message.lParam != -1)
            ::SetFocus(host.Window());
    };
    move(At(2, 2));
    host.onMessage = nullptr;
    MovePointer(control, At(6, 4));
    const std::wstring before = Marked(control);
    tick();
    EXPECT_EQ(Marked(control), before);
}

}  // namespace
