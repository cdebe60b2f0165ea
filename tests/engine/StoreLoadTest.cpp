#include "tests/support/NaiveText.h"
#include "tests/support/StoreFixture.h"

#include <random>

namespace {

using StoreLoad = xTStoreFixture;

struct xTLoadRow {
    const WCHAR* text;
    std::int32_t lines;
    const char* joined;
};

class StoreLoadLines : public xTStoreFixture, public testing::WithParamInterface<xTLoadRow> {};

TEST_P(StoreLoadLines, AreWhatTheLineFeedsDivide)
{
    Load(GetParam().text);
    EXPECT_EQ(store.line_count(), GetParam().lines);
    EXPECT_EQ(Text(), GetParam().joined);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreLoadLines, testing::Values(
    xTLoadRow{_T("a\nb"), 2, "a\\nb"},
    xTLoadRow{_T("a\nb\n"), 2, "a\\nb"},        // a final line feed opens no line
    xTLoadRow{_T("a\n\n"), 2, "a\\n"},
    xTLoadRow{_T("a\n\nb"), 3, "a\\n\\nb"},
    xTLoadRow{_T("\n"), 1, ""},
    xTLoadRow{_T("\n\n"), 2, "\\n"},
    xTLoadRow{_T("a"), 1, "a"},
    xTLoadRow{_T("a\r\nb"), 2, "a\\x000D\\nb"}));  // only a line feed ends a line

TEST_F(StoreLoad, NullTextEmptiesTheStore)
{
    Load(_T("a\nb"));
    store.set_caret({1, 1});
    EXPECT_TRUE(store.load_text(nullptr, 5));
    EXPECT_EQ(store.line_count(), 0);
    EXPECT_EQ(Shown(store.caret), "(0,0)");
    EXPECT_EQ(Shown(store.end_pos()), "(0,0)");
}

TEST_F(StoreLoad, LengthZeroEmptiesTheStore)
{
    Load(_T("a\nb"));
    EXPECT_TRUE(store.load_text(_T("text"), 0));
    EXPECT_EQ(store.line_count(), 0);
}

TEST_F(StoreLoad, EmptyTextHasNoLines)
{
    EXPECT_TRUE(store.load_text(_T(""), 1));
    EXPECT_EQ(store.line_count(), 0);
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(StoreLoad, LengthDoesNotCutTheText)
{
    EXPECT_TRUE(store.load_text(_T("0123456789"), 1));
    EXPECT_EQ(Text(), "0123456789");
    EXPECT_TRUE(store.load_text(_T("0123456789"), 99));
    EXPECT_EQ(Text(), "0123456789");
    EXPECT_TRUE(store.load_text(_T("0123456789"), -1));
    EXPECT_EQ(Text(), "0123456789");
}

struct xTFoldRow {
    std::size_t run;
    std::vector<std::int32_t> lengths;
};

class StoreLoadFolds : public xTStoreFixture, public testing::WithParamInterface<xTFoldRow> {};

TEST_P(StoreLoadFolds, ARunLongerThanTheLimit)
{
    for (const bool feed : {false, true}) {
        Load(WString(GetParam().run, _T('x')) + (feed ? _T("\nnext") : _T("")));
        std::vector<std::int32_t> expected = GetParam().lengths;
        if (feed)
            expected.push_back(4);
        std::vector<std::int32_t> lengths;
        for (std::int32_t i = 0; i < store.line_count(); ++i)
            lengths.push_back(store.line_length(i));
        EXPECT_EQ(lengths, expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreLoadFolds, testing::Values(
    xTFoldRow{511, {511}}, xTFoldRow{512, {512}}, xTFoldRow{513, {512, 1}}, xTFoldRow{1024, {512, 512}},
    xTFoldRow{1025, {512, 512, 1}}, xTFoldRow{1300, {512, 512, 276}}));

TEST_F(StoreLoad, TabsStayWhereTheyAreKept)
{
    tabs.m_keepTabs = true;
    Load(_T("\ta"));
    EXPECT_EQ(Text(), "\\x0009a");
}

TEST_F(StoreLoad, TabsBecomeSpacesWhereTheyAreNotKept)
{
    tabs.m_keepTabs = false;
    tabs.m_tabSize = 4;
    Load(_T("\ta\tb\n\t"));
    EXPECT_EQ(Text(), "    a    b\\n    ");
}

TEST_F(StoreLoad, TabCountsAsItsSpacesTowardsTheLimit)
{
    tabs.m_keepTabs = false;
    tabs.m_tabSize = 4;
    Load(WString(509, _T('x')) + _T("\t"));
    EXPECT_EQ(store.line_count(), 2);
    EXPECT_EQ(store.line_length(0), 512);
    EXPECT_EQ(Line(1), " ");
}

TEST_F(StoreLoad, TabsStayWithoutTabSettings)
{
    xTMemStorage bare(nullptr, nullptr);
    EXPECT_TRUE(bare.load_text(_T("\ta"), 2));
    EXPECT_EQ(Shown(bare.lines[0].m_text), "\\x0009a");
}

TEST_F(StoreLoad, AbsurdTabSizesAreHeldToASaneRange)
{
    tabs.m_keepTabs = false;
    tabs.m_tabSize = INT32_MAX;
    Load(_T("\ta"));
    EXPECT_EQ(store.line_length(0), xTTabSettings::widestTab + 1);
    tabs.m_tabSize = -3;
    Load(_T("\ta"));
    EXPECT_EQ(Text(), "a");
    Load(_T("\t\t"));
    EXPECT_EQ(store.line_count(), 0);
}

TEST_F(StoreLoad, NewLinesHaveBaseWordsNoFlagsAndNoSnapshot)
{
    Load(_T("old"));
    store.set_break_point(0);
    store.take_snapshot();
    Load(_T("new"));
    EXPECT_EQ(store.lines[0].m_flags, 0);
    EXPECT_EQ(store.lines[0].m_snapshotLine, -1);
    EXPECT_EQ(Shown(store.lines[0].m_attrs), "\\x0001\\x0001\\x0001");
}

TEST_F(StoreLoad, ResetDropsCaretAndSelectionButNeitherExecutionLineNorCommentState)
{
    Load(_T("a\nb"));
    store.set_exec_point(1);
    store.select_range({0, 0}, {1, 1});
    store.drop_anchor();
    store.selection.first = store.selection.last = {0, 0};
    store.reset();
    EXPECT_EQ(store.line_count(), 0);
    EXPECT_EQ(Shown(store.caret), "(0,0)");
    EXPECT_EQ(store.selection.anchor, xTPos::none);
    EXPECT_FALSE(store.has_selection());
    EXPECT_EQ(store.exec_line, 1);
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(StoreLoad, EndsWithValidCommentMarksAndARepaint)
{
    for (const WCHAR* text : {_T("plain"), _T("a /* b")}) {
        store.comments_valid = false;
        ASSERT_TRUE(store.load_text(text, 1));
        EXPECT_TRUE(store.comments_valid);
        EXPECT_EQ(window.TakeCalls(), "Invalidate UpdateNow");
    }
}

TEST_F(StoreLoad, EmptyingAsksForNoRepaint)
{
    EXPECT_TRUE(store.load_text(nullptr, 0));
    EXPECT_EQ(window.TakeCalls(), "");
}

TEST_F(StoreLoad, MakesTheLineArrayAtItsExactSize)
{
    Load(_T("a\nb\n\nc\n"));
    EXPECT_EQ(store.lines.GetCapacity(), 4);
    Load(WString(1300, _T('x')) + _T("\n") + WString(512, _T('x')) + _T("\ny"));
    EXPECT_EQ(store.lines.GetCapacity(), 5);
}

TEST_F(StoreLoad, LoadedLinesLiveInSharedBlocks)
{
    const std::size_t before = xTStringSlabs::LiveBytes();
    Load(_T("one\ntwo\nthree"));
    EXPECT_EQ(xTStringSlabs::LiveBytes(), before + 64 * 1024);
    store.reset();
    EXPECT_EQ(xTStringSlabs::LiveBytes(), before);
}

TEST_F(StoreLoad, CutsRandomTextsByTheToldRule)
{
    constexpr WStrView alphabet = _T("\n\n\r\tax*/\x0416\xD800");
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        WString text;
        for (std::size_t runs = random() % 12; runs > 0; --runs) {
            const std::size_t longest = random() % 8 == 0 ? 1100 : 40;
            text.append(random() % longest, _T('x'));
            text += alphabet[random() % alphabet.size()];
        }
        ASSERT_TRUE(store.load_text(text.c_str(), 1));
        const std::vector<WString> expected = NaiveLines(text);
        ASSERT_EQ(Text(), Shown(Joined(expected))) << "round " << round;
        ASSERT_EQ(store.line_count(), static_cast<std::int32_t>(expected.size()));
        ASSERT_EQ(store.lines.GetCapacity(), store.lines.GetSize());
    }
}

TEST_F(StoreLoad, OneVeryLongRunFoldsInLinearTime)
{
    const WString text(3'000'000, _T('x'));
    ASSERT_TRUE(store.load_text(text.c_str(), 1));
    EXPECT_EQ(store.line_count(), 5860);
    EXPECT_EQ(store.line_length(5859), 3'000'000 - 5859 * 512);
}

TEST_F(StoreLoad, CopyTakesLinesMarksCaretAndExecutionPoint)
{
    xTMemStorage source(nullptr, nullptr);
    source.load_text(_T("one\n/* two\nthree"), 1);
    source.set_break_point(1);
    source.set_exec_point(2);
    source.take_snapshot();
    source.set_caret_raw({2, 3});
    Load(_T("old text\nold\nold\nold"));
    store.select_range({0, 1}, {3, 2});
    store.copy_from(source);
    EXPECT_EQ(Text(), "one\\n/* two\\nthree");
    EXPECT_EQ(store.break_point_line(0), 1);
    EXPECT_EQ(store.exec_line, 2);
    EXPECT_EQ(store.snapshot_old_line(2), 2);
    EXPECT_EQ(Shown(store.caret), "(2,3)");
    EXPECT_TRUE(store.comments_valid);
    EXPECT_EQ(Marks(2), "#####");
    EXPECT_TRUE(store.lines[0].m_text.SharesBufferWith(source.lines[0].m_text));
    // The selection of the copy stays, even outside the new text.
    EXPECT_EQ(Shown(store.first()), "(0,1)");
    EXPECT_EQ(Shown(store.last()), "(3,1)");
}

TEST_F(StoreLoad, CopyTakesOverThatCommentMarksAreStale)
{
    xTMemStorage source(nullptr, nullptr);
    source.load_text(_T("a"), 1);
    source.comments_valid = false;
    Load(_T("b"));
    store.copy_from(source);
    EXPECT_FALSE(store.comments_valid);
}

TEST_F(StoreLoad, CopyOfItselfChangesNothing)
{
    Load(_T("a\nb"));
    store.set_caret({1, 1});
    store.copy_from(store);
    EXPECT_EQ(Text(), "a\\nb");
    EXPECT_EQ(Shown(store.caret), "(1,1)");
}

}  // namespace
