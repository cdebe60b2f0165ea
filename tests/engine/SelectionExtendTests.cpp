#include "tests/support/EditingFixture.h"

namespace {

constexpr int left = 0;
constexpr int right = 1;
constexpr int up = 2;
constexpr int down = 3;

// One row of the table a case or two: what is given, a step, and what comes of it.
struct xTExtendCase {
    const char* name;
    const char* given;
    int direction;
    const char* expected;
};

void PrintTo(const xTExtendCase& row, std::ostream* stream)
{
    *stream << row.name;
}

class SelectionExtension : public xTEditingFixture, public testing::WithParamInterface<xTExtendCase> {};

TEST_P(SelectionExtension, FollowsTheCaret)
{
    given(GetParam().given);
    store.extend_selection(GetParam().direction);
    EXPECT_EQ(marked(), Shown(W(GetParam().expected)));
    EXPECT_EQ(window.caretLines, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SelectionExtension,
    testing::Values(
        xTExtendCase{"LeftStartsASelection", "ab|c", left, "a|[b]c"},
        xTExtendCase{"LeftStartsOnTheBreakBefore", "ab\n|c", left, "ab|[\n]c"},
        xTExtendCase{"LeftInsideCutsTheEnd", "a[bcd|ef]g", left, "a[bc]|defg"},
        xTExtendCase{"LeftInsideOntoTheStartClears", "a[b|cd]e", left, "a|bcde"},
        xTExtendCase{"LeftFromTheEndShrinks", "a[bcd]|e", left, "a[bc]|de"},
        xTExtendCase{"LeftFromTheEndOfOneCharacterClears", "a[b]|c", left, "a|bc"},
        xTExtendCase{"LeftFromFartherBehindTheEndGrowsToTheCaret", "a[b]cd|e", left, "a[bc]|de"},
        xTExtendCase{"LeftFromTheStartGrows", "ab|[c]d", left, "a|[bc]d"},
        xTExtendCase{"RightStartsASelection", "a|bc", right, "a[b]|c"},
        xTExtendCase{"RightStartsOnABreak", "a|\nbc", right, "a[\n]|bc"},
        xTExtendCase{"RightFromTheStartShrinks", "a|[bcd]e", right, "ab|[cd]e"},
        xTExtendCase{"RightFromTheStartOfOneCharacterClears", "a|[b]c", right, "ab|c"},
        xTExtendCase{"RightInsideCutsTheStart", "a[b|cdef]g", right, "abc|[def]g"},
        xTExtendCase{"RightInsideOntoTheLastClears", "a[bc|de]f", right, "abcd|ef"},
        xTExtendCase{"RightFromTheEndGrows", "a[b]|cd", right, "a[bc]|d"},
        xTExtendCase{"UpStartsASelection", "abc\nde|f", up, "ab|[c\nde]f"},
        xTExtendCase{"UpFromTheEndShrinks", "a[bc\ndef\ng]|hi", up, "a[bc\nd]|ef\nghi"},
        xTExtendCase{"UpFromTheEndTurnsTheSelectionOver", "abc\nd[e]|f", up, "ab|[c\nd]ef"},
        xTExtendCase{"UpFromFartherBehindTheEndGrowsToTheCaret", "a[b]cd\nefgh|", up, "a[bcd]|\nefgh"},
        xTExtendCase{"UpFromTheStartGrows", "abc\nd|[ef]g", up, "a|[bc\ndef]g"},
        xTExtendCase{"UpFromTheStartOfOneCharacterCountsAsFromItsEnd", "abc\nd|[e]f", up, "a|[bc\nd]ef"},
        xTExtendCase{"UpInsideCutsTheEnd", "a[bc\ndef\ng|h]i", up, "a[bc\nd]|ef\nghi"},
        xTExtendCase{"UpInsidePastTheStartClears", "abc\n[d|efg]h", up, "a|bc\ndefgh"},
        xTExtendCase{"DownStartsASelection", "a|bc\ndef", down, "a[bc\nd]|ef"},
        xTExtendCase{"DownOnTheLastLineGoesToTheEnd", "ab\nc|def", down, "ab\nc[def]|"},
        xTExtendCase{"DownFromTheEndGrows", "a[b]|c\ndef", down, "a[bc\nde]|f"},
        xTExtendCase{"DownInsideTakesThePlaceBeforeTheCaret", "a[b|c\ndef\ngh]i", down, "abc\nd[e|f\ngh]i"},
        xTExtendCase{"DownInsidePastTheEndClears", "a[b|cd]\ndefg", down, "abcd\nde|fg"},
        xTExtendCase{"DownFromTheStartShrinks", "|[abc\ndef\ng]hi", down, "abc\n|[def\ng]hi"},
        xTExtendCase{"DownFromTheStartTurnsTheSelectionOver", "a|[bc]d\nefgh", down, "abc[d\ne]|fgh"},
        xTExtendCase{"DownFromTheStartOfOneCharacterCountsAsFromItsEnd", "a|[b]c\ndef", down, "a[bc\nd]|ef"}),
    [](const auto& info) { return std::string(info.param.name); });

class SelectionEnds : public xTEditingFixture {};

TEST_F(SelectionEnds, LeftAtTheVeryStartSelectsNothing)
{
    given("|ab");
    store.extend_selection(left);
    EXPECT_EQ(store.first(), xTPos(0, 0));
    EXPECT_EQ(store.last(), xTPos(0, -1));
}

TEST_F(SelectionEnds, WithoutAWindowNothingHappens)
{
    given("a|b");
    store.wnd = nullptr;
    store.extend_selection(right);
    EXPECT_EQ(marked(), "a|b");
}

TEST_F(SelectionEnds, AnUnknownDirectionDoesNothing)
{
    given("a|b");
    store.extend_selection(4);
    store.extend_selection(-1);
    EXPECT_EQ(marked(), "a|b");
}

TEST_F(SelectionEnds, AWalkToTheRightAndBackLeavesNoSelection)
{
    given("a|b\ncd");
    for (int i = 0; i < 4; ++i)
        store.extend_selection(right);
    EXPECT_EQ(marked(), "a[b\\ncd]|");
    for (int i = 0; i < 4; ++i)
        store.extend_selection(left);
    EXPECT_EQ(marked(), "a|b\\ncd");
}

TEST_F(SelectionEnds, OnAStoreWithoutLinesNothingBreaks)
{
    store.reset();
    for (int direction = left; direction <= down; ++direction)
        store.extend_selection(direction);
    EXPECT_EQ(store.caret, xTPos(0, 0));
}

}  // namespace
