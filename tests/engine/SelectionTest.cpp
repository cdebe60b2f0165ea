#include "tests/support/MarkedText.h"
#include "tests/support/StoreFixture.h"

namespace {

class Selection : public xTStoreFixture {
protected:
    void SetUp() override { Load(_T("one\n\nthree")); }

    // The selection marks of a line's drawing copy: 'S' for a selected character.
    [[nodiscard]] std::string Drawn(std::int32_t line)
    {
        xTExtString copy;
        store.get_line(line, copy);
        store.mark_selection(copy, line);
        std::string marks;
        for (std::int32_t col = 0; col < copy.GetLength(); ++col)
            marks += copy.IsSelected(col) ? 'S' : '.';
        return marks;
    }
};

TEST_F(Selection, EndsMayComeInEitherOrder)
{
    store.select_range({0, 1}, {2, 2});
    EXPECT_EQ(Shown(store.first()) + Shown(store.last()), "(0,1)(2,1)");
    store.select_range({2, 2}, {0, 1});
    EXPECT_EQ(Shown(store.first()) + Shown(store.last()), "(0,1)(2,1)");
}

TEST_F(Selection, EndAtColumnZeroMeansThroughTheBreakBefore)
{
    store.select_range({0, 1}, {1, 0});
    EXPECT_EQ(Shown(store.last()), "(1,-1)");
    CString text;
    EXPECT_EQ(store.selected_text(text), 3);
    EXPECT_EQ(Shown(text), "ne\\n");
}

TEST_F(Selection, EmptyRangeHasItsLastBeforeItsFirst)
{
    store.select_range({2, 2}, {2, 2});
    EXPECT_EQ(Shown(store.first()) + Shown(store.last()), "(2,2)(2,1)");
    CString text;
    EXPECT_EQ(store.selected_text(text), 0);
}

TEST_F(Selection, EndsMayBeItsOwnBounds)
{
    store.select_range({0, 1}, {2, 2});
    store.select_range(store.selection.last, store.selection.first);
    EXPECT_EQ(Shown(store.first()) + Shown(store.last()), "(0,1)(2,0)");
    store.select_range({0, 2}, store.selection.first);
    EXPECT_EQ(Shown(store.first()) + Shown(store.last()), "(0,1)(0,1)");
}

TEST_F(Selection, ExistsOnlyWithBothBounds)
{
    EXPECT_FALSE(store.has_selection());
    store.selection.first = {0, 0};
    EXPECT_FALSE(store.has_selection());
    store.selection.last = {0, 0};
    EXPECT_TRUE(store.has_selection());
    store.selection.first = xTPos::none;
    EXPECT_FALSE(store.has_selection());
}

TEST_F(Selection, ClearingLeavesTheAnchorAndRepaintsOnce)
{
    store.selection.anchor = {2, 2};
    store.select_range({0, 1}, {2, 2});
    store.clear_selection();
    EXPECT_FALSE(store.has_selection());
    EXPECT_EQ(Shown(store.selection.anchor), "(2,2)");
    EXPECT_EQ(window.TakeCalls(), "Invalidate");
    store.clear_selection();
    EXPECT_EQ(window.TakeCalls(), "");
}

TEST_F(Selection, ClearingHalfASelectionDoesNothing)
{
    store.selection.first = {0, 1};
    store.clear_selection();
    EXPECT_EQ(Shown(store.first()), "(0,1)");
}

TEST_F(Selection, DroppingTakesTheAnchorToo)
{
    store.selection.anchor = {2, 2};
    store.select_range({0, 1}, {2, 2});
    store.drop_selection();
    EXPECT_FALSE(store.has_selection());
    EXPECT_EQ(store.selection.anchor, xTPos::none);
    EXPECT_EQ(window.TakeCalls(), "Invalidate");
}

TEST_F(Selection, DroppingNoneRepaintsNothingButForgetsTheAnchor)
{
    store.selection.anchor = {2, 2};
    store.selection.first = {0, 1};
    store.drop_selection();
    EXPECT_EQ(store.selection.anchor, xTPos::none);
    EXPECT_EQ(store.first(), xTPos::none);
    EXPECT_EQ(window.TakeCalls(), "");
}

TEST_F(Selection, DroppedAnchorStandsOnTheCaret)
{
    store.select_range({0, 1}, {2, 2});
    store.set_caret_raw({2, 4});
    store.drop_anchor();
    EXPECT_FALSE(store.has_selection());
    EXPECT_EQ(Shown(store.selection.anchor), "(2,4)");
}

TEST_F(Selection, TextOfNoSelectionIsEmpty)
{
    CString text(_T("old"));
    EXPECT_EQ(store.selected_text(text), 0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(Selection, MarksReachFromFirstToLastInclusive)
{
    store.selection = {xTPos::none, {0, 1}, {2, 2}};
    EXPECT_EQ(Drawn(0), ".SS");
    EXPECT_EQ(Drawn(2), "SSS..");
    store.selection = {xTPos::none, {2, 1}, {2, 1}};
    EXPECT_EQ(Drawn(0), "...");
    EXPECT_EQ(Drawn(2), ".S...");
    store.selection = {xTPos::none, {0, 0}, {2, -1}};
    EXPECT_EQ(Drawn(0), "SSS");
    EXPECT_EQ(Drawn(2), ".....");
    store.selection = {xTPos::none, {0, 2}, {0, 99}};
    EXPECT_EQ(Drawn(0), "..S");
    store.selection = {xTPos::none, {0, -1}, {0, 0}};
    EXPECT_EQ(Drawn(0), "S..");
}

TEST_F(Selection, MarksTouchTheCopyOnly)
{
    store.select_range({0, 0}, {2, 5});
    static_cast<void>(Drawn(0));
    EXPECT_FALSE(store.lines[0].IsSelected(0));
}

TEST_F(Selection, NoneMarksNothing)
{
    EXPECT_EQ(Drawn(0), "...");
}

TEST_F(Selection, SelectedEmptyLineLosesTheFlagsOfItsCopy)
{
    store.select_range({0, 0}, {2, 1});
    xTExtString copy;
    copy.m_flags = 0x0012;
    store.mark_selection(copy, 1);
    EXPECT_EQ(copy.m_flags, 0);
    EXPECT_TRUE(store.has_selection());
}

TEST_F(Selection, EmptyLineOutsideKeepsTheFlagsOfItsCopy)
{
    store.select_range({2, 0}, {2, 1});
    xTExtString copy;
    copy.m_flags = 0x0012;
    store.mark_selection(copy, 1);
    EXPECT_EQ(copy.m_flags, 0x0012);
}

TEST_F(Selection, HalfASelectionOverAnEmptyLineBecomesNone)
{
    store.selection.last = {2, 1};
    xTExtString copy;
    copy.m_flags = 0x0012;
    store.mark_selection(copy, 1);
    EXPECT_EQ(store.last(), xTPos::none);
    EXPECT_EQ(copy.m_flags, 0x0012);
}

class MarkedTexts : public xTStoreFixture, public testing::WithParamInterface<const WCHAR*> {};

TEST_P(MarkedTexts, ReadBackAsTheyWereGiven)
{
    GivenMarked(store, GetParam());
    EXPECT_EQ(Shown(Marked(store)), Shown(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Rows, MarkedTexts, testing::Values(
    _T("|"), _T("|a"), _T("a|\n"), _T("a\n|"), _T("|[ab]"), _T("[ab]|"), _T("a[b\n]|c"), _T("a|[\n\n]c"),
    _T("[one\ntwo]|\n"), _T("x[/* */]y|")));

}  // namespace
