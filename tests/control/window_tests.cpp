// The control as a window: focus, timers, scrolling, painting, the caret, and hosts that interfere.

#include "tests/support/win/ControlHost.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

constexpr int lineHeight = 15;  // 10 points at 96 dots per inch
constexpr int charWidth = 8;
constexpr COLORREF white = 0xFFFFFF;
constexpr COLORREF black = 0x000000;

std::wstring lines(int count)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += L"line " + std::to_wstring(i) + L"\n";
    return text;
}

edPoint viewOf(HWND control)
{
    edPoint view{-1, -1};
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    return view;
}

edPoint caretOf(HWND control)
{
    edPoint caret{-1, -1};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    return caret;
}

SCROLLINFO barOf(HWND control, int bar)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ::GetScrollInfo(control, bar, &info);
    return info;
}

class Window : public testing::Test {
protected:
    ControlHost host;
    HWND control = nullptr;

    void given(const std::wstring& text) { control = host.Show(text.c_str()); }
    void resize(int clientWidth, int clientHeight)
    {
        RECT outer{};
        RECT inner{};
        ::GetWindowRect(control, &outer);
        ::GetClientRect(control, &inner);
        ::SetWindowPos(control, nullptr, 0, 0, outer.right - outer.left - inner.right + clientWidth,
                       outer.bottom - outer.top - inner.bottom + clientHeight, SWP_NOMOVE | SWP_NOZORDER);
        Pump();
    }
    int visibleLines() const
    {
        RECT client{};
        ::GetClientRect(control, &client);
        return client.bottom / lineHeight;
    }
    void scroll(UINT message, int code) { ::SendMessageW(control, message, static_cast<WPARAM>(code), 0); }
    void wheel(int delta) { ::SendMessageW(control, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(100, 100)); }
};

// ---- Focus

TEST_F(Window, FocusShowsTheCaretAndTellsTheHost)
{
    given(L"abc");
    edSetCaretPosition(control, 0, 2);
    ::SetFocus(host.Window());
    host.Forget();
    ::SetFocus(control);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
    EXPECT_EQ(info.hwndCaret, control);
    EXPECT_EQ(info.rcCaret.left, 2 * charWidth);
    EXPECT_EQ(info.rcCaret.right - info.rcCaret.left, 1);
    EXPECT_EQ(info.rcCaret.bottom - info.rcCaret.top, lineHeight);
    ASSERT_EQ(host.Count(ED_NOTIFY_CARET), 1u);
    EXPECT_EQ(host.Of(ED_NOTIFY_CARET)[0], (ControlHost::Message{ED_NOTIFY_CARET, 0, MAKELPARAM(0, 2)}));
}

TEST_F(Window, FocusLossToAForeignWindowSendsMinusOne)
{
    given(L"abc");
    host.Forget();
    ::SetFocus(host.Window());
    ASSERT_EQ(host.Count(ED_NOTIFY_CARET), 1u);
    EXPECT_EQ(host.Of(ED_NOTIFY_CARET)[0].lParam, -1);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
    EXPECT_EQ(info.hwndCaret, nullptr);
}

TEST_F(Window, FocusLossToAnotherControlSendsNoMinusOne)
{
    given(L"abc");
    const HWND other = host.Create();
    ::ShowWindow(other, SW_SHOW);
    host.Forget();
    ::SetFocus(other);
    for (const auto& message : host.Of(ED_NOTIFY_CARET))
        EXPECT_NE(message.lParam, -1);
}

TEST_F(Window, TwoLinesFarApartGiveTheSameLowWord)
{
    std::wstring text(70000, L'\n');
    given(text);
    edSetCaretPosition(control, 10, 0);
    ::SetFocus(host.Window());
    host.Forget();
    ::SetFocus(control);
    edSetCaretPosition(control, 10 + 65536, 0);
    ::SetFocus(host.Window());
    ::SetFocus(control);
    const auto sent = host.Of(ED_NOTIFY_CARET);
    ASSERT_EQ(sent.size(), 3u);
    EXPECT_EQ(sent[0].lParam, 10);
    EXPECT_EQ(sent[2].lParam, sent[0].lParam);
}

// ---- Timers

TEST_F(Window, TheScrollTimerDoesNothingOutsideADragSelection)
{
    given(lines(100));
    edSetCaretPosition(control, 5, 2);
    host.Forget();
    ::SetCursorPos(5, 5);
    ::SendMessageW(control, WM_TIMER, 3501, 0);
    EXPECT_EQ(caretOf(control).y, 5);
    EXPECT_EQ(host.Count(ED_NOTIFY_CARET), 0u);
}

TEST_F(Window, TheHousekeepingTickChangesNothingOnScreen)
{
    given(lines(3));
    const Picture before(control);
    ::SendMessageW(control, WM_TIMER, 1, 0);
    ::SendMessageW(control, WM_TIMER, 1, 0);
    EXPECT_TRUE(Picture(control) == before);
}

// ---- Scrolling

TEST_F(Window, TheBarsHoldTheTextAndTheFixedWidth)
{
    given(lines(100));
    RECT client{};
    ::GetClientRect(control, &client);
    const SCROLLINFO vertical = barOf(control, SB_VERT);
    EXPECT_EQ(vertical.nMin, 0);
    EXPECT_EQ(vertical.nMax, 100);
    EXPECT_EQ(vertical.nPage, static_cast<UINT>(visibleLines()));
    const SCROLLINFO horizontal = barOf(control, SB_HORZ);
    EXPECT_EQ(horizontal.nMax, 13000);
    EXPECT_EQ(horizontal.nPage, static_cast<UINT>(client.right));
}

TEST_F(Window, ABarWithNothingToScrollIsDisabledAndNotHidden)
{
    control = host.Show(L"");
    resize(400, 10);  // no whole line fits: no range and no page
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    EXPECT_TRUE(::GetWindowLongPtrW(control, GWL_STYLE) & WS_VSCROLL);
    EXPECT_TRUE(::GetScrollBarInfo(control, OBJID_VSCROLL, &info));
    EXPECT_FALSE(info.rgstate[0] & STATE_SYSTEM_INVISIBLE);
    EXPECT_TRUE(info.rgstate[0] & STATE_SYSTEM_UNAVAILABLE);
}

TEST_F(Window, ScrollingUpByMoreThanThereIsStopsAtTheTop)
{
    given(lines(100));
    edSetScrollPosition(control, 3, -1);
    edSetScrollPosition(control, 0, -1);
    EXPECT_EQ(viewOf(control).y, 0);
    edSetScrollPosition(control, 3, -1);
    scroll(WM_VSCROLL, SB_PAGEUP);
    EXPECT_EQ(viewOf(control).y, 0);
}

TEST_F(Window, ScrollingDownStopsWithOnlyTheLastLineInView)
{
    given(lines(10));
    edSetScrollPosition(control, 1000000, -1);
    EXPECT_EQ(viewOf(control).y, 9);
    host.Forget();
    scroll(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(viewOf(control).y, 9);
    EXPECT_EQ(host.Count(ED_NOTIFY_SCROLL), 0u);
}

TEST_F(Window, ScrollingLeftAtTheLeftEndSendsNothing)
{
    given(lines(10));
    host.Forget();
    scroll(WM_HSCROLL, SB_LINELEFT);
    EXPECT_EQ(viewOf(control).x, 0);
    EXPECT_EQ(host.Count(ED_NOTIFY_SCROLL), 0u);
}

TEST_F(Window, LinesAndColumnsScrollByOneAndTellTheHost)
{
    given(lines(100));
    host.Forget();
    scroll(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(viewOf(control).y, 1);
    EXPECT_EQ(host.Count(ED_NOTIFY_SCROLL), 1u);
    scroll(WM_VSCROLL, SB_LINEUP);
    EXPECT_EQ(viewOf(control).y, 0);
    scroll(WM_HSCROLL, SB_LINERIGHT);
    EXPECT_EQ(viewOf(control).x, 1);
    EXPECT_EQ(barOf(control, SB_HORZ).nPos, charWidth);
    scroll(WM_HSCROLL, SB_LINELEFT);
    EXPECT_EQ(viewOf(control).x, 0);
    EXPECT_EQ(host.Count(ED_NOTIFY_SCROLL), 4u);
}

TEST_F(Window, APageIsTheWholeLinesOfTheView)
{
    given(lines(500));
    host.Forget();
    scroll(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_EQ(viewOf(control).y, visibleLines());
    EXPECT_EQ(host.Count(ED_NOTIFY_SCROLL), 2u);  // the scroll tells it, and then the page
    scroll(WM_VSCROLL, SB_PAGEUP);
    EXPECT_EQ(viewOf(control).y, 0);
}

TEST_F(Window, TheWheelMovesByTwoLinesWhateverTheDelta)
{
    given(lines(500));
    for (const int delta : {-120, -240, -1, 0}) {
        const int before = viewOf(control).y;
        wheel(delta);
        EXPECT_EQ(viewOf(control).y, before + 2) << delta;
    }
    wheel(240);
    EXPECT_EQ(viewOf(control).y, 6);
    EXPECT_EQ(caretOf(control).y, 0);
}

TEST_F(Window, APinnedPositionStillGrowsTheColumnByPages)
{
    given(lines(3));
    RECT client{};
    ::GetClientRect(control, &client);
    const int page = client.right / charWidth;
    for (int i = 0; i < 40; ++i)
        scroll(WM_HSCROLL, SB_PAGERIGHT);
    EXPECT_EQ(viewOf(control).x, 40 * page);
    EXPECT_LE(barOf(control, SB_HORZ).nPos, 13000);
}

TEST_F(Window, TheLeftPageStopsAtColumnZero)
{
    given(lines(3));
    edSetScrollPosition(control, -1, 5);
    scroll(WM_HSCROLL, SB_PAGELEFT);
    EXPECT_EQ(viewOf(control).x, 0);
    EXPECT_EQ(barOf(control, SB_HORZ).nPos, 0);
}

TEST_F(Window, CentringIsOneSided)
{
    given(lines(500));
    const int visible = visibleLines();
    ASSERT_GT(visible, 14);
    edSetCaretPosition(control, 5, 0);  // in the upper half: nothing moves
    EXPECT_EQ(viewOf(control).y, 0);
    edSetCaretPosition(control, 200, 0);
    EXPECT_EQ(viewOf(control).y, 200 - visible + 1 + visible / 2);
    edSetCaretPosition(control, 100, 0);
    EXPECT_EQ(viewOf(control).y, 100 - visible / 2);
}

TEST_F(Window, MoveWithANegativeColumnOnlyScrolls)
{
    given(lines(500));
    edSetCaretPosition(control, 300, -1);
    EXPECT_EQ(caretOf(control).y, 0);
    EXPECT_GT(viewOf(control).y, 0);
}

TEST_F(Window, ScrollingShowsTheSamePictureAsAFullRepaint)
{
    given(lines(500));
    for (const int target : {1, 7, 30, 29, 3, 250, 0}) {
        edSetScrollPosition(control, target, -1);
        Pump();
        const Picture scrolled(control);
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
        EXPECT_EQ(scrolled.Difference(Picture(control)), "") << target;
    }
    for (const int column : {1, 6, 40, 3, 0}) {
        edSetScrollPosition(control, -1, column);
        Pump();
        const Picture scrolled(control);
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
        EXPECT_EQ(scrolled.Difference(Picture(control)), "") << column;
    }
}

TEST_F(Window, ThumbPositionTakesTheTrackPosition)
{
    given(lines(500));
    edSetScrollPosition(control, 40, -1);
    scroll(WM_VSCROLL, SB_THUMBPOSITION);  // by hand the track position is the position
    EXPECT_EQ(viewOf(control).y, barOf(control, SB_VERT).nPos);
    scroll(WM_VSCROLL, SB_ENDSCROLL);
    EXPECT_EQ(viewOf(control).y, 40);
}

TEST_F(Window, ADragAtTheEdgeScrollsAndMovesTheCaret)
{
    given(lines(500));
    RECT client{};
    ::GetClientRect(control, &client);
    constexpr UINT dragScroll = 0x40D;
    ::SendMessageW(control, dragScroll, 0, MAKELPARAM(client.bottom, 20));  // y low, x high
    EXPECT_EQ(viewOf(control).y, 1);
    ::SendMessageW(control, dragScroll, 0, MAKELPARAM(0, 20));
    EXPECT_EQ(viewOf(control).y, 0);
    ::SendMessageW(control, dragScroll, 0, MAKELPARAM(40, client.right));
    EXPECT_EQ(viewOf(control).x, 2);
    ::SendMessageW(control, dragScroll, 0, MAKELPARAM(40, 0));
    EXPECT_EQ(viewOf(control).x, 0);
    ::SendMessageW(control, dragScroll, 0, MAKELPARAM(3 * lineHeight + 2, 2 * charWidth + 1));
    EXPECT_EQ(caretOf(control).y, 3);
    EXPECT_EQ(caretOf(control).x, 2);
}

// ---- Painting

TEST_F(Window, APartialRowAtTheBottomShowsTheBackground)
{
    given(lines(100));
    resize(400, 2 * lineHeight + 8);
    const Picture picture(control);
    EXPECT_TRUE(picture.Has({0, lineHeight, 100, 2 * lineHeight}, black));
    EXPECT_TRUE(picture.AreaIs({0, 2 * lineHeight, picture.Width(), picture.Height()}, white));
}

TEST_F(Window, AnUpdateInThePartialRowDrawsNoLine)
{
    given(lines(100));
    resize(400, 2 * lineHeight + 8);
    const Picture before(control);
    const RECT partial{0, 2 * lineHeight + 1, 400, 2 * lineHeight + 8};
    ::InvalidateRect(control, &partial, TRUE);
    ::UpdateWindow(control);
    EXPECT_TRUE(before == Picture(control));
}

TEST_F(Window, AHiddenControlPaintsNothing)
{
    int calls = 0;
    edHighlightHook hook{[](void* ctx, wchar_t*, int) { ++*static_cast<int*>(ctx); }, &calls};
    edCreateParams params{};
    params.highlightHook = &hook;
    control = host.Create(params);
    edLoadText(control, L"text", 0xFFFFFFFF);
    ::SendMessageW(control, WM_PAINT, 0, 0);
    EXPECT_EQ(calls, 0);
    ::ShowWindow(control, SW_SHOW);
    ::UpdateWindow(control);
    EXPECT_GT(calls, 0);
    ::SendMessageW(control, WM_SHOWWINDOW, FALSE, 0);
    calls = 0;
    ::InvalidateRect(control, nullptr, TRUE);
    ::UpdateWindow(control);
    EXPECT_EQ(calls, 0);
}

TEST_F(Window, OnlyRowsOfTheUpdateAreAskedFor)
{
    std::vector<std::wstring> asked;
    edHighlightHook hook{[](void* ctx, wchar_t* text, int) {
                             static_cast<std::vector<std::wstring>*>(ctx)->push_back(text);
                         },
                         &asked};
    edCreateParams params{};
    params.highlightHook = &hook;
    control = host.Show(lines(100).c_str(), params);
    ::SetFocus(host.Window());  // the caret's place is measured through the hook too
    Pump();
    asked.clear();
    const RECT twoRows{0, 3 * lineHeight + 2, 50, 4 * lineHeight + 2};
    ::InvalidateRect(control, &twoRows, TRUE);
    ::UpdateWindow(control);
    EXPECT_EQ(asked, (std::vector<std::wstring>{L"line 3", L"line 4"}));
}

// ---- Hosts that interfere

struct Misdeed {
    const char* name;
    void (*hook)(void* ctx, wchar_t* text, int inside);
    bool controlLives;
};

HWND victim = nullptr;

const Misdeed misdeeds[] = {
    {"WritesPastTheLine", [](void*, wchar_t* text, int) { for (int i = 0; i < 16; ++i) text[i] = 3; }, true},
    {"WritesZeros", [](void*, wchar_t* text, int) { while (*text) *text++ = 0; }, true},
    {"WritesNothing", [](void*, wchar_t*, int) {}, true},
    {"WritesUnknownCodes", [](void*, wchar_t* text, int) { while (*text) *text++ = 0xFFFF; }, true},
    {"Throws", [](void*, wchar_t*, int) { throw std::runtime_error("hook"); }, true},
    {"ThrowsANumber", [](void*, wchar_t*, int) { throw 42; }, true},
    {"Destroys", [](void*, wchar_t*, int) { edDestroyCtrl(victim); }, false},
    {"LoadsAnotherText", [](void*, wchar_t*, int) { static int left = 50; if (left-- > 0) edLoadText(victim, L"x\ny", 9); }, true},
    {"EmptiesTheText", [](void*, wchar_t*, int) { edLoadText(victim, nullptr, 0); }, true},
    {"Scrolls", [](void*, wchar_t*, int) { edSetScrollPosition(victim, 5, 3); }, true},
    {"MovesTheCaret", [](void*, wchar_t*, int) { edSetCaretPosition(victim, 2, 1); }, true},
    {"Repaints", [](void*, wchar_t*, int) { ::InvalidateRect(victim, nullptr, TRUE); ::UpdateWindow(victim); }, true},
    {"Pumps", [](void*, wchar_t*, int) { Pump(); }, true},
    {"AsksForPositions", [](void*, wchar_t*, int) { edPoint at; for (int c = 1; c < 8; ++c) edGetPosition(victim, c, &at); }, true},
    {"HidesTheControl", [](void*, wchar_t*, int) { ::ShowWindow(victim, SW_HIDE); }, true},
    {"DestroysTheParent", [](void*, wchar_t*, int) { ::DestroyWindow(::GetParent(victim)); }, false},
};

class HostileHooks : public testing::TestWithParam<Misdeed> {};

TEST_P(HostileHooks, LeaveTheProcessAndTheControlWhole)
{
    ControlHost host;
    edHighlightHook hook{GetParam().hook, nullptr};
    edCreateParams params{};
    params.highlightHook = &hook;
    const HWND control = victim = host.Create(params);
    edLoadText(control, L"first\nsecond /* a\ncomment */ line\n\nfifth", 0xFFFFFFFF);
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    ::UpdateWindow(control);
    Pump(20);
    EXPECT_EQ(edGetHWND(control) != nullptr, GetParam().controlLives);
    if (GetParam().controlLives) {
        EXPECT_EQ(edLoadText(control, L"still\nhere", 0xFFFFFFFF), 1);
        edDestroyCtrl(control);
    }
    EXPECT_EQ(edGetHWND(control), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Each, HostileHooks, testing::ValuesIn(misdeeds), [](const auto& info) { return info.param.name; });

TEST_F(Window, AHostMayDestroyTheControlFromAnyNotification)
{
    for (const UINT id : {ED_NOTIFY_CARET, ED_NOTIFY_SCROLL}) {
        control = host.Create();
        ::ShowWindow(control, SW_SHOW);
        edLoadText(control, lines(300).c_str(), 0xFFFFFFFF);
        bool destroyed = false;
        host.onMessage = [&](const ControlHost::Message& message) {
            if (message.id == id && !std::exchange(destroyed, true))
                edDestroyCtrl(control);
        };
        ::SetFocus(control);
        if (edGetHWND(control))
            scroll(WM_VSCROLL, SB_PAGEDOWN);
        if (edGetHWND(control))
            edSetCaretPosition(control, 250, 1);
        host.onMessage = nullptr;
        EXPECT_TRUE(destroyed);
        EXPECT_EQ(edGetHWND(control), nullptr);
        Pump();
    }
}

// What the key has seen of the client area ahead of the notification counts no more.
TEST_F(Window, TheCaretIsBroughtIntoAViewThatAHostMakesSmallerMeanwhile)
{
    control = host.Create();
    ::ShowWindow(control, SW_SHOW);
    edLoadText(control, lines(300).c_str(), 0xFFFFFFFF);
    ::SetFocus(control);
    edSetCaretPosition(control, 20, 1);
    Pump();
    ASSERT_LT(viewOf(control).y, 10);
    bool smaller = false;
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && !std::exchange(smaller, true))
            ::SetWindowPos(control, nullptr, 0, 0, 400, 10 * lineHeight, SWP_NOMOVE | SWP_NOZORDER);
    };
    ::SendMessageW(control, WM_KEYDOWN, VK_DOWN, 0);
    host.onMessage = nullptr;
    EXPECT_GE(viewOf(control).y, 12);
}

TEST_F(Window, AHostMayReloadTheTextFromAnyNotification)
{
    for (const UINT id : {ED_NOTIFY_CARET, ED_NOTIFY_SCROLL}) {
        control = host.Create();
        ::ShowWindow(control, SW_SHOW);
        edLoadText(control, lines(300).c_str(), 0xFFFFFFFF);
        int left = 3;
        host.onMessage = [&](const ControlHost::Message& message) {
            if (message.id == id && left-- > 0)
                edLoadText(control, L"short", 0xFFFFFFFF);
        };
        ::SetFocus(control);
        scroll(WM_VSCROLL, SB_PAGEDOWN);
        edSetCaretPosition(control, 250, 1);
        host.onMessage = nullptr;
        EXPECT_LT(left, 3);
        EXPECT_EQ(TextOf(control), L"short");
        edDestroyCtrl(control);
        Pump();
    }
}

TEST_F(Window, AParentMayDestroyTheControlWhileItIsBeingMade)
{
    const auto subclass = [](HWND window, UINT id, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (id == WM_PARENTNOTIFY && LOWORD(wParam) == WM_CREATE)
            edDestroyCtrl(reinterpret_cast<HWND>(lParam));
        return ::DefWindowProcW(window, id, wParam, lParam);
    };
    const HWND parent = ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(subclass)));
    edCreateParams params{};
    params.parent = parent;
    EXPECT_EQ(edCreateCtrl(&params), nullptr);
    ::DestroyWindow(parent);
}

TEST_F(Window, MessagesOfTheSystemSentByHandDoNoHarm)
{
    for (const UINT id : {WM_NCCREATE, WM_CREATE, WM_DESTROY, WM_DESTROY, WM_CREATE, WM_NCDESTROY, WM_PAINT, WM_SETFOCUS}) {
        given(lines(20));
        ::SendMessageW(control, id, 0, 0);
        ::SendMessageW(control, id, 0, 0x12345);
        edLoadText(control, L"text", 0xFFFFFFFF);
        edSetCaretPosition(control, 0, 1);
        ::SendMessageW(control, WM_VSCROLL, SB_PAGEDOWN, 0);
        Pump();
        edDestroyCtrl(control);
        ::DestroyWindow(control);
    }
    given(L"alive");
    EXPECT_EQ(TextOf(control), L"alive");
}

TEST_F(Window, DestroyingTheParentDestroysTheControls)
{
    given(lines(10));
    const HWND second = host.Create();
    ::DestroyWindow(host.Window());
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_EQ(edGetHWND(second), nullptr);
    EXPECT_EQ(edGetLineCount(control), 0u);
}

TEST_F(Window, ManyControlsComeAndGo)
{
    for (int round = 0; round < 200; ++round) {
        const HWND made = host.Show(L"text /* with\na comment */");
        ASSERT_NE(made, nullptr) << round;
        edDestroyCtrl(made);
    }
}

}  // namespace
