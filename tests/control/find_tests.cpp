// Find and replace through the system's own dialog, its buttons pressed.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MessageBoxes.h"

#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <string>

namespace {

enum Command {
    undo = ED_COMMAND_UNDO,
    redo = ED_COMMAND_REDO,
    openFind = ED_COMMAND_FIND,
    openReplace = ED_COMMAND_REPLACE,
    findNext = ED_COMMAND_FIND_NEXT
};
enum Button { pressFind = IDOK, pressReplace = psh1, pressReplaceAll = psh2, pressCancel = IDCANCEL };
constexpr const wchar_t* nothingFound = L"Соответствий не найдено";

struct Flags {
    bool down = true;
    bool wholeWord = false;
    bool matchCase = false;
    friend bool operator==(const Flags&, const Flags&) = default;
};

std::ostream& operator<<(std::ostream& out, const Flags& flags)
{
    return out << (flags.down ? "down" : "up") << (flags.wholeWord ? " word" : "") << (flags.matchCase ? " case" : "");
}

void Check(HWND dialog, int id, bool on)
{
    ::SendDlgItemMessageW(dialog, id, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool IsChecked(HWND dialog, int id)
{
    return ::IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

std::wstring ItemText(HWND dialog, int id)
{
    std::wstring text(2000, L'\0');
    text.resize(::GetDlgItemTextW(dialog, id, text.data(), static_cast<int>(text.size())));
    return text;
}

class Find : public testing::Test {
protected:
    Find() { forgetLastSearch(); }
    ~Find() override
    {
        edDestroyCtrl(control);
        Pump();
    }

    void given(const wchar_t* text, int line = 0, int col = 0)
    {
        if (control)
            edDestroyCtrl(control);
        control = host.Show(text);
        edSetCaretPosition(control, line, col);
        host.Forget();
    }

    /// The open find or replace dialog of this thread, null without a visible one.
    static HWND dialog()
    {
        HWND found = nullptr;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                if (!::GetDlgItem(window, edt1) || !::IsWindowVisible(window))
                    return TRUE;
                *reinterpret_cast<HWND*>(result) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    static bool isReplaceDialog(HWND window) { return ::GetDlgItem(window, edt2) != nullptr; }

    HWND open(Command which) { return open(which, control); }
    static HWND open(Command which, HWND of)
    {
        edExecCommand(of, which);
        Pump();
        return dialog();
    }
    static void press(Button button)
    {
        ::SendDlgItemMessageW(dialog(), button, BM_CLICK, 0, 0);
        Pump();
    }
    static void set(const Flags& flags)
    {
        Check(dialog(), chx1, flags.wholeWord);
        Check(dialog(), chx2, flags.matchCase);
        Check(dialog(), rad1, !flags.down);
        Check(dialog(), rad2, flags.down);
    }
    /// Opens a dialog if there is none and presses its button.
    void find(const wchar_t* what, const Flags& flags = {})
    {
        if (!dialog())
            open(openFind);
        ::SetDlgItemTextW(dialog(), edt1, what);
        set(flags);
        press(pressFind);
    }
    void replace(Button button, const wchar_t* what, const wchar_t* with, const Flags& flags = {})
    {
        if (!dialog())
            open(openReplace);
        ::SetDlgItemTextW(dialog(), edt1, what);
        ::SetDlgItemTextW(dialog(), edt2, with);
        set(flags);
        press(button);
    }
    /// From now on the messages of the dialog come to the control with another text to find.
    void rewriteMessages(const wchar_t* text)
    {
        static WNDPROC ofTheControl = nullptr;
        static std::wstring rewritten;
        rewritten = text;
        ofTheControl = reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(
            control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
                [](HWND window, UINT id, WPARAM wParam, LPARAM lParam) -> LRESULT {
                    if (id == ::RegisterWindowMessageW(FINDMSGSTRINGW))
                        ::lstrcpyW(reinterpret_cast<FINDREPLACEW*>(lParam)->lpstrFindWhat, rewritten.c_str());
                    return ::CallWindowProcW(ofTheControl, window, id, wParam, lParam);
                }))));
    }
    /// Every test begins without a remembered search. No dialog searches for nothing, so it is made to.
    void forgetLastSearch()
    {
        given(L"x");
        rewriteMessages(L"");
        find(L"x");
        press(pressCancel);
    }

    /// The selected text; empty without a selection.
    std::wstring selected() const
    {
        if (!edGetMode(control, ED_MODE_SELECTION))
            return {};
        UINT32 length = 0;
        edGetLine(control, 0, 1, nullptr, &length);
        std::wstring text(length, L'\0');
        edGetLine(control, 0, 1, text.data(), &length);
        text.pop_back();
        return text;
    }
    [[nodiscard]] std::string at(int code) const
    {
        edPoint point{-7, -7};
        edGetPosition(control, code, &point);
        return std::to_string(point.y) + "," + std::to_string(point.x);
    }
    [[nodiscard]] std::string caret() const { return at(ED_POSITION_CARET); }
    bool canUndo() const
    {
        ::SetFocus(control);
        return edCanExecCommand(control, undo) != 0;
    }

    ControlHost host;
    HWND control = nullptr;
    MessageBoxes boxes;
};

// ---- The dialog

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

// ---- Replacing

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

// ---- Message boxes stand over the dialog

TEST_F(Find, WhileABoxWaitsNeitherTheDialogNorTheHostGoesOn)
{
    given(L"text");
    host.answer = 1;
    bool dialogGoesOn = true;
    bool hostGoesOn = true;
    boxes.onBox = [&](HWND) {
        dialogGoesOn = ::IsWindowEnabled(dialog()) != FALSE;
        hostGoesOn = ::IsWindowEnabled(host.Window()) != FALSE;
    };
    open(openFind);
    ::SetActiveWindow(dialog());
    find(L"nowhere");
    EXPECT_EQ(boxes.texts.size(), 1u);
    EXPECT_FALSE(dialogGoesOn);
    EXPECT_FALSE(hostGoesOn);
    EXPECT_TRUE(::IsWindowEnabled(dialog()));
    EXPECT_TRUE(::IsWindowEnabled(host.Window()));
}

// ---- Who lives and who dies

TEST_F(Find, DestroyingTheControlDestroysItsDialog)
{
    for (const Command which : {openFind, openReplace}) {
        given(L"text");
        const HWND window = open(which);
        ASSERT_NE(window, nullptr);
        edDestroyCtrl(control);
        EXPECT_FALSE(::IsWindow(window));
    }
}

TEST_F(Find, DestroyingTheHostDestroysTheDialogToo)
{
    given(L"text");
    const HWND window = open(openFind);
    ::DestroyWindow(host.Window());
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(edExecCommand(control, openFind), 0);
}

TEST_F(Find, ADialogWhoseControlHasLostItsWindowDoesNoHarm)
{
    given(L"text");
    const HWND window = open(openReplace);
    ::DestroyWindow(control);  // not as the library asks for, so the object stays
    ::SendDlgItemMessageW(window, pressFind, BM_CLICK, 0, 0);
    ::SendDlgItemMessageW(window, pressReplaceAll, BM_CLICK, 0, 0);
    ::SendDlgItemMessageW(window, pressCancel, BM_CLICK, 0, 0);
    Pump();
    EXPECT_FALSE(::IsWindow(window));
}

using Deed = void (*)(HWND control, HWND dialog);

struct Interference {
    const char* name;
    Deed deed;
    bool controlLives;
    bool dialogLives;
};

const Interference interferences[] = {
    {"DestroysTheControl", [](HWND control, HWND) { edDestroyCtrl(control); }, false, false},
    {"DestroysTheControlsWindow", [](HWND control, HWND) { ::DestroyWindow(control); }, false, true},
    {"DestroysTheDialog", [](HWND, HWND dialog) { ::DestroyWindow(dialog); }, true, false},
    {"ClosesTheDialog", [](HWND, HWND dialog) { ::SendMessageW(dialog, WM_CLOSE, 0, 0); }, true, false},
    {"ClosesAndOpensTheDialog",
     [](HWND control, HWND dialog) {
         ::SendMessageW(dialog, WM_CLOSE, 0, 0);
         edExecCommand(control, openFind);
     },
     true, true},
    {"EmptiesTheText", [](HWND control, HWND) { edLoadText(control, nullptr, 0); }, true, true},
    {"LoadsAShorterText", [](HWND control, HWND) { edLoadText(control, L"s", 1); }, true, true},
    {"Pumps", [](HWND, HWND) { Pump(20); }, true, true},
    {"SearchesAgain",
     [](HWND control, HWND) {
         static int left = 3;
         if (left-- > 0)
             edExecCommand(control, findNext);
     },
     true, true},
    {"DestroysItself", [](HWND control, HWND) { ::DestroyWindow(::GetParent(control)); }, false, false},
};

class FindInterference : public Find, public testing::WithParamInterface<Interference> {
protected:
    void asked()
    {
        host.answer = 1;
        host.onMessage = [this](const ControlHost::Message& message) {
            if (message.id == ED_NOTIFY_FIND)
                GetParam().deed(control, dialog());
        };
    }
    void expectWhatLives()
    {
        host.onMessage = nullptr;
        EXPECT_EQ(dialog() != nullptr, GetParam().dialogLives);
        EXPECT_EQ(edGetHWND(control) != nullptr, GetParam().controlLives);
        if (HWND left = GetParam().controlLives ? nullptr : dialog())
            ::SendMessageW(left, WM_CLOSE, 0, 0);
        if (!GetParam().controlLives)
            return;
        if (dialog())
            press(pressCancel);
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
        edLoadText(control, L"alive", 1);
        EXPECT_NE(open(openFind), nullptr);
        find(L"alive");
    }
};

constexpr const wchar_t* longText = L"here is a key\n\n\n\n\n\n\nno more";

TEST_P(FindInterference, OfAHostThatTheDialogsSearchAsks)
{
    given(longText, 7, 0);
    open(openFind);
    asked();
    find(L"key");
    expectWhatLives();
}

TEST_P(FindInterference, OfAHostThatFindNextAsks)
{
    given(longText);
    find(L"key");
    edSetCaretPosition(control, 7, 0);
    asked();
    EXPECT_EQ(edExecCommand(control, findNext), 1);
    Pump();
    expectWhatLives();
}

TEST_P(FindInterference, OfAHostThatReplaceAsks)
{
    given(longText, 7, 0);
    open(openReplace);
    asked();
    replace(pressReplace, L"key", L"lock");
    expectWhatLives();
}

INSTANTIATE_TEST_SUITE_P(Each, FindInterference, testing::ValuesIn(interferences),
                         [](const auto& info) { return info.param.name; });

TEST_F(Find, AControlThatIsDestroyedWhileItsDialogOpensTakesItAlong)
{
    given(L"text");
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && message.lParam == -1)
            edDestroyCtrl(control);  // the dialog takes the focus
    };
    edExecCommand(control, openFind);
    Pump();
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(Find, AFindMessageThatNoDialogSentIsIgnored)
{
    given(L"text text");
    const UINT message = ::RegisterWindowMessageW(FINDMSGSTRINGW);
    FINDREPLACEW foreign{};
    wchar_t what[] = L"text";
    foreign.lStructSize = sizeof foreign;
    foreign.Flags = FR_FINDNEXT | FR_DOWN;
    foreign.lpstrFindWhat = what;
    for (const LPARAM lParam : {LPARAM{0}, LPARAM{1}, LPARAM{-1}, reinterpret_cast<LPARAM>(&foreign)})
        EXPECT_EQ(::SendMessageW(control, message, 0, lParam), 0);
    EXPECT_EQ(caret(), "0,0");
    EXPECT_EQ(edExecCommand(control, findNext), 0) << "nothing was remembered";
}

}  // namespace
