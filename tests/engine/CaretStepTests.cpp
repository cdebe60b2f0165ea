// Where the caret keys lead, and what becomes of the selection: with the caret in all places, also within a selection.

#include "editing/CaretSteps.h"
#include "tests/support/EditingFixture.h"

namespace {

struct StepCase {
    const char* name;
    void (*step)(xTMemStorage&, bool shift);
    bool shift;
    const char* before;
    const char* after;
};

std::ostream& operator<<(std::ostream& out, const StepCase& row) { return out << row.name; }

const StepCase stepCases[] = {
    {"WordLeftSkipsBlanks", WordLeft, false, "foo  |bar", "|foo  bar"},
    {"WordLeftAtTheStart", WordLeft, false, "|foo", "|foo"},
    {"WordLeftToAnEmptyLine", WordLeft, false, "a\n\n|b", "a\n|\nb"},
    {"WordLeftFromTheSecondLine", WordLeft, false, "ab\n|cd", "a|b\ncd"},
    {"WordLeftWithinASelection", WordLeft, true, "[one two| x]", "[one ]|two x"},
    {"WordLeftFromTheFirst", WordLeft, true, "one |[two]", "|[one two]"},
    {"WordLeftStartsASelection", WordLeft, true, "one two|", "one |[two]"},
    {"WordLeftLeavesASelectionToItsFirst", WordLeft, false, "a [bc d]|e", "a |bc de"},
    {"WordRightOverSymbols", WordRight, false, "|==x", "==|x"},
    {"WordRightBelowTheLastLine", WordRight, false, "ab|", "ab|"},
    {"WordRightWithinASelection", WordRight, true, "[a |b c]d", "a b |[c]d"},
    {"WordRightFromTheFirst", WordRight, true, "|[one two]", "one |[two]"},
    {"WordRightStartsASelection", WordRight, true, "|one two", "[one ]|two"},
    {"WordRightFromBehindTheLastGrows", WordRight, true, "[one ]|two", "[one two]|"},
    {"WordRightAcrossALineEnd", WordRight, false, "ab|\ncd", "ab\n|cd"},
    {"WordRightLeavesASelectionToItsLast", WordRight, false, "[one]| two", "on|e two"},
    {"HomeWithinASelectionClearsIt", HomeStep, true, "[a |b c]d", "|a b cd"},
    {"HomeFromTheFirst", HomeStep, true, "ab |[c]d", "|[ab c]d"},
    {"HomeStartsASelection", HomeStep, true, "  abc|d", "  |[abc]d"},
    {"HomeFromBehindTheLastTurnsTheSelectionOver", HomeStep, true, "ab[cd]|ef", "|[ab]cdef"},
    {"HomeFromBehindTheLastOverLinesShrinks", HomeStep, true, "a[b\n  cd]|e", "a[b\n  ]|cde"},
    {"HomeWithoutShiftClears", HomeStep, false, "  [ab]|c", "  |abc"},
    {"EndWithinASelectionClearsIt", EndStep, true, "[a |b c]d", "a b cd|"},
    {"EndFromTheLast", EndStep, true, "a[b]|cd", "a[bcd]|"},
    {"EndStartsASelection", EndStep, true, "a|bcd\ne", "a[bcd]|\ne"},
    {"EndWithoutShiftClears", EndStep, false, "a[b]|cd", "abcd|"},
    {"EndFromTheFirstOverLines", EndStep, true, "a|[b\nc]d", "ab|[\nc]d"},
};

class CaretSteps : public xTEditingFixture, public testing::WithParamInterface<StepCase> {};

TEST_P(CaretSteps, LeadWhereTheyShould)
{
    const StepCase& row = GetParam();
    given(row.before);
    row.step(store, row.shift);
    std::string expected;
    for (const char* ch = row.after; *ch; ++ch)
        *ch == '\n' ? expected += "\\n" : expected += *ch;
    EXPECT_EQ(marked(), expected);
}

INSTANTIATE_TEST_SUITE_P(Each, CaretSteps, testing::ValuesIn(stepCases), [](const auto& info) { return info.param.name; });

class PageSteps : public xTEditingFixture {
protected:
    static constexpr bool up = false;
    static constexpr bool down = true;
    void page(bool isDown, std::int32_t moved, bool shift) { PageStep(store, isDown, moved, store.caret, shift); }
};

TEST_F(PageSteps, AViewThatCannotMoveSendsTheCaretToTheEndOfTheText)
{
    given("ab\nc|d\nef");
    page(up, 0, false);
    EXPECT_EQ(store.caret, xTPos(0, 0));
    page(down, 0, false);
    EXPECT_EQ(store.caret, xTPos(2, 2));
}

TEST_F(PageSteps, TheColumnIsCutToTheNewLine)
{
    given("abcdef|\ngh\nijkl");
    page(down, 1, false);
    EXPECT_EQ(store.caret, xTPos(1, 2));
    page(up, -100, false);
    EXPECT_EQ(store.caret, xTPos(0, 2));
}

TEST_F(PageSteps, WithoutShiftTheSelectionGoes)
{
    given("a[b]|\ncd");
    page(down, 1, false);
    EXPECT_EQ(marked(), "ab\\ncd|");
}

TEST_F(PageSteps, WithShiftASelectionStartsAtTheCaret)
{
    given("a|b\ncd");
    page(down, 1, true);
    EXPECT_EQ(marked(), "a[b\\nc]|d");
}

TEST_F(PageSteps, DownFromBehindTheFirstGrowsAtTheEnd)
{
    given("a[b]|c\ndef\nghi");
    page(down, 1, true);
    EXPECT_EQ(marked(), "a[bc\\nde]|f\\nghi");
}

TEST_F(PageSteps, DownFromTheFirstLosesTheLastCharacter)
{
    given("|[abc\ndef\nghi]j");
    page(down, 1, true);
    EXPECT_EQ(marked(), "abc\\n|[def\\ngh]ij");
}

TEST_F(PageSteps, DownPastTheEndOfTheSelectionTurnsItOver)
{
    given("a|[bc\ndef]\nghi");
    page(down, 2, true);
    EXPECT_EQ(store.first(), xTPos(1, 3));
    EXPECT_EQ(store.last(), xTPos(2, 0));
}

TEST_F(PageSteps, UpFromTheFirstKeepsTheLastCharacter)
{
    given("abc\n|[def]");
    page(up, -1, true);
    EXPECT_EQ(marked(), "|[abc\\ndef]");
}

TEST_F(PageSteps, UpFromBehindTheSelectionMovesItsEnd)
{
    given("[abc\ndef\nghi]|");
    page(up, -1, true);
    EXPECT_EQ(marked(), "[abc\\ndef]|\\nghi");
}

class RestOfLine : public xTEditingFixture {};

TEST_F(RestOfLine, IsSelectedFromTheCaret)
{
    given("a|bc\nd");
    SelectRestOfLine(store);
    EXPECT_EQ(marked(), "a|[bc]\\nd");
}

TEST_F(RestOfLine, AtTheEndOfALineIsStoredTheOtherWayRound)
{
    given("abc|\nd");
    SelectRestOfLine(store);
    EXPECT_EQ(store.first(), xTPos(0, 3));
    EXPECT_EQ(store.last(), xTPos(0, 2));
}

class CopyToClipboard : public xTEditingFixture {};

TEST_F(CopyToClipboard, TriesTenTimesAndReports)
{
    NativePlatform().clipboardRefusals = 10;
    copy("old");
    given("[ab]|");
    store.copy_selection();
    store.append_selection();
    EXPECT_EQ(NativePlatform().sleptMilliseconds, 500u);
    EXPECT_EQ(NativePlatform().clipboard.at(0).second, W("old\r\nab"));
}

TEST_F(CopyToClipboard, ForWantOfMemoryTheClipboardKeepsWhatItHolds)
{
    copy("old");
    NativePlatform().clipboardNoMemory = true;
    given("[ab]|");
    store.copy_selection();
    EXPECT_EQ(NativePlatform().clipboard.at(0).second, W("old"));
    EXPECT_FALSE(NativePlatform().clipboardOpen);
}

TEST_F(CopyToClipboard, WithoutASelectionItIsNotOpened)
{
    NativePlatform().clipboardRefusals = 3;
    given("a|b");
    store.copy_selection();
    store.append_selection();
    EXPECT_EQ(NativePlatform().clipboardRefusals, 3);
}

}  // namespace
