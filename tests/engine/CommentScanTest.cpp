#include "tests/support/NaiveComments.h"
#include "tests/support/NaiveText.h"
#include "tests/support/StoreFixture.h"

#include <random>

namespace {

using CommentScan = xTStoreFixture;

struct xTScanRow {
    const char* name;
    const WCHAR* text;
    const char* marks;  // '#' in a comment, '.' outside, '\n' between lines
    const char* flags;  // for each line '-', 'h' holds a comment, 'i' begins inside one as well
};

class CommentMarks : public xTStoreFixture, public testing::WithParamInterface<xTScanRow> {
protected:
    [[nodiscard]] std::string AllMarks() const
    {
        std::string all;
        for (std::int32_t i = 0; i < store.line_count(); ++i)
            all += (i > 0 ? "\n" : "") + Marks(i);
        return all;
    }

    [[nodiscard]] std::string AllFlags() const
    {
        std::string all;
        for (std::int32_t i = 0; i < store.line_count(); ++i) {
            const unsigned flags = store.lines[i].m_flags;
            all += flags == 0 ? '-' : flags == 0x0004 ? 'h' : flags == 0x0024 ? 'i' : '?';
        }
        return all;
    }
};

TEST_P(CommentMarks, AreThoseOfAScanFromTheTop)
{
    Load(GetParam().text);
    EXPECT_EQ(AllMarks(), GetParam().marks);
    EXPECT_EQ(AllFlags(), GetParam().flags);
}

std::string RowName(const testing::TestParamInfo<xTScanRow>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Rows, CommentMarks, testing::Values(
    xTScanRow{"Plain", _T("a * b / c"), ".........", "-"},
    xTScanRow{"WithinALine", _T("a /*b*/ c"), "..#####..", "h"},
    xTScanRow{"OverThreeLines", _T("a /*b\nc\nd*/ e"), "..###\n#\n###..", "hii"},
    xTScanRow{"UnclosedRunsToTheEnd", _T("a /*b\n\nd"), "..###\n\n#", "hii"},
    xTScanRow{"UnclosedOnTheLastLine", _T("a\nb /*c"), ".\n..###", "-h"},
    xTScanRow{"SlashStarSlashDoesNotClose", _T("/*/ a"), "#####", "h"},
    xTScanRow{"SlashStarSlashClosedLater", _T("/*/ */a"), "######.", "h"},
    xTScanRow{"ClosingWithoutOpening", _T("a */ b"), "......", "-"},
    xTScanRow{"OpeningInAString", _T("\"/*\" b"), "......", "-"},
    xTScanRow{"OpeningBehindAString", _T("\"a\" /*b"), "....###", "h"},
    xTScanRow{"BackslashEscapesNoQuote", _T("\"\\\"/*b"), "...###", "h"},
    xTScanRow{"QuoteInACharacterConstantCounts", _T("'\"' /*b"), ".......", "-"},
    xTScanRow{"ClosingInAStringCloses", _T("/* \"*/\" b"), "######...", "h"},
    xTScanRow{"OpeningBehindALineComment", _T("// /*\nb"), ".....\n.", "--"},
    xTScanRow{"LineCommentInABlockCommentHidesNothing", _T("/* // */ /*b"), "########.###", "h"},
    xTScanRow{"LineCommentBehindTheOpening", _T("/* a */ // b"), "#######.....", "h"},
    xTScanRow{"SlashesTouchingTheStar", _T("//* a"), ".....", "-"},
    xTScanRow{"LineCommentInAString", _T("\"//\" /*b"), ".....###", "h"},
    // Only the first `//` of a line is asked: it lies in the comment, so the second one hides nothing.
    xTScanRow{"SecondLineCommentHidesNothing", _T("/*//*/ // /*b"), "######....###", "h"},
    // The closing mark's slash and the next opening's star touch.
    xTScanRow{"OpeningRightBehindAClosing", _T("/**//**/"), "########", "h"},
    xTScanRow{"ClosingSharesNoCharacterWithAnOpening", _T("/**/* a"), "####...", "h"},
    // The second comment of a line takes from it that it begins inside the first.
    xTScanRow{"SecondCommentClearsThatTheLineBeginsInside", _T("/*a\nb*/ /*c*/"), "###\n###.#####", "hh"},
    // Behind that, quotes of the first comment count: the third comment of the line is taken for a string.
    xTScanRow{"QuoteInTheFirstCommentThenHidesTheThird", _T("/*\n\"*/ /**/ /**/"), "##\n###.####.....", "hh"},
    xTScanRow{"ClosingAtTheStartOfALine", _T("/*\n*/a"), "##\n##.", "hi"},
    xTScanRow{"EmptyLinesInside", _T("/*\n\n\n*/"), "##\n\n\n##", "hiii"},
    xTScanRow{"ClosingAtTheEndOfALine", _T("/*a*/\n/*b"), "#####\n###", "hh"},
    xTScanRow{"DelimiterPartedByABreak", _T("/\n* a *\n/"), ".\n.....\n.", "---"}), RowName);

TEST_F(CommentScan, ValidMarksAreLeftAlone)
{
    Load(_T("a /*b"));
    store.lines[0].UnmarkAllComment();
    store.rescan_comments();
    EXPECT_EQ(Marks(0), ".....");
    EXPECT_EQ(window.TakeCalls(), "");
}

TEST_F(CommentScan, StaleMarksAreRebuiltAndShown)
{
    Load(_T("/*a\nb"));
    store.lines[0] = xTExtString(_T("x"));
    store.note_change(0, 0);
    store.comments_valid = false;
    store.rescan_comments();
    EXPECT_EQ(Marks(1), ".");
    EXPECT_EQ(store.lines[1].m_flags, 0);
    EXPECT_TRUE(store.comments_valid);
    EXPECT_EQ(window.TakeCalls(), "Invalidate UpdateNow");
}

TEST_F(CommentScan, OtherFlagsOfALineStay)
{
    Load(_T("/*a\nb*/"));
    store.set_break_point(0);
    store.set_exec_point(1);
    store.comments_valid = false;
    store.rescan_comments();
    EXPECT_EQ(store.lines[0].m_flags, 0x0006);
    EXPECT_EQ(store.lines[1].m_flags, 0x0034);
}

TEST_F(CommentScan, LineWhollyInACommentOwnsNoWords)
{
    Load(_T("/*a\nbbb\n*/\nccc"));
    const xTExtString marked = [] {
        xTExtString line(_T("xxx"));
        line.MarkAllComment();
        return line;
    }();
    EXPECT_TRUE(store.lines[1].m_attrs.SharesBufferWith(marked.m_attrs));
    EXPECT_TRUE(store.lines[3].m_attrs.SharesBufferWith(xTExtString(_T("xxx")).m_attrs));
}

TEST_F(CommentScan, EmptyStoreScansToValid)
{
    store.rescan_comments();
    EXPECT_TRUE(store.comments_valid);
    xTPos start;
    xTPos end;
    EXPECT_FALSE(store.FindBlockComment({0, 0}, start, end));
}

TEST_F(CommentScan, FindTellsThePlaceBehindTheComment)
{
    Load(_T("a /*b\nc*/ d /*e"));
    xTPos start;
    xTPos end;
    EXPECT_TRUE(store.FindBlockComment({0, 0}, start, end));
    EXPECT_EQ(Shown(start) + Shown(end), "(0,2)(1,3)");
    EXPECT_TRUE(store.FindBlockComment({1, 4}, start, end));
    EXPECT_EQ(Shown(start) + Shown(end), "(1,6)(2,0)");
    EXPECT_FALSE(store.FindBlockComment({2, 0}, start, end));
    EXPECT_EQ(Shown(start) + Shown(end), "(2,0)(1,9)");
}

TEST_F(CommentScan, FindLooksOneColumnBeforeItsStart)
{
    Load(_T("a /*b"));
    xTPos start;
    xTPos end;
    EXPECT_TRUE(store.FindBlockComment({0, 3}, start, end));
    EXPECT_FALSE(store.FindBlockComment({0, 4}, start, end));
}

TEST_F(CommentScan, RangeIsCutToTheTextAndRefusedOutsideIt)
{
    Load(_T("abc\ndef"));
    store.MarkCommentRange({2, 0}, {3, 0});
    store.MarkCommentRange({-1, 0}, {0, 2});
    EXPECT_EQ(Marks(0) + Marks(1), "......");
    store.MarkCommentRange({0, 1}, {9, 9});
    EXPECT_EQ(Marks(0) + Marks(1), ".#####");
    EXPECT_EQ(store.lines[0].m_flags, 0x0004);
    EXPECT_EQ(store.lines[1].m_flags, 0x0024);
}

TEST_F(CommentScan, LineIsMarkedAndUnmarkedWhole)
{
    Load(_T("abc"));
    store.MarkCommentLine(0, true);
    EXPECT_EQ(Marks(0), "###");
    EXPECT_EQ(store.lines[0].m_flags, 0x0024);
    store.MarkCommentLine(0, false);
    EXPECT_EQ(Marks(0), "...");
    EXPECT_EQ(store.lines[0].m_flags, 0);
    store.MarkCommentLine(7, true);  // a fault that is reported
    EXPECT_EQ(Marks(0), "...");
}

// Random texts of what hurts: delimiters, quotes, tabs, letters outside ASCII, halves of pairs, lines at the limits.
class CommentOracle : public xTStoreFixture {
protected:
    [[nodiscard]] WString RandomText(std::mt19937& random)
    {
        static const WString pieces[] = {
            _T("/*"), _T("*/"), _T("//"), _T("/*/"), _T("/**/"), _T("\""), _T("\\"), _T("\\\""), _T("'"), _T("*"), _T("/"),
            _T("\t"), _T("\x0416"), WString(1, WCHAR(0xD83D)), _T("ab "), _T("\r"), _T("\n"), _T("\n"), _T("\n\n")};
        WString text;
        for (std::size_t count = random() % 60; count > 0; --count) {
            if (random() % 80 == 0)
                text.append(455 + random() % 60, _T('x'));
            text += pieces[random() % std::size(pieces)];
        }
        return text;
    }

    void ExpectOracle(const xTNaiveComments& oracle)
    {
        ASSERT_EQ(store.line_count(), static_cast<std::int32_t>(oracle.lines.size()));
        for (std::int32_t i = 0; i < store.line_count(); ++i) {
            const auto& expected = oracle.lines[static_cast<std::size_t>(i)];
            std::string marks;
            for (const bool inComment : expected.inComment)
                marks += inComment ? '#' : '.';
            ASSERT_EQ(Marks(i), marks) << "line " << i << " of " << Text();
            const int flags = (expected.holdsComment ? 0x0004 : 0) | (expected.startsInside ? 0x0020 : 0);
            ASSERT_EQ(store.lines[i].m_flags, flags) << "line " << i << " of " << Text();
        }
    }
};

TEST_F(CommentOracle, AgreesWithTheMarksOfALoad)
{
    std::mt19937 random(1204);
    for (int round = 0; round < 4000; ++round) {
        const WString text = RandomText(random);
        ASSERT_TRUE(store.load_text(text.c_str(), static_cast<std::int32_t>(text.size())));
        ExpectOracle(xTNaiveComments(NaiveLines(text)));
        if (HasFatalFailure())
            FAIL() << "round " << round;
    }
}

TEST_F(CommentOracle, AgreesWithARescanOverStaleMarks)
{
    std::mt19937 random(77);
    for (int round = 0; round < 2000; ++round) {
        const WString text = RandomText(random);
        ASSERT_TRUE(store.load_text(text.c_str(), static_cast<std::int32_t>(text.size())));
        for (std::int32_t i = 0; i < store.line_count(); ++i) {
            if (random() % 3 == 0)
                store.lines[i].MarkCommentRun(static_cast<std::int32_t>(random() % 5), 9, random() % 2 == 0);
            if (random() % 5 == 0)
                store.lines[i].m_flags = 0;
        }
        store.note_change(0, store.line_count());
        store.comments_valid = false;
        store.rescan_comments();
        ExpectOracle(xTNaiveComments(NaiveLines(text)));
        if (HasFatalFailure())
            FAIL() << "round " << round;
    }
}

}  // namespace
