#include "tests/support/StoreFixture.h"

namespace {

class StoreMoves : public xTStoreFixture {
protected:
    void SetUp() override { Load(_T("long line\nab\n\n    indented")); }
};

TEST_F(StoreMoves, CaretPastTheLineGoesToItsEndAndTheViewFollows)
{
    store.set_caret({1, 99});
    EXPECT_EQ(Shown(store.caret), "(1,2)");
    EXPECT_EQ(window.TakeCalls(), "EnsureCaretVisible");
}

TEST_F(StoreMoves, CaretOutsideTheTextIsRefusedWithoutAScroll)
{
    store.set_caret({1, 1});
    window.calls.clear();
    for (const xTPos& pos : {xTPos(0, -1), xTPos(4, 0), xTPos(-1, 0)})
        store.set_caret(pos);
    EXPECT_EQ(Shown(store.caret), "(1,1)");
    EXPECT_EQ(window.TakeCalls(), "");
}

TEST_F(StoreMoves, CaretKeepsTheSelection)
{
    store.select_range({0, 0}, {1, 1});
    store.set_caret({2, 0});
    EXPECT_TRUE(store.has_selection());
}

TEST_F(StoreMoves, RawCaretIsOnlyHeldAtZero)
{
    store.set_caret_raw({77, 88});
    EXPECT_EQ(Shown(store.caret), "(77,88)");
    store.set_caret_raw({-1, -1});
    EXPECT_EQ(Shown(store.caret), "(0,0)");
    store.set_caret_raw({3, -1});
    EXPECT_EQ(Shown(store.caret), "(3,0)");
    EXPECT_EQ(window.TakeCalls(), "");
}

struct xTMoveRow {
    int direction;
    xTPos from;
    const char* to;
};

class StoreCaretMoves : public StoreMoves, public testing::WithParamInterface<xTMoveRow> {};

TEST_P(StoreCaretMoves, TellTheWindowInAnyCase)
{
    store.set_caret_raw(GetParam().from);
    store.move_caret(GetParam().direction);
    EXPECT_EQ(Shown(store.caret), GetParam().to);
    EXPECT_EQ(window.TakeCalls(), "RequestPaint EnsureCaretVisible");
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreCaretMoves, testing::Values(
    xTMoveRow{0, {0, 1}, "(0,0)"}, xTMoveRow{0, {0, 0}, "(0,0)"}, xTMoveRow{0, {1, 0}, "(0,9)"},
    xTMoveRow{1, {0, 9}, "(1,0)"}, xTMoveRow{1, {3, 12}, "(3,12)"}, xTMoveRow{1, {1, 0}, "(1,1)"},
    xTMoveRow{2, {1, 1}, "(0,1)"}, xTMoveRow{2, {0, 5}, "(0,5)"}, xTMoveRow{2, {3, 9}, "(2,0)"},
    xTMoveRow{3, {0, 9}, "(1,2)"}, xTMoveRow{3, {3, 5}, "(3,5)"}, xTMoveRow{3, {1, 2}, "(2,0)"},
    xTMoveRow{7, {1, 1}, "(1,1)"}));

TEST_F(StoreMoves, WithoutAWindowTheLogicRunsAlone)
{
    xTMemStorage bare(nullptr, nullptr);
    bare.load_text(_T("ab\ncd /* x"), 1);
    bare.set_caret({1, 1});
    bare.move_caret(2);
    EXPECT_EQ(Shown(bare.caret), "(0,1)");
    bare.select_range({0, 0}, {1, 1});
    bare.drop_selection();
    bare.clear_selection();
    EXPECT_FALSE(bare.has_selection());
}

TEST_F(StoreMoves, ColumnOnceCutStaysCut)
{
    xTPos pos(1, 2);
    store.line_up(pos);
    EXPECT_EQ(Shown(pos), "(0,2)");
    pos = {0, 9};
    store.line_down(pos);
    EXPECT_EQ(Shown(pos), "(1,2)");
    store.line_up(pos);
    EXPECT_EQ(Shown(pos), "(0,2)");
}

TEST_F(StoreMoves, LineStepsOutsideTheTextDoNothing)
{
    for (const xTPos& pos : {xTPos(-1, 3), xTPos(4, 3)}) {
        xTPos moved = pos;
        store.line_up(moved);
        store.line_down(moved);
        EXPECT_EQ(moved, pos);
    }
    xTPos last(3, 1);
    store.line_down(last);
    EXPECT_EQ(Shown(last), "(3,1)");
}

struct xTLinesRow {
    xTPos from;
    std::int32_t count;
    const char* to;
};

class StoreLineMoves : public StoreMoves, public testing::WithParamInterface<xTLinesRow> {};

TEST_P(StoreLineMoves, StopAtTheEndsOfTheText)
{
    xTPos pos = GetParam().from;
    store.move_lines(pos, GetParam().count);
    EXPECT_EQ(Shown(pos), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreLineMoves, testing::Values(
    xTLinesRow{{0, 9}, 1, "(1,2)"}, xTLinesRow{{0, 9}, 1000, "(3,9)"}, xTLinesRow{{3, 9}, -1000, "(0,9)"},
    xTLinesRow{{0, 9}, INT32_MAX, "(3,9)"}, xTLinesRow{{3, 9}, INT32_MIN, "(0,9)"}, xTLinesRow{{1, 99}, 0, "(1,99)"},
    xTLinesRow{{3, 99}, 5, "(3,99)"}, xTLinesRow{{0, 99}, -5, "(0,99)"}));

TEST_F(StoreMoves, LineMovesOnAnEmptyStoreDoNothing)
{
    store.reset();
    xTPos pos(0, 0);
    store.move_lines(pos, 3);
    store.move_lines(pos, -3);
    EXPECT_EQ(Shown(pos), "(0,0)");
}

TEST_F(StoreMoves, LineEndOutsideTheTextStays)
{
    xTPos pos(1, 0);
    store.to_line_end(pos);
    EXPECT_EQ(Shown(pos), "(1,2)");
    pos = {4, 1};
    store.to_line_end(pos);
    EXPECT_EQ(Shown(pos), "(4,1)");
}

struct xTHomeRow {
    xTPos pos;
    const char* caret;
};

class StoreHome : public StoreMoves, public testing::WithParamInterface<xTHomeRow> {};

TEST_P(StoreHome, TogglesBetweenTheFirstCharacterAndColumnZero)
{
    store.home_caret(GetParam().pos);
    EXPECT_EQ(Shown(store.caret), GetParam().caret);
    EXPECT_EQ(window.TakeCalls(), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreHome, testing::Values(
    xTHomeRow{{3, 5}, "(3,4)"}, xTHomeRow{{3, 4}, "(3,0)"}, xTHomeRow{{3, 2}, "(3,0)"}, xTHomeRow{{3, 0}, "(3,0)"},
    xTHomeRow{{3, 99}, "(3,4)"}, xTHomeRow{{3, -1}, "(3,0)"}, xTHomeRow{{1, 2}, "(1,0)"}, xTHomeRow{{2, 0}, "(2,0)"},
    xTHomeRow{{9, 5}, "(9,5)"}, xTHomeRow{{-1, 5}, "(0,5)"}));  // outside the text the caret takes the position

}  // namespace
