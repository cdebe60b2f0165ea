#include "store/StaleLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

std::string Shown(const xTStaleLines& stale)
{
    std::string shown;
    for (const xTLineRange& range : stale.Ranges())
        shown += std::to_string(range.first) + "-" + std::to_string(range.last) + " ";
    return shown;
}

xTStaleLines Clean(std::int32_t lineCount)
{
    xTStaleLines stale;
    stale.Clear(lineCount);
    return stale;
}

}  // namespace

TEST(StaleLines, EveryLineIsInDoubtAtFirst)
{
    xTStaleLines stale;
    EXPECT_TRUE(stale.IsWholeText(0));
    stale.Note(3, 3, 10);
    EXPECT_TRUE(stale.IsWholeText(10));
    stale.Clear(10);
    EXPECT_FALSE(stale.IsWholeText(10));
    EXPECT_EQ(Shown(stale), "");
}

TEST(StaleLines, ATextOfAnotherLengthThanTheOneToldOfIsInDoubtAsAWhole)
{
    EXPECT_TRUE(Clean(10).IsWholeText(11));
}

TEST(StaleLines, PlacesFarApartStayApart)
{
    xTStaleLines stale = Clean(100);
    stale.Note(50, 50, 100);
    stale.Note(3, 4, 100);
    stale.Note(90, 95, 100);
    EXPECT_EQ(Shown(stale), "3-4 50-50 90-95 ");
}

TEST(StaleLines, PlacesThatTouchOrOverlapAreOne)
{
    xTStaleLines stale = Clean(100);
    stale.Note(5, 5, 100);
    stale.Note(6, 7, 100);
    stale.Note(4, 4, 100);
    stale.Note(20, 30, 100);
    stale.Note(25, 26, 100);
    EXPECT_EQ(Shown(stale), "4-7 20-30 ");
    stale.Note(6, 22, 100);
    EXPECT_EQ(Shown(stale), "4-30 ");
}

TEST(StaleLines, LinesThatComeOrGoMoveThePlacesBehindThem)
{
    xTStaleLines stale = Clean(100);
    stale.Note(50, 50, 100);
    stale.Note(10, 12, 102);  // one line has become three
    EXPECT_EQ(Shown(stale), "10-12 52-52 ");
    stale.Note(5, 5, 97);  // six lines have become one
    EXPECT_EQ(Shown(stale), "5-7 47-47 ");
    stale.Note(46, 46, 95);
    EXPECT_EQ(Shown(stale), "5-7 46-46 ");
}

TEST(StaleLines, LinesGoneFromTheEndLeaveAPlaceBehindIt)
{
    xTStaleLines stale = Clean(3);
    stale.Note(2, 2, 2);
    EXPECT_EQ(Shown(stale), "2-2 ");
    EXPECT_FALSE(stale.IsWholeText(2));
}

TEST(StaleLines, OfTooManyPlacesTheTwoNearestBecomeOne)
{
    xTStaleLines stale = Clean(100'000);
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(xTStaleLines::mostRanges); ++i)
        stale.Note(i * 100, i * 100, 100'000);
    EXPECT_EQ(stale.Ranges().size(), xTStaleLines::mostRanges);
    stale.Note(207, 207, 100'000);
    EXPECT_EQ(stale.Ranges().size(), xTStaleLines::mostRanges);
    EXPECT_EQ(stale.Ranges()[2].first, 200);
    EXPECT_EQ(stale.Ranges()[2].last, 207);
    EXPECT_EQ(stale.Ranges()[3].first, 300);
}

// Nearly every place of such a walk is told of in passing; what it comes to is what the rule above says.
TEST(StaleLines, OfAWalkDownTheTextTheLargestGapsStay)
{
    constexpr std::int32_t places = 500;
    constexpr std::int32_t lines = places * places;
    std::mt19937 random(7);
    std::vector<std::int32_t> gaps(places - 1);
    std::iota(gaps.begin(), gaps.end(), 2);  // no two the same: which of them stay is no matter of chance
    for (int round = 0; round < 20; ++round) {
        std::shuffle(gaps.begin(), gaps.end(), random);
        xTStaleLines stale = Clean(lines);
        std::int32_t line = 10;
        std::string expected = std::to_string(line) + "-";
        stale.Note(line, line, lines);
        for (const std::int32_t gap : gaps) {
            if (gap > places - static_cast<std::int32_t>(xTStaleLines::mostRanges) + 1)
                expected += std::to_string(line) + " " + std::to_string(line + gap) + "-";
            line += gap;
            stale.Note(line, line, lines);
        }
        ASSERT_EQ(Shown(stale), expected + std::to_string(line) + " ") << "round " << round;
        const std::string before = Shown(stale);
        for (std::int32_t again = 10; const std::int32_t gap : gaps) {  // as an undo does
            stale.Note(again, again, lines);
            again += gap;
        }
        ASSERT_EQ(Shown(stale), before) << "round " << round;
        EXPECT_EQ(stale.Latest(), line - gaps.back());
    }
}

TEST(StaleLines, APlaceBehindTheOneBeforeJoinsTheNextWhereThatIsNearer)
{
    constexpr auto ranges = static_cast<std::int32_t>(xTStaleLines::mostRanges);
    xTStaleLines stale = Clean(100'000);
    for (std::int32_t i = 0; i < ranges; ++i)
        stale.Note(i * 100, i * 100, 100'000);
    stale.Note(1550, 1550, 100'000);
    EXPECT_TRUE(stale.Meets(1520, 1520, 100'000)) << Shown(stale);
    stale.Note(1590, 1590, 100'000);
    EXPECT_TRUE(stale.Meets(1595, 1595, 100'000)) << Shown(stale);
    EXPECT_FALSE(stale.Meets(1570, 1570, 100'000)) << Shown(stale);
}

TEST(StaleLines, APlaceBehindTheOneBeforeStaysApartWhereTwoOthersHaveComeNearer)
{
    constexpr auto ranges = static_cast<std::int32_t>(xTStaleLines::mostRanges);
    xTStaleLines stale = Clean(100'000);
    for (std::int32_t i = 0; i <= ranges; ++i)
        stale.Note(i * 100, i * 100, 100'000);
    stale.Note(1000, 1090, 100'000);  // ten lines ahead of the next range
    stale.Note(1500, 1520, 100'000);
    stale.Note(1540, 1540, 100'000);
    EXPECT_TRUE(stale.Meets(1095, 1095, 100'000)) << Shown(stale);
    EXPECT_FALSE(stale.Meets(1530, 1530, 100'000)) << Shown(stale);
}

// Against a mark on every line. The ranges may hold more lines, never fewer, and only when there are many of them.
TEST(StaleLines, NoChangedLineIsEverLost)
{
    std::mt19937 random(5);
    const auto draw = [&](std::size_t below) { return static_cast<std::int32_t>(random() % below); };
    for (int round = 0; round < 300; ++round) {
        std::vector<bool> changed(200 + random() % 300, false);
        xTStaleLines stale = Clean(static_cast<std::int32_t>(changed.size()));
        for (int step = 0; step < 60; ++step) {
            const std::int32_t first = draw(changed.size());
            const std::int32_t before = std::min(draw(4), static_cast<std::int32_t>(changed.size()) - first);
            const std::int32_t after = 1 + draw(4);
            changed.erase(changed.begin() + first, changed.begin() + first + before);
            changed.insert(changed.begin() + first, static_cast<std::size_t>(after), true);
            stale.Note(first, first + after - 1, static_cast<std::int32_t>(changed.size()));
            std::vector<bool> held(changed.size(), false);
            for (const xTLineRange& range : stale.Ranges())
                std::fill(held.begin() + range.first, held.begin() + range.last + 1, true);
            for (std::size_t i = 0; i < changed.size(); ++i)
                ASSERT_TRUE(held[i] || !changed[i]) << "line " << i << ", round " << round << ": " << Shown(stale);
            if (step < static_cast<int>(xTStaleLines::mostRanges)) {
                ASSERT_EQ(held, changed) << Shown(stale);
            }
        }
    }
}

TEST(StaleLines, LinesWithRightMarksPartARangeAndAreAskedAtTheirEdges)
{
    xTStaleLines stale = Clean(20);
    stale.Note(3, 6, 20);
    stale.Note(15, 16, 20);
    stale.Insert(5, 100, 120);
    EXPECT_EQ(Shown(stale), "3-5 105-106 115-116 ");
    EXPECT_FALSE(stale.IsWholeText(120));
    EXPECT_TRUE(stale.Meets(0, 3, 120));
    EXPECT_FALSE(stale.Meets(6, 104, 120));
    EXPECT_TRUE(stale.Meets(6, 105, 120));
    EXPECT_TRUE(stale.Meets(6, 7, 121)) << "a text of another length is in doubt as a whole";
}

TEST(StaleLines, LinesWithRightMarksLeaveATextInDoubtAsItIs)
{
    xTStaleLines stale;
    stale.Insert(5, 100, 120);
    EXPECT_TRUE(stale.IsWholeText(120));
}

TEST(StaleLines, ARangeThatIsPartedWhenThereIsNoRoomForMoreJoinsTheNearest)
{
    constexpr auto ranges = static_cast<std::int32_t>(xTStaleLines::mostRanges);
    xTStaleLines stale = Clean(1000);
    for (std::int32_t i = 0; i < ranges; ++i)
        stale.Note(20 * i, 20 * i + 5, 1000);
    stale.Insert(2, 7, 1007);
    EXPECT_LE(stale.Ranges().size(), xTStaleLines::mostRanges);
    for (std::int32_t i = 1; i < ranges; ++i)
        EXPECT_TRUE(stale.Meets(20 * i + 7, 20 * i + 12, 1007));
    for (const std::int32_t line : {0, 1, 2, 9, 12})
        EXPECT_TRUE(stale.Meets(line, line, 1007)) << line;
}
