// Editing, searching and debugging with keys and menu.
#include "UseFixture.h"

namespace {

// ---- Editing

TEST_F(Use, TypedTextIsMarkedUndoneAndRedone)
{
    Given("one");
    Type({'A', 'B'});
    EXPECT_EQ(Text(), L"abone");
    EXPECT_EQ(Title(), L"*use.txt \x2013 Scrivpad");
    EXPECT_EQ(Status(StatusBar::change), L"Изменён");
    PressCtrl('Z');
    EXPECT_EQ(Text(), L"aone");
    PressCtrl('Z');
    EXPECT_EQ(Text(), L"one");
    PressCtrl('Y');
    EXPECT_EQ(Text(), L"aone");
}

TEST_F(Use, TextGoesThroughTheClipboard)
{
    Given("one two");
    PressCtrl('A');
    PressCtrl('C');
    Type({VK_END});
    PressCtrl('V');
    EXPECT_EQ(Text(), L"one twoone two");
    PressCtrl('A');
    PressCtrl('X');
    EXPECT_EQ(Text(), L"\n") << "one empty line";
    PressCtrl('V');
    EXPECT_EQ(Text(), L"one twoone two");
}

TEST_F(Use, CopiesBehindWhatIsCopied)
{
    Given("one\nnot this\ntwo");
    Press({VK_CONTROL, VK_SHIFT}, 'E');
    PressCtrl('C');
    edSetCaretPosition(Control(), 2, 0);
    Press({VK_CONTROL, VK_SHIFT}, 'E');
    Press({VK_CONTROL, VK_SHIFT}, 'C');
    PressCtrl('A');
    PressCtrl('V');
    EXPECT_EQ(Text(), L"one\ntwo");
}

struct MenuCase {
    const char* name;
    int code;
    bool plain;     // enabled in a text without a selection that nobody has changed
    bool selected;  // with a selection
    bool changed;   // after typing
    bool readOnly;  // with a selection in a read-only text
};

const MenuCase menuCases[] = {
    {"Undo", ED_COMMAND_UNDO, false, false, true, false},
    {"Redo", ED_COMMAND_REDO, false, false, false, false},
    {"Cut", ED_COMMAND_CUT, false, true, false, false},
    {"Copy", ED_COMMAND_COPY, false, true, false, true},
    {"CopyAppend", ED_COMMAND_COPY_APPEND, false, true, false, true},
    {"Paste", ED_COMMAND_PASTE, true, true, true, false},
    {"SelectAll", ED_COMMAND_SELECT_ALL, true, true, true, true},
    {"ClearSelection", ED_COMMAND_CLEAR_SELECTION, false, true, false, true},
    {"SelectToLineEnd", ED_COMMAND_SELECT_TO_LINE_END, true, true, true, true},
    {"ToggleOverwrite", ED_COMMAND_TOGGLE_OVERWRITE, true, true, true, true},
    {"Find", ED_COMMAND_FIND, true, true, true, true},
    {"Replace", ED_COMMAND_REPLACE, true, true, true, false},
};

class UseMenu : public Use, public testing::WithParamInterface<MenuCase> {};

TEST_P(UseMenu, ItemIsGreyedAsTheEditorTells)
{
    const MenuCase& row = GetParam();
    const unsigned command = EditCommand(row.code);
    Given("copied");
    PressCtrl('A');
    PressCtrl('C');
    Given("one two");
    EXPECT_EQ(!Greyed(command), row.plain);
    edSetCaretPositionAdv(Control(), 0, 3, ED_CARET_SELECT | ED_CARET_FOCUS);
    EXPECT_EQ(!Greyed(command), row.selected);
    edSetCaretPosition(Control(), 0, 0);
    Type({'A'});
    EXPECT_EQ(!Greyed(command), row.changed);

    const std::wstring path = Write(L"use read-only.txt", "one two");
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    window.Active().Open(path, ED_ENCODING_DEFAULT);
    edSetCaretPositionAdv(Control(), 0, 3, ED_CARET_SELECT | ED_CARET_FOCUS);
    EXPECT_EQ(!Greyed(command), row.readOnly);
}

INSTANTIATE_TEST_SUITE_P(Each, UseMenu, testing::ValuesIn(menuCases), [](const auto& info) { return info.param.name; });

TEST_F(Use, TheMenuBarIsOpenedAndChosenFromWithKeys)
{
    Given("one");
    // Nothing returns before the menu is closed, so all keys wait in the queue when it opens.
    for (const int key : {VK_MENU, VK_RIGHT, VK_DOWN, VK_UP, VK_RETURN}) {
        Send(static_cast<WORD>(key), true);
        Send(static_cast<WORD>(key), false);
    }
    const UINT_PTR rescue = ::SetTimer(nullptr, 0, 3000, [](HWND, UINT, UINT_PTR, DWORD) { ::EndMenu(); });
    Pump(300);
    ::KillTimer(nullptr, rescue);
    EXPECT_TRUE(Ticked(EditCommand(ED_COMMAND_TOGGLE_OVERWRITE))) << "the last item of the second menu";
    EXPECT_EQ(Status(StatusBar::mode), L"ЗАБ");
}

// ---- Searching

TEST_F(Use, TheFindDialogIsUsedWithTheKeyboard)
{
    Given("one\ntwo three");
    PressCtrl('F');
    ASSERT_NE(FindDialog(), nullptr);
    ::SetDlgItemTextW(FindDialog(), edt1, L"");
    Type({'T', 'H', 'R', VK_RETURN});
    EXPECT_EQ(Text(), L"one\ntwo three") << "the keys are the dialog's";
    ExpectAt(Position(ED_POSITION_CARET), 1, 4);
    EXPECT_EQ(Status(StatusBar::place), L"Стр 2, Стб 5");
    Type({VK_ESCAPE});
    EXPECT_EQ(FindDialog(), nullptr);
}

TEST_F(Use, ShortcutsInTheFindDialogAreTheDialogsOwn)
{
    Given("one two");
    PressCtrl('F');
    ASSERT_NE(FindDialog(), nullptr);
    Type({'X', 'Y'});
    PressCtrl('A');
    PressCtrl('Z');
    EXPECT_EQ(Text(), L"one two");
    EXPECT_FALSE(edGetMode(Control(), ED_MODE_SELECTION));
    Type({VK_ESCAPE});
}

TEST_F(Use, FindNextAsksPastTheEndOfTheText)
{
    Given("one\ntwo one");
    PressCtrl('F');
    Type({VK_RETURN, VK_ESCAPE});
    ExpectAt(Position(ED_POSITION_CARET), 1, 4);
    Type({VK_F3});
    ASSERT_EQ(boxes.texts.size(), 1u);
    EXPECT_NE(boxes.texts[0].find(L"«one»"), std::wstring::npos);
    ExpectAt(Position(ED_POSITION_CARET), 1, 4);
    boxes.answer = IDYES;
    Type({VK_F3});
    EXPECT_EQ(boxes.texts.size(), 2u);
    ExpectAt(Position(ED_POSITION_CARET), 0, 0);
    EXPECT_FALSE(Greyed(EditCommand(ED_COMMAND_FIND_NEXT)));
}

TEST_F(Use, WhileTheWrapQuestionStandsNothingElseGoesOn)
{
    Given("one\ntwo");
    bool dialogGoesOn = true;
    bool windowGoesOn = true;
    boxes.onBox = [&](HWND) {
        dialogGoesOn = ::IsWindowEnabled(FindDialog()) != FALSE;
        windowGoesOn = ::IsWindowEnabled(window.Handle()) != FALSE;
    };
    PressCtrl('F');
    Type({VK_RETURN});
    EXPECT_EQ(boxes.texts.size(), 1u);
    EXPECT_FALSE(dialogGoesOn);
    EXPECT_FALSE(windowGoesOn);
    EXPECT_TRUE(::IsWindowEnabled(window.Handle()));
    Type({VK_ESCAPE});
}

TEST_F(Use, CtrlHReplaces)
{
    Given("one two");
    PressCtrl('H');
    ASSERT_NE(FindDialog(), nullptr);
    ::SetDlgItemTextW(FindDialog(), edt1, L"two");
    ::SetDlgItemTextW(FindDialog(), edt2, L"три");
    ::SendDlgItemMessageW(FindDialog(), psh2, BM_CLICK, 0, 0);
    EXPECT_EQ(Text(), L"one три");
    ::SendMessageW(FindDialog(), WM_CLOSE, 0, 0);
}

// ---- The marks of a debugger

TEST_F(Use, F9TogglesABreakPointOnTheCaretsLine)
{
    Given("one\n\ntwo");
    Type({VK_F9});
    EXPECT_EQ(BreakPoints(), std::vector<int>{0});
    EXPECT_TRUE(Ticked(cmdBreakPoint));
    Type({VK_DOWN, VK_F9});
    EXPECT_EQ(BreakPoints(), std::vector<int>{0}) << "an empty line has none";
    Type({VK_DOWN, VK_F9});
    EXPECT_EQ(BreakPoints(), (std::vector<int>{0, 2}));
    Type({VK_F9});
    EXPECT_EQ(BreakPoints(), std::vector<int>{0});
    Press({VK_CONTROL, VK_SHIFT}, VK_F9);
    EXPECT_TRUE(BreakPoints().empty());
    EXPECT_TRUE(Greyed(cmdRemoveBreakPoints));
}

TEST_F(Use, F10MovesTheExecutionPointToTheCaretsLine)
{
    Given("one\ntwo\nthree");
    EXPECT_TRUE(Greyed(cmdClearExecPoint));
    Type({VK_F10});
    EXPECT_EQ(ExecPoint(), 0);
    Type({VK_DOWN, VK_DOWN, VK_F10});
    EXPECT_EQ(ExecPoint(), 2);
    ExpectAt(Position(ED_POSITION_CARET), 2, 0);
    PressCtrl(VK_F10);
    EXPECT_EQ(ExecPoint(), -1);
    EXPECT_TRUE(Greyed(cmdClearExecPoint));
}

TEST_F(Use, TheExecutionPointFollowsItsLineAndOutlivesAThemeChange)
{
    Given("one\ntwo\nthree");
    Type({VK_DOWN, VK_F10, VK_UP, VK_RETURN});
    EXPECT_EQ(Text(), L"\none\ntwo\nthree");
    EXPECT_EQ(ExecPoint(), 2);
    Choose(cmdFirstTheme, 2);
    EXPECT_EQ(ExecPoint(), 2);
}

// ---- The status bar

TEST_F(Use, TheStatusBarFollowsTheCaretAndTheMode)
{
    Given("один\nдва");
    EXPECT_EQ(Status(StatusBar::place), L"Стр 1, Стб 1");
    EXPECT_EQ(Status(StatusBar::mode), L"ВСТ");
    EXPECT_EQ(Status(StatusBar::change), L"");
    EXPECT_EQ(Status(StatusBar::encoding), L"UTF-8");
    Type({VK_DOWN, VK_RIGHT, VK_INSERT});
    EXPECT_EQ(Status(StatusBar::place), L"Стр 2, Стб 2");
    EXPECT_EQ(Status(StatusBar::mode), L"ЗАБ");
    Choose(cmdFirstEncoding, ED_ENCODING_UTF16LE);
    EXPECT_EQ(Status(StatusBar::encoding), L"UTF-16 LE");
}

}  // namespace
