#include "store/MyStr.h"
#include "framework/base/Exceptions.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <new>

namespace {

constexpr std::uint16_t hasComment = xTExtString::flagHasComment;
constexpr std::uint16_t startsInside = xTExtString::flagStartsInside;

// The attribute words in hexadecimal digits, one for each character.
std::string Words(const xTExtString& line)
{
    std::string words;
    for (const WCHAR word : line.m_attrs.view())
        words += "0123456789ABCDEF"[word & 15];
    return words;
}

xTExtString InComment(WStrView text)
{
    xTExtString line(text);
    line.MarkCommentRun(0, line.GetLength(), false);
    return line;
}

TEST(LineString, MadeByDefaultIsEmptyWithoutFlagsOrSnapshot)
{
    const xTExtString line;
    EXPECT_EQ(line.GetLength(), 0);
    EXPECT_EQ(line.m_attrs.GetLength(), 0);
    EXPECT_EQ(line.m_flags, 0);
    EXPECT_EQ(line.m_snapshotLine, -1);
}

TEST(LineString, MadeFromATextHasTheBaseWordForEachCharacter)
{
    const xTExtString line(_T("a\tb"));
    EXPECT_EQ(Shown(line.m_text), "a\\x0009b");
    EXPECT_EQ(Words(line), "111");
    EXPECT_EQ(line.m_flags, 0);
    EXPECT_EQ(line.m_snapshotLine, -1);
}

TEST(LineString, UntouchedLinesOfOneLengthShareTheirWords)
{
    const xTExtString one(_T("abc"));
    const xTExtString other(_T("xyz"));
    EXPECT_TRUE(one.m_attrs.SharesBufferWith(other.m_attrs));
}

TEST(LineString, ClearEmptiesEverything)
{
    xTExtString line = InComment(_T("abc"));
    line.m_snapshotLine = 7;
    line.Clear();
    EXPECT_EQ(line.GetLength(), 0);
    EXPECT_EQ(line.m_attrs.GetLength(), 0);
    EXPECT_EQ(line.m_flags, 0);
    EXPECT_EQ(line.m_snapshotLine, -1);
}

TEST(LineString, CopyTakesAllFourFieldsAndSharesTheBuffers)
{
    xTExtString line = InComment(_T("abc"));
    line.m_snapshotLine = 7;
    xTExtString copy(_T("old"));
    copy.copy_data(line);
    EXPECT_TRUE(copy.m_text.SharesBufferWith(line.m_text));
    EXPECT_TRUE(copy.m_attrs.SharesBufferWith(line.m_attrs));
    EXPECT_EQ(copy.m_flags, hasComment);
    EXPECT_EQ(copy.m_snapshotLine, 7);
}

TEST(LineString, CopyOfItselfChangesNothing)
{
    xTExtString line = InComment(_T("abc"));
    const xTExtString& same = line;
    line.copy_data(same);
    EXPECT_EQ(Shown(line.m_text), "abc");
    EXPECT_EQ(Words(line), "555");
}

TEST(LineString, ChangedCopyLeavesTheLineAlone)
{
    const xTExtString line(_T("abc"));
    xTExtString copy = line;
    copy.SetAt(0, _T('x'));
    copy.MarkSelected(1);
    EXPECT_EQ(Shown(line.m_text), "abc");
    EXPECT_EQ(Words(line), "111");
}

TEST(LineString, ReadOutsideTheLineIsZero)
{
    const xTExtString line(_T("abc"));
    EXPECT_EQ(line.GetAt(-1), 0);
    EXPECT_EQ(line.GetAt(3), 0);
    EXPECT_EQ(line.GetAt(INT32_MIN), 0);
    EXPECT_EQ(line.GetAt(INT32_MAX), 0);
    EXPECT_EQ(line.GetAt(2), _T('c'));
    EXPECT_EQ(xTExtString().GetAt(0), 0);
}

struct xTSetRow {
    std::int32_t index;
    WCHAR ch;
    const char* text;
    const char* words;
};

class LineStringSet : public testing::TestWithParam<xTSetRow> {};

TEST_P(LineStringSet, ReplacesAppendsOrRefuses)
{
    xTExtString line = InComment(_T("ab"));
    line.SetAt(GetParam().index, GetParam().ch);
    EXPECT_EQ(Shown(line.m_text), GetParam().text);
    EXPECT_EQ(Words(line), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineStringSet, testing::Values(
    xTSetRow{0, _T('x'), "xb", "55"},   // the attribute stays
    xTSetRow{2, _T('x'), "abx", "551"}, // at the length: appended with the base word
    xTSetRow{3, _T('x'), "ab", "55"},
    xTSetRow{-1, _T('x'), "ab", "55"},
    xTSetRow{0, 0, "ab", "55"},
    xTSetRow{0, _T('\n'), "\\nb", "55"}));

TEST(LineString, AppendBringsTextAndWordsButNoFlags)
{
    xTExtString line(_T("ab"));
    line.m_snapshotLine = 3;
    line.Append(InComment(_T("cd")));
    EXPECT_EQ(Shown(line.m_text), "abcd");
    EXPECT_EQ(Words(line), "1155");
    EXPECT_EQ(line.m_flags, 0);
    EXPECT_EQ(line.m_snapshotLine, 3);
}

TEST(LineString, AppendOfItselfDoublesTheLine)
{
    xTExtString line(_T("ab"));
    line.Append(line);
    EXPECT_EQ(Shown(line.m_text), "abab");
    EXPECT_EQ(Words(line), "1111");
}

TEST(LineString, InsertionOfALineFeedOrZeroChangesNothing)
{
    xTExtString line(_T("abc"));
    line.InsertChar(1, _T('\n'));
    line.InsertChar(1, 0);
    EXPECT_EQ(Shown(line.m_text), "abc");
    EXPECT_EQ(Words(line), "111");
}

TEST(LineString, InsertionBelowZeroGoesToTheFrontAndPastTheEndToTheEnd)
{
    xTExtString line(_T("abc"));
    line.InsertChar(-5, _T('x'));
    line.InsertChar(99, _T('y'));
    EXPECT_EQ(Shown(line.m_text), "xabcy");
    EXPECT_EQ(Words(line), "11111");
}

TEST(LineString, CharacterTypedInsideACommentHasTheCommentBitAlone)
{
    xTExtString line = InComment(_T("/* a */"));
    line.InsertChar(3, _T('x'));
    EXPECT_EQ(Words(line), "55545555");
}

TEST(LineString, SubStringInsideACommentBecomesCommentAndEndsTheInsideFlag)
{
    xTExtString line = InComment(_T("abcd"));
    line.m_flags = hasComment | startsInside;
    line.InsertSubString(2, xTExtString(_T("xy")));
    EXPECT_EQ(Shown(line.m_text), "abxycd");
    EXPECT_EQ(Words(line), "555555");
    EXPECT_EQ(line.m_flags, hasComment);
}

TEST(LineString, SubStringOutsideACommentKeepsItsOwnWordsAndTheFlags)
{
    xTExtString line(_T("abcd"));
    line.m_flags = xTExtString::flagBreakPoint | startsInside;
    line.InsertSubString(2, InComment(_T("xy")));
    EXPECT_EQ(Words(line), "115511");
    EXPECT_EQ(line.m_flags, xTExtString::flagBreakPoint | startsInside);
}

TEST(LineString, SubStringMayBeTheLineItself)
{
    xTExtString line = InComment(_T("abcd"));
    line.InsertSubString(2, line);
    EXPECT_EQ(Shown(line.m_text), "ababcdcd");
    EXPECT_EQ(Words(line), "55555555");
}

struct xTDeleteRow {
    std::int32_t pos, count;
    const char* text;
};

class LineStringDelete : public testing::TestWithParam<xTDeleteRow> {};

TEST_P(LineStringDelete, RemovesFromBothStringsAndTellsTheLength)
{
    xTExtString line(_T("abc"));
    line.m_flags = hasComment;
    const std::string expected = GetParam().text;
    EXPECT_EQ(line.DeleteSubString(GetParam().pos, GetParam().count), static_cast<std::int32_t>(expected.size()));
    EXPECT_EQ(Shown(line.m_text), expected);
    EXPECT_EQ(line.m_attrs.GetLength(), line.GetLength());
    EXPECT_EQ(line.m_flags, hasComment);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineStringDelete, testing::Values(
    xTDeleteRow{3, 1, "bc"},  // aimed at the very end: taken from the start
    xTDeleteRow{-1, 1, "bc"},
    xTDeleteRow{1, -1, "a"},
    xTDeleteRow{1, 1, "ac"},
    xTDeleteRow{1, 99, "a"},
    xTDeleteRow{3, -1, ""},
    xTDeleteRow{1, 0, "abc"},
    xTDeleteRow{1, -2, "abc"}));

TEST(LineString, TabsBecomeSpacesAndAreCounted)
{
    xTExtString line(_T("\ta\t"));
    EXPECT_EQ(line.ReplaceTabs(_T("    ")), 2);
    EXPECT_EQ(Shown(line.m_text), "    a    ");
    EXPECT_EQ(Words(line), "111111111");
    EXPECT_EQ(line.ReplaceTabs(_T("    ")), 0);
}

TEST(LineString, TabInsideACommentBecomesCommentCharacters)
{
    xTExtString line = InComment(_T("/*a\tb*/"));
    EXPECT_EQ(line.ReplaceTabs(_T("  ")), 1);
    EXPECT_EQ(Words(line), "55555555");
}

TEST(LineString, TabsMayBecomeNothing)
{
    xTExtString line(_T("\t\ta\t"));
    EXPECT_EQ(line.ReplaceTabs({}), 3);
    EXPECT_EQ(Shown(line.m_text), "a");
}

TEST(LineString, TabsAreNotReplacedByTabs)
{
    xTExtString line(_T("\ta"));
    EXPECT_EQ(line.ReplaceTabs(_T(" \t")), 0);
    EXPECT_EQ(Shown(line.m_text), "\\x0009a");
}

TEST(LineString, LeftPartKeepsAllFlagsAndNoSnapshot)
{
    xTExtString line = InComment(_T("abcd"));
    line.m_flags = 0x0036;
    line.m_snapshotLine = 9;
    const xTExtString part = line.LeftPart(2);
    EXPECT_EQ(Shown(part.m_text), "ab");
    EXPECT_EQ(Words(part), "55");
    EXPECT_EQ(part.m_flags, 0x0036);
    EXPECT_EQ(part.m_snapshotLine, -1);
}

TEST(LineString, RightPartKeepsOnlyThatItHoldsAComment)
{
    xTExtString line = InComment(_T("abcd"));
    line.m_flags = 0x0036;
    line.m_snapshotLine = 9;
    const xTExtString part = line.RightPart(1);
    EXPECT_EQ(Shown(part.m_text), "bcd");
    EXPECT_EQ(Words(part), "555");
    EXPECT_EQ(part.m_flags, hasComment);
    EXPECT_EQ(part.m_snapshotLine, -1);
}

TEST(LineString, PartsAreCutToTheLine)
{
    const xTExtString line(_T("abc"));
    EXPECT_EQ(Shown(line.LeftPart(99).m_text), "abc");
    EXPECT_EQ(Shown(line.LeftPart(-1).m_text), "");
    EXPECT_EQ(Shown(line.RightPart(99).m_text), "");
    EXPECT_EQ(Shown(line.RightPart(-1).m_text), "abc");
    EXPECT_EQ(line.RightPart(99).m_flags, 0);
}

struct xTInsideRow {
    const WCHAR* text;
    const char* marks;  // '#' in a comment, '.' outside
    std::int32_t pos;
    bool inside;
};

class LineStringInside : public testing::TestWithParam<xTInsideRow> {};

TEST_P(LineStringInside, TellsWhetherANewCharacterLiesInAComment)
{
    const xTInsideRow& row = GetParam();
    xTExtString line(row.text);
    for (std::int32_t i = 0; row.marks[i] != 0; ++i) {
        if (row.marks[i] == '#')
            line.MarkCommentRun(i, i + 1, false);
    }
    line.m_flags = hasComment;
    EXPECT_EQ(line.IsInComment(row.pos), row.inside);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineStringInside, testing::Values(
    xTInsideRow{_T("/*x"), "###", 0, false},
    xTInsideRow{_T("x"), "#", 0, false},     // one character is too few at column 0
    xTInsideRow{_T("ab"), "##", 0, true},
    xTInsideRow{_T("ab"), ".#", 0, false},
    xTInsideRow{_T("ab*/"), "####", 4, false},
    xTInsideRow{_T("*/"), "##", 2, true},    // looked at only above column 2
    xTInsideRow{_T("x*/"), "###", 3, false},
    xTInsideRow{_T("x"), "#", 1, true},
    xTInsideRow{_T("x"), ".", 1, false},
    xTInsideRow{_T("abc"), "###", 3, true},
    xTInsideRow{_T("abc"), "##.", 3, false},
    xTInsideRow{_T("abc"), ".#.", 2, true},  // before the last character only the one to the left counts
    xTInsideRow{_T("abc"), "#.#", 2, false},
    xTInsideRow{_T("abcd"), "#.#.", 1, true},  // in the middle both neighbours of the character at the place
    xTInsideRow{_T("abcd"), "##..", 1, false},
    xTInsideRow{_T(""), "", 0, true},
    xTInsideRow{_T("abc"), "###", -1, false},
    xTInsideRow{_T("abc"), "###", 4, false}));

TEST(LineString, WithoutTheFlagNothingIsInAComment)
{
    xTExtString line = InComment(_T("abc"));
    line.m_flags = startsInside;
    EXPECT_FALSE(line.IsInComment(1));
    EXPECT_FALSE(line.IsInComment(3));
}

TEST(LineString, CommentBitReadsFalseOutside)
{
    const xTExtString line = InComment(_T("ab"));
    EXPECT_TRUE(line.IsCommentAt(1));
    EXPECT_FALSE(line.IsCommentAt(-1));
    EXPECT_FALSE(line.IsCommentAt(2));
    EXPECT_FALSE(line.IsCommentAt(3));
}

TEST(LineString, SelectionMarksComeAndGo)
{
    xTExtString line(_T("abcd"));
    line.MarkSelected(1);
    line.MarkSelected(-1);
    line.MarkSelected(4);
    EXPECT_EQ(Words(line), "1911");
    EXPECT_TRUE(line.IsSelected(1));
    EXPECT_FALSE(line.IsSelected(0));
    EXPECT_FALSE(line.IsSelected(-1));
    EXPECT_FALSE(line.IsSelected(4));
    line.UnmarkSelected(1);
    line.UnmarkSelected(9);
    EXPECT_EQ(Words(line), "1111");
    line.MarkSelectedRun(-3, 2);
    line.MarkSelectedRun(3, 99);
    line.MarkSelectedRun(2, 1);
    EXPECT_EQ(Words(line), "9919");
    line.UnmarkAllSelected();
    EXPECT_EQ(Words(line), "1111");
}

TEST(LineString, WholeLineMarkedAsCommentOwnsNoWords)
{
    xTExtString line(_T("abc"));
    xTExtString other(_T("xyz"));
    line.MarkAllComment();
    other.MarkAllComment();
    EXPECT_EQ(Words(line), "555");
    EXPECT_EQ(line.m_flags, hasComment | startsInside);
    EXPECT_TRUE(line.m_attrs.SharesBufferWith(other.m_attrs));
    line.UnmarkAllComment();
    EXPECT_EQ(line.m_flags, 0);
    EXPECT_TRUE(line.m_attrs.SharesBufferWith(xTExtString(_T("...")).m_attrs));
}

TEST(LineString, UnmarkingClearsMarksWithoutTheFlagToo)
{
    xTExtString line(_T("ab"));
    line.Append(InComment(_T("cd")));
    line.m_flags = xTExtString::flagBreakPoint;
    line.UnmarkAllComment();
    EXPECT_EQ(Words(line), "1111");
    EXPECT_EQ(line.m_flags, xTExtString::flagBreakPoint);
}

TEST(LineString, UnmarkingATypedCharacterLeavesNoBit)
{
    xTExtString line = InComment(_T("abcd"));
    line.InsertChar(2, _T('x'));
    line.UnmarkAllComment();
    EXPECT_EQ(Words(line), "11011");
}

TEST(LineString, MarkedRunIsCutToTheLineAndSetsTheFlags)
{
    xTExtString line(_T("abcd"));
    line.m_flags = startsInside;
    line.MarkCommentRun(-7, 2, false);
    EXPECT_EQ(Words(line), "5511");
    EXPECT_EQ(line.m_flags, hasComment);
    line.MarkCommentRun(3, 99, true);
    EXPECT_EQ(Words(line), "5515");
    EXPECT_EQ(line.m_flags, hasComment | startsInside);
}

TEST(LineString, EmptyRunStillSaysThatThereIsAComment)
{
    xTExtString line(_T("abcd"));
    line.MarkCommentRun(2, 2, true);
    EXPECT_EQ(Words(line), "1111");
    EXPECT_EQ(line.m_flags, hasComment | startsInside);
}

TEST(LineString, CommentMaskAddsItsBit)
{
    xTExtString line(_T("abcd"));
    line.MarkCommentRun(1, 3, false);
    std::uint32_t mask[4] = {6, 6, 6, 6};
    EXPECT_TRUE(line.CommentMask(mask, 99));
    EXPECT_EQ(mask[0], 6U);
    EXPECT_EQ(mask[1], 22U);
    EXPECT_EQ(mask[2], 22U);
    EXPECT_EQ(mask[3], 6U);
    std::uint32_t first = 0;
    EXPECT_FALSE(line.CommentMask(&first, 1));
    EXPECT_FALSE(line.CommentMask(nullptr, 4));
    EXPECT_FALSE(line.CommentMask(&first, 0));
    EXPECT_FALSE(line.CommentMask(&first, -1));
    EXPECT_FALSE(xTExtString().CommentMask(&first, 1));
    EXPECT_EQ(first, 0U);
}

}  // namespace
