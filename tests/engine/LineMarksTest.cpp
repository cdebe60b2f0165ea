#include "tests/support/StoreFixture.h"

namespace {

class LineMarks : public xTStoreFixture {
protected:
    void SetUp() override { Load(_T("0\n1\n2\n\n4\n5\n6\n7")); }

    void InsertLineAbove(std::int32_t line) { store.lines.InsertAt(line); }

    [[nodiscard]] std::string FlaggedLines(std::uint16_t flag) const
    {
        std::string found;
        for (std::int32_t i = 0; i < store.line_count(); ++i) {
            if ((store.lines[i].m_flags & flag) != 0)
                found += std::to_string(i) + " ";
        }
        return found;
    }
    [[nodiscard]] std::string BreakLines() const { return FlaggedLines(xTExtString::flagBreakPoint); }
    [[nodiscard]] std::string ExecLines() const { return FlaggedLines(xTExtString::flagExecPoint); }
};

TEST_F(LineMarks, BreakPointIsSetOnceAndAgain)
{
    EXPECT_EQ(store.set_break_point(2), 1);
    EXPECT_EQ(store.set_break_point(2), 1);
    EXPECT_TRUE(store.has_break_point(2));
    EXPECT_EQ(BreakLines(), "2 ");
}

TEST_F(LineMarks, EmptyOrMissingLineTakesNoBreakPoint)
{
    for (const std::int32_t line : {3, -1, 8, INT32_MIN, INT32_MAX})
        EXPECT_EQ(store.set_break_point(line), 0) << line;
    EXPECT_EQ(BreakLines(), "");
}

TEST_F(LineMarks, RemovingABreakPointThatIsNotThereAnswersOne)
{
    EXPECT_EQ(store.remove_break_point(2), 1);
    EXPECT_EQ(store.remove_break_point(3), 1);
    EXPECT_EQ(store.remove_break_point(-1), 1);  // reads as an empty line
    EXPECT_EQ(store.remove_break_point(8), 0);
}

TEST_F(LineMarks, RemovingTakesTheFlagAlone)
{
    store.set_break_point(2);
    store.set_exec_point(2);
    EXPECT_EQ(store.remove_break_point(2), 1);
    EXPECT_EQ(BreakLines(), "");
    EXPECT_EQ(ExecLines(), "2 ");
}

TEST_F(LineMarks, LineThatHasBecomeEmptyKeepsItsBreakPointUntilAllGo)
{
    store.set_break_point(2);
    store.lines[2].DeleteSubString(0, -1);
    EXPECT_EQ(store.remove_break_point(2), 1);
    EXPECT_TRUE(store.has_break_point(2));
    EXPECT_EQ(store.break_point_count(), 1);
    store.remove_all_break_points();
    EXPECT_FALSE(store.has_break_point(2));
    EXPECT_EQ(store.break_point_count(), 0);
}

TEST_F(LineMarks, BreakPointOutsideTheTextIsNone)
{
    EXPECT_FALSE(store.has_break_point(-1));
    EXPECT_FALSE(store.has_break_point(8));
}

TEST_F(LineMarks, BreakPointsAreToldInAscendingOrder)
{
    store.set_break_point(7);
    store.set_break_point(2);
    EXPECT_EQ(store.break_point_count(), 2);
    EXPECT_EQ(store.break_point_line(0), 2);
    EXPECT_EQ(store.break_point_line(1), 7);
    EXPECT_EQ(store.break_point_line(2), -1);
}

TEST_F(LineMarks, NegativeIndexTellsLineZeroOfAnyTextWithLines)
{
    EXPECT_EQ(store.break_point_line(-1), 0);
    EXPECT_EQ(store.break_point_line(INT32_MIN), 0);
    store.reset();
    EXPECT_EQ(store.break_point_line(-1), -1);
}

TEST_F(LineMarks, BreakPointMovesWithItsLine)
{
    store.set_break_point(5);
    InsertLineAbove(1);
    EXPECT_EQ(store.break_point_line(0), 6);
    store.lines.RemoveAt(6);
    EXPECT_EQ(store.break_point_count(), 0);
}

TEST_F(LineMarks, SplitLeavesTheMarksOnTheFirstPart)
{
    store.set_break_point(2);
    const xTExtString head = store.lines[2].LeftPart(0);
    const xTExtString tail = store.lines[2].RightPart(0);
    EXPECT_EQ(head.m_flags, xTExtString::flagBreakPoint);
    EXPECT_EQ(tail.m_flags, 0);
}

TEST_F(LineMarks, ExecutionPointStandsOnOneLine)
{
    EXPECT_TRUE(store.set_exec_point(2));
    EXPECT_TRUE(store.set_exec_point(5));
    EXPECT_EQ(ExecLines(), "5 ");
    EXPECT_EQ(store.exec_line, 5);
    EXPECT_TRUE(store.set_exec_point(5));
    EXPECT_EQ(ExecLines(), "5 ");
}

TEST_F(LineMarks, ExecutionPointMayStandOnAnEmptyLine)
{
    EXPECT_TRUE(store.set_exec_point(3));
    EXPECT_EQ(ExecLines(), "3 ");
}

TEST_F(LineMarks, RefusedExecutionPointLeavesTheOldOne)
{
    store.set_exec_point(2);
    EXPECT_FALSE(store.set_exec_point(8));
    EXPECT_EQ(ExecLines(), "2 ");
    EXPECT_EQ(store.exec_line, 2);
}

TEST_F(LineMarks, NegativeExecutionPointClearsTheOldOneAndFails)
{
    store.set_exec_point(2);
    EXPECT_FALSE(store.set_exec_point(-1));
    EXPECT_EQ(ExecLines(), "");
    EXPECT_EQ(store.exec_line, -1);
}

TEST_F(LineMarks, ExecutionPointThatEditsMovedIsSweptAway)
{
    store.set_exec_point(4);
    InsertLineAbove(1);
    EXPECT_EQ(ExecLines(), "5 ");
    store.clear_exec_point();
    EXPECT_EQ(ExecLines(), "");
    EXPECT_EQ(store.exec_line, -1);
}

TEST_F(LineMarks, StaleExecutionLineOutsideTheTextIsSweptToo)
{
    store.set_exec_point(7);
    store.lines.RemoveAt(0, 3);
    EXPECT_EQ(ExecLines(), "4 ");
    store.clear_exec_point();
    EXPECT_EQ(ExecLines(), "");
}

TEST_F(LineMarks, WithoutAnExecutionLineNothingIsSwept)
{
    store.lines[2].m_flags |= xTExtString::flagExecPoint;
    store.clear_exec_point();
    EXPECT_EQ(ExecLines(), "2 ");
}

TEST_F(LineMarks, ExecutionLineOutlivesALoad)
{
    store.set_exec_point(7);
    Load(_T("a\nb"));
    EXPECT_EQ(store.exec_line, 7);
    store.clear_exec_point();
    EXPECT_EQ(store.exec_line, -1);
}

using Snapshot = LineMarks;

TEST_F(Snapshot, BeforeTheFirstThereAreNoNumbers)
{
    for (std::int32_t i = 0; i < store.line_count(); ++i)
        EXPECT_EQ(store.snapshot_old_line(i), -1);
    EXPECT_EQ(store.snapshot_new_line(0), -1);
}

TEST_F(Snapshot, WithoutEditsMapsEachLineToItself)
{
    store.take_snapshot();
    for (std::int32_t i = 0; i < store.line_count(); ++i) {
        EXPECT_EQ(store.snapshot_old_line(i), i);
        EXPECT_EQ(store.snapshot_new_line(i), i);
    }
}

TEST_F(Snapshot, FollowsARemovedLine)
{
    Load(_T("a\nb\nc"));
    store.take_snapshot();
    store.lines.RemoveAt(1);
    EXPECT_EQ(store.snapshot_new_line(1), -1);
    EXPECT_EQ(store.snapshot_new_line(2), 1);
    EXPECT_EQ(store.snapshot_old_line(1), 2);
}

TEST_F(Snapshot, MinusOneFindsTheFirstNewLine)
{
    store.take_snapshot();
    EXPECT_EQ(store.snapshot_new_line(-1), -1);
    InsertLineAbove(4);
    InsertLineAbove(6);
    EXPECT_EQ(store.snapshot_new_line(-1), 4);
}

TEST_F(Snapshot, OutsideTheTextIsNone)
{
    store.take_snapshot();
    EXPECT_EQ(store.snapshot_old_line(-1), -1);
    EXPECT_EQ(store.snapshot_old_line(8), -1);
}

TEST_F(Snapshot, SecondOneOverwritesTheFirst)
{
    store.take_snapshot();
    store.lines.RemoveAt(0);
    store.take_snapshot();
    EXPECT_EQ(store.snapshot_new_line(7), -1);
    EXPECT_EQ(store.snapshot_old_line(0), 0);
}

TEST_F(Snapshot, OfAnEmptyStoreDoesNothing)
{
    store.reset();
    store.take_snapshot();
    EXPECT_EQ(store.snapshot_new_line(0), -1);
}

}  // namespace
