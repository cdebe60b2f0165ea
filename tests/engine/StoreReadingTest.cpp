#include "tests/support/StoreFixture.h"

#include <limits>

namespace {

class StoreReading : public xTStoreFixture {
protected:
    void SetUp() override { Load(_T("one\n\nthree")); }

    [[nodiscard]] std::string Read(xTPos from, xTPos to)
    {
        CString text(_T("old"));
        const std::int32_t length = store.get_text(from, to, text);
        EXPECT_EQ(length, text.GetLength());
        return Shown(text);
    }
};

TEST_F(StoreReading, LineIsACopyWithFlagsAndSnapshot)
{
    store.set_break_point(2);
    store.take_snapshot();
    xTExtString line;
    EXPECT_TRUE(store.get_line(2, line));
    EXPECT_EQ(Shown(line.m_text), "three");
    EXPECT_EQ(line.m_flags, xTExtString::flagBreakPoint);
    EXPECT_EQ(line.m_snapshotLine, 2);
    EXPECT_TRUE(line.m_text.SharesBufferWith(store.lines[2].m_text));
}

TEST_F(StoreReading, LineOutOfRangeReadsAsAnEmptyOneAndStillAnswersTrue)
{
    for (const std::int32_t index : {-1, 3, INT32_MIN, INT32_MAX}) {
        xTExtString line(_T("old"));
        line.m_flags = 0x0016;
        line.m_snapshotLine = 4;
        EXPECT_TRUE(store.get_line(index, line));
        EXPECT_EQ(line.GetLength(), 0);
        EXPECT_EQ(line.m_flags, 0);
        EXPECT_EQ(line.m_snapshotLine, -1);
        EXPECT_EQ(store.line_length(index), 0);
    }
}

struct xTPartRow {
    xTPos pos;
    const char* tail;
    const char* head;
};

class StoreParts : public StoreReading, public testing::WithParamInterface<xTPartRow> {};

TEST_P(StoreParts, OfALine)
{
    xTExtString part(_T("old"));
    store.line_tail(GetParam().pos, part);
    EXPECT_EQ(Shown(part.m_text), GetParam().tail);
    EXPECT_EQ(part.m_flags, 0);
    part = xTExtString(_T("old"));
    store.line_head(GetParam().pos, part);
    EXPECT_EQ(Shown(part.m_text), GetParam().head);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreParts, testing::Values(
    xTPartRow{{0, 1}, "ne", "o"}, xTPartRow{{0, 0}, "one", ""}, xTPartRow{{0, 3}, "", "one"},
    xTPartRow{{0, 4}, "", "one"}, xTPartRow{{0, -1}, "", ""}, xTPartRow{{1, 0}, "", ""}, xTPartRow{{3, 0}, "", ""},
    xTPartRow{{-1, 2}, "", ""}));

struct xTValidRow {
    xTPos pos;
    bool valid;
};

class StoreValid : public StoreReading, public testing::WithParamInterface<xTValidRow> {};

TEST_P(StoreValid, PositionLiesInALineOrOnItsBreak)
{
    EXPECT_EQ(store.is_valid_pos(GetParam().pos), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreValid, testing::Values(
    xTValidRow{{0, 0}, true}, xTValidRow{{0, 3}, true}, xTValidRow{{0, 4}, false}, xTValidRow{{1, 0}, true},
    xTValidRow{{0, -1}, false}, xTValidRow{{-1, 0}, false}, xTValidRow{{3, 0}, false}));

TEST_F(StoreReading, TextUpToAnyColumnOfItsLastLineIsThatLine)
{
    xTMemStorage store(nullptr, nullptr);
    ASSERT_TRUE(store.load_text(_T("ab\ncd\nef"), 1));
    CString text;
    xTPos to{1, std::numeric_limits<std::int32_t>::max()};
    store.get_text({0, 1}, to, text);
    EXPECT_EQ(text, _T("b\ncd"));
}

TEST_F(StoreReading, EndIsBehindTheLastCharacter)
{
    EXPECT_EQ(Shown(store.end_pos()), "(2,5)");
    store.reset();
    EXPECT_EQ(Shown(store.end_pos()), "(0,0)");
}

struct xTStepRow {
    bool forward;
    xTPos from;
    bool edge;
    bool moved;
    const char* to;
};

class StoreSteps : public StoreReading, public testing::WithParamInterface<xTStepRow> {};

TEST_P(StoreSteps, ByOneCharacter)
{
    const xTStepRow& row = GetParam();
    xTPos pos = row.from;
    EXPECT_EQ(row.forward ? store.next_pos(pos, row.edge) : store.prev_pos(pos, row.edge), row.moved);
    EXPECT_EQ(Shown(pos), row.to);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreSteps, testing::Values(
    xTStepRow{true, {0, 0}, false, true, "(0,1)"}, xTStepRow{true, {0, -1}, true, true, "(0,0)"},
    xTStepRow{true, {0, 2}, false, true, "(0,3)"}, xTStepRow{true, {0, 3}, false, true, "(1,0)"},
    xTStepRow{true, {0, 3}, true, true, "(1,-1)"}, xTStepRow{true, {0, 9}, false, true, "(1,0)"},
    xTStepRow{true, {2, 5}, false, false, "(2,5)"}, xTStepRow{true, {2, 5}, true, false, "(2,5)"},
    xTStepRow{true, {3, 0}, false, false, "(3,0)"}, xTStepRow{true, {-1, 0}, false, false, "(-1,0)"},
    xTStepRow{false, {0, 1}, false, true, "(0,0)"}, xTStepRow{false, {0, 0}, false, false, "(0,0)"},
    xTStepRow{false, {0, 0}, true, true, "(0,-1)"}, xTStepRow{false, {0, -1}, true, false, "(0,-1)"},
    xTStepRow{false, {1, 0}, false, true, "(0,3)"}, xTStepRow{false, {1, 0}, true, true, "(1,-1)"},
    xTStepRow{false, {1, -1}, true, true, "(0,3)"}, xTStepRow{false, {2, -1}, false, true, "(1,0)"},
    xTStepRow{false, {3, 0}, false, false, "(3,0)"}, xTStepRow{false, {-1, 2}, false, false, "(-1,2)"}));

TEST_F(StoreReading, CharacterOnTheBreakIsALineFeed)
{
    EXPECT_EQ(store.char_at({0, 1}), _T('n'));
    EXPECT_EQ(store.char_at({0, 3}), _T('\n'));
    EXPECT_EQ(store.char_at({1, 0}), _T('\n'));
    EXPECT_EQ(store.char_at({2, 5}), _T('\n'));
    EXPECT_EQ(store.char_at({0, 4}), 0);
    EXPECT_EQ(store.char_at({0, -1}), 0);
    EXPECT_EQ(store.char_at({3, 0}), 0);
    EXPECT_EQ(store.char_at({-1, 0}), 0);
}

constexpr std::int32_t farOff = std::numeric_limits<std::int32_t>::max();

struct xTReadRow {
    xTPos from, to;
    const char* text;
};

class StoreText : public StoreReading, public testing::WithParamInterface<xTReadRow> {};

TEST_P(StoreText, IsReadWithBothEndsInclusive)
{
    EXPECT_EQ(Read(GetParam().from, GetParam().to), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreText, testing::Values(
    xTReadRow{{0, 0}, {0, 2}, "one"}, xTReadRow{{0, 1}, {0, 1}, "n"}, xTReadRow{{0, 1}, {0, 99}, "ne"},
    xTReadRow{{0, 2}, {0, 1}, ""}, xTReadRow{{0, 2}, {0, 0}, ""},
    xTReadRow{{0, 0}, {0, 3}, "one"},                // the break of the last line is not read
    xTReadRow{{0, 1}, {1, -1}, "ne\\n"},             // but a column -1 behind it takes it
    xTReadRow{{0, 0}, {1, 0}, "one\\n"},
    xTReadRow{{0, 0}, {2, 0}, "one\\n\\nt"},         // the first character of the last line comes too
    xTReadRow{{0, 3}, {2, -1}, "\\n\\n"}, xTReadRow{{0, 2}, {2, 99}, "e\\n\\nthree"},
    xTReadRow{{0, 2}, {9, 9}, "e\\n\\nthree"}, xTReadRow{{2, 0}, {9, 9}, "three"},
    xTReadRow{{0, 9}, {2, 1}, "\\n\\nth"},           // a start outside its line gives the break alone
    xTReadRow{{0, 0}, {0, farOff}, "one"}, xTReadRow{{0, 1}, {0, farOff}, "ne"},
    xTReadRow{{0, 1}, {2, farOff}, "ne\\n\\nthree"}, xTReadRow{{0, 3}, {0, farOff}, ""},
    xTReadRow{{2, 0}, {0, 2}, ""}, xTReadRow{{-1, -1}, {-1, -1}, ""}));

TEST_F(StoreReading, EndPastTheTextIsClippedInPlace)
{
    CString text;
    xTPos to(7, 7);
    store.get_text({0, 0}, to, text);
    EXPECT_EQ(Shown(to), "(2,5)");
}

TEST_F(StoreReading, EmptyStoreReadsAsNothing)
{
    store.reset();
    EXPECT_EQ(Read({0, 0}, {5, 5}), "");
}

TEST_F(StoreReading, TabsReadAsSpacesWhereTheyAreNotKept)
{
    Load(_T("\ta\n\tb"));
    tabs.m_keepTabs = false;
    tabs.m_tabSize = 2;
    EXPECT_EQ(Read({0, 0}, {1, 1}), "  a\\n  b");
    tabs.m_keepTabs = true;
    EXPECT_EQ(Read({0, 0}, {1, 1}), "\\x0009a\\n\\x0009b");
}

}  // namespace
