// The sample host as a user sees it: real keys, the menu, the mouse, message boxes.
#include "MessageLoop.h"
#include "WindowFixture.h"

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MessageBoxes.h"

#include <dlgs.h>
#include <shlobj.h>

#include <initializer_list>

namespace {

class Use : public WindowFixture {
protected:
    Use()
    {
        window.Show(SW_SHOW);
        ::SetForegroundWindow(window.Handle());
        Pump(50);
    }
    ~Use() override { ::DestroyAcceleratorTable(m_shortcuts); }

    void Pump(DWORD milliseconds)
    {
        const ULONGLONG end = ::GetTickCount64() + milliseconds;
        do {
            MSG message;
            while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                Dispatch(window, m_shortcuts, message);
            ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        } while (::GetTickCount64() < end);
    }
    static void Send(WORD key, bool down)
    {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
        ::SendInput(1, &input, sizeof(input));
    }
    /// Presses keys one after the other.
    void Type(std::initializer_list<int> keys)
    {
        for (const int key : keys) {
            Send(static_cast<WORD>(key), true);
            Send(static_cast<WORD>(key), false);
        }
        Pump(40);
    }
    /// Presses a key while others are held.
    void Press(std::initializer_list<int> held, int key)
    {
        for (const int hold : held)
            Send(static_cast<WORD>(hold), true);
        Send(static_cast<WORD>(key), true);
        Send(static_cast<WORD>(key), false);
        for (const int hold : held)
            Send(static_cast<WORD>(hold), false);
        Pump(40);
    }
    void PressCtrl(int key) { Press({VK_CONTROL}, key); }

    void Given(const char* text)
    {
        window.Active().Open(Write(L"use.txt", text), ED_ENCODING_DEFAULT);
        ::SetFocus(Control());
        Pump(20);
    }
    [[nodiscard]] static HWND FindDialog()
    {
        HWND found = nullptr;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND top, LPARAM result) -> BOOL {
                if (::GetDlgItem(top, edt1) == nullptr)
                    return TRUE;
                *reinterpret_cast<HWND*>(result) = top;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    /// The state of a menu item as it is when its menu opens.
    [[nodiscard]] UINT MenuState(unsigned command) const
    {
        const HMENU menu = ::GetMenu(window.Handle());
        ::SendMessageW(window.Handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
        return ::GetMenuState(menu, command, MF_BYCOMMAND);
    }
    [[nodiscard]] bool Greyed(unsigned command) const { return (MenuState(command) & MF_GRAYED) != 0; }
    [[nodiscard]] bool Ticked(unsigned command) const { return (MenuState(command) & MF_CHECKED) != 0; }
    [[nodiscard]] std::vector<int> BreakPoints() const
    {
        std::vector<int> lines;
        for (int i = 0; i < edGetBreakPointCount(Control()); ++i)
            lines.push_back(edGetBreakPointLine(Control(), static_cast<UINT32>(i)));
        return lines;
    }
    [[nodiscard]] int ExecPoint() const
    {
        const std::optional<UINT32> line = window.Active().TextEditor().ExecPoint();
        return line ? static_cast<int>(*line) : -1;
    }
    /// Drops files on the window, as the shell does it.
    void Drop(const std::vector<std::wstring>& paths)
    {
        std::wstring names;
        for (const std::wstring& path : paths)
            names += path + L'\0';
        names += L'\0';
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
        auto* const drop = static_cast<DROPFILES*>(::GlobalLock(memory));
        drop->pFiles = sizeof(DROPFILES);
        drop->fWide = TRUE;
        std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(drop + 1));
        ::GlobalUnlock(memory);
        ::SendMessageW(window.Handle(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    }

    MessageBoxes boxes{IDNO};

private:
    HACCEL m_shortcuts = BuildShortcuts();
};

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

// ---- Unsaved text

struct LossCase {
    const char* name;
    int answer;
    bool leaves;
    const char* saved;
};

const LossCase lossCases[] = {
    {"YesSavesAndLeaves", IDYES, true, "aone"},
    {"NoLeaves", IDNO, true, "one"},
    {"CancelStays", IDCANCEL, false, "one"},
};

class UseUnsaved : public Use, public testing::WithParamInterface<LossCase> {
protected:
    void Change()
    {
        Given("one");
        Type({'A'});
        boxes.answer = GetParam().answer;
    }
    void ExpectAsked()
    {
        ASSERT_EQ(boxes.texts.size(), 1u);
        EXPECT_EQ(boxes.texts[0], L"Сохранить изменения в файле «use.txt»?");
        EXPECT_EQ(Read(WholePath(L"use.txt")), GetParam().saved);
        boxes.answer = IDNO;
    }
};

TEST_P(UseUnsaved, TextAtTheEndOfTheProgram)
{
    Change();
    Press({VK_MENU}, VK_F4);
    ExpectAsked();
    EXPECT_EQ(window.Handle() == nullptr, GetParam().leaves);
}

TEST_P(UseUnsaved, TextAtTheEndOfTheSession)
{
    Change();
    EXPECT_EQ(::SendMessageW(window.Handle(), WM_QUERYENDSESSION, 0, 0) != 0, GetParam().leaves);
    ExpectAsked();
}

TEST_P(UseUnsaved, TextThatADroppedFileWouldReplace)
{
    const std::wstring other = Write(L"use other.txt", "other");
    Change();
    Drop({other});
    ExpectAsked();
    EXPECT_EQ(Text(), GetParam().leaves ? L"other" : L"aone");
}

TEST_P(UseUnsaved, TextThatTheEndOfTheSplitWouldTakeAway)
{
    PressCtrl('2');
    ASSERT_NE(window.Other(), nullptr);
    Change();
    PressCtrl('2');
    ExpectAsked();
    EXPECT_EQ(window.Other() == nullptr, GetParam().leaves);
}

TEST_P(UseUnsaved, TextBehindTheActiveOneAtTheEndOfTheSession)
{
    Change();
    PressCtrl('2');
    EXPECT_EQ(::SendMessageW(window.Handle(), WM_QUERYENDSESSION, 0, 0) != 0, GetParam().leaves);
    ExpectAsked();
}

INSTANTIATE_TEST_SUITE_P(Each, UseUnsaved, testing::ValuesIn(lossCases),
                         [](const auto& info) { return info.param.name; });

// ---- Two texts

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

// ---- Dropped files

TEST_F(Use, ADroppedFileIsOpened)
{
    Drop({Write(L"use dropped.txt", "dropped")});
    EXPECT_EQ(Text(), L"dropped");
    EXPECT_EQ(Title(), L"use dropped.txt \x2013 Scrivpad");
    EXPECT_EQ(window.Other(), nullptr);
}

TEST_F(Use, TwoDroppedFilesStandSideBySide)
{
    Drop({Write(L"use left.txt", "left"), Write(L"use right.txt", "right")});
    ASSERT_NE(window.Other(), nullptr);
    EXPECT_EQ(Text(), L"right");
    Type({VK_F6});
    EXPECT_EQ(Text(), L"left");
}

TEST_F(Use, ADroppedFolderIsRefusedWithAMessage)
{
    Given("one");
    boxes.answer = IDOK;
    Drop({WholePath(L".")});
    EXPECT_EQ(boxes.texts.size(), 1u);
    EXPECT_EQ(Text(), L"one");
}

}  // namespace
