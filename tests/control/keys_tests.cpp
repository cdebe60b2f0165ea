// The keys: each row of the key map in each state of Shift and Control, typing, and the keys of Alt.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/KeyDriver.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace keys;

constexpr unsigned ctrlShift = ctrl | shift;

edCreateParams readOnlyParams()
{
    edCreateParams params{};
    params.flags = ED_CREATE_READONLY;
    return params;
}

struct KeyCase {
    const char* name;
    UINT key;
    unsigned held;
    const char* before;
    const char* after;
};

std::ostream& operator<<(std::ostream& out, const KeyCase& row) { return out << row.name; }

// ---- Keys that move the caret: the same on a read-only control

const KeyCase moves[] = {
    {"Shift", VK_SHIFT, shift, "a|b", "a|b"},
    {"Control", VK_CONTROL, ctrl, "a|b", "a|b"},
    {"Alt", VK_MENU, none, "a|b", "a|b"},
    {"Left", VK_LEFT, none, "ab|c", "a|bc"},
    {"LeftAtALinesStart", VK_LEFT, none, "ab\n|cd", "ab|\ncd"},
    {"LeftAtTheStart", VK_LEFT, none, "|ab", "|ab"},
    {"LeftOnASelectionGoesToItsFirstAndNoFurther", VK_LEFT, none, "a[bc]|d", "a|bcd"},
    {"ShiftLeft", VK_LEFT, shift, "ab|c", "a|[b]c"},
    {"ShiftLeftGrows", VK_LEFT, shift, "ab|[c]", "a|[bc]"},
    {"CtrlLeft", VK_LEFT, ctrl, "one two|", "one |two"},
    {"CtrlLeftAtALinesStartStopsBeforeTheLastCharacterAbove", VK_LEFT, ctrl, "abc\n|x", "ab|c\nx"},
    {"CtrlLeftBelowAnEmptyLine", VK_LEFT, ctrl, "\n|x", "|\nx"},
    {"CtrlLeftOnASelection", VK_LEFT, ctrl, "one [two]|", "one |two"},
    {"CtrlShiftLeft", VK_LEFT, ctrlShift, "one two|", "one |[two]"},
    {"CtrlShiftLeftGrows", VK_LEFT, ctrlShift, "one |[two]", "|[one two]"},
    {"CtrlShiftLeftFromTheOtherEnd", VK_LEFT, ctrlShift, "[one two]|", "[one ]|two"},
    {"Right", VK_RIGHT, none, "a|bc", "ab|c"},
    {"RightAtALinesEnd", VK_RIGHT, none, "ab|\ncd", "ab\n|cd"},
    {"RightAtTheEnd", VK_RIGHT, none, "ab|", "ab|"},
    {"RightOnASelectionGoesBehindIt", VK_RIGHT, none, "a|[bc]d", "abc|d"},
    {"ShiftRight", VK_RIGHT, shift, "a|bc", "a[b]|c"},
    {"CtrlRight", VK_RIGHT, ctrl, "|one two", "one |two"},
    {"CtrlRightAtALinesEnd", VK_RIGHT, ctrl, "one|\ntwo", "one\n|two"},
    {"CtrlRightAtTheEnd", VK_RIGHT, ctrl, "one|", "one|"},
    {"CtrlRightOnASelectionGoesToItsLastCharacter", VK_RIGHT, ctrl, "a|[bc]d", "ab|cd"},
    {"CtrlShiftRight", VK_RIGHT, ctrlShift, "|one two", "[one ]|two"},
    {"CtrlShiftRightGrows", VK_RIGHT, ctrlShift, "[one ]|two", "[one two]|"},
    {"CtrlShiftRightFromTheOtherEnd", VK_RIGHT, ctrlShift, "|[one two]", "one |[two]"},
    {"Up", VK_UP, none, "abc\nd|e", "a|bc\nde"},
    {"UpAtTheFirstLine", VK_UP, none, "a|bc", "a|bc"},
    {"UpClearsASelection", VK_UP, none, "abc\nd[e]|", "ab|c\nde"},
    {"ShiftUp", VK_UP, shift, "abc\nd|e", "a|[bc\nd]e"},
    {"CtrlUpDoesNothing", VK_UP, ctrl, "abc\nd|e", "abc\nd|e"},
    {"CtrlShiftUpDoesNothing", VK_UP, ctrlShift, "abc\nd|e", "abc\nd|e"},
    {"Down", VK_DOWN, none, "a|bc\nde", "abc\nd|e"},
    {"DownAtTheLastLine", VK_DOWN, none, "a|bc", "a|bc"},
    {"DownClearsASelection", VK_DOWN, none, "a|[b]c\nde", "abc\nd|e"},
    {"ShiftDown", VK_DOWN, shift, "a|bc\nde", "a[bc\nd]|e"},
    {"CtrlDownDoesNothing", VK_DOWN, ctrl, "a|bc\nde", "a|bc\nde"},
    {"CtrlShiftDownDoesNothing", VK_DOWN, ctrlShift, "a|bc\nde", "a|bc\nde"},
    {"Home", VK_HOME, none, "    a|b", "    |ab"},
    {"HomeFromTheFirstCharacter", VK_HOME, none, "    |ab", "|    ab"},
    {"HomeFromWithinTheBlanks", VK_HOME, none, "  |  ab", "|    ab"},
    {"HomeAtColumnZero", VK_HOME, none, "|    ab", "|    ab"},
    {"HomeClearsASelection", VK_HOME, none, "  a[b]|", "  |ab"},
    {"ShiftHome", VK_HOME, shift, "  ab|c", "  |[ab]c"},
    {"ShiftHomeGrows", VK_HOME, shift, "  a|[b]c", "  |[ab]c"},
    {"ShiftHomeTurnsTheSelectionOver", VK_HOME, shift, "  ab[c]|d", "  |[ab]cd"},
    {"ShiftHomeShortensOneOverLines", VK_HOME, shift, "a[b\n  cd]|", "a[b\n  ]|cd"},
    {"CtrlHome", VK_HOME, ctrl, "a\nb|", "|a\nb"},
    {"CtrlHomeClearsASelection", VK_HOME, ctrl, "a\n[b]|", "|a\nb"},
    {"CtrlShiftHome", VK_HOME, ctrlShift, "a\nb|c", "|[a\nb]c"},
    {"CtrlShiftHomeStartsANewSelection", VK_HOME, ctrlShift, "a\nb[c]|d", "|[a\nbc]d"},
    {"End", VK_END, none, "a|bc", "abc|"},
    {"EndClearsASelection", VK_END, none, "a|[b]c", "abc|"},
    {"ShiftEnd", VK_END, shift, "a|bc", "a[bc]|"},
    {"ShiftEndGrows", VK_END, shift, "a[b]|c", "a[bc]|"},
    {"ShiftEndFromTheFirst", VK_END, shift, "a|[b\nc]d", "ab|[\nc]d"},
    {"CtrlEnd", VK_END, ctrl, "|a\nbc", "a\nbc|"},
    {"CtrlShiftEnd", VK_END, ctrlShift, "|a\nbc", "[a\nbc]|"},
    {"PageUpAtTheTopGoesToTheStart", VK_PRIOR, none, "ab\nc|d", "|ab\ncd"},
    {"PageUpClearsASelection", VK_PRIOR, none, "ab\nc[d]|", "|ab\ncd"},
    {"ShiftPageUp", VK_PRIOR, shift, "ab\nc|d", "|[ab\nc]d"},
    {"ShiftPageUpGrows", VK_PRIOR, shift, "ab\n|[cd]", "|[ab\ncd]"},
    {"ShiftPageUpFromTheEndOfASelection", VK_PRIOR, shift, "ab\nc[d]|", "|[ab\nc]d"},
    {"CtrlPageUpDoesNothing", VK_PRIOR, ctrl, "ab\nc|d", "ab\nc|d"},
    {"PageDownAtTheEndGoesToTheEnd", VK_NEXT, none, "a|b", "ab|"},
    {"PageDownClearsASelection", VK_NEXT, none, "|[a]b", "ab|"},
    {"ShiftPageDown", VK_NEXT, shift, "a|b", "a[b]|"},
    {"ShiftPageDownGrows", VK_NEXT, shift, "[a]|b", "[ab]|"},
    {"CtrlPageDownDoesNothing", VK_NEXT, ctrl, "a|b", "a|b"},
    {"AnyOtherKey", 'A', none, "a|[b]c", "a|[b]c"},
    {"AnyOtherKeyWithShift", VK_F5, shift, "a|[b]c", "a|[b]c"},
    {"AnyOtherKeyWithCtrl", 'Z', ctrl, "a|[b]c", "a|[b]c"},
    {"AnyOtherKeyWithBoth", VK_ESCAPE, ctrlShift, "a|[b]c", "a|[b]c"},
};

class MoveKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(MoveKeys, DoWhatTheirRowSays)
{
    const KeyCase& row = GetParam();
    for (const bool readOnly : {false, true}) {
        ControlHost host;
        const HWND control = host.Show(L"", readOnly ? readOnlyParams() : edCreateParams{});
        GivenMarked(control, row.before);
        ASSERT_EQ(Marked(control), row.before);
        Press(control, row.key, row.held);
        EXPECT_EQ(Marked(control), row.after) << (readOnly ? "read-only" : "editable");
    }
}

INSTANTIATE_TEST_SUITE_P(Each, MoveKeys, testing::ValuesIn(moves), [](const auto& info) { return info.param.name; });

// ---- Keys that change the text: on a read-only control they do nothing

const KeyCase edits[] = {
    {"TabWithoutASelectionWaitsForItsCharacter", VK_TAB, none, "a|b", "a|b"},
    {"CtrlTabDoesNothing", VK_TAB, ctrl, "a|[b]", "a|[b]"},
    {"Delete", VK_DELETE, none, "a|bc", "a|c"},
    {"DeleteASelection", VK_DELETE, none, "a[bc]|d", "a|d"},
    {"DeleteAtALinesEnd", VK_DELETE, none, "a|\nb", "a|b"},
    {"CtrlDelete", VK_DELETE, ctrl, "a|bc", "a|c"},
    {"ShiftDeleteWithoutASelection", VK_DELETE, shift, "a|bc", "a|c"},
    {"ShiftDeleteASelection", VK_DELETE, shift, "a[bc]|d", "a|d"},
    {"CtrlShiftDelete", VK_DELETE, ctrlShift, "a[bc]|d", "a|d"},
    {"InsertAlone", VK_INSERT, none, "a|b", "a|b"},
    {"InsertAloneDeletesASelection", VK_INSERT, none, "a[b]|c", "a|c"},
    {"CtrlInsert", VK_INSERT, ctrl, "a[b]|c", "a[b]|c"},
    {"CtrlULowers", 'U', ctrl, "[AbC]|d", "[abc]|d"},
    {"CtrlShiftURaises", 'U', ctrlShift, "[AbC]|d", "[ABC]|d"},
    {"CtrlF6ActsAsCtrlU", VK_F6, ctrl, "[AbC]|d", "[abc]|d"},
    {"CtrlShiftF6ActsAsCtrlShiftU", VK_F6, ctrlShift, "[AbC]|d", "[ABC]|d"},
    {"CtrlUWithoutASelection", 'U', ctrl, "A|B", "A|B"},
    {"UAlone", 'U', none, "[AB]|", "[AB]|"},
    {"CtrlLWithoutASelection", 'L', ctrl, "a|b", "a|b"},
    {"DivideAlone", VK_DIVIDE, none, "[ab]|", "[ab]|"},
};

class EditKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(EditKeys, DoWhatTheirRowSays)
{
    const KeyCase& row = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"");
    GivenMarked(control, row.before);
    Press(control, row.key, row.held);
    EXPECT_EQ(Marked(control), row.after);
}

TEST_P(EditKeys, LeaveAReadOnlyTextAlone)
{
    const KeyCase& row = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"", readOnlyParams());
    GivenMarked(control, row.before);
    const std::wstring before = TextOf(control);
    Press(control, row.key, row.held);
    EXPECT_EQ(TextOf(control), before);
    if (row.key != VK_INSERT) {
        EXPECT_EQ(Marked(control), row.before);
    }
}

INSTANTIATE_TEST_SUITE_P(Each, EditKeys, testing::ValuesIn(edits), [](const auto& info) { return info.param.name; });

class Keys : public testing::Test {
protected:
    ControlHost host;
    HWND control = host.Show(L"");

    void given(std::string_view text) { GivenMarked(control, text); }
    void givenReadOnly(std::string_view text)
    {
        edDestroyCtrl(control);
        control = host.Show(L"", readOnlyParams());
        given(text);
    }
    std::string marked() const { return Marked(control); }
    bool inserting() const { return edGetMode(control, ED_MODE_INSERT) != 0; }
    int topLine() const
    {
        edPoint view{};
        edGetPosition(control, ED_POSITION_VIEWPORT, &view);
        return view.y;
    }
    std::string manyLines(int count) const
    {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "line " + std::to_string(i) + (i + 1 < count ? "\n" : "");
        return text;
    }
};

// ---- Rows that a marked text does not show whole

TEST_F(Keys, TheDialogCodeAsksForEverything)
{
    EXPECT_EQ(::SendMessageW(control, WM_GETDLGCODE, 0, 0), 0x86);
}

TEST_F(Keys, InsertFlipsTheModeAndBack)
{
    EXPECT_TRUE(inserting());
    Press(control, VK_INSERT);
    EXPECT_FALSE(inserting());
    given("|abc\nd");
    Type(control, L'x');
    EXPECT_EQ(marked(), "x|bc\nd");
    Press(control, VK_INSERT);
    EXPECT_TRUE(inserting());
}

TEST_F(Keys, CtrlInsertAndShiftInsertCopyAndPaste)
{
    given("a[bc]|d");
    Press(control, VK_INSERT, ctrl);
    given("x|y");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), "xbc|y");
    given("x[yz]|");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), "xbc|");
    EXPECT_TRUE(inserting());
}

TEST_F(Keys, CtrlShiftInsertDeletesTheSelectionAndPastesNothing)
{
    given("[bc]|d");
    Press(control, VK_INSERT, ctrl);
    given("x[y]|z");
    Press(control, VK_INSERT, ctrlShift);
    EXPECT_EQ(marked(), "x|z");
}

TEST_F(Keys, ShiftDeleteCuts)
{
    given("a[bc]|d");
    Press(control, VK_DELETE, shift);
    EXPECT_EQ(marked(), "a|d");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), "abc|d");
}

TEST_F(Keys, CtrlInsertEndsTheRedoChain)
{
    given("ab|");
    Type(control, L'c');
    edExecCommand(control, ED_COMMAND_UNDO);
    ASSERT_EQ(edCanExecCommand(control, ED_COMMAND_REDO), 1);
    Press(control, VK_INSERT, ctrl);
    EXPECT_EQ(edCanExecCommand(control, ED_COMMAND_REDO), 0);
}

TEST_F(Keys, OnAReadOnlyControlInsertIsTheLeftArrow)
{
    givenReadOnly("one two|");
    Press(control, VK_INSERT);
    EXPECT_EQ(marked(), "one tw|o");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), "one t|[w]o");
    Press(control, VK_INSERT, ctrl);
    EXPECT_EQ(marked(), "one t|wo");
    Press(control, VK_INSERT, ctrlShift);
    EXPECT_EQ(marked(), "one |[t]wo");
    EXPECT_TRUE(inserting());
}

TEST_F(Keys, TabIndentsTheLinesOfASelectionAndShiftTabTakesItBack)
{
    given("[ab\ncd]|\nef");
    Press(control, VK_TAB);
    EXPECT_EQ(TextOf(control), L"\tab\n\tcd\nef");
    Type(control, L'\t');  // the character that follows is dropped
    EXPECT_EQ(TextOf(control), L"\tab\n\tcd\nef");
    Press(control, VK_TAB, shift);
    EXPECT_EQ(TextOf(control), L"ab\ncd\nef");
    Type(control, L'\t', shift);
    EXPECT_EQ(TextOf(control), L"ab\ncd\nef");
}

TEST_F(Keys, ShiftTabWithoutASelectionUnindentsTheCaretsLine)
{
    given("\tab|c\nd");
    Press(control, VK_TAB, shift);
    EXPECT_EQ(TextOf(control), L"abc\nd");
}

TEST_F(Keys, TabAfterAOneLineSelectionIsTypedOverTheRestOfTheLine)
{
    given("a[b]|c\nd");
    Press(control, VK_TAB);
    EXPECT_EQ(TextOf(control), L"\tabc\nd");
    edPoint first{};
    EXPECT_EQ(edGetPosition(control, ED_POSITION_SELECTION_FIRST, &first), 1);
    Type(control, L'\t');  // goes on like any other character
    EXPECT_LT(edGetLineCount(control), 3u);
    EXPECT_EQ(edGetMode(control, ED_MODE_SELECTION), 0);
}

TEST_F(Keys, CtrlDivideCommentsAndWithShiftUncomments)
{
    given("[ab\ncd]|");
    Press(control, VK_DIVIDE, ctrl);
    EXPECT_EQ(TextOf(control), L"//ab\n//cd");
    Press(control, VK_DIVIDE, ctrlShift);
    EXPECT_EQ(TextOf(control), L"ab\ncd");
    given("a|b\ncd");
    Press(control, VK_DIVIDE, ctrl);  // with no selection the caret's line
    EXPECT_EQ(TextOf(control), L"//ab\ncd");
}

TEST_F(Keys, CtrlLAndCtrlSeparatorMakeOneStepOfUndoEach)
{
    for (const UINT key : {UINT{'L'}, UINT{VK_SEPARATOR}}) {
        given("[ab]|");
        Press(control, key, ctrl);  // the only layout here follows itself: the letters stay
        EXPECT_EQ(TextOf(control), L"ab");
        EXPECT_EQ(edExecCommand(control, ED_COMMAND_UNDO), 1);
        EXPECT_EQ(edExecCommand(control, ED_COMMAND_UNDO), 0);
    }
}

TEST_F(Keys, DownAcrossAShortLineKeepsTheCutColumn)
{
    given("long line|\nabc\nlonger line");
    Press(control, VK_DOWN);
    Press(control, VK_DOWN);
    EXPECT_EQ(marked(), "long line\nabc\nlon|ger line");
}

TEST_F(Keys, PagesMoveTheViewAndTheCaretAlike)
{
    given(manyLines(500));
    RECT client{};
    ::GetClientRect(control, &client);
    const int page = client.bottom / 15;
    edSetCaretPosition(control, 3, 2);
    Press(control, VK_NEXT);
    edPoint caret{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(topLine(), page);
    EXPECT_EQ(caret.y, 3 + page);
    EXPECT_EQ(caret.x, 2);
    Press(control, VK_PRIOR);
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(topLine(), 0);
    EXPECT_EQ(caret.y, 3);
}

TEST_F(Keys, PageDownAtTheEndOfTheScrollRangeGoesToTheEndOfTheText)
{
    given(manyLines(100));
    edSetCaretPosition(control, 90, 0);
    edSetScrollPosition(control, 99, -1);
    Press(control, VK_NEXT);
    edPoint caret{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(caret.y, 99);
    EXPECT_EQ(caret.x, 7);
}

TEST_F(Keys, ShiftPageDownInsideASelectionLosesItsLastCharacter)
{
    // The caret at the first of a selection that reaches beyond the page: its end is the last character, not behind it.
    given(manyLines(200));
    edSetCaretPosition(control, 150, 3);
    edSetCaretPositionAdv(control, 0, 0, ED_CARET_REDRAW | ED_CARET_FOCUS | ED_CARET_SELECT);
    edPoint before{};
    edPoint after{};
    edGetPosition(control, ED_POSITION_SELECTION_LAST, &before);
    Press(control, VK_NEXT, shift);
    edGetPosition(control, ED_POSITION_SELECTION_LAST, &after);
    EXPECT_EQ(after.y, before.y);
    EXPECT_EQ(after.x, before.x - 1);
}

TEST_F(Keys, APageKeyLeavesTheSamePictureAsAFullRepaint)
{
    given(manyLines(500));
    edSetCaretPosition(control, 3, 2);
    for (const unsigned held : {unsigned{none}, unsigned{shift}}) {
        for (const UINT key : {VK_NEXT, VK_NEXT, VK_PRIOR, VK_PRIOR, VK_PRIOR}) {
            Press(control, key, held);
            EXPECT_FALSE(::GetUpdateRect(control, nullptr, FALSE));
            const Picture pressed(control);
            ::InvalidateRect(control, nullptr, TRUE);
            ::UpdateWindow(control);
            EXPECT_EQ(pressed.Difference(Picture(control)), "");
        }
    }
}

// Only where the table says so: a host learns of the other moves by asking.
TEST_F(Keys, TheHostIsToldOfTheMovesThatTheTableNames)
{
    const struct {
        UINT key;
        unsigned held;
        std::size_t told;
    } rows[] = {
        {VK_LEFT, none, 1}, {VK_RIGHT, none, 1}, {VK_UP, none, 1},    {VK_DOWN, none, 1},  {VK_HOME, none, 1},
        {VK_END, none, 1},  {VK_HOME, ctrl, 1},  {VK_END, ctrl, 1},   {VK_LEFT, ctrl, 0},  {VK_RIGHT, ctrl, 0},
        {VK_LEFT, shift, 0}, {VK_DOWN, shift, 0}, {VK_PRIOR, none, 0}, {VK_NEXT, none, 0}, {'A', none, 0},
    };
    for (const auto& row : rows) {
        given("one two\nthr|ee four\nfive");
        host.Forget();
        Press(control, row.key, row.held);
        EXPECT_EQ(host.Count(ED_NOTIFY_CARET), row.told) << row.key << " " << row.held;
    }
}

TEST_F(Keys, ASystemWindowWithoutTheFocusKeepsItOnPlainMoves)
{
    given("a\nb|");
    ::SetFocus(host.Window());
    Press(control, VK_LEFT);
    EXPECT_EQ(::GetFocus(), host.Window());
    Press(control, VK_HOME, ctrl);  // this one takes it
    EXPECT_EQ(::GetFocus(), control);
}

// ---- Typing

struct CharCase {
    const char* name;
    wchar_t ch;
    unsigned held;
    const char* before;
    const char* after;
};

std::ostream& operator<<(std::ostream& out, const CharCase& row) { return out << row.name; }

const CharCase characters[] = {
    {"ALetter", L'x', none, "a|b", "ax|b"},
    {"ALetterWithShift", L'X', shift, "a|b", "aX|b"},
    {"ALetterOverASelection", L'x', none, "a[bc]|d", "ax|d"},
    {"Enter", L'\r', none, "a|b", "a\n|b"},
    {"EnterOverASelection", L'\r', none, "a[bc]|d", "a\n|d"},
    {"Backspace", L'\b', none, "ab|c", "a|c"},
    {"BackspaceWithASelectionOnlyRemovesIt", L'\b', none, "a[bc]|d", "a|d"},
    {"BackspaceAtTheStart", L'\b', none, "|ab", "|ab"},
    {"Tab", L'\t', none, "a|b", "a\t|b"},
    {"TabWithShift", L'\t', shift, "a|b", "a|b"},
    {"TabWithASelectionOverLines", L'\t', none, "[a\nb]|", "[a\nb]|"},
    {"TabWithASelectionInALine", L'\t', none, "a[b]|c", "a\t|c"},
    {"Escape", 27, none, "a[b]|c", "a[b]|c"},
    {"ControlAlone", 1, ctrl, "a|b", "a|b"},
    {"ControlWithAnyLetter", L'x', ctrl, "a|b", "a|b"},
    {"ControlWithAlt", L'@', ctrl | alt, "a|b", "a@|b"},
};

class Typing : public testing::TestWithParam<CharCase> {};

TEST_P(Typing, DoesWhatTheCharacterMeans)
{
    const CharCase& row = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"");
    GivenMarked(control, row.before);
    Type(control, row.ch, row.held);
    EXPECT_EQ(Marked(control), row.after);
}

TEST_P(Typing, IsIgnoredByAReadOnlyControl)
{
    const CharCase& row = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"", readOnlyParams());
    GivenMarked(control, row.before);
    host.Forget();
    Type(control, row.ch, row.held);
    EXPECT_EQ(Marked(control), row.before);
    EXPECT_EQ(host.Count(ED_NOTIFY_CARET), 0u);
}

INSTANTIATE_TEST_SUITE_P(Each, Typing, testing::ValuesIn(characters), [](const auto& info) { return info.param.name; });

TEST_F(Keys, TypingTellsTheHostOfEachChange)
{
    given("ab|\nc");
    host.Forget();
    Type(control, L'x');
    ASSERT_EQ(host.Count(ED_NOTIFY_CARET), 1u);
    EXPECT_EQ(host.Of(ED_NOTIFY_CARET)[0], (ControlHost::Message{ED_NOTIFY_CARET, 1, MAKELPARAM(0, 3)}));
}

TEST_F(Keys, TypingOverASelectionIsTwoSteps)
{
    given("a[b]|c");
    Type(control, L'x');
    edExecCommand(control, ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"ac");
    edExecCommand(control, ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"abc");
}

TEST_F(Keys, EscapeStillScrollsTheCaretIntoView)
{
    given(manyLines(300));
    edSetCaretPosition(control, 100, 0);
    edSetScrollPosition(control, 0, -1);
    ::UpdateWindow(control);
    Type(control, 27);
    EXPECT_LE(topLine(), 100);
    EXPECT_GT(topLine(), 0);
}

TEST_F(Keys, CyrillicIsTyped)
{
    given("|");
    Type(control, L"Жя№");
    EXPECT_EQ(TextOf(control), L"Жя№");
}

TEST_F(Keys, TheViewFollowsTypingBeyondItsRightEdge)
{
    given("|");
    Type(control, std::wstring(200, L'w'));
    edPoint view{};
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    EXPECT_GT(view.x, 0);
}

TEST_F(Keys, TypingPaintsTheCaretsRowAloneAndOnce)
{
    std::vector<std::wstring> asked;
    edHighlightHook hook{[](void* ctx, wchar_t* text, int) {
                             static_cast<std::vector<std::wstring>*>(ctx)->push_back(text);
                         },
                         &asked};
    edCreateParams params{};
    params.highlightHook = &hook;
    edDestroyCtrl(control);
    control = host.Show(L"one\ntwo\nthree\nfour", params);
    edSetCaretPosition(control, 2, 5);
    Pump();
    asked.clear();
    Press(control, 'X');
    Type(control, L'x');
    EXPECT_LE(asked.size(), 3u);  // drawn once, and measured for the caret
    for (const std::wstring& line : asked)
        EXPECT_EQ(line, L"threex");
    EXPECT_FALSE(::GetUpdateRect(control, nullptr, FALSE));
}

TEST_F(Keys, TypingShowsTheSamePictureAsAFullRepaint)
{
    given("    one\n    two /* three\n    four\n*/ five|\nsix");
    for (const wchar_t ch : std::wstring(L"ab\r\b*/\b\b/*\t;")) {
        Type(control, ch);
        Pump();
        const Picture typed(control);
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
        EXPECT_EQ(typed.Difference(Picture(control)), "") << static_cast<int>(ch);
    }
}

// ---- Keys of Alt

struct AltCase {
    UINT key;
    char plain;
    char shifted;
};

const AltCase altCases[] = {
    {'2', '@', 0},          {'3', '#', 0},          {'4', '$', 0},         {'6', '^', 0},
    {'7', '&', 0},          {VK_OEM_1, ';', ':'},   {VK_OEM_COMMA, '<', ','}, {VK_OEM_PERIOD, '>', '.'},
    {VK_OEM_3, '`', '~'},   {VK_OEM_4, '[', '{'},   {VK_OEM_6, ']', '}'},  {VK_OEM_7, '"', '\''},
    {'5', 0, 0},            {'1', 0, 0},            {VK_OEM_5, 0, 0},
};

class AltKeys : public testing::TestWithParam<AltCase> {};

TEST_P(AltKeys, TypeTheirCharacter)
{
    const auto [key, plain, shifted] = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"");
    const auto expect = [&](unsigned held, char ch) {
        edLoadText(control, L"ab", 0xFFFFFFFF);
        edSetCaretPosition(control, 0, 1);
        PressWithAlt(control, key, held);
        const std::wstring typed = ch ? std::wstring(1, static_cast<wchar_t>(ch)) : L"";
        EXPECT_EQ(TextOf(control), L"a" + typed + L"b") << held;
    };
    expect(none, plain);
    expect(shift, shifted);
    expect(ctrl, 0);
    expect(ctrlShift, 0);
}

TEST_P(AltKeys, TypeNothingOnAReadOnlyControl)
{
    ControlHost host;
    const HWND control = host.Show(L"ab", readOnlyParams());
    PressWithAlt(control, GetParam().key);
    PressWithAlt(control, GetParam().key, shift);
    EXPECT_EQ(TextOf(control), L"ab");
}

INSTANTIATE_TEST_SUITE_P(Each, AltKeys, testing::ValuesIn(altCases),
                         [](const auto& info) { return "Key" + std::to_string(info.param.key); });

TEST_F(Keys, AnAltCharacterLeavesTheSelectedTextInPlace)
{
    given("a[bc]|d");
    PressWithAlt(control, '2');
    EXPECT_EQ(TextOf(control), L"abc@d");
}

TEST_F(Keys, ASystemCharacterIsSwallowed)
{
    given("a|b");
    EXPECT_EQ(::SendMessageW(control, WM_SYSCHAR, L'x', 0x20000001), 0);
    EXPECT_EQ(marked(), "a|b");
}

// ---- Real input

TEST_F(Keys, RealKeysReachTheControl)
{
    given("one two|");
    ::SetForegroundWindow(host.Window());
    ::SetFocus(control);
    Pump(50);
    RealKey('X');
    EXPECT_EQ(TextOf(control), L"one twox");
    RealKey(VK_BACK);
    RealKey(VK_LEFT, {VK_CONTROL});
    EXPECT_EQ(marked(), "one |two");
    RealKey(VK_END, {VK_SHIFT});
    EXPECT_EQ(marked(), "one [two]|");
    RealKey(VK_INSERT, {VK_CONTROL});
    RealKey(VK_HOME);
    RealKey(VK_INSERT, {VK_SHIFT});
    EXPECT_EQ(marked(), "two|one two");
    RealKey(VK_RETURN);
    EXPECT_EQ(marked(), "two\n|one two");
    RealKey('2', {VK_MENU});
    EXPECT_EQ(marked(), "two\n@|one two");
    RealKey(VK_DELETE);
    RealKey('U', {VK_CONTROL});
    EXPECT_EQ(marked(), "two\n@|ne two");
}

}  // namespace
