// The moves that the window around the host gets, and hosts that interfere in the middle of a gesture.

#include "tests/control/mouse/MouseFixture.h"
#include "tests/support/win/Misdeeds.h"

#include <functional>
#include <utility>
#include <vector>

namespace {

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
const std::vector<Misdeed> misdeeds = MisdeedsAnd({
    {"TakesTheCapture", [](HWND control) { ::SetCapture(::GetParent(control)); ::ReleaseCapture(); }, true},
    {"Scrolls", [](HWND control) { edSetScrollPosition(control, 50, 0); }, true},
    {"MovesTheCaret", [](HWND control) { edSetCaretPosition(control, 1, 1); }, true},
    {"SendsAMove", [](HWND control) { SendMouse(control, WM_MOUSEMOVE, At(3, 3)); }, true},
    {"SendsAPress", [](HWND control) { SendMouse(control, WM_LBUTTONDOWN, At(3, 3)); }, true},
});

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
    const std::wstring before = Marked(control);
    MovePointer(control, At(6, 4));  // the real timer may tick meanwhile
    tick();
    EXPECT_EQ(Marked(control), before);
}

}  // namespace
