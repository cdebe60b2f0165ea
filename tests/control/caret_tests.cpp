// The owner of the system caret, by itself.

#include "api/Caret.h"

#include "framework/win/CWnd.h"
#include "framework/win/Handles.h"
#include "tests/support/win/ControlHost.h"

#include <gtest/gtest.h>

namespace {

class BareWindow : public CWnd {
public:
    explicit BareWindow(HWND parent) { CreateWnd({0, nullptr, WS_CHILD | WS_VISIBLE, {0, 0, 200, 100}, parent, 1}); }
    ~BareWindow() override { DestroyWindow(); }
};

class Caret : public testing::Test {
protected:
    void SetUp() override
    {
        caret.SetOwner(&window);
        ::SetFocus(window.m_hWnd);
    }
    void TearDown() override { caret.Destroy(); }

    RECT systemCaret() const
    {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
        return info.hwndCaret == window.m_hWnd ? info.rcCaret : RECT{};
    }

    // A caret at 20,30 inverts what is below it.
    bool isHidden() const
    {
        const xTClientDC dc(window.m_hWnd);
        return ::GetPixel(dc.get(), 20, 35) == ::GetPixel(dc.get(), 22, 35);
    }

    ControlHost host;
    BareWindow window{host.Window()};
    xTCaret caret;
};

TEST_F(Caret, IsCreatedOnlyWithTheFocus)
{
    ::SetFocus(host.Window());
    caret.Create(nullptr);
    EXPECT_FALSE(caret.IsCreated());
    ::SetFocus(window.m_hWnd);
    const POINT at{20, 30};
    caret.Create(&at);
    EXPECT_TRUE(caret.IsCreated());
    EXPECT_EQ(systemCaret().left, 20);
    EXPECT_EQ(systemCaret().top, 30);
    EXPECT_EQ(systemCaret().bottom, 46);  // 16 pixels until a height is set
}

TEST_F(Caret, HasNoOwnerUntilItIsGivenOne)
{
    xTCaret orphan;
    orphan.Create(nullptr);
    EXPECT_FALSE(orphan.IsCreated());
}

TEST_F(Caret, KeepsItsPlaceWhenTheHeightChanges)
{
    const POINT at{20, 30};
    caret.Create(&at);
    caret.SetHeight(22);
    EXPECT_EQ(systemCaret().left, 20);
    EXPECT_EQ(systemCaret().bottom - systemCaret().top, 22);
}

TEST_F(Caret, ComesBackShownWhenHidingFails)
{
    const POINT at{20, 30};
    caret.Create(&at);
    ::DestroyCaret();  // somebody else takes it away: HideCaret fails from now on
    EXPECT_FALSE(::HideCaret(window.m_hWnd));
    caret.Hide();
    EXPECT_TRUE(caret.IsCreated());
    EXPECT_EQ(systemCaret().left, 20);
    EXPECT_EQ(systemCaret().top, 30);
}

TEST_F(Caret, ComesBackWhenShowingFails)
{
    const POINT at{7, 9};
    caret.Create(&at);
    ::DestroyCaret();
    caret.Show();
    EXPECT_EQ(systemCaret().left, 7);
}

// A paint within work that hides it for longer. The system counts hides too, and would want as many shows.
TEST_F(Caret, IsHiddenAndShownByTheOutermostOnly)
{
    const POINT at{20, 30};
    caret.Create(&at);
    EXPECT_FALSE(isHidden());
    caret.Hide();
    caret.Hide();
    EXPECT_TRUE(isHidden());
    ::ShowCaret(window.m_hWnd);
    EXPECT_FALSE(isHidden());  // one hide of the system's, not two
    ::HideCaret(window.m_hWnd);
    caret.Show();
    EXPECT_TRUE(isHidden());
    caret.Show();
    EXPECT_FALSE(isHidden());
}

TEST_F(Caret, IsNotHiddenAnyMoreWhenItIsMadeAnew)
{
    const POINT at{20, 30};
    caret.Create(&at);
    caret.Hide();
    caret.Destroy();
    caret.Create(&at);
    caret.Hide();
    EXPECT_TRUE(isHidden());
    caret.Show();
    EXPECT_FALSE(isHidden());
}

TEST_F(Caret, LeavesTheCaretOfTheWindowInFocusAlone)
{
    const POINT at{20, 30};
    caret.Create(&at);
    ::SetFocus(host.Window());  // which does not destroy this one: the window here is no control
    ::CreateCaret(host.Window(), nullptr, 1, 16);
    ::ShowCaret(host.Window());
    for (const auto& step : {&xTCaret::Hide, &xTCaret::Show}) {
        (caret.*step)();
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
        EXPECT_EQ(info.hwndCaret, host.Window());
    }
    ::DestroyCaret();
}

TEST_F(Caret, IsGoneAfterDestroying)
{
    const POINT at{20, 30};
    caret.Create(&at);
    caret.Destroy();
    EXPECT_FALSE(caret.IsCreated());
    EXPECT_EQ(systemCaret().right, 0);
    EXPECT_EQ(caret.Position().x, 0);  // it leaves the place 0,0 behind
}

TEST_F(Caret, AsksForItsPlaceAfterForgettingIt)
{
    const POINT at{20, 30};
    caret.Create(&at);
    ::SetCaretPos(50, 60);
    EXPECT_EQ(caret.Position().x, 20);
    caret.Forget();
    EXPECT_EQ(caret.Position().x, 50);
}

TEST_F(Caret, SeesTheCaretOfAnotherWindowAsItStoodWhenTheWorkBegan)
{
    ::SetFocus(host.Window());
    ::CreateCaret(host.Window(), nullptr, 1, 16);
    ::SetCaretPos(20, 30);
    EXPECT_EQ(caret.Position().x, 20);
    ::SetCaretPos(50, 60);
    EXPECT_EQ(caret.Position().x, 20);
    caret.ForgetForeign();
    EXPECT_EQ(caret.Position().x, 50);
    ::DestroyCaret();
}

TEST_F(Caret, KeepsThePlaceOfItsOwnWhenTheWorkEnds)
{
    const POINT at{20, 30};
    caret.Create(&at);
    ::SetCaretPos(50, 60);
    caret.ForgetForeign();
    EXPECT_EQ(caret.Position().x, 20);
}

}  // namespace
