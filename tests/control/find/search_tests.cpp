// What is found, and the question past the end of the text.
#include "tests/control/find/FindFixture.h"

namespace {

// ---- Finding

TEST_F(Find, AMatchIsSelectedWithTheCaretAtItsStart)
{
    given(L"one\ntwo three");
    find(L"thr");
    EXPECT_EQ(selected(), L"thr");
    EXPECT_EQ(caret(), "1,4");
    EXPECT_EQ(at(ED_POSITION_SELECTION_FIRST), "1,4");
    EXPECT_EQ(at(ED_POSITION_SELECTION_LAST), "1,6");
    EXPECT_TRUE(boxes.texts.empty());
    EXPECT_FALSE(canUndo());
}

TEST_F(Find, AMatchFarAwayComesIntoTheMiddleOfTheView)
{
    std::wstring text;
    for (int i = 0; i < 500; ++i)
        text += L"line " + std::to_wstring(i) + L"\n";
    given(text.c_str());
    find(L"line 400");
    edPoint view{};
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    EXPECT_GT(view.y, 380);
    EXPECT_LT(view.y, 395);
    EXPECT_NE(::GetFocus(), control) << "the dialog keeps the focus";
}

TEST_F(Find, ARepeatedSearchGoesOnBehindTheLastMatch)
{
    given(L"ab ab\nab");
    find(L"ab");
    EXPECT_EQ(caret(), "0,3");  // not the match at the caret itself
    press(pressFind);
    EXPECT_EQ(caret(), "1,0");
    EXPECT_EQ(edExecCommand(control, findNext), 1);
    EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 1u);
}

TEST_F(Find, ASearchUpwardsGoesOnToTheRightWithinALine)
{
    given(L"ab ab ab\nx ab ab ab", 1, 2);
    find(L"ab", {.down = false});
    EXPECT_EQ(caret(), "1,5");
    press(pressFind);
    EXPECT_EQ(caret(), "1,8");
    press(pressFind);
    EXPECT_EQ(caret(), "0,0");
}

TEST_F(Find, ACyrillicWordInLowerCaseFindsItInUpperCase)
{
    given(L"начало\nЕСЛИ ё Ё");
    find(L"если");
    EXPECT_EQ(selected(), L"ЕСЛИ");
    find(L"Ё", {.matchCase = true});
    EXPECT_EQ(caret(), "1,7");
    find(L"если", {.matchCase = true});
    EXPECT_EQ(caret(), "1,7") << "the case matters";
}

TEST_F(Find, AWholeWordIsFoundAtColumnZeroAndAtTheEndOfTheLine)
{
    given(L"worded\nword wordy\nsword word");
    find(L"word", {.wholeWord = true});
    EXPECT_EQ(caret(), "1,0");
    press(pressFind);
    EXPECT_EQ(caret(), "2,6");
}

TEST_F(Find, NoMatchIsSaidOnceAndChangesNothing)
{
    given(L"one\ntwo", 1, 1);
    host.answer = 1;
    find(L"three");
    ASSERT_EQ(boxes.texts.size(), 1u);
    EXPECT_EQ(boxes.texts[0], nothingFound);
    EXPECT_EQ(caret(), "1,1");
    EXPECT_EQ(selected(), L"");
}

// ---- The wrap question

TEST_F(Find, TheHostIsAskedPastTheEndWithTheDialogAndTheText)
{
    given(L"ключ\nтекст", 1, 0);
    std::wstring asked;
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_FIND)
            asked = reinterpret_cast<const wchar_t*>(message.lParam);
    };
    host.answer = 1;
    find(L"ключ");
    ASSERT_EQ(host.Count(ED_NOTIFY_FIND), 1u);
    EXPECT_EQ(reinterpret_cast<HWND>(host.Of(ED_NOTIFY_FIND)[0].wParam), dialog());
    EXPECT_EQ(asked, L"ключ");
    EXPECT_EQ(caret(), "0,0");
    EXPECT_EQ(selected(), L"ключ");
}

TEST_F(Find, WithoutADialogTheQuestionComesWithoutAHandle)
{
    given(L"key\ntext");
    find(L"ke");
    press(pressCancel);
    host.Forget();
    EXPECT_EQ(edExecCommand(control, findNext), 1);
    ASSERT_EQ(host.Count(ED_NOTIFY_FIND), 1u);
    EXPECT_EQ(host.Of(ED_NOTIFY_FIND)[0].wParam, 0u);
}

TEST_F(Find, AHostThatAnswersNoKeepsCaretAndSelection)
{
    given(L"key\ntext", 1, 0);
    edSetCaretPositionAdv(control, 1, 3, ED_CARET_SELECT);
    host.answer = 0;
    find(L"key");
    EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 1u);
    EXPECT_EQ(caret(), "1,3");
    EXPECT_EQ(selected(), L"tex");
    EXPECT_TRUE(boxes.texts.empty());
}

TEST_F(Find, UpwardsTheHostIsAskedAtTheStartOfTheText)
{
    given(L"text\nkey");
    host.answer = 1;
    find(L"key", {.down = false});
    EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 1u);
    EXPECT_EQ(caret(), "1,0");
}

// ---- Find next

TEST_F(Find, WithoutALastSearchFindNextAnswersZero)
{
    given(L"text");
    EXPECT_EQ(edExecCommand(control, findNext), 0);
    EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 0u);
    EXPECT_TRUE(boxes.texts.empty());
}

TEST_F(Find, AllControlsShareTheLastSearch)
{
    given(L"Word word word");
    find(L"word", {.matchCase = true});
    press(pressCancel);
    const HWND other = host.Show(L"WORD\nword");
    EXPECT_EQ(edExecCommand(other, findNext), 1);
    edPoint at{};
    edGetPosition(other, ED_POSITION_CARET, &at);
    EXPECT_EQ(at.y, 1);
    edDestroyCtrl(other);
    EXPECT_EQ(caret(), "0,5");
}

}  // namespace
