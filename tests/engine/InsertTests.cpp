#include "editing/PieceReader.h"
#include "tests/support/EditingFixture.h"

namespace {

class Insertion : public xTEditingFixture {};

TEST_F(Insertion, PutsTheCaretBehindTheText)
{
    given("ab|cd");
    EXPECT_EQ(insert({0, 2}, "xy"), 2);
    EXPECT_EQ(marked(), "abxy|cd");
    EXPECT_EQ(window.caretLines, 1);
}

TEST_F(Insertion, ALineFeedSplitsTheLine)
{
    given("abcd");
    EXPECT_EQ(insert({0, 2}, "x\ny"), 3);
    EXPECT_EQ(marked(), "abx\\ny|cd");
}

TEST_F(Insertion, ATextThatEndsInALineFeedLeavesTheCaretOnTheNewLine)
{
    given("ab");
    insert({0, 2}, "x\n");
    EXPECT_EQ(marked(), "abx\\n|");
}

TEST_F(Insertion, ManyLinesStandBetweenHeadAndTail)
{
    given("headtail\nnext");
    EXPECT_EQ(insert({0, 4}, "1\n\n333\n4"), 8);
    EXPECT_EQ(marked(), "head1\\n\\n333\\n4|tail\\nnext");
}

TEST_F(Insertion, ManyCharactersComeInAsManyLines)
{
    given("[]");
    store.selection = {};
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += std::to_string(i) + '\n';
    insert({0, 0}, text);
    ASSERT_EQ(store.line_count(), 20001);
    EXPECT_EQ(line(0), "0");
    EXPECT_EQ(line(19999), "19999");
    EXPECT_EQ(store.caret, xTPos(20000, 0));
    EXPECT_EQ(Faults(), "");
}

TEST_F(Insertion, IntoAStoreWithoutLinesMakesTheFirst)
{
    store.reset();
    insert({0, 0}, "a\nb");
    EXPECT_EQ(marked(), "a\\nb|");
}

TEST_F(Insertion, LineFeedIntoAStoreWithoutLinesMakesTwo)
{
    store.reset();
    insert({0, 0}, "\n");
    EXPECT_EQ(marked(), "\\n|");
}

TEST_F(Insertion, ABadPositionChangesNothing)
{
    given("|ab");
    for (const xTPos& pos : {xTPos(-1, 0), xTPos(0, -1), xTPos(0, 3), xTPos(1, 0)})
        insert(pos, "x");
    EXPECT_EQ(marked(), "|ab");
}

TEST_F(Insertion, WithoutAWindowOrItsHandleNothingHappens)
{
    given("|ab");
    window.hasHandle = false;
    insert({0, 0}, "x");
    store.wnd = nullptr;
    insert({0, 0}, "x");
    EXPECT_EQ(marked(), "|ab");
}

TEST_F(Insertion, BehindTheEndOfALineItGoesToThatEndAndTheCaretStandsOff)
{
    given("ab\ncd");
    insert({0, 5}, "x");
    EXPECT_EQ(line(0), "abx");
    EXPECT_EQ(store.caret, xTPos(0, 6));
}

// The position is not cut to its line, so the caret lies outside it, nothing is split and the text goes on below.
TEST_F(Insertion, ALineFeedBehindTheEndOfALineGoesOnInTheNextOne)
{
    given("ab\ncd");
    insert({0, 5}, "x\ny");
    EXPECT_EQ(marked(), "abx\\ny|cd");
}

TEST_F(Insertion, FiveHundredCharactersFoldAtTheLimit)
{
    given("|");
    EXPECT_EQ(insert({0, 0}, std::string(500, 'x')), 501);
    EXPECT_EQ(lengths(), "462 38");
    EXPECT_EQ(inserted.GetLength(), 501);
    EXPECT_EQ(inserted.Find(_T('\n')), 462);
    EXPECT_EQ(store.caret, xTPos(1, 38));
}

TEST_F(Insertion, AFoldTakesTheWholeLineIntoAccount)
{
    given(std::string(400, 'a') + "|");
    EXPECT_EQ(insert({0, 100}, std::string(70, 'x')), 71);
    EXPECT_EQ(lengths(), "162 308");
}

TEST_F(Insertion, ALongRunFoldsAgainAndAgain)
{
    given("|");
    EXPECT_EQ(insert({0, 0}, std::string(2000, 'x') + "\nend"), 2008);
    EXPECT_EQ(lengths(), "462 462 462 462 152 3");
    EXPECT_EQ(inserted.GetLength(), 2008);
}

TEST_F(Insertion, AFoldedTextInsertsAsItStandsTheNextTime)
{
    given("|");
    insert({0, 0}, std::string(1000, 'x'));
    const CString folded = inserted;
    std::int32_t count = folded.GetLength();
    given("|");
    CString again = folded;
    store.insert_text({0, 0}, count, again, false);
    EXPECT_EQ(count, 1002);
    EXPECT_EQ(again, folded);
    EXPECT_EQ(lengths(), "462 462 76");
}

TEST_F(Insertion, IntoAFullLineNothingGoesAndTheRestIsDropped)
{
    given(std::string(462, 'a') + "|\nnext");
    EXPECT_EQ(insert({0, 0}, "x\ny"), 3);
    EXPECT_EQ(lengths(), "462 4");
}

TEST_F(Insertion, AFullLineCanBeBroken)
{
    given(std::string(462, 'a'));
    insert({0, 400}, "\n");
    EXPECT_EQ(lengths(), "400 62");
}

TEST_F(Insertion, ALineLongerThanTheLimitCanBeBrokenButTakesNoCharacter)
{
    given(std::string(500, 'a'));
    insert({0, 10}, "x");
    EXPECT_EQ(lengths(), "500");
    insert({0, 10}, "\nx\ny");
    EXPECT_EQ(lengths(), "10 490") << "what stands behind the break does not fit before the tail";
}

TEST_F(Insertion, TheTailOfTheLineCountsForEachLineThatComesIn)
{
    given(std::string(460, 'a'));
    EXPECT_EQ(insert({0, 0}, "b\nccc\ndd\n"), 10);
    EXPECT_EQ(lengths(), "1 2 1 2 460");
}

TEST_F(Insertion, TabsBecomeSpacesAndTheCountGrows)
{
    given("|");
    tabs.m_keepTabs = false;
    tabs.m_tabSize = 4;
    EXPECT_EQ(insert({0, 0}, "\t"), 4);
    EXPECT_EQ(marked(), "    |");
    EXPECT_EQ(insert({0, 4}, "\tx\n\ty\n\t"), 16);
    EXPECT_EQ(marked(), "        x\\n    y\\n    |");
    EXPECT_EQ(inserted.GetLength(), 7) << "the text keeps its tabs";
}

TEST_F(Insertion, ALineThatGrowsByTabsMayPassTheLimit)
{
    given("|");
    tabs.m_keepTabs = false;
    insert({0, 0}, std::string(462, '\t'));
    EXPECT_EQ(lengths(), "1848");
}

TEST_F(Insertion, TabsOfNoWidthShortenTheCountAndWithItTheText)
{
    given("|");
    tabs.m_keepTabs = false;
    tabs.m_tabSize = 0;
    EXPECT_EQ(insert({0, 0}, "\ta\nb"), 3);
    EXPECT_EQ(marked(), "a\\n|");
}

TEST_F(Insertion, AZeroEndsTheText)
{
    given("|");
    CString text(WStrView(_T("ab\0cd"), 5));
    std::int32_t count = 5;
    store.insert_text({0, 0}, count, text, false);
    EXPECT_EQ(marked(), "ab|");
}

TEST_F(Insertion, ALineFeedAtTheIndexOfTheCountIsStillSeen)
{
    given("|");
    CString text = S("ab\ncd");
    std::int32_t count = 2;
    store.insert_text({0, 0}, count, text, false);
    EXPECT_EQ(marked(), "ab\\n|");
}

TEST_F(Insertion, RejoinAppendsTheNextLine)
{
    given("ab\ncd");
    insert({0, 1}, "\n", true);
    EXPECT_EQ(marked(), "a\\n|bcd");
}

TEST_F(Insertion, RejoinOnTheLastLineIsReportedAndLeavesTheTextAsItIs)
{
    given("ab");
    insert({0, 1}, "x", true);
    EXPECT_EQ(marked(), "ax|b");
}

TEST_F(Insertion, CommentCharactersAskForAScan)
{
    for (const char* text : {"*", "/", "\\"}) {
        given("|\nx");
        ASSERT_TRUE(store.comments_valid);
        xTExtString piece(WStrView(W(text)));
        std::int32_t count = 1;
        store.insert_piece(count, {1, 0}, piece);
        EXPECT_FALSE(store.comments_valid) << text;
    }
    given("|");
    xTExtString piece(WStrView(W("x")));
    std::int32_t count = 1;
    store.insert_piece(count, {0, 0}, piece);
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Insertion, APieceBesideACommentCharacterAsksForAScanToo)
{
    given("a/b");
    xTExtString piece(WStrView(W("x")));
    std::int32_t count = 1;
    store.insert_piece(count, {0, 0}, piece);
    EXPECT_FALSE(store.comments_valid);
}

TEST_F(Insertion, APieceBehindTheLastLineBecomesALine)
{
    given("a");
    xTExtString piece(WStrView(W("new")));
    std::int32_t count = 3;
    store.insert_piece(count, {1, 0}, piece);
    EXPECT_EQ(marked(), "|a\\nnew");
    store.insert_piece(count, {3, 0}, piece);
    store.insert_piece(count, {-1, 0}, piece);
    EXPECT_EQ(store.line_count(), 2);
}

TEST_F(Insertion, LinesIntoACommentAreMarkedAndEndUpAsAScanHasThem)
{
    given("/* a\nbc */ d");
    insert({1, 1}, "x\ny\nz");
    EXPECT_EQ(line(2), "y");
    EXPECT_TRUE(store.lines[2].IsCommentAt(0));
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Insertion, WholeLinesTakeTheCommentMarkOfTheTail)
{
    given("/*\nbcd\n*/");
    ASSERT_TRUE(store.lines[1].IsCommentAt(1));
    store.comments_valid = true;
    insert({1, 1}, "x\nyy\nz");  // no comment character here: the marks are kept without a scan
    EXPECT_TRUE(store.comments_valid);
    EXPECT_TRUE(store.lines[2].IsCommentAt(0) && store.lines[2].IsCommentAt(1));
    EXPECT_NE(store.lines[2].m_flags & xTExtString::flagHasComment, 0);
}

TEST_F(Insertion, TheMarksOfASplitLineStayOnItsFirstPart)
{
    given("abcd\ne");
    store.set_break_point(0);
    store.set_exec_point(0);
    store.take_snapshot();
    store.split_line({0, 2});
    EXPECT_TRUE(store.has_break_point(0));
    EXPECT_FALSE(store.has_break_point(1));
    EXPECT_EQ(store.lines[1].m_flags, 0);
    EXPECT_EQ(store.snapshot_old_line(0), 0);
    EXPECT_EQ(store.snapshot_old_line(1), -1);
    EXPECT_EQ(store.snapshot_old_line(2), 1);
}

TEST_F(Insertion, EnterAtTheStartOfAMarkedLineLeavesTheMarkOnTheEmptyPart)
{
    given("|abc");
    store.set_break_point(0);
    type("\n");
    EXPECT_EQ(marked(), "\\n|abc");
    EXPECT_TRUE(store.has_break_point(0));
    EXPECT_FALSE(store.has_break_point(1));
}

TEST_F(Insertion, ManyLinesBringNoMarksAndKeepThoseOfTheFirst)
{
    given("ab\nc");
    store.set_break_point(0);
    store.take_snapshot();
    insert({0, 1}, "1\n2\n3\n4");
    for (std::int32_t i = 1; i < 4; ++i) {
        EXPECT_FALSE(store.has_break_point(i));
        EXPECT_EQ(store.snapshot_old_line(i), -1);
    }
    EXPECT_TRUE(store.has_break_point(0));
    EXPECT_EQ(store.snapshot_old_line(4), 1);
}

TEST_F(Insertion, SplitOutsideALineDoesNothing)
{
    given("ab");
    for (const xTPos& pos : {xTPos(0, 3), xTPos(0, -1), xTPos(1, 0), xTPos(-1, 0)})
        store.split_line(pos);
    EXPECT_EQ(store.line_count(), 1);
}

TEST_F(Insertion, ItNotesTheLinesThatAScanHasToLookAt)
{
    given("a\nb\nc\nd\ne");
    EXPECT_TRUE(store.stale.Ranges().empty());
    store.wnd = nullptr;
    store.split_line({2, 1});
    ASSERT_EQ(store.stale.Ranges().size(), 1u);
    EXPECT_EQ(store.stale.Ranges()[0].first, 2);
    EXPECT_EQ(store.stale.Ranges()[0].last, 3);
    store.remove_line(0);
    ASSERT_EQ(store.stale.Ranges().size(), 1u);
    EXPECT_EQ(store.stale.Ranges()[0].first, 0);
    EXPECT_EQ(store.stale.Ranges()[0].last, 2);
    store.comments_valid = false;
    store.rescan_comments();
    EXPECT_TRUE(store.stale.Ranges().empty());
}

TEST(PieceReader, ReadsPiecesBetweenLineFeeds)
{
    const CString text(_T("ab\n\nc"));
    xTPieceReader reader(text, 5);
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.Length(), 2);
    EXPECT_TRUE(reader.IsBroken());
    EXPECT_EQ(reader.FeedsAhead(), 1);
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.Length(), 0);
    ASSERT_TRUE(reader.Next());
    EXPECT_FALSE(reader.IsBroken());
    EXPECT_FALSE(reader.Next());
}

TEST(PieceReader, ACountPastTheTextReadsAnEmptyPieceThere)
{
    const CString text(_T("a\n"));
    xTPieceReader reader(text, 5);
    ASSERT_TRUE(reader.Next());
    EXPECT_TRUE(reader.IsBroken());
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.Length(), 0);
    EXPECT_FALSE(reader.IsBroken());
}

}  // namespace
