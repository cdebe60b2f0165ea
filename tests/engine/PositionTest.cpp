#include "tests/support/Shown.h"

#include "store/Positions.h"

#include <gtest/gtest.h>

namespace {

struct xTPosRow {
    std::int32_t line, col;
    const char* shown;
};

class Position : public testing::TestWithParam<xTPosRow> {};

TEST_P(Position, StoresAFieldBelowMinusOneAsZero)
{
    EXPECT_EQ(Shown(xTPos(GetParam().line, GetParam().col)), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Rows, Position, testing::Values(
    xTPosRow{-5, 3, "(0,3)"}, xTPosRow{-1, -1, "(-1,-1)"}, xTPosRow{2, -1, "(2,-1)"}, xTPosRow{2, -2, "(2,0)"},
    xTPosRow{INT32_MIN, INT32_MIN, "(0,0)"}, xTPosRow{INT32_MAX, INT32_MAX, "(2147483647,2147483647)"}));

TEST(PositionRules, EveryCopyRepairsAFieldThatWasSteppedTooLow)
{
    xTPos stepped(2, -1);
    --stepped.col;
    EXPECT_EQ(Shown(xTPos(stepped)), "(2,0)");
    xTPos assigned;
    assigned = stepped;
    EXPECT_EQ(Shown(assigned), "(2,0)");
}

TEST(PositionRules, NoneLooksAtBothFields)
{
    EXPECT_EQ(xTPos(-1, -1), xTPos::none);
    EXPECT_NE(xTPos(2, -1), xTPos::none);
    EXPECT_NE(xTPos(-1, 0), xTPos::none);
}

TEST(PositionRules, OrderIsByLineThenColumn)
{
    EXPECT_LT(xTPos(1, 9), xTPos(2, 0));
    EXPECT_LT(xTPos(2, -1), xTPos(2, 0));
    EXPECT_LT(xTPos::none, xTPos(0, 0));
    EXPECT_LE(xTPos(2, 0), xTPos(2, 0));
}

TEST(PositionRules, MadeByDefaultIsTheStartOfTheText)
{
    EXPECT_EQ(Shown(xTPos()), "(0,0)");
}

}  // namespace
