// Two texts side by side.
#include "UseFixture.h"

#include "tests/support/win/ControlHost.h"

namespace {

TEST_F(Use, TwoTextsStandSideBySideAndKnowTheirChanges)
{
    Given("left");
    PressCtrl('2');
    ASSERT_NE(window.Other(), nullptr);
    EXPECT_TRUE(Ticked(cmdSplit));
    EXPECT_EQ(Title(), L"Без имени \x2013 Scrivpad");
    EXPECT_EQ(::GetFocus(), Control());
    window.Active().Open(Write(L"use right.txt", "right"), ED_ENCODING_DEFAULT);
    Type({'A'});
    EXPECT_EQ(Title(), L"*use right.txt \x2013 Scrivpad");
    EXPECT_FALSE(window.Other()->CurrentDocument().modified);

    Type({VK_F6});
    EXPECT_EQ(Title(), L"use.txt \x2013 Scrivpad");
    Type({'B'});
    EXPECT_EQ(Text(), L"bleft");
    PressCtrl('2');
    EXPECT_EQ(window.Other(), nullptr);
    EXPECT_EQ(Text(), L"bleft");
    EXPECT_EQ(boxes.texts.size(), 1u) << "the right text was changed";
}

TEST_F(Use, TheBarBetweenTwoTextsIsMovedWithTheMouse)
{
    PressCtrl('2');
    const auto boundsOf = [](HWND pane) {
        RECT bounds = {};
        ::GetWindowRect(pane, &bounds);
        return bounds;
    };
    const HWND left = window.Other()->Handle();
    const HWND right = window.Active().Handle();
    const RECT before = boundsOf(left);
    EXPECT_NEAR(before.right - before.left, boundsOf(right).right - boundsOf(right).left, 2);

    const int x = (before.right + boundsOf(right).left) / 2;
    const int y = (before.top + before.bottom) / 2;
    const auto mouse = [&](int toX, DWORD flags) {
        ::SetCursorPos(toX, y);
        Pump(40);
        INPUT input = {};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        if (flags != 0)
            ::SendInput(1, &input, sizeof(input));
        Pump(40);
    };
    mouse(x, MOUSEEVENTF_LEFTDOWN);
    mouse(x - 70, 0);
    mouse(x - 150, MOUSEEVENTF_LEFTUP);
    EXPECT_NEAR(boundsOf(left).right, before.right - 150, 2);
    EXPECT_EQ(boundsOf(right).left - boundsOf(left).right, x * 2 - before.right * 2);

    mouse(x, 0);  // let go: moves mean nothing any more
    EXPECT_NEAR(boundsOf(left).right, before.right - 150, 2);
    mouse(x - 150, MOUSEEVENTF_LEFTDOWN);
    mouse(before.left + 3, MOUSEEVENTF_LEFTUP);
    EXPECT_GT(boundsOf(left).right - boundsOf(left).left, 40) << "neither text goes away";
}

TEST_F(Use, ASmallWindowHasRoomForNothingAndDoesNoHarm)
{
    PressCtrl('2');
    for (const int size : {200, 60, 1, 400}) {
        ::SetWindowPos(window.Handle(), nullptr, 0, 0, size, size, SWP_NOMOVE | SWP_NOZORDER);
        Pump(20);
    }
    Type({'A'});
    EXPECT_EQ(Text(), L"a");
}

TEST_F(Use, AThemeIsForBothTexts)
{
    Given("left");
    PressCtrl('2');
    const HWND left = window.Other()->Control();
    const HWND right = Control();
    Choose(cmdFirstTheme, 3);
    for (const HWND control : {left, right}) {
        ::UpdateWindow(control);
        const Picture picture(control);
        EXPECT_EQ(picture.At(picture.Width() - 3, 3), COLORREF{0}) << "dusk is black";
    }
    EXPECT_EQ(::GetFocus(), right);
    Type({VK_F6});
    EXPECT_EQ(Text(), L"left");
}

class UseDrag : public Use {
protected:
    UseDrag()
    {
        Given("left side");
        PressCtrl('2');
        window.Active().Open(Write(L"use right.txt", "right side"), ED_ENCODING_DEFAULT);
        edSetCaretPosition(Control(), 0, 6);
        Type({VK_F6});
        edSetCaretPositionAdv(Control(), 0, 5, ED_CARET_SELECT | ED_CARET_FOCUS);
    }
    /// Drags from the start of the left text to a column of the right one.
    [[nodiscard]] bool DragTo(int column, bool copying)
    {
        const HWND from = Control();
        const HWND to = window.Other()->Control();
        std::vector<std::function<void()>> steps = {
            [=] { PutPointer(from, At(0, 1)); },
            [] { PutButton(true); },
            [=] { PutPointer(from, At(0, 2)); },
            [=] { PutPointer(to, {At(0, column).x, At(0, column).y + 3}); },
            [=] { PutPointer(to, At(0, column)); },
            [] { PutButton(false); },
            [] {},
        };
        // The last thing before the drop: a key held by hand is forgotten at the next move of the pointer.
        if (copying)
            steps.insert(steps.end() - 2, [] { PutKey(VK_CONTROL, true); });
        const bool ended = PlaySteps(steps);
        PutKey(VK_CONTROL, false);
        Pump(50);
        return ended;
    }
};

TEST_F(UseDrag, CopiesTextBesideAndMarksOnlyTheTextThatChanged)
{
    EXPECT_TRUE(DragTo(0, true));
    EXPECT_EQ(Title(), L"*use right.txt \x2013 Scrivpad");
    EXPECT_EQ(Text(), L"left right side");
    EXPECT_FALSE(window.Other()->CurrentDocument().modified);
}

TEST_F(UseDrag, MovesTextBesideAndMarksBoth)
{
    EXPECT_TRUE(DragTo(10, false));
    EXPECT_EQ(Title(), L"*use right.txt \x2013 Scrivpad");
    EXPECT_NE(Text().find(L"left "), std::wstring::npos);
    EXPECT_TRUE(window.Other()->CurrentDocument().modified);
    Type({VK_F6});
    EXPECT_EQ(Text(), L"side");
    EXPECT_EQ(Title(), L"*use.txt \x2013 Scrivpad");
}

}  // namespace
