// The commands in each state of the control, the inserted text and the copied one.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/MarkedControl.h"

#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>

namespace {

using namespace keys;

// What a command asks for.
enum State : unsigned { focus = 1, selection = 2, readOnly = 4, steps = 8 };
constexpr unsigned everyState = 16;

struct CommandCase {
    const char* name;
    int code;
    unsigned wants;   ///< states that have to be there for it to be enabled
    unsigned bars;    ///< states that disable it
    bool (*answers)(unsigned state);  ///< what executing it answers
};

std::ostream& operator<<(std::ostream& out, const CommandCase& row) { return out << row.name; }

bool always(unsigned) { return true; }
bool withFocus(unsigned state) { return state & focus; }
bool withFocusAndSteps(unsigned state) { return (state & focus) && (state & steps); }

const CommandCase commandCases[] = {
    {"Undo", ED_COMMAND_UNDO, focus | steps, 0, withFocusAndSteps},
    {"Redo", ED_COMMAND_REDO, focus | steps, 0, withFocusAndSteps},
    {"Cut", ED_COMMAND_CUT, focus | selection, readOnly, always},
    {"Copy", ED_COMMAND_COPY, focus | selection, 0, always},
    {"Paste", ED_COMMAND_PASTE, focus, readOnly, always},
    {"SelectAll", ED_COMMAND_SELECT_ALL, focus, 0, withFocus},
    {"ToggleOverwrite", ED_COMMAND_TOGGLE_OVERWRITE, focus, 0, always},
    {"ClearSelection", ED_COMMAND_CLEAR_SELECTION, focus | selection, 0, always},
    {"SelectToLineEnd", ED_COMMAND_SELECT_TO_LINE_END, 0, 0, always},
    {"CopyAppend", ED_COMMAND_COPY_APPEND, focus | selection, 0, always},
};

void SetClipboard(const wchar_t* text)
{
    ASSERT_TRUE(::OpenClipboard(nullptr));
    ::EmptyClipboard();
    if (text) {
        const std::size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
        std::memcpy(::GlobalLock(memory), text, bytes);
        ::GlobalUnlock(memory);
        ::SetClipboardData(CF_UNICODETEXT, memory);
    }
    ::CloseClipboard();
}

std::wstring Clipboard()
{
    if (!::OpenClipboard(nullptr))
        return L"closed";
    std::wstring text = L"nothing";
    if (const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(::GlobalLock(memory));
        ::GlobalUnlock(memory);
    }
    ::CloseClipboard();
    return text;
}

class Commands : public testing::Test {
protected:
    ControlHost host;
    HWND control = nullptr;

    Commands() { show({}); }
    void show(const edCreateParams& params)
    {
        if (control)
            edDestroyCtrl(control);
        control = host.Show(L"", params);
    }
    void given(std::wstring_view text) { GivenMarked(control, text); }
    std::wstring marked() const { return Marked(control); }
    BOOL exec(int code) { return edExecCommand(control, code); }
    BOOL can(int code) { return edCanExecCommand(control, code); }
    void setState(unsigned state)
    {
        edCreateParams params{};
        params.flags = state & readOnly ? ED_CREATE_READONLY : 0;
        show(params);
        given(state & selection ? L"one [two]|\nthree" : L"one two|\nthree");
        if (!(state & focus))
            ::SetFocus(host.Window());
    }
};

class EachCommand : public Commands, public testing::WithParamInterface<CommandCase> {
protected:
    // A step to undo, or to redo: no read-only control has one.
    void addStep()
    {
        ::SetFocus(control);
        Type(control, L'x');
        if (GetParam().code == ED_COMMAND_REDO)
            edExecCommand(control, ED_COMMAND_UNDO);
    }
};

TEST_P(EachCommand, IsEnabledAndAnswersAsItsRowSaysInEveryState)
{
    const CommandCase& row = GetParam();
    for (unsigned state = 0; state < everyState; ++state) {
        if ((state & steps) && (state & (readOnly | selection)))
            continue;
        setState(state | focus);
        SetClipboard(L"clip");
        if (state & steps)
            addStep();
        if (!(state & focus))
            ::SetFocus(host.Window());
        const bool enabled = (state & row.wants) == row.wants && (state & row.bars) == 0;
        EXPECT_EQ(can(row.code), enabled) << state;
        const std::wstring before = TextOf(control);
        EXPECT_EQ(exec(row.code), row.answers(state)) << state;
        if (!enabled) {
            EXPECT_EQ(TextOf(control), before) << state;
            EXPECT_EQ(Clipboard(), L"clip") << state;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, EachCommand, testing::ValuesIn(commandCases),
                         [](const auto& info) { return info.param.name; });

TEST_F(Commands, OtherCodesAnswerZero)
{
    for (const int code : {-1, 0, 14, 1000, -2147483647}) {
        EXPECT_EQ(exec(code), 0) << code;
        EXPECT_EQ(can(code), 0) << code;
    }
}

TEST_F(Commands, TheDialogsAreOfferedAsTheTableSays)
{
    EXPECT_EQ(can(ED_COMMAND_FIND), 1);
    EXPECT_EQ(can(ED_COMMAND_REPLACE), 1);
    ::SetFocus(host.Window());
    EXPECT_EQ(can(ED_COMMAND_FIND), 1);
    EXPECT_EQ(can(ED_COMMAND_REPLACE), 1);
    setState(readOnly);
    EXPECT_EQ(can(ED_COMMAND_FIND), 1);
    EXPECT_EQ(can(ED_COMMAND_REPLACE), 0);
    EXPECT_EQ(exec(ED_COMMAND_REPLACE), 1);  // and no dialog opens
    EXPECT_EQ(::GetLastActivePopup(host.Window()), host.Window());
}

TEST_F(Commands, FindNextWithoutARememberedSearchAnswersZero)
{
    // No search has happened in this process.
    EXPECT_EQ(can(ED_COMMAND_FIND_NEXT), 0);
    EXPECT_EQ(exec(ED_COMMAND_FIND_NEXT), 0);
}

TEST_F(Commands, UndoAndRedoTellTheHostOfTheChange)
{
    given(L"ab|");
    Type(control, L'c');
    for (const int code : {ED_COMMAND_UNDO, ED_COMMAND_REDO}) {
        host.Forget();
        EXPECT_EQ(exec(code), 1);
        EXPECT_EQ(host.Of(ED_NOTIFY_CARET).back().wParam, 1u);
        host.Forget();
        EXPECT_EQ(exec(code), 0);
        EXPECT_EQ(host.Count(ED_NOTIFY_CARET), 0u);
    }
}

TEST_F(Commands, ThreeHundredStepsCanBeUndone)
{
    given(L"|\nx");
    for (int i = 0; i < 301; ++i)
        Type(control, L'a');
    for (int i = 0; i < 300; ++i)
        ASSERT_EQ(exec(ED_COMMAND_UNDO), 1) << i;
    EXPECT_EQ(exec(ED_COMMAND_UNDO), 0);
    EXPECT_EQ(TextOf(control), L"a\nx");
}

TEST_F(Commands, LoadingATextForgetsUndoAndRedo)
{
    given(L"ab|");
    Type(control, L"cd");
    exec(ED_COMMAND_UNDO);
    edLoadText(control, L"new", 0xFFFFFFFF);
    EXPECT_EQ(can(ED_COMMAND_UNDO), 0);
    EXPECT_EQ(can(ED_COMMAND_REDO), 0);
}

TEST_F(Commands, CutTakesTheSelectionToTheClipboardInOneStep)
{
    given(L"a[b\nc]|d");
    exec(ED_COMMAND_CUT);
    EXPECT_EQ(marked(), L"a|d");
    EXPECT_EQ(Clipboard(), L"b\r\nc");
    exec(ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"ab\ncd");
    EXPECT_EQ(can(ED_COMMAND_UNDO), 0);
}

TEST_F(Commands, CutOnAReadOnlyControlAnswersOneAndDoesNothing)
{
    setState(readOnly | selection | focus);
    SetClipboard(L"old");
    EXPECT_EQ(exec(ED_COMMAND_CUT), 1);
    EXPECT_EQ(can(ED_COMMAND_CUT), 0);
    EXPECT_EQ(marked(), L"one [two]|\nthree");
    EXPECT_EQ(Clipboard(), L"old");
}

TEST_F(Commands, AReadOnlyTextCanBeCopied)
{
    setState(readOnly | selection | focus);
    exec(ED_COMMAND_COPY);
    EXPECT_EQ(Clipboard(), L"two");
}

TEST_F(Commands, PasteOverASelectionIsTwoSteps)
{
    SetClipboard(L"x\r\ny");
    given(L"a[b]|c");
    EXPECT_EQ(exec(ED_COMMAND_PASTE), 1);
    EXPECT_EQ(marked(), L"ax\ny|c");
    exec(ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"ac");
    exec(ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"abc");
}

TEST_F(Commands, PasteWithoutATextOnTheClipboardDoesNothing)
{
    SetClipboard(nullptr);
    given(L"a[b]|c");
    EXPECT_EQ(can(ED_COMMAND_PASTE), 0);
    EXPECT_EQ(exec(ED_COMMAND_PASTE), 1);
    EXPECT_EQ(marked(), L"a[b]|c");
}

TEST_F(Commands, SelectAllPutsTheCaretAtTheStart)
{
    given(L"ab\ncd|");
    exec(ED_COMMAND_SELECT_ALL);
    EXPECT_EQ(marked(), L"|[ab\ncd]");
}

TEST_F(Commands, ToggleOverwriteNeedsNoFocus)
{
    ::SetFocus(host.Window());
    EXPECT_EQ(can(ED_COMMAND_TOGGLE_OVERWRITE), 0);
    EXPECT_EQ(exec(ED_COMMAND_TOGGLE_OVERWRITE), 1);
    EXPECT_EQ(edGetMode(control, ED_MODE_INSERT), 0);
}

TEST_F(Commands, ClearSelectionLeavesTheCaret)
{
    given(L"a|[bc]d");
    exec(ED_COMMAND_CLEAR_SELECTION);
    EXPECT_EQ(marked(), L"a|bcd");
}

TEST_F(Commands, SelectToTheLineEndLeavesTheCaret)
{
    given(L"  a|bc\nd");
    exec(ED_COMMAND_SELECT_TO_LINE_END);
    EXPECT_EQ(marked(), L"  a|[bc]\nd");
}

TEST_F(Commands, SelectToTheLineEndAtItStoresTheFirstBehindTheLast)
{
    given(L"abc|\nd");
    exec(ED_COMMAND_SELECT_TO_LINE_END);
    edPoint first{};
    edPoint last{};
    EXPECT_EQ(edGetPosition(control, ED_POSITION_SELECTION_FIRST, &first), 1);
    EXPECT_EQ(edGetPosition(control, ED_POSITION_SELECTION_LAST, &last), 1);
    EXPECT_EQ(first.x, 3);
    EXPECT_EQ(last.x, 2);
}

// ---- Inserted text

TEST_F(Commands, InsertedTextReplacesTheSelectionAndIsOneStep)
{
    given(L"a[bc]|d");
    host.Forget();
    EXPECT_EQ(edInsertText(control, L"x\r\ny\rz"), 1);
    EXPECT_EQ(marked(), L"ax\nyz|d");
    EXPECT_EQ(host.Of(ED_NOTIFY_CARET).back().wParam, 1u);
    exec(ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"ad");
    exec(ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"abcd");
}

TEST_F(Commands, InsertingNothingAnswersOne)
{
    given(L"a[b]|c");
    EXPECT_EQ(edInsertText(control, nullptr), 1);
    EXPECT_EQ(edInsertText(control, L""), 1);
    EXPECT_EQ(marked(), L"a[b]|c");
    setState(readOnly | selection);
    EXPECT_EQ(edInsertText(control, L"x"), 1);
    EXPECT_EQ(marked(), L"one [two]|\nthree");
}

// ---- Copied text

TEST_F(Commands, CopyDataBringsTextAndMarksAndKeepsTheCaret)
{
    const HWND source = host.Show(L"first\nsecond\nthird");
    edSetBreakPoint(source, 1);
    edSetExecPoint(source, 2);
    edSetCaretPosition(source, 2, 5);
    given(L"abc\ndef|");
    Type(control, L'g');
    ::SetFocus(source);
    EXPECT_EQ(edCopyData(source, control), 1);
    EXPECT_EQ(marked(), L"first\nseco|nd\nthird");
    EXPECT_EQ(edGetBreakPointLine(control, 0), 1);
    EXPECT_EQ(can(ED_COMMAND_UNDO), 0);
    EXPECT_EQ(::GetFocus(), control);
    EXPECT_EQ(TextOf(source), L"first\nsecond\nthird");
    Type(control, L'x');
    EXPECT_EQ(TextOf(source), L"first\nsecond\nthird");
}

TEST_F(Commands, CopyDataIntoItselfOnlyForgetsUndo)
{
    given(L"ab|");
    Type(control, L'c');
    EXPECT_EQ(edCopyData(control, control), 1);
    EXPECT_EQ(marked(), L"abc|");
    EXPECT_EQ(can(ED_COMMAND_UNDO), 0);
}

TEST_F(Commands, CopyDataWithOneBadHandleAnswersZero)
{
    given(L"ab|");
    EXPECT_EQ(edCopyData(control, host.Window()), 0);
    EXPECT_EQ(edCopyData(nullptr, control), 0);
    EXPECT_EQ(marked(), L"ab|");
}

}  // namespace
