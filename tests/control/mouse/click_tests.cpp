// The left button on a control: clicks, double clicks, and the shape of the pointer.

#include "tests/control/mouse/MouseFixture.h"

namespace {

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
    GivenMarked(control, GetParam().before);
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
    {"OnTheFirstSelectedCharacterKeepsTheSelection", L"a[bcd]|e", At(0, 1), L"a|[bcd]e"},
    {"OnTheLastSelectedCharacterKeepsTheSelection", L"a[bcd]|e", At(0, 3), L"a[bc|d]e"},
    {"JustBehindTheSelectionClearsIt", L"a[bcd]|ef", At(0, 4), L"abcd|ef"},
    {"JustAheadOfTheSelectionClearsIt", L"ab[cd]|ef", At(0, 1), L"a|bcdef"},
    {"InASelectionOfSeveralLinesKeepsIt", L"a[b\ncd\ne]|f", At(1, 2), L"a[b\ncd|\ne]f"},
};

INSTANTIATE_TEST_SUITE_P(Each, Clicks, testing::ValuesIn(clicks), [](const auto& info) { return info.param.name; });

TEST_F(Mouse, APressOnAReadOnlyControlInsideTheSelectionClearsIt)
{
    useReadOnly();
    GivenMarked(control, L"a[bcd]|e");
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
    GivenMarked(control, L"|abc");
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
    GivenMarked(control, L"a[bc]|d");
    for (const UINT message : {WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_RBUTTONDBLCLK})
        SendMouse(control, message, At(0, 0), 0);
    EXPECT_EQ(Marked(control), L"a[bc]|d");
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(Mouse, ARealClickPutsTheCaretAndItsImage)
{
    GivenMarked(control, L"|abcdef\nghijkl");
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
    GivenMarked(control, GetParam().before);
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
    GivenMarked(control, L"one| two");
    for (const WPARAM keys : {MK_LBUTTON | MK_SHIFT, MK_LBUTTON | MK_CONTROL, MK_LBUTTON | MK_RBUTTON, 0}) {
        SendMouse(control, WM_LBUTTONDBLCLK, At(0, 1), keys);
        EXPECT_EQ(Marked(control), L"one| two") << keys;
    }
}

TEST_F(Mouse, ARealDoubleClickSelectsTheWordAndAThirdPressIsAClick)
{
    GivenMarked(control, L"|one two three");
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
    GivenMarked(control, L"[one\ntwo\nthree]|");
    SendClick(control, At(1, 1));
    SendMouse(control, WM_LBUTTONDBLCLK, At(1, 1));
    Pump();
    const Picture shown(control);
    ::InvalidateRect(control, nullptr, TRUE);
    ::UpdateWindow(control);
    EXPECT_EQ(shown.Difference(Picture(control)), "");
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
    control = host.Create();
    const HCURSOR cross = ::LoadCursorW(nullptr, IDC_CROSS);
    ::SetCursor(cross);
    move({-5, 5}, 0);
    EXPECT_EQ(::GetCursor(), cross);
}

}  // namespace
