// The dialog: what it starts with, what it leaves behind.
#include "tests/control/find/FindFixture.h"

namespace {

TEST_F(Find, TheCommandsOpenTheSystemsDialogs)
{
    given(L"text");
    ASSERT_NE(open(openFind), nullptr);
    EXPECT_FALSE(isReplaceDialog(dialog()));
    EXPECT_EQ(::GetWindow(dialog(), GW_OWNER), host.Window());
    press(pressCancel);
    EXPECT_EQ(dialog(), nullptr);
    ASSERT_NE(open(openReplace), nullptr);
    EXPECT_TRUE(isReplaceDialog(dialog()));
    EXPECT_EQ(ItemText(dialog(), edt2), L"");
}

TEST_F(Find, ASecondDialogIsRefusedWhileOneIsOpen)
{
    given(L"text");
    const HWND first = open(openFind);
    EXPECT_EQ(edExecCommand(control, openReplace), 1);
    EXPECT_EQ(edExecCommand(control, openFind), 1);
    EXPECT_EQ(dialog(), first);
    EXPECT_FALSE(isReplaceDialog(first));
    ::DestroyWindow(first);
    EXPECT_EQ(dialog(), nullptr);

    const HWND second = open(openReplace);
    EXPECT_EQ(edExecCommand(control, openFind), 1);
    EXPECT_EQ(dialog(), second);
    ::DestroyWindow(second);
    EXPECT_EQ(dialog(), nullptr) << "there were two";
}

TEST_F(Find, AnotherControlMayHaveADialogOfItsOwn)
{
    given(L"text");
    open(openFind);
    const HWND first = dialog();
    const HWND other = host.Show(L"other");
    ::ShowWindow(first, SW_HIDE);
    const HWND second = open(openReplace, other);
    ASSERT_NE(second, first);
    EXPECT_TRUE(isReplaceDialog(second));
    edDestroyCtrl(other);
    EXPECT_FALSE(::IsWindow(second));
    EXPECT_TRUE(::IsWindow(first));
}

TEST_F(Find, ADialogCanBeOpenedAgainHoweverTheLastOneWentAway)
{
    given(L"text");
    open(openFind);
    ::SendMessageW(dialog(), WM_CLOSE, 0, 0);
    EXPECT_EQ(dialog(), nullptr);
    ASSERT_NE(open(openReplace), nullptr);
    ::DestroyWindow(dialog());
    ASSERT_NE(open(openFind), nullptr);
    press(pressCancel);
    EXPECT_EQ(dialog(), nullptr);
}

struct StartCase {
    const char* name;
    const wchar_t* text;
    int line, col;        // of the caret, or of the selection's start
    int toLine, toCol;    // behind the selection; -1: none
    const wchar_t* shown;
};

const StartCase startCases[] = {
    {"TheWordAroundTheCaret", L"one two_2 three", 0, 6, -1, -1, L"two_2"},
    {"TheWordBehindTheCaret", L"one two", 0, 4, -1, -1, L"two"},
    {"TheFirstWord", L"one two", 0, 0, -1, -1, L"one"},
    {"TheLastWord", L"one two", 0, 6, -1, -1, L"two"},
    {"ADelimiterIsOneCharacter", L"a++b", 0, 1, -1, -1, L"+"},
    {"ATabIsOneCharacter", L"a\tb", 0, 1, -1, -1, L"\t"},
    {"CyrillicLettersAreAWord", L"№Журнал.Запись", 0, 3, -1, -1, L"Журнал"},
    {"TheSelection", L"one two three", 0, 2, 0, 6, L"e tw"},
    {"ASelectionOfSeveralLinesGivesTheWord", L"one two\nthree", 0, 1, 1, 2, L"three"},
    {"AtTheEndOfTheLineTheLastText", L"one two", 0, 7, -1, -1, L"last text"},
    {"InAnEmptyLineTheLastText", L"\n\n", 1, 0, -1, -1, L"last text"},
};

class FindStart : public Find, public testing::WithParamInterface<StartCase> {};

TEST_P(FindStart, IsShown)
{
    const StartCase& start = GetParam();
    given(L"");
    boxes.answer = IDOK;
    find(L"last text");
    press(pressCancel);
    given(start.text, start.line, start.col);
    if (start.toLine >= 0)
        edSetCaretPositionAdv(control, start.toLine, start.toCol, ED_CARET_SELECT);
    open(openFind);
    EXPECT_EQ(ItemText(dialog(), edt1), start.shown);
    press(pressCancel);
    open(openReplace);
    EXPECT_EQ(ItemText(dialog(), edt1), start.shown);
}

INSTANTIATE_TEST_SUITE_P(Each, FindStart, testing::ValuesIn(startCases),
                         [](const auto& info) { return info.param.name; });

TEST_F(Find, AControlWithoutATextStartsWithTheLastText)
{
    given(L"word");
    find(L"word");
    press(pressCancel);
    edLoadText(control, nullptr, 0);
    open(openFind);
    EXPECT_EQ(ItemText(dialog(), edt1), L"word");
}

TEST_F(Find, AStartTextOfAWholeLineFits)
{
    const std::wstring line(512, L'ж');
    given(line.c_str(), 0, 10);
    open(openFind);
    EXPECT_EQ(ItemText(dialog(), edt1), line);
    press(pressFind);
    EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 1u);
}

TEST_F(Find, AStartTextLongerThanTheDialogHasRoomForIsCut)
{
    given(L"a");
    const std::wstring large(450, L'b');
    for (int i = 0; i < 3; ++i)
        replace(pressReplaceAll, i == 0 ? L"a" : L"b", i == 0 ? L"bbbb" : L"bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb");
    press(pressCancel);
    ASSERT_GT(TextOf(control).size(), 2000u);
    edSetCaretPosition(control, 0, 3);
    open(openFind);
    const std::wstring shown = ItemText(dialog(), edt1);
    EXPECT_EQ(shown, std::wstring(1023, L'b'));
}

class FindFlags : public Find, public testing::WithParamInterface<int> {
protected:
    const Flags flags{(GetParam() & 1) != 0, (GetParam() & 2) != 0, (GetParam() & 4) != 0};
    static Flags shown()
    {
        return {IsChecked(dialog(), rad2), IsChecked(dialog(), chx1), IsChecked(dialog(), chx2)};
    }
};

TEST_P(FindFlags, OfASearchAreShownByTheNextDialog)
{
    given(L"text", 0, 4);
    find(L"text", flags);
    press(pressCancel);
    open(openFind);
    EXPECT_EQ(shown(), flags);
    EXPECT_EQ(ItemText(dialog(), edt1), L"text");
}

TEST_P(FindFlags, OfAClosedDialogAreKeptAndItsTextIsNot)
{
    given(L"", 0, 0);
    find(L"searched");
    set(flags);
    rewriteMessages(L"not searched");  // a dialog may close with what it was given last or with what it was told first
    press(pressCancel);
    open(openFind);
    EXPECT_EQ(shown(), flags);
    EXPECT_EQ(ItemText(dialog(), edt1), L"searched");
}

TEST_P(FindFlags, DecideWhatIsFound)
{
    given(L"Word words\nword WORD\nWords", 1, 0);
    find(L"Word", flags);
    press(pressCancel);
    // Upwards too the rest of the caret's line comes first. Match case: only the two of line 0 and that of line 2.
    const char* places[] = {"1,5", "1,5", "1,5", "1,5", "0,0", "2,0", "0,0", nullptr};
    if (const char* place = places[GetParam()])
        EXPECT_EQ(caret(), place);
    else
        EXPECT_EQ(host.Count(ED_NOTIFY_FIND), 1u);  // the one whole word stands above
}

INSTANTIATE_TEST_SUITE_P(Each, FindFlags, testing::Range(0, 8));

}  // namespace
