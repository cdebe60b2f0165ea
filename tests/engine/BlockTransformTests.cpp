#include "editing/KeyConversion.h"
#include "tests/support/EditingFixture.h"

namespace {

class Blocks : public xTEditingFixture {
protected:
    void SetUp() override
    {
        tabs.m_keepTabs = false;
        tabs.m_tabSize = 4;
    }
};

TEST_F(Blocks, IndentMovesEachLineAndSelectsWholeLines)
{
    given("a\nb[c\nd]e|\nf");
    store.indent_block();
    EXPECT_EQ(marked(), "a\\n[    bc\\n  |  de]\\nf");
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Blocks, IndentWithTabsKeptPutsOneTab)
{
    given("[ab]|");
    tabs.m_keepTabs = true;
    store.indent_block();
    EXPECT_EQ(line(0), "\\x0009ab");
}

TEST_F(Blocks, IndentWithoutWidthAddsNothing)
{
    given("[ab]|");
    tabs.m_tabSize = -3;
    store.indent_block();
    EXPECT_EQ(line(0), "ab");
}

TEST_F(Blocks, WithoutSettingsATabIsKept)
{
    given("[ab]|");
    store.attribs = nullptr;
    store.indent_block();
    EXPECT_EQ(line(0), "\\x0009ab");
}

TEST_F(Blocks, WithoutAWindowTheTextChangesAllTheSame)
{
    given("[ab]|");
    store.wnd = nullptr;
    store.indent_block();
    EXPECT_EQ(line(0), "    ab");
    store.change_case(true, {0, 0}, {0, 4});
    EXPECT_EQ(line(0), "    Ab");
    store.switch_layout({0, 4}, {0, 4});
    EXPECT_EQ(line(0), "    " + Shown(_T("\x0424")) + "b");
    EXPECT_EQ(window.changes, 0);
}

TEST_F(Blocks, IndentOfOneEmptyLineSelectsTheBlanks)
{
    given("\nx");
    store.selection.first = {0, 0};
    store.selection.last = {0, -1};
    store.indent_block();
    EXPECT_EQ(marked(), "|[    ]\\nx");
}

TEST_F(Blocks, OneEmptyLineThatStaysEmptyIsSelectedAsNothing)
{
    given("\nx");
    store.selection.first = {0, 0};
    store.selection.last = {0, 0};
    store.unindent_block();
    EXPECT_EQ(store.first(), xTPos(0, 0));
    EXPECT_EQ(store.last(), xTPos(0, -1));
}

TEST_F(Blocks, WithoutASelectionOrOutsideTheTextNothingHappens)
{
    given("ab");
    const int before = window.invalidated;
    store.indent_block();
    store.selection.first = {0, 0};
    store.selection.last = {1, 0};
    store.indent_block();
    EXPECT_EQ(line(0), "ab");
    EXPECT_EQ(window.invalidated, before);
}

TEST_F(Blocks, UnindentTakesATabOrSpaces)
{
    given("[\tx\n      y\n  z\nw]|");
    store.unindent_block();
    EXPECT_EQ(line(0), "x");
    EXPECT_EQ(line(1), "  y");
    EXPECT_EQ(line(2), "z");
    EXPECT_EQ(line(3), "w");
}

TEST_F(Blocks, UnindentTakesATabBehindASpaceToo)
{
    given("[ \t\tx]|");
    store.unindent_block();
    EXPECT_EQ(line(0), "\\x0009x");
}

TEST_F(Blocks, CommentMarksEachLineAlsoBlankOnes)
{
    given("[a\n\n  b]|");
    store.comment_block(false);
    EXPECT_EQ(marked(), "[//a\\n//\\n// | b]");
    store.comment_block(true);
    EXPECT_EQ(marked(), "[a\\n\\n  b]|");
}

TEST_F(Blocks, UncommentLeavesALineWithCodeAheadOfTheMark)
{
    given("[x // a\n \t// b]|");
    store.comment_block(true);
    EXPECT_EQ(line(0), "x // a");
    EXPECT_EQ(line(1), " \\x0009 b");
}

TEST_F(Blocks, CommentingChangesWhatIsABlockComment)
{
    given("[/* a]|\nb");
    ASSERT_TRUE(store.lines[1].IsCommentAt(0));
    store.comment_block(false);
    EXPECT_FALSE(store.lines[1].IsCommentAt(0));
}

TEST_F(Blocks, CaseChangesTheLettersOfARangeBothEndsInclusive)
{
    given("abcd\nefgh\nijkl");
    store.change_case(true, {0, 2}, {2, 1});
    EXPECT_EQ(marked(), "|abCD\\nEFGH\\nIJkl");
    EXPECT_EQ(window.changes, 1);
    store.change_case(false, {0, 2}, {0, 4});
    EXPECT_EQ(line(0), "abcd");
}

TEST_F(Blocks, CaseOfARangeThatEndsOnABreakLeavesTheNextLine)
{
    given("ab\ncd");
    store.change_case(true, {0, 1}, {1, -1});
    EXPECT_EQ(marked(), "|aB\\ncd");
    store.change_case(true, {1, 2}, {1, 2});
    EXPECT_EQ(line(1), "cd");
}

TEST_F(Blocks, CaseOutsideTheTextRaises)
{
    given("ab");
    try {
        store.change_case(true, {0, 0}, {1, 0});
        FAIL();
    } catch (CException* e) {
        e->Delete();
    }
    EXPECT_EQ(line(0), "AB") << "the lines before it are changed";
    EXPECT_EQ(window.changes, 0);
}

TEST_F(Blocks, CaseAsksForNoScan)
{
    given("/*a*/\nx");
    store.change_case(true, {0, 0}, {0, 4});
    EXPECT_EQ(line(0), "/*A*/");
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Blocks, LayoutRetypesOnTheNextOneWhichStaysInUse)
{
    given("x");
    store.lines[0] = xTExtString(CString(_T("Ghbdtn, vbh")));
    store.switch_layout({0, 0}, {0, 10});
    EXPECT_TRUE(store.lines[0].m_text == _T("Приветб мир"));
    EXPECT_EQ(PlatformKeyLayout(), layoutRussian);
    EXPECT_EQ(window.changes, 1);
}

TEST_F(Blocks, LayoutLeavesACharacterWithoutAKeyAlone)
{
    given("x");
    store.lines[0] = xTExtString(CString(_T("q\x20ACw")));
    store.switch_layout({0, 0}, {0, 2});
    EXPECT_TRUE(store.lines[0].m_text == _T("й\x20ACц"));
}

TEST_F(Blocks, TwoLayoutSwitchesRestoreTheTextWithTwoLayouts)
{
    given("quick\nfox");
    store.switch_layout({0, 1}, {1, 5});
    EXPECT_NE(line(1), "fox");
    store.switch_layout({0, 1}, {1, 5});
    EXPECT_EQ(marked(), "|quick\\nfox");
}

TEST_F(Blocks, TwoLayoutSwitchesDoNotRestoreTheTextWithThree)
{
    given("yes");
    NativePlatform().layouts = {layoutEnglish, layoutRussian, layoutGerman};
    store.switch_layout({0, 0}, {0, 2});
    store.switch_layout({0, 0}, {0, 2});
    EXPECT_EQ(line(0), "zes");
    store.switch_layout({0, 0}, {0, 2});
    EXPECT_EQ(line(0), "yes");
}

TEST_F(Blocks, LayoutStartsAtColumnZeroWhenTheRangeStartsBehindTheLine)
{
    given("qw");
    store.switch_layout({0, 3}, {0, 1});
    EXPECT_TRUE(store.lines[0].m_text == _T("йц"));
}

TEST_F(Blocks, KeyConversionKeepsShiftAndLeavesWhatHasNoKey)
{
    EXPECT_EQ(convert_key_char(_T('Q'), layoutEnglish, layoutRussian), _T('Й'));
    EXPECT_EQ(convert_key_char(_T('&'), layoutEnglish, layoutRussian), _T('?'));
    EXPECT_EQ(convert_key_char(0x20AC, layoutEnglish, layoutRussian), 0x20AC);
    EXPECT_EQ(convert_key_char(_T('q'), layoutEnglish, 77), _T('q'));
}

// A column behind the end of the line lies in no comment, so that what is inserted there, nothing, touches no flag.
TEST_F(Blocks, CaseOfNothingBehindTheEndOfALineInACommentLeavesItsFlags)
{
    given("/*\n\n*/");
    const std::uint16_t flags = store.lines[1].m_flags;
    ASSERT_NE(flags & xTExtString::flagStartsInside, 0);
    store.change_case(true, {1, 5}, {1, 7});
    EXPECT_EQ(store.lines[1].m_flags, flags);
    store.change_case(true, {1, 0}, {1, 0});
    EXPECT_EQ(store.lines[1].m_flags, xTExtString::flagHasComment) << "at the line's own column it does";
}

}  // namespace
