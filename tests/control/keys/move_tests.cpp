// The keys that move the caret: the same on a read-only control.

#include "tests/control/keys/KeysFixture.h"

namespace {

using namespace keys;

const KeyCase moves[] = {
    {"Shift", VK_SHIFT, shift, L"a|b", L"a|b"},
    {"Control", VK_CONTROL, ctrl, L"a|b", L"a|b"},
    {"Alt", VK_MENU, none, L"a|b", L"a|b"},
    {"Left", VK_LEFT, none, L"ab|c", L"a|bc"},
    {"LeftAtALinesStart", VK_LEFT, none, L"ab\n|cd", L"ab|\ncd"},
    {"LeftAtTheStart", VK_LEFT, none, L"|ab", L"|ab"},
    {"LeftOnASelectionGoesToItsFirstAndNoFurther", VK_LEFT, none, L"a[bc]|d", L"a|bcd"},
    {"ShiftLeft", VK_LEFT, shift, L"ab|c", L"a|[b]c"},
    {"ShiftLeftGrows", VK_LEFT, shift, L"ab|[c]", L"a|[bc]"},
    {"CtrlLeft", VK_LEFT, ctrl, L"one two|", L"one |two"},
    {"CtrlLeftAtALinesStartStopsBeforeTheLastCharacterAbove", VK_LEFT, ctrl, L"abc\n|x", L"ab|c\nx"},
    {"CtrlLeftBelowAnEmptyLine", VK_LEFT, ctrl, L"\n|x", L"|\nx"},
    {"CtrlLeftOnASelection", VK_LEFT, ctrl, L"one [two]|", L"one |two"},
    {"CtrlShiftLeft", VK_LEFT, ctrlShift, L"one two|", L"one |[two]"},
    {"CtrlShiftLeftGrows", VK_LEFT, ctrlShift, L"one |[two]", L"|[one two]"},
    {"CtrlShiftLeftFromTheOtherEnd", VK_LEFT, ctrlShift, L"[one two]|", L"[one ]|two"},
    {"Right", VK_RIGHT, none, L"a|bc", L"ab|c"},
    {"RightAtALinesEnd", VK_RIGHT, none, L"ab|\ncd", L"ab\n|cd"},
    {"RightAtTheEnd", VK_RIGHT, none, L"ab|", L"ab|"},
    {"RightOnASelectionGoesBehindIt", VK_RIGHT, none, L"a|[bc]d", L"abc|d"},
    {"ShiftRight", VK_RIGHT, shift, L"a|bc", L"a[b]|c"},
    {"CtrlRight", VK_RIGHT, ctrl, L"|one two", L"one |two"},
    {"CtrlRightAtALinesEnd", VK_RIGHT, ctrl, L"one|\ntwo", L"one\n|two"},
    {"CtrlRightAtTheEnd", VK_RIGHT, ctrl, L"one|", L"one|"},
    {"CtrlRightOnASelectionGoesToItsLastCharacter", VK_RIGHT, ctrl, L"a|[bc]d", L"ab|cd"},
    {"CtrlShiftRight", VK_RIGHT, ctrlShift, L"|one two", L"[one ]|two"},
    {"CtrlShiftRightGrows", VK_RIGHT, ctrlShift, L"[one ]|two", L"[one two]|"},
    {"CtrlShiftRightFromTheOtherEnd", VK_RIGHT, ctrlShift, L"|[one two]", L"one |[two]"},
    {"Up", VK_UP, none, L"abc\nd|e", L"a|bc\nde"},
    {"UpAtTheFirstLine", VK_UP, none, L"a|bc", L"a|bc"},
    {"UpClearsASelection", VK_UP, none, L"abc\nd[e]|", L"ab|c\nde"},
    {"ShiftUp", VK_UP, shift, L"abc\nd|e", L"a|[bc\nd]e"},
    {"CtrlUpDoesNothing", VK_UP, ctrl, L"abc\nd|e", L"abc\nd|e"},
    {"CtrlShiftUpDoesNothing", VK_UP, ctrlShift, L"abc\nd|e", L"abc\nd|e"},
    {"Down", VK_DOWN, none, L"a|bc\nde", L"abc\nd|e"},
    {"DownAtTheLastLine", VK_DOWN, none, L"a|bc", L"a|bc"},
    {"DownClearsASelection", VK_DOWN, none, L"a|[b]c\nde", L"abc\nd|e"},
    {"ShiftDown", VK_DOWN, shift, L"a|bc\nde", L"a[bc\nd]|e"},
    {"CtrlDownDoesNothing", VK_DOWN, ctrl, L"a|bc\nde", L"a|bc\nde"},
    {"CtrlShiftDownDoesNothing", VK_DOWN, ctrlShift, L"a|bc\nde", L"a|bc\nde"},
    {"Home", VK_HOME, none, L"    a|b", L"    |ab"},
    {"HomeFromTheFirstCharacter", VK_HOME, none, L"    |ab", L"|    ab"},
    {"HomeFromWithinTheBlanks", VK_HOME, none, L"  |  ab", L"|    ab"},
    {"HomeAtColumnZero", VK_HOME, none, L"|    ab", L"|    ab"},
    {"HomeClearsASelection", VK_HOME, none, L"  a[b]|", L"  |ab"},
    {"ShiftHome", VK_HOME, shift, L"  ab|c", L"  |[ab]c"},
    {"ShiftHomeGrows", VK_HOME, shift, L"  a|[b]c", L"  |[ab]c"},
    {"ShiftHomeTurnsTheSelectionOver", VK_HOME, shift, L"  ab[c]|d", L"  |[ab]cd"},
    {"ShiftHomeShortensOneOverLines", VK_HOME, shift, L"a[b\n  cd]|", L"a[b\n  ]|cd"},
    {"CtrlHome", VK_HOME, ctrl, L"a\nb|", L"|a\nb"},
    {"CtrlHomeClearsASelection", VK_HOME, ctrl, L"a\n[b]|", L"|a\nb"},
    {"CtrlShiftHome", VK_HOME, ctrlShift, L"a\nb|c", L"|[a\nb]c"},
    {"CtrlShiftHomeStartsANewSelection", VK_HOME, ctrlShift, L"a\nb[c]|d", L"|[a\nbc]d"},
    {"End", VK_END, none, L"a|bc", L"abc|"},
    {"EndClearsASelection", VK_END, none, L"a|[b]c", L"abc|"},
    {"ShiftEnd", VK_END, shift, L"a|bc", L"a[bc]|"},
    {"ShiftEndGrows", VK_END, shift, L"a[b]|c", L"a[bc]|"},
    {"ShiftEndFromTheFirst", VK_END, shift, L"a|[b\nc]d", L"ab|[\nc]d"},
    {"CtrlEnd", VK_END, ctrl, L"|a\nbc", L"a\nbc|"},
    {"CtrlShiftEnd", VK_END, ctrlShift, L"|a\nbc", L"[a\nbc]|"},
    {"PageUpAtTheTopGoesToTheStart", VK_PRIOR, none, L"ab\nc|d", L"|ab\ncd"},
    {"PageUpClearsASelection", VK_PRIOR, none, L"ab\nc[d]|", L"|ab\ncd"},
    {"ShiftPageUp", VK_PRIOR, shift, L"ab\nc|d", L"|[ab\nc]d"},
    {"ShiftPageUpGrows", VK_PRIOR, shift, L"ab\n|[cd]", L"|[ab\ncd]"},
    {"ShiftPageUpFromTheEndOfASelection", VK_PRIOR, shift, L"ab\nc[d]|", L"|[ab\nc]d"},
    {"CtrlPageUpDoesNothing", VK_PRIOR, ctrl, L"ab\nc|d", L"ab\nc|d"},
    {"PageDownAtTheEndGoesToTheEnd", VK_NEXT, none, L"a|b", L"ab|"},
    {"PageDownClearsASelection", VK_NEXT, none, L"|[a]b", L"ab|"},
    {"ShiftPageDown", VK_NEXT, shift, L"a|b", L"a[b]|"},
    {"ShiftPageDownGrows", VK_NEXT, shift, L"[a]|b", L"[ab]|"},
    {"CtrlPageDownDoesNothing", VK_NEXT, ctrl, L"a|b", L"a|b"},
    {"AnyOtherKey", 'A', none, L"a|[b]c", L"a|[b]c"},
    {"AnyOtherKeyWithShift", VK_F5, shift, L"a|[b]c", L"a|[b]c"},
    {"AnyOtherKeyWithCtrl", 'Z', ctrl, L"a|[b]c", L"a|[b]c"},
    {"AnyOtherKeyWithBoth", VK_ESCAPE, ctrlShift, L"a|[b]c", L"a|[b]c"},
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

TEST_F(Keys, OnAReadOnlyControlInsertIsTheLeftArrow)
{
    givenReadOnly(L"one two|");
    Press(control, VK_INSERT);
    EXPECT_EQ(marked(), L"one tw|o");
    Press(control, VK_INSERT, shift);
    EXPECT_EQ(marked(), L"one t|[w]o");
    Press(control, VK_INSERT, ctrl);
    EXPECT_EQ(marked(), L"one t|wo");
    Press(control, VK_INSERT, ctrlShift);
    EXPECT_EQ(marked(), L"one |[t]wo");
    EXPECT_TRUE(inserting());
}

TEST_F(Keys, DownAcrossAShortLineKeepsTheCutColumn)
{
    given(L"long line|\nabc\nlonger line");
    Press(control, VK_DOWN);
    Press(control, VK_DOWN);
    EXPECT_EQ(marked(), L"long line\nabc\nlon|ger line");
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
        given(L"one two\nthr|ee four\nfive");
        host.Forget();
        Press(control, row.key, row.held);
        EXPECT_EQ(host.Count(ED_NOTIFY_CARET), row.told) << row.key << " " << row.held;
    }
}

TEST_F(Keys, ASystemWindowWithoutTheFocusKeepsItOnPlainMoves)
{
    given(L"a\nb|");
    ::SetFocus(host.Window());
    Press(control, VK_LEFT);
    EXPECT_EQ(::GetFocus(), host.Window());
    Press(control, VK_HOME, ctrl);  // this one takes it
    EXPECT_EQ(::GetFocus(), control);
}

}  // namespace
