// The keys that change the text: on a read-only control they do nothing.

#include "tests/control/keys/KeysFixture.h"

namespace {

using namespace keys;

const KeyCase edits[] = {
    {"TabWithoutASelectionWaitsForItsCharacter", VK_TAB, none, L"a|b", L"a|b"},
    {"CtrlTabDoesNothing", VK_TAB, ctrl, L"a|[b]", L"a|[b]"},
    {"Delete", VK_DELETE, none, L"a|bc", L"a|c"},
    {"DeleteASelection", VK_DELETE, none, L"a[bc]|d", L"a|d"},
    {"DeleteAtALinesEnd", VK_DELETE, none, L"a|\nb", L"a|b"},
    {"CtrlDelete", VK_DELETE, ctrl, L"a|bc", L"a|c"},
    {"ShiftDeleteWithoutASelection", VK_DELETE, shift, L"a|bc", L"a|c"},
    {"ShiftDeleteASelection", VK_DELETE, shift, L"a[bc]|d", L"a|d"},
    {"CtrlShiftDelete", VK_DELETE, ctrlShift, L"a[bc]|d", L"a|d"},
    {"InsertAlone", VK_INSERT, none, L"a|b", L"a|b"},
    {"InsertAloneDeletesASelection", VK_INSERT, none, L"a[b]|c", L"a|c"},
    {"CtrlInsert", VK_INSERT, ctrl, L"a[b]|c", L"a[b]|c"},
    {"CtrlULowers", 'U', ctrl, L"[AbC]|d", L"[abc]|d"},
    {"CtrlShiftURaises", 'U', ctrlShift, L"[AbC]|d", L"[ABC]|d"},
    {"CtrlF6ActsAsCtrlU", VK_F6, ctrl, L"[AbC]|d", L"[abc]|d"},
    {"CtrlShiftF6ActsAsCtrlShiftU", VK_F6, ctrlShift, L"[AbC]|d", L"[ABC]|d"},
    {"CtrlUWithoutASelection", 'U', ctrl, L"A|B", L"A|B"},
    {"UAlone", 'U', none, L"[AB]|", L"[AB]|"},
    {"CtrlLWithoutASelection", 'L', ctrl, L"a|b", L"a|b"},
    {"DivideAlone", VK_DIVIDE, none, L"[ab]|", L"[ab]|"},
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
    given(L"|abc\nd");
    Type(control, L'x');
    EXPECT_EQ(marked(), L"x|bc\nd");
    Press(control, VK_INSERT);
    EXPECT_TRUE(inserting());
}

TEST_F(Keys, CtrlInsertAndShiftInsertCopyAndPaste)
{
    given(L"a[bc]|d");
    Press(control, VK_INSERT, ctrl);
    given(L"x|y");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), L"xbc|y");
    given(L"x[yz]|");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), L"xbc|");
    EXPECT_TRUE(inserting());
}

TEST_F(Keys, CtrlShiftInsertDeletesTheSelectionAndPastesNothing)
{
    given(L"[bc]|d");
    Press(control, VK_INSERT, ctrl);
    given(L"x[y]|z");
    Press(control, VK_INSERT, ctrlShift);
    EXPECT_EQ(marked(), L"x|z");
}

TEST_F(Keys, ShiftDeleteCuts)
{
    given(L"a[bc]|d");
    Press(control, VK_DELETE, shift);
    EXPECT_EQ(marked(), L"a|d");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), L"abc|d");
}

TEST_F(Keys, CtrlInsertEndsTheRedoChain)
{
    given(L"ab|");
    Type(control, L'c');
    edExecCommand(control, ED_COMMAND_UNDO);
    ASSERT_EQ(edCanExecCommand(control, ED_COMMAND_REDO), 1);
    Press(control, VK_INSERT, ctrl);
    EXPECT_EQ(edCanExecCommand(control, ED_COMMAND_REDO), 0);
}

TEST_F(Keys, TabIndentsTheLinesOfASelectionAndShiftTabTakesItBack)
{
    given(L"[ab\ncd]|\nef");
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
    given(L"\tab|c\nd");
    Press(control, VK_TAB, shift);
    EXPECT_EQ(TextOf(control), L"abc\nd");
}

TEST_F(Keys, TabAfterAOneLineSelectionIsTypedOverTheRestOfTheLine)
{
    given(L"a[b]|c\nd");
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
    given(L"[ab\ncd]|");
    Press(control, VK_DIVIDE, ctrl);
    EXPECT_EQ(TextOf(control), L"//ab\n//cd");
    Press(control, VK_DIVIDE, ctrlShift);
    EXPECT_EQ(TextOf(control), L"ab\ncd");
    given(L"a|b\ncd");
    Press(control, VK_DIVIDE, ctrl);  // with no selection the caret's line
    EXPECT_EQ(TextOf(control), L"//ab\ncd");
}

TEST_F(Keys, CtrlLAndCtrlSeparatorMakeOneStepOfUndoEach)
{
    for (const UINT key : {UINT{'L'}, UINT{VK_SEPARATOR}}) {
        given(L"[ab]|");
        Press(control, key, ctrl);  // the only layout here follows itself: the letters stay
        EXPECT_EQ(TextOf(control), L"ab");
        EXPECT_EQ(edExecCommand(control, ED_COMMAND_UNDO), 1);
        EXPECT_EQ(edExecCommand(control, ED_COMMAND_UNDO), 0);
    }
}

}  // namespace
