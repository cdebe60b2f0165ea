#include "tests/support/EditingFixture.h"

namespace {

class Deletion : public xTEditingFixture {
protected:
    bool split = true;
    void del(const xTPos& pos, std::int32_t count) { store.delete_text(pos, count, &split); }
};

TEST_F(Deletion, WithinALineLeavesTheCaretWhereItIs)
{
    given("|abcd\ne");
    del({0, 1}, 2);
    EXPECT_EQ(marked(), "|ad\\ne");
    EXPECT_FALSE(split);
    EXPECT_EQ(window.caretLines, 1);
}

TEST_F(Deletion, EndingAtTheEndOfALineLeavesTheBreak)
{
    given("abc\nd");
    del({0, 1}, 2);
    EXPECT_EQ(marked(), "|a\\nd");
    del({0, 0}, 2);
    EXPECT_EQ(marked(), "|d");
}

TEST_F(Deletion, OfALineBreakJoinsTheLines)
{
    given("ab\ncd\nef");
    del({0, 2}, 1);
    EXPECT_EQ(marked(), "|abcd\\nef");
}

TEST_F(Deletion, AcrossLinesJoinsTheHeadWithTheTail)
{
    given("one\ntwo\nthree\nfour");
    del({0, 1}, 10);
    EXPECT_EQ(marked(), "|oee\\nfour");
}

TEST_F(Deletion, FromTheEndOfALineAcrossLines)
{
    given("one\ntwo\nthree\nfour");
    del({0, 3}, 7);
    EXPECT_EQ(marked(), "|oneree\\nfour");
}

TEST_F(Deletion, FromColumnZeroAcrossWholeLinesLeavesTheRestOnTheStartLine)
{
    given("one\ntwo\nthree\nfour");
    store.set_break_point(2);
    del({0, 0}, 10);
    EXPECT_EQ(marked(), "|ree\\nfour");
    EXPECT_TRUE(store.has_break_point(0)) << "the record is that of the line whose rest it is";
}

TEST_F(Deletion, WholeLinesGoWithTheirMarks)
{
    given("one\ntwo\nthree\nfour");
    store.set_break_point(1);
    del({1, 0}, 4);
    EXPECT_EQ(marked(), "|one\\nthree\\nfour");
    EXPECT_EQ(store.break_point_count(), 0);
}

TEST_F(Deletion, AnEmptyLineKeepsItsRecordWhenTheNextOneIsJoinedToIt)
{
    given("x\n\ntwo");
    store.lines[1].m_flags = xTExtString::flagBreakPoint;
    store.take_snapshot();
    del({1, 0}, 1);
    EXPECT_EQ(marked(), "|x\\ntwo");
    EXPECT_TRUE(store.has_break_point(1));
    EXPECT_EQ(store.snapshot_old_line(1), 1);
}

TEST_F(Deletion, TheFirstOfSeveralEmptyLinesKeepsItsRecord)
{
    given("a\n\n\n\nb");
    store.take_snapshot();
    del({1, 0}, 3);
    EXPECT_EQ(marked(), "|a\\nb");
    EXPECT_EQ(store.snapshot_old_line(1), 1);
    given("\nb\n\nccc");
    store.take_snapshot();
    del({0, 0}, 4);
    EXPECT_EQ(marked(), "|ccc");
    EXPECT_EQ(store.snapshot_old_line(0), 2) << "the empty line behind the last one that went";
}

TEST_F(Deletion, AtTheEndOfTheTextDoesNothing)
{
    given("ab\ncd");
    del({1, 2}, 1);
    del({1, 3}, 1);
    del({5, 0}, 1);
    EXPECT_EQ(marked(), "|ab\\ncd");
    EXPECT_TRUE(split) << "a deletion that does not begin says nothing";
}

TEST_F(Deletion, ABadPositionDoesNothing)
{
    given("ab\ncd");
    del({-1, 0}, 1);
    del({0, -1}, 1);
    EXPECT_EQ(marked(), "|ab\\ncd");
}

TEST_F(Deletion, StopsAtTheEndOfTheText)
{
    given("ab\ncd");
    del({0, 1}, 100);
    EXPECT_EQ(marked(), "|a");
}

TEST_F(Deletion, ACountLargerThanTheLastLineTakesItsRecord)
{
    given("abc");
    del({0, 0}, 4);
    EXPECT_EQ(store.line_count(), 0);
}

TEST_F(Deletion, TheBreakBehindTheLastLineIsNeverRemoved)
{
    given("ab\n");
    del({0, 0}, 1000000000);
    EXPECT_EQ(marked(), "|");
}

TEST_F(Deletion, TwoLinesOfThreeHundredAreNotJoined)
{
    given(std::string(300, 'a') + "\n" + std::string(300, 'b') + "\nrest");
    del({0, 300}, 1);
    EXPECT_EQ(lengths(), "512 88 4");
    EXPECT_TRUE(split);
    EXPECT_EQ(insert({0, 300}, "\n", true), 1);
    EXPECT_EQ(lengths(), "300 300 4");
    EXPECT_EQ(line(1), std::string(300, 'b'));
}

TEST_F(Deletion, AJoinOfExactlyTheLimitGoesWell)
{
    given(std::string(300, 'a') + "\n" + std::string(212, 'b'));
    del({0, 300}, 1);
    EXPECT_EQ(lengths(), "512");
    EXPECT_FALSE(split);
}

TEST_F(Deletion, AStoppedJoinKeepsTheMarksOfBothLines)
{
    given(std::string(300, 'a') + "\n" + std::string(300, 'b'));
    store.set_break_point(1);
    store.take_snapshot();
    del({0, 300}, 1);
    EXPECT_TRUE(store.has_break_point(1));
    EXPECT_EQ(store.snapshot_old_line(1), 1);
}

TEST_F(Deletion, TheEndOfADeletionMayJoinPastTheLimit)
{
    given(std::string(400, 'a') + "x\nyy" + std::string(400, 'b'));
    del({0, 400}, 4);
    EXPECT_EQ(lengths(), "800");
}

TEST_F(Deletion, AsksForAScanWhereALineHoldsACommentMark)
{
    for (const char* text : {"a/b", "a*b"}) {
        given(text);
        del({0, 0}, 1);
        EXPECT_FALSE(store.comments_valid) << text;
    }
}

TEST_F(Deletion, ABackslashDoesNotAskForAScan)
{
    given("\\\nb");
    del({0, 0}, 2);
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Deletion, OfWholeLinesLooksAtEachForCommentMarks)
{
    given("a\nb*\nc\nd");
    del({0, 0}, 7);
    EXPECT_EQ(marked(), "|d");
    EXPECT_FALSE(store.comments_valid);
}

TEST_F(Deletion, AJoinLooksOnlyAtTheFirstLineForCommentMarks)
{
    given("a\n/b");
    del({0, 1}, 1);
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Deletion, AheadOfASelectionOnALaterLineMovesItUp)
{
    given("one\ntwo\nthree\nf[ou]r");
    del({0, 0}, 8);
    EXPECT_EQ(marked(), "three\\nf[ou]|r");
}

TEST_F(Deletion, AheadOfASelectionOnItsLineMovesItLeft)
{
    given("abcd[ef]g\nx");
    del({0, 1}, 2);
    EXPECT_EQ(marked(), "ad[ef]|g\\nx");
}

TEST_F(Deletion, ThatJoinsTheLineOfASelectionMovesItByTheLengthOfTheFirstLine)
{
    given("abc\nd[ef]g\nx");
    del({0, 3}, 1);
    EXPECT_EQ(marked(), "abcd[ef]|g\\nx");
}

TEST_F(Deletion, BehindTheStartOfASelectionDoesNotMoveIt)
{
    given("a[bc]d\nx|");
    del({0, 3}, 1);
    EXPECT_EQ(marked(), "a[bc]\\nx|");
}

TEST_F(Deletion, TheDeleteKeyTakesTheCharacterAtTheCaret)
{
    given("a|bc");
    press(keyDelete);
    EXPECT_EQ(marked(), "a|c");
    EXPECT_EQ(window.changes, 1);
}

TEST_F(Deletion, TheDeleteKeyAtTheEndOfALineJoinsTheNextOne)
{
    given("one|\ntwo");
    press(keyDelete);
    EXPECT_EQ(marked(), "one|two");
    EXPECT_GE(window.invalidated, 1);
}

TEST_F(Deletion, TheDeleteKeyTakesTheSelection)
{
    given("o[ne\nt]|wo");
    press(keyDelete);
    EXPECT_EQ(marked(), "o|wo");
    EXPECT_EQ(stack.undoList.front().text.Spelt(), CString(WStrView(_T("ne\nt\0"), 5)));
    EXPECT_EQ(stack.undoList.front().count, 4);
}

TEST_F(Deletion, ThatBeginsInsideALineAndEndsOnABreakLeavesThatBreak)
{
    given("o[ne\n]|two");
    press(keyDelete);
    EXPECT_EQ(marked(), "o|\\ntwo");
    EXPECT_EQ(stack.undoList.front().count, 3);
    given("one\ntwo\nthree");
    del({0, 1}, 7);
    EXPECT_EQ(marked(), "|o\\nthree");
}

TEST_F(Deletion, OfASelectedBreakAloneJoinsTheLines)
{
    given("one[\n]|two");
    press(keyDelete);
    EXPECT_EQ(marked(), "one|two");
}

class Overwriting : public xTEditingFixture {
protected:
    void SetUp() override
    {
        overwriting = true;
    }
};

TEST_F(Overwriting, ReplacesTheCharacterAndStepsOn)
{
    given("a|bc\nx");
    type("z");
    EXPECT_EQ(marked(), "az|c\\nx");
}

TEST_F(Overwriting, TheLastLineIsNeverChangedAndTheCaretStillAdvances)
{
    given("a\nb|cd");
    type("z");
    EXPECT_EQ(marked(), "a\\nbc|d");
}

TEST_F(Overwriting, AtTheEndOfALineItAppends)
{
    given("ab\nx");
    store.overwrite_char({0, 2}, _T('c'));
    EXPECT_EQ(line(0), "abc");
    store.overwrite_char({0, 4}, _T('d'));
    store.overwrite_char({0, -1}, _T('d'));
    store.overwrite_char({0, 0}, _T('\n'));
    store.overwrite_char({0, 0}, 0);
    EXPECT_EQ(line(0), "abc");
}

TEST_F(Overwriting, WithACommentCharacterAsksForAScan)
{
    for (const char ch : {'*', '/', '\\'}) {
        given("|abc\nx");
        store.lines[0].MarkCommentRun(1, 2, false);  // a mark that no scan would leave
        store.overwrite_at_caret(static_cast<WCHAR>(ch));
        EXPECT_FALSE(store.lines[0].IsCommentAt(1)) << ch;
        EXPECT_TRUE(store.comments_valid);
    }
}

TEST_F(Overwriting, OfACommentCharacterByALetterKeepsTheMarksAsTheyAre)
{
    given("|/* a */\nx");
    const int scans = window.updated;
    store.overwrite_at_caret(_T('a'));
    EXPECT_EQ(line(0), "a* a */");
    EXPECT_TRUE(store.lines[0].IsCommentAt(3)) << "no scan has come by";
    EXPECT_EQ(window.updated, scans);
}

TEST_F(Overwriting, OneCharacterAloneTouchesNeitherCaretNorMarks)
{
    given("|abc\nx");
    store.overwrite_char({0, 0}, _T('*'));
    EXPECT_EQ(marked(), "|*bc\\nx");
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Overwriting, ReplaceAtNeedsAPositionInTheLine)
{
    given("abc");
    EXPECT_FALSE(store.replace_at({0, 3}, W("a"), W("b")));
    EXPECT_FALSE(store.replace_at({0, -1}, W("a"), W("b")));
    EXPECT_FALSE(store.replace_at({1, 0}, W("a"), W("b")));
    EXPECT_EQ(window.changes, 0);
    EXPECT_TRUE(store.replace_at({0, 1}, W("b"), W("xyz*/")));
    EXPECT_EQ(line(0), "axyz*/c");
    EXPECT_EQ(window.changes, 1);
    EXPECT_TRUE(store.comments_valid) << "a replacement never asks for a scan";
    EXPECT_TRUE(store.replace_at({0, 0}, WStrView(), W("1")));
    EXPECT_EQ(line(0), "1axyz*/c");
}

TEST_F(Overwriting, ReplaceAtKnowsNoLimit)
{
    given("abc");
    EXPECT_TRUE(store.replace_at({0, 1}, W("b"), W(std::string(1000, 'x'))));
    EXPECT_EQ(lengths(), "1002");
}

// Unlike any other insertion: the characters take no comment mark from their neighbours, and the line goes on beginning
// inside the comment.
TEST_F(Overwriting, ReplacingWithinACommentMarksTheNewCharactersAfresh)
{
    given("/*\nabcd\n*/");
    const std::uint16_t flags = store.lines[1].m_flags;
    EXPECT_TRUE(store.replace_at({1, 1}, W("b"), W("xy")));
    EXPECT_EQ(store.lines[1].m_attrs.GetLength(), 5);
    EXPECT_TRUE(store.lines[1].IsCommentAt(0));
    EXPECT_FALSE(store.lines[1].IsCommentAt(1));
    EXPECT_FALSE(store.lines[1].IsCommentAt(2));
    EXPECT_TRUE(store.lines[1].IsCommentAt(3));
    EXPECT_EQ(store.lines[1].m_flags, flags);
}

}  // namespace
