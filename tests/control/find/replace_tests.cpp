// Replacing one match and all.
#include "tests/control/find/FindFixture.h"

namespace {

TEST_F(Find, ReplaceWithNothingSelectedSelectsTheNextMatchAndLeavesNoStep)
{
    given(L"one two");
    replace(pressReplace, L"two", L"three");
    EXPECT_EQ(TextOf(control), L"one two");
    EXPECT_EQ(selected(), L"two");
    EXPECT_EQ(caret(), "0,7");
    EXPECT_FALSE(canUndo());
}

TEST_F(Find, ReplaceReplacesTheSelectedMatchAndSelectsTheNext)
{
    given(L"Два два два");
    replace(pressReplace, L"два", L"три");
    press(pressReplace);
    EXPECT_EQ(TextOf(control), L"три два два");
    EXPECT_EQ(selected(), L"два");
    EXPECT_EQ(at(ED_POSITION_SELECTION_FIRST), "0,4");
    EXPECT_TRUE(canUndo());
    ::SetFocus(control);
    EXPECT_EQ(edExecCommand(control, undo), 1);
    EXPECT_EQ(TextOf(control), L"Два два два") << "as it was spelt";
}

TEST_F(Find, ReplaceTakesTheFocusToTheText)
{
    given(L"one two");
    open(openReplace);
    Pump(300);  // the window manager gives a new window the focus a moment later
    replace(pressReplace, L"two", L"three");
    EXPECT_EQ(::GetFocus(), control);
    EXPECT_NE(dialog(), nullptr);
}

TEST_F(Find, TheLastReplacementIsSelectedAndTheEndIsSaid)
{
    given(L"one two");
    host.answer = 1;
    replace(pressReplace, L"two", L"three");
    press(pressReplace);
    EXPECT_EQ(TextOf(control), L"one three");
    EXPECT_EQ(selected(), L"three");
    EXPECT_EQ(caret(), "0,9");
    ASSERT_EQ(boxes.texts.size(), 1u);
    EXPECT_EQ(boxes.texts[0], nothingFound);
}

TEST_F(Find, ReplaceWithoutAnyMatchPutsTheCaretAtTheStart)
{
    given(L"one\ntwo", 1, 2);
    host.answer = 1;
    replace(pressReplace, L"three", L"four");
    EXPECT_EQ(caret(), "0,0");
    EXPECT_EQ(at(ED_POSITION_SELECTION_FIRST), "0,0");
    EXPECT_EQ(at(ED_POSITION_SELECTION_LAST), "0,-1");
    EXPECT_EQ(boxes.texts, std::vector<std::wstring>{nothingFound});
    EXPECT_FALSE(canUndo());
}

TEST_F(Find, ReplaceSearchesDownWhateverTheDirection)
{
    given(L"a b a", 0, 2);
    find(L"zz", {.down = false});
    press(pressCancel);
    replace(pressReplace, L"a", L"c");
    EXPECT_EQ(at(ED_POSITION_SELECTION_FIRST), "0,4");
}

TEST_F(Find, FindNextAfterAReplaceGoesDown)
{
    given(L"a\na\na\na");
    replace(pressReplace, L"a", L"b");
    press(pressCancel);
    edSetCaretPosition(control, 1, 0);
    edExecCommand(control, findNext);
    EXPECT_EQ(caret(), "2,0");
}

TEST_F(Find, ReplaceAsksTheHostPastTheEndAndStopsAtItsNo)
{
    given(L"one two", 0, 4);
    replace(pressReplace, L"one", L"three");
    EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 1u);
    EXPECT_EQ(reinterpret_cast<HWND>(host.Of(ED_NOTIFY_FIND)[0].wParam), dialog());
    EXPECT_EQ(caret(), "0,4");
    EXPECT_EQ(selected(), L"");
    EXPECT_TRUE(boxes.texts.empty());
}

TEST_F(Find, ReplaceAllIsOneStepAndSaysHowMany)
{
    given(L"Cat dog cat\ncat CAT", 0, 2);
    replace(pressReplaceAll, L"cat", L"дом");
    EXPECT_EQ(TextOf(control), L"дом dog дом\nдом дом");
    EXPECT_EQ(boxes.texts, std::vector<std::wstring>{L"Поиск закончен. Произведено 4 замен(ы)."});
    EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 0u) << "no question on the way";
    ::SetFocus(control);
    EXPECT_EQ(edExecCommand(control, undo), 1);
    EXPECT_EQ(TextOf(control), L"Cat dog cat\ncat CAT");
    EXPECT_FALSE(canUndo());
    EXPECT_EQ(edExecCommand(control, redo), 1);
    EXPECT_EQ(TextOf(control), L"дом dog дом\nдом дом");
}

TEST_F(Find, ReplaceAllObeysWholeWordAndCase)
{
    given(L"cat Cat cats cat");
    replace(pressReplaceAll, L"cat", L"dog", {.wholeWord = true, .matchCase = true});
    EXPECT_EQ(TextOf(control), L"dog Cat cats dog");
}

TEST_F(Find, ReplaceAllWithoutAMatchSaysSoAndStillLeavesAStep)
{
    given(L"one two");
    replace(pressReplaceAll, L"three", L"four");
    EXPECT_EQ(boxes.texts, std::vector<std::wstring>{nothingFound});
    EXPECT_TRUE(canUndo());
    EXPECT_EQ(TextOf(control), L"one two");
}

TEST_F(Find, ReplaceAllByTheWordWithALetterMoreEndsWhenItComesRound)
{
    given(L"word\nword word", 1, 3);
    replace(pressReplaceAll, L"word", L"words");
    EXPECT_EQ(TextOf(control), L"words\nwords words");
    EXPECT_EQ(boxes.texts.size(), 1u);
}

TEST_F(Find, ReplaceAllByNothingTakesTheMatchesAway)
{
    given(L"a-b-c\n-");
    replace(pressReplaceAll, L"-", L"");
    EXPECT_EQ(TextOf(control), L"abc\n");
}

}  // namespace
